#include <core/text/CStr.h>

#include <tests/support/HostileTexts.h>
#include <tests/support/Texts.h>

#include <QDataStream>
#include <QRegExp>
#include <QTranslator>
#include <QtTest>

#include <cstring>

namespace {

// Translates every text of the context "CStr" into "T:" and itself.
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return qstrcmp(context, "CStr") == 0 ? text("T:") + text(source) : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class tst_CStr : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nTypeToStr_data();
    void nTypeToStr();
    void nTypeToStrOfNoType();
    void cutString_data();
    void cutString();
    void inStreamStatus_data();
    void inStreamStatus();
    void goodStream();
    void indexOfAmpersand_data();
    void indexOfAmpersand();
    void indexOfAmpersandByEveryUnit();
    void indexOfAmpersandByPattern();
    void toUtf16_data();
    void toUtf16();
    void toUtf16OfNoBuffer();
    void fromUtf16_data();
    void fromUtf16();
    void fromUtf16OfNothing();
    void fromUtf16StopsAtZero();
};

void tst_CStr::nTypeToStr_data()
{
    QTest::addColumn<quint32>("type");
    QTest::addColumn<QString>("expected");
    const char* const names[] = {"UNKNOWN",    "U8",        "I8",        "U16",        "I16",      "U32",
                                 "I32",        "F32",       "U64",       "I64",        "F64",      "F80",
                                 "STRING32",   "CHARSTR64", "STRING128", "CHARSTR256", "DATETIME", "STRING64",
                                 "CHARSTR128", "UTF16CHAR", "CHAR"};
    quint32 type = 0;
    for (const char* name : names) {
        QTest::newRow(name) << type++ << text(name);
    }
}

void tst_CStr::nTypeToStr()
{
    QFETCH(quint32, type);
    QFETCH(QString, expected);

    QCOMPARE(CStr::nTypeToStr(NTypes::ETypes(type)), expected);
}

void tst_CStr::nTypeToStrOfNoType()
{
    for (const quint32 type : {21U, 255U, 0x80000000U, 0xFFFFFFFFU}) {
        QVERIFY(CStr::nTypeToStr(NTypes::ETypes(type)).isNull());
    }
}

void tst_CStr::cutString_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<uint>("maxLength");
    QTest::addColumn<bool>("atBlank");
    QTest::addColumn<QString>("expected");
    const QString twenty = text("abcdefghijklmnopqrst");
    QTest::newRow("20 to 10") << twenty << 10U << false << text("abcdef ...");
    QTest::newRow("20 to 20") << twenty << 20U << false << twenty;
    QTest::newRow("20 to 19") << twenty << 19U << false << text("abcdefghijklmno ...");
    QTest::newRow("20 to 4294967295") << twenty << 0xFFFFFFFFU << true << twenty;
    QTest::newRow("20 to 5") << twenty << 5U << false << text("a ...");
    QTest::newRow("20 to 4") << twenty << 4U << false << text(" ...");
    QTest::newRow("20 to 3") << twenty << 3U << false << text(" ...");
    QTest::newRow("20 to 0") << twenty << 0U << true << text(" ...");
    QTest::newRow("empty to 0") << QString() << 0U << false << QString();
    QTest::newRow("last blank before the limit")
        << text("ab cd efghijkl") << 11U << true << text("ab cd ...");
    QTest::newRow("blank ignored") << text("ab cd efghijkl") << 11U << false << text("ab cd e ...");
    QTest::newRow("blank at the limit") << text("abcdef ghijkl") << 10U << true << text("abcdef ...");
    QTest::newRow("blank behind the limit") << text("abcdefg hijkl") << 10U << true << text("abcdef ...");
    QTest::newRow("no blank") << twenty << 10U << true << text("abcdef ...");
    QTest::newRow("only the first unit is a blank") << text(" bcdefghijkl") << 10U << true << text(" ...");
    QTest::newRow("tabulator is no blank") << text("ab\tdefghijkl") << 10U << true << text("ab\tdef ...");
}

void tst_CStr::cutString()
{
    QFETCH(QString, s);
    QFETCH(uint, maxLength);
    QFETCH(bool, atBlank);
    QFETCH(QString, expected);

    bool wasCut = expected == s;
    QCOMPARE(CStr::cutString(s, maxLength, wasCut, atBlank), expected);
    QCOMPARE(wasCut, expected != s);
}

