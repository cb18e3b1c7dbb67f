#include <core/tlxCoreQTest.h>
#include <tests/types/Variants.h>

#include <QtTest>

// The readers of texts and characters.
class tst_CVariantReadText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void utf16_data();
    void utf16();
    void utf16Fails_data();
    void utf16Fails();
    void utf16Leftovers();
    void utf16Operators();
    void bytes_data();
    void bytes();
    void bytesFail_data();
    void bytesFail();
    void byte_data();
    void byte();
    void utf16Char_data();
    void utf16Char();
    void utf16CharFails_data() { utf16Fails_data(); }
    void utf16CharFails();
    void characterOperators();
};

namespace {

template <int Size>
CVariant charStr(const char* text, char rest = '\0')
{
    char bytes[Size];
    fillBytes(bytes, text, rest);
    bytes[std::strlen(text)] = '\0';
    return CVariant(bytes);
}

template <int Size>
QByteArray filled(char (&dest)[Size])
{
    return QByteArray(dest, Size);
}

} // namespace

void tst_CVariantReadText::utf16_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QString>("text");
    const QString long40(40, QLatin1Char('s'));
    const QString long128(128, QLatin1Char('t'));
    QTest::newRow("STRING32") << CVariant(CString32(QStringLiteral("abc"))) << QStringLiteral("abc");
    QTest::newRow("STRING32 full") << CVariant(CString32(long40)) << long40.left(32);
    QTest::newRow("STRING64") << CVariant(CString64(long40)) << long40;
    QTest::newRow("STRING128 of 40") << CVariant(CString128(long40)) << long40;
    QTest::newRow("STRING128 full") << CVariant(CString128(long128)) << long128;
    QTest::newRow("STRING128 empty") << CVariant(NTypes::TYPE_STRING128) << QString();
    QTest::newRow("UTF16CHAR") << CVariant(QChar(0x20AC)) << QString(QChar(0x20AC));
    QTest::newRow("UTF16CHAR 0") << CVariant(QChar(0)) << QString();
    QTest::newRow("CHARSTR64") << charStr<64>("bytes", 'z') << QStringLiteral("bytes");
    QTest::newRow("CHARSTR128 UTF-8") << charStr<128>("\xC3\xA4") << QString(QChar(0xE4));
    QTest::newRow("CHARSTR256") << charStr<256>(QByteArray(200, 'b').constData())
                                << QString(200, QLatin1Char('b'));
    QTest::newRow("CHAR") << CVariant('c') << QStringLiteral("c");
    QTest::newRow("CHAR 0") << CVariant('\0') << QString();
    QTest::newRow("CHARSTR64 parsed")
        << CVariant(QStringLiteral("short"), NTypes::TYPE_CHARSTR64) << QStringLiteral("short");
}

void tst_CVariantReadText::utf16()
{
    QFETCH(CVariant, value);
    QFETCH(QString, text);
    bool ok = false;
    QCOMPARE(value.toString32(&ok), CString32(text));
    QVERIFY(ok);
    ok = false;
    QCOMPARE(value.toString64(&ok), CString64(text));
    QVERIFY(ok);
    ok = false;
    QCOMPARE(value.toString128(&ok), CString128(text));
    QVERIFY(ok);
    QCOMPARE(value.toString128(), CString128(text));

    unsigned short units32[32] = {'?'};
    unsigned short units64[64] = {'?'};
    unsigned short units128[128] = {'?'};
    QVERIFY(value.toString32(units32));
    QVERIFY(value.toString64(units64));
    QVERIFY(value.toString128(units128));
    QCOMPARE(CString32(units32), CString32(text));
    QCOMPARE(CString64(units64), CString64(text));
    QCOMPARE(CString128(units128), CString128(text));
}

void tst_CVariantReadText::utf16Fails_data()
{
    QTest::addColumn<CVariant>("value");
    for (const NTypes::ETypes type : allTypes()) {
        const CVariant value = sampleOf(type);
        if (!value.canConvertTo(NTypes::TYPE_STRING32)) {
            QTest::addRow("%u", static_cast<uint>(type)) << value;
        }
    }
}