void tst_CStr::inStreamStatus_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("expected");
    QTest::newRow("past end") << int(QDataStream::ReadPastEnd)
                              << text("Stream ERROR while reading value \"%1\" : The data stream has read "
                                      "past the end of the data.");
    QTest::newRow("corrupt")
        << int(QDataStream::ReadCorruptData)
        << text("Stream ERROR while reading value \"%1\" : The data stream has read corrupt data.");
    QTest::newRow("write failed") << int(QDataStream::WriteFailed)
                                  << text("Stream ERROR while reading value \"%1\" : Unknown stream status.");
}

void tst_CStr::inStreamStatus()
{
    QFETCH(int, status);
    QFETCH(QString, expected);
    QDataStream stream;
    stream.setStatus(QDataStream::Status(status));

    QString message;
    QVERIFY(!CStr::inStreamStatus(stream, text("speed"), message));
    QCOMPARE(message, QString(expected).replace(text("%1"), text("speed")));

    // The template is translated, then filled.
    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QVERIFY(!CStr::inStreamStatus(stream, text("torque"), message));
    QCOMPARE(message, text("T:") + QString(expected).replace(text("%1"), text("torque")));
    QCoreApplication::removeTranslator(&translator);
}

void tst_CStr::goodStream()
{
    const QDataStream stream;
    QString message = text("before");
    QVERIFY(CStr::inStreamStatus(stream, text("speed"), message));
    QCOMPARE(message, text("before"));
}

void tst_CStr::indexOfAmpersand_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<int>("expected");
    QTest::newRow("at the beginning") << text("&File") << 0;
    QTest::newRow("behind a character") << text("E&xit") << 0;
    QTest::newRow("behind a word") << text("Save &as") << 4;
    QTest::newRow("doubled") << text("Save && Exit") << -1;
    QTest::newRow("doubled before a word") << text("Save &&Exit") << -1;
    QTest::newRow("doubled, then single") << text("A && B &C") << 6;
    QTest::newRow("three") << text("&&&File") << -1;
    QTest::newRow("before a blank") << text("A & B") << -1;
    QTest::newRow("at the end") << text("File&") << -1;
    QTest::newRow("alone") << text("&") << -1;
    QTest::newRow("before a digit") << text("&1") << 0;
    QTest::newRow("before an underscore") << text("a&_") << 0;
    QTest::newRow("before a letter beyond ASCII") << text("&\u00D6ffnen") << 0;
    QTest::newRow("before a Greek letter") << QStringLiteral(u"x&\u03A9") << 0;
    QTest::newRow("empty") << QString() << -1;
}

void tst_CStr::indexOfAmpersand()
{
    QFETCH(QString, s);
    QFETCH(int, expected);

    QCOMPARE(CStr::indexOfAmpersand(s), expected);
}

// Letters, digits and marks are those of QRegExp's \W: all 65536 units, behind and before the ampersand.
void tst_CStr::indexOfAmpersandByEveryUnit()
{
    const QRegExp pattern(text("(^|[^&])&(?!(&|\\W|$))"));
    for (int code = 0; code <= 0xFFFF; ++code) {
        const QChar unit(static_cast<ushort>(code));
        if (unit.unicodeVersion() > QChar::Unicode_13_0) {
            continue; // a letter for the expression of Qt 6
        }
        for (const char* form : {"&?", "?&x", "a&?&b"}) {
            const QString s = text(form).replace(QLatin1Char('?'), unit);
            QVERIFY2(CStr::indexOfAmpersand(s) == pattern.indexIn(s), unitCodes(s).constData());
        }
    }
}

void tst_CStr::indexOfAmpersandByPattern()
{
    const QRegExp pattern(text("(^|[^&])&(?!(&|\\W|$))"));
    HostileTexts texts({text("&File"), text("Save && E&xit"), text("&&&"), text("A & B"), text("a&")},
                       text("&&&ab_ 1"), 815);
    int found = 0;
    for (int i = 0; i < 100000; ++i) {
        const QString s = texts.next();
        const int index = CStr::indexOfAmpersand(s);
        QVERIFY2(index == pattern.indexIn(s), unitCodes(s).constData());
        found += index >= 0 ? 1 : 0;
    }
    QVERIFY(found > 10000 && found < 90000);
}