// The arrays get zeros on failure.
void tst_CVariantReadText::utf16Fails()
{
    QFETCH(CVariant, value);
    bool ok = true;
    QCOMPARE(value.toString32(&ok), CString32());
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(value.toString64(&ok), CString64());
    QVERIFY(!ok);
    ok = true;
    QCOMPARE(value.toString128(&ok), CString128());
    QVERIFY(!ok);
    unsigned short units32[32];
    unsigned short units64[64];
    unsigned short units128[128];
    std::memset(units32, 0xEE, sizeof(units32));
    std::memset(units64, 0xEE, sizeof(units64));
    std::memset(units128, 0xEE, sizeof(units128));
    QVERIFY(!value.toString32(units32));
    QVERIFY(!value.toString64(units64));
    QVERIFY(!value.toString128(units128));
    QCOMPARE(CString32(units32), CString32());
    QCOMPARE(CString64(units64), CString64());
    QCOMPARE(CString128(units128), CString128());
}

// The same class is copied as it is; another one gets the text only.
void tst_CVariantReadText::utf16Leftovers()
{
    CString64 text(QStringLiteral("abcdef"));
    text = QStringLiteral("xy");
    const CVariant value(text);
    QCOMPARE(value.toString64(), text);
    QCOMPARE(value.toString32(), CString32(QStringLiteral("xy")));
    QCOMPARE(value.toString128(), CString128(QStringLiteral("xy")));
}

void tst_CVariantReadText::utf16Operators()
{
    const CVariant value(QChar(0xE4));
    QCOMPARE(static_cast<CString32>(value), CString32(QString(QChar(0xE4))));
    QCOMPARE(static_cast<CString64>(value), CString64(QString(QChar(0xE4))));
    QCOMPARE(static_cast<CString128>(value), CString128(QString(QChar(0xE4))));
    QCOMPARE(static_cast<CString32>(CVariant(5)), CString32());
}

void tst_CVariantReadText::bytes_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("CHARSTR64 of 10") << charStr<64>("0123456789") << QByteArray("0123456789");
    QTest::newRow("CHARSTR64 with bytes behind the zero")
        << charStr<64>("ab", 'z') << QByteArray("ab\0", 3).leftJustified(64, 'z');
    QTest::newRow("CHARSTR128 full") << CVariant(QString(200, QLatin1Char('f')), NTypes::TYPE_CHARSTR128)
                                     << QByteArray(128, 'f');
    QTest::newRow("CHARSTR256 full") << CVariant(QString(300, QLatin1Char('g')), NTypes::TYPE_CHARSTR256)
                                     << QByteArray(256, 'g');
    QTest::newRow("CHARSTR64 parsed")
        << CVariant(QStringLiteral("short"), NTypes::TYPE_CHARSTR64) << QByteArray("short");
    QTest::newRow("CHARSTR64 parsed from nothing")
        << CVariant(QString(), NTypes::TYPE_CHARSTR64) << QByteArray();
    QTest::newRow("CHAR") << CVariant('\xE4') << QByteArray("\xE4");
}

void tst_CVariantReadText::bytes()
{
    QFETCH(CVariant, value);
    QFETCH(QByteArray, content);
    char dest64[64];
    char dest128[128];
    char dest256[256];
    fillBytes(dest64, "", '?');
    fillBytes(dest128, "", '?');
    fillBytes(dest256, "", '?');
    QVERIFY(value.toCharStr64(dest64));
    QVERIFY(value.toCharStr128(dest128));
    QVERIFY(value.toCharStr256(dest256));
    // Always terminated: at most size - 1 bytes.
    QCOMPARE(filled(dest64), content.left(63).leftJustified(64, '\0'));
    QCOMPARE(filled(dest128), content.left(127).leftJustified(128, '\0'));
    QCOMPARE(filled(dest256), content.left(255).leftJustified(256, '\0'));
}

void tst_CVariantReadText::bytesFail_data()
{
    QTest::addColumn<CVariant>("value");
    for (const NTypes::ETypes type : allTypes()) {
        const CVariant value = sampleOf(type);
        if (payloadType(value) != QMetaType::QByteArray) {
            QTest::addRow("%u", static_cast<uint>(type)) << value;
        }
    }
}

// Numbers and dates fail too although canConvertTo admits them; the destination is as it was.
void tst_CVariantReadText::bytesFail()
{
    QFETCH(CVariant, value);
    char dest64[64];
    char dest128[128];
    char dest256[256];
    char dest = '?';
    fillBytes(dest64, "", '?');
    fillBytes(dest128, "", '?');
    fillBytes(dest256, "", '?');
    QVERIFY(!value.toCharStr64(dest64));
    QVERIFY(!value.toCharStr128(dest128));
    QVERIFY(!value.toCharStr256(dest256));
    QVERIFY(!value.toChar(dest));
    QCOMPARE(filled(dest64), QByteArray(64, '?'));
    QCOMPARE(filled(dest128), QByteArray(128, '?'));
    QCOMPARE(filled(dest256), QByteArray(256, '?'));
    QCOMPARE(dest, '?');
    QCOMPARE(static_cast<char>(value), '\0');
}

void tst_CVariantReadText::byte_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<char>("expected");
    QTest::newRow("CHAR") << CVariant('A') << 'A';
    QTest::newRow("CHAR above 127") << CVariant('\xFF') << '\xFF';
    QTest::newRow("CHARSTR64") << charStr<64>("text") << 't';
    QTest::newRow("CHARSTR128") << charStr<128>("text") << 't';
    QTest::newRow("CHARSTR256") << charStr<256>("text") << 't';
    QTest::newRow("CHARSTR64 empty") << charStr<64>("") << '\0';
    QTest::newRow("CHAR parsed from nothing") << CVariant(QString(), NTypes::TYPE_CHAR) << '\0';
}

void tst_CVariantReadText::byte()
{
    QFETCH(CVariant, value);
    QFETCH(char, expected);
    char dest = '?';
    QVERIFY(value.toChar(dest));
    QCOMPARE(dest, expected);
    QCOMPARE(static_cast<char>(value), expected);
}

void tst_CVariantReadText::utf16Char_data()
{
    QTest::addColumn<CVariant>("value");
    QTest::addColumn<uint>("expected");
    QTest::newRow("UTF16CHAR") << CVariant(QChar(0x20AC)) << 0x20ACU;
    QTest::newRow("UTF16CHAR surrogate") << CVariant(QChar(0xD800)) << 0xD800U;
    QTest::newRow("UTF16CHAR 0") << CVariant(QChar(0)) << 0U;
    QTest::newRow("STRING32") << CVariant(CString32(QStringLiteral("xyz"))) << uint('x');
    QTest::newRow("STRING64 with U+FEFF") << CVariant(CString64(QString(QChar(0xFEFF)))) << 0xFEFFU;
    QTest::newRow("STRING128") << CVariant(CString128(QStringLiteral("xyz"))) << uint('x');
    QTest::newRow("STRING32 empty") << CVariant(NTypes::TYPE_STRING32) << 0U;
    QTest::newRow("CHARSTR64") << charStr<64>("xyz") << uint('x');
    QTest::newRow("CHARSTR128 UTF-8") << charStr<128>("\xC3\xA4xyz") << 0xE4U;
    QTest::newRow("CHARSTR256 empty") << charStr<256>("") << 0U;
    QTest::newRow("CHAR") << CVariant('x') << uint('x');
    QTest::newRow("CHAR 0") << CVariant('\0') << 0U;
}

void tst_CVariantReadText::utf16Char()
{
    QFETCH(CVariant, value);
    QFETCH(uint, expected);
    unsigned short unit = 0xEEEE;
    QChar character(0xEEEE);
    QVERIFY(value.toUtf16Char(unit));
    QVERIFY(value.toUtf16Char(character));
    QCOMPARE(uint(unit), expected);
    QCOMPARE(uint(character.unicode()), expected);
    QCOMPARE(static_cast<QChar>(value), character);
}

void tst_CVariantReadText::utf16CharFails()
{
    QFETCH(CVariant, value);
    unsigned short unit = 0xEEEE;
    QChar character(0xEEEE);
    QVERIFY(!value.toUtf16Char(unit));
    QVERIFY(!value.toUtf16Char(character));
    QCOMPARE(int(unit), 0);
    QCOMPARE(int(character.unicode()), 0);
}

void tst_CVariantReadText::characterOperators()
{
    QCOMPARE(static_cast<QChar>(CVariant(5)), QChar(0));
    QCOMPARE(static_cast<char>(CVariant(QChar(0x41))), '\0');
    const char implicit = CVariant('A');
    QCOMPARE(implicit, 'A');
}

QTEST_APPLESS_MAIN(tst_CVariantReadText)
#include "tst_CVariantReadText.moc"