void tst_CStr::toUtf16_data()
{
    QTest::addColumn<QString>("s");
    QTest::addColumn<int>("bufferBytes");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("terminated");
    QTest::newRow("room to spare") << text("abc") << 10 << 3 << true;
    QTest::newRow("room for the zero") << text("abc") << 8 << 3 << true;
    QTest::newRow("odd byte left") << text("abc") << 7 << 3 << false;
    QTest::newRow("exact") << text("abc") << 6 << 3 << false;
    QTest::newRow("too short") << text("abc") << 5 << 2 << false;
    QTest::newRow("one byte") << text("abc") << 1 << 0 << false;
    QTest::newRow("none") << text("abc") << 0 << 0 << false;
    QTest::newRow("negative") << text("abc") << -2 << 0 << false;
    QTest::newRow("empty text") << QString() << 4 << 0 << true;
    QTest::newRow("embedded zero") << QString(3, QChar(0)) << 8 << 3 << true;
}

void tst_CStr::toUtf16()
{
    QFETCH(QString, s);
    QFETCH(int, bufferBytes);
    QFETCH(int, count);
    QFETCH(bool, terminated);

    ushort buffer[8];
    std::memset(buffer, 0xEE, sizeof(buffer));
    QCOMPARE(CStr::toUtf16(s, buffer, bufferBytes), count);
    for (int i = 0; i < 8; ++i) {
        const ushort expected = i < count ? s.at(i).unicode() : i == count && terminated ? 0 : 0xEEEE;
        QCOMPARE(buffer[i], expected);
    }
}

void tst_CStr::toUtf16OfNoBuffer()
{
    QCOMPARE(CStr::toUtf16(text("abc"), nullptr, 8), 0);
}

void tst_CStr::fromUtf16_data()
{
    QTest::addColumn<QVector<ushort>>("units");
    QTest::addColumn<QString>("expected");
    QTest::newRow("whole") << QVector<ushort>{'a', 'b', 'c'} << text("abc");
    QTest::newRow("to the zero") << QVector<ushort>{'a', 0, 'c'} << text("a");
    QTest::newRow("zero first") << QVector<ushort>{0, 'b'} << QString();
    QTest::newRow("zero byte in a unit, but no zero unit")
        << QVector<ushort>{0x0100, 0x0001, 'x'} << QString(QChar(0x0100)) + QChar(0x0001) + QLatin1Char('x');
    QTest::newRow("zero bytes side by side in two units")
        << QVector<ushort>{0x0061, 0x6200} << QString(QChar(0x61)) + QChar(0x6200);
    QTest::newRow("byte-order mark") << QVector<ushort>{0xFEFF, 'a'}
                                     << QString(QChar(0xFEFF)) + QLatin1Char('a');
    QTest::newRow("swapped mark") << QVector<ushort>{0xFFFE, 'a'}
                                  << QString(QChar(0xFFFE)) + QLatin1Char('a');
    QTest::newRow("lone surrogate") << QVector<ushort>{0xD800, 'a'}
                                    << QString(QChar(0xD800)) + QLatin1Char('a');
}

// At every address, with an odd byte behind the last unit.
void tst_CStr::fromUtf16()
{
    QFETCH(QVector<ushort>, units);
    QFETCH(QString, expected);

    const QByteArray bytes(reinterpret_cast<const char*>(units.constData()), units.size() * 2);
    QCOMPARE(CStr::fromUtf16(bytes), expected);
    QCOMPARE(CStr::fromUtf16(bytes + 'z'), expected);
    const QByteArray moved = 'z' + bytes;
    QCOMPARE(CStr::fromUtf16(QByteArray::fromRawData(moved.constData() + 1, bytes.size())), expected);
    QCOMPARE(CStr::fromUtf16(units.constData(), bytes.size()), expected);
    QCOMPARE(CStr::fromUtf16(units.constData(), bytes.size() + 1), expected);
}

void tst_CStr::fromUtf16OfNothing()
{
    const ushort unit = 'a';
    QCOMPARE(CStr::fromUtf16(QByteArray()), QString());
    QCOMPARE(CStr::fromUtf16(QByteArray("a")), QString());
    QCOMPARE(CStr::fromUtf16(nullptr, 8), QString());
    for (const int bytes : {1, 0, -1, std::numeric_limits<int>::min()}) {
        QCOMPARE(CStr::fromUtf16(&unit, bytes), QString());
    }
}

// The pointer form looks at nothing behind the zero unit, whatever size it was told.
void tst_CStr::fromUtf16StopsAtZero()
{
    const QVector<ushort> units{'a', 'b', 0};
    QCOMPARE(CStr::fromUtf16(units.constData(), 1 << 20), text("ab"));
}

QTEST_GUILESS_MAIN(tst_CStr)
#include "tst_CStr.moc"
