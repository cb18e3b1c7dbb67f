#include <core/tlxCoreQTest.h>
#include <tests/types/FixedStrings.h>

#include <type_traits>

class tst_CString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shape_data() { addFixedStringRows(); }
    void shape();
    void empty_data() { addFixedStringRows(); }
    void empty();
    void fromText_data();
    void fromText();
    void fromBytes_data();
    void fromBytes();
    void fromUnalignedBytes_data() { addFixedStringRows(); }
    void fromUnalignedBytes();
    void fromArray_data() { addFixedStringRows(); }
    void fromArray();
    void assignTextKeepsLeftovers_data() { addFixedStringRows(); }
    void assignTextKeepsLeftovers();
    void assignLongText_data() { addFixedStringRows(); }
    void assignLongText();
    void assignArray_data() { addFixedStringRows(); }
    void assignArray();
    void sharing_data() { addFixedStringRows(); }
    void sharing();
    void embeddedZero_data() { addFixedStringRows(); }
    void embeddedZero();
    void byteOrderMarks_data();
    void byteOrderMarks();
    void copyOut_data() { addFixedStringRows(); }
    void copyOut();
    void leftoversDoNotCross();
    void equality_data() { addFixedStringRows(); }
    void equality();
    void hash_data() { addFixedStringRows(); }
    void hash();
    void debug_data() { addFixedStringRows(); }
    void debug();
};

namespace {

// The units of a text in memory order, by the machine's own units.
template <typename String>
QVector<unsigned short> unitsOf(const String& text)
{
    const QByteArray bytes = text.byteArray();
    QVector<unsigned short> units(bytes.size() / 2);
    std::memcpy(units.data(), bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return units;
}

} // namespace

void tst_CString::shape()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        QCOMPARE(sizeof(String), 2 * sizeof(void*));
        QVERIFY(std::has_virtual_destructor<String>::value);
        QVERIFY(std::is_nothrow_copy_constructible<String>::value);
        QVERIFY(std::is_nothrow_copy_assignable<String>::value);
        QVERIFY(std::is_nothrow_move_constructible<String>::value);
        QVERIFY(std::is_nothrow_move_assignable<String>::value);
        QVERIFY((std::is_convertible<QString, String>::value));
        QVERIFY((std::is_convertible<QByteArray, String>::value));
        QVERIFY((std::is_constructible<String, const unsigned short(&)[row.UNITS]>::value));
        QVERIFY((!std::is_constructible<String, const unsigned short(&)[row.UNITS + 1]>::value));
        QVERIFY((!std::is_assignable<String&, const unsigned short(&)[row.UNITS - 1]>::value));
    });
}

void tst_CString::empty()
{
    forRow([](auto row) {
        const typename decltype(row)::Type text;
        QVERIFY(!text.isValid());
        QCOMPARE(text.str(), QString());
        QCOMPARE(text.byteArray(), QByteArray(2 * row.UNITS, '\0'));
    });
}

void tst_CString::fromText_data()
{
    QTest::addColumn<int>("units");
    QTest::addColumn<int>("length");
    for (const int units : {32, 64, 128}) {
        for (const int length : {0, 1, units - 1, units, units + 1, units + 5, 1000}) {
            QTest::addRow("CString%d from %d units", units, length) << units << length;
        }
    }
}

void tst_CString::fromText()
{
    forRow([](auto row) {
        QFETCH(int, length);
        const QString source = letters(length);
        const typename decltype(row)::Type text(source);
        QCOMPARE(text.str(), source.left(row.UNITS));
        QCOMPARE(text.isValid(), length > 0);
        const QVector<unsigned short> units = unitsOf(text);
        QCOMPARE(units.size(), row.UNITS);
        for (int i = 0; i < row.UNITS; ++i) {
            QCOMPARE(int(units.at(i)), i < length ? 'A' + i : 0);
        }
    });
}

void tst_CString::fromBytes_data()
{
    QTest::addColumn<int>("units");
    QTest::addColumn<int>("size");
    for (const int units : {32, 64, 128}) {
        for (const int size : {0, 1, 2, 3, 2 * units - 1, 2 * units, 2 * units + 1, 999}) {
            QTest::addRow("CString%d from %d bytes", units, size) << units << size;
        }
    }
}

void tst_CString::fromBytes()
{
    forRow([](auto row) {
        QFETCH(int, size);
        QByteArray bytes;
        for (int i = 0; i < size; ++i) {
            bytes += char(1 + i % 255);
        }
        const typename decltype(row)::Type text(bytes);
        QCOMPARE(text.byteArray(), bytes.left(2 * row.UNITS).leftJustified(2 * row.UNITS, '\0'));
        QCOMPARE(text.isValid(), size > 0);
    });
}

void tst_CString::fromUnalignedBytes()
{
    forRow([](auto row) {
        const QByteArray buffer = "xA\1B\2C\3";
        const QByteArray odd = QByteArray::fromRawData(buffer.constData() + 1, 6);
        const typename decltype(row)::Type text(odd);
        QCOMPARE(text.byteArray().left(8), QByteArray("A\1B\2C\3\0\0", 8));
    });
}

void tst_CString::fromArray()
{
    forRow([](auto row) {
        typename decltype(row)::TArray units;
        for (int i = 0; i < row.UNITS; ++i) {
            units[i] = static_cast<unsigned short>(0x4E00 + i);
        }
        units[3] = 0;
        const typename decltype(row)::Type text(units);
        QCOMPARE(text.str().size(), 3);
        QCOMPARE(text.byteArray(), QByteArray(reinterpret_cast<const char*>(units), sizeof(units)));
    });
}

void tst_CString::assignTextKeepsLeftovers()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        String text;
        text = QStringLiteral("abcdef");
        text = QStringLiteral("xy");
        const QVector<unsigned short> begin = unitsOf(text).mid(0, 8);
        QCOMPARE(begin, (QVector<unsigned short>{'x', 'y', 0, 'd', 'e', 'f', 0, 0}));
        QCOMPARE(text.str(), QStringLiteral("xy"));
        QVERIFY(text != String(QStringLiteral("xy")));

        text = QString();
        QCOMPARE(unitsOf(text).mid(0, 4), (QVector<unsigned short>{0, 'y', 0, 'd'}));
        QVERIFY(!text.isValid());
    });
}

void tst_CString::assignLongText()
{
    forRow([](auto row) {
        typename decltype(row)::Type text;
        text = letters(row.UNITS - 1);
        text = QString(row.UNITS, QLatin1Char('z'));
        QCOMPARE(text.str(), QString(row.UNITS, QLatin1Char('z')));
        text = letters(row.UNITS + 5);
        QCOMPARE(text.str(), letters(row.UNITS));
        // One unit short of full: the last unit becomes the terminator.
        text = QString(row.UNITS - 1, QLatin1Char('q'));
        QCOMPARE(text.str(), QString(row.UNITS - 1, QLatin1Char('q')));
        QCOMPARE(int(unitsOf(text).constLast()), 0);
    });
}

void tst_CString::assignArray()
{
    forRow([](auto row) {
        typename decltype(row)::TArray units = {};
        units[0] = 'k';
        units[2] = 'm';
        typename decltype(row)::Type text(letters(row.UNITS));
        const auto copy = text;
        auto& result = (text = units);
        QCOMPARE(&result, &text);
        QCOMPARE(text.byteArray(), QByteArray(reinterpret_cast<const char*>(units), sizeof(units)));
        QCOMPARE(copy.str(), letters(row.UNITS));
    });
}

void tst_CString::sharing()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        String text(QStringLiteral("abcdef"));
        String copy(text);
        String assigned;
        assigned = copy;
        auto& same = copy;
        copy = same;
        QCOMPARE(copy, text);
        QCOMPARE(assigned, text);
        // Writing detaches by copying: the copy has the leftovers, the others stay.
        copy = QStringLiteral("xy");
        QCOMPARE(unitsOf(copy).mid(0, 6), (QVector<unsigned short>{'x', 'y', 0, 'd', 'e', 'f'}));
        QCOMPARE(text.str(), QStringLiteral("abcdef"));
        QCOMPARE(assigned.str(), QStringLiteral("abcdef"));
        const String moved(std::move(text));
        QCOMPARE(moved.str(), QStringLiteral("abcdef"));
        QCOMPARE(assigned, moved);
        // What was moved from shares on.
        QCOMPARE(text, moved); // NOLINT(bugprone-use-after-move): that is what is tested
        text = QStringLiteral("xy");
        QCOMPARE(text.str(), QStringLiteral("xy"));
        QCOMPARE(moved.str(), QStringLiteral("abcdef"));
    });
}

void tst_CString::embeddedZero()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        QString source = QStringLiteral("ab");
        source += QChar(0);
        source += QLatin1String("cd");
        const String text(source);
        QCOMPARE(unitsOf(text).mid(0, 6), (QVector<unsigned short>{'a', 'b', 0, 'c', 'd', 0}));
        QCOMPARE(text.str(), QStringLiteral("ab"));
        String assigned;
        assigned = source;
        QCOMPARE(assigned, text);
        const String leading(QString(QChar(0)) + QLatin1Char('x'));
        QVERIFY(!leading.isValid());
        QCOMPARE(leading.str(), QString());
        QVERIFY(leading != String());
    });
}

void tst_CString::byteOrderMarks_data()
{
    QTest::addColumn<int>("units");
    QTest::addColumn<QString>("source");
    for (const int units : {32, 64, 128}) {
        QTest::addRow("CString%d U+FEFF first", units)
            << units << QString(QChar(0xFEFF)) + QLatin1String("ab");
        QTest::addRow("CString%d U+FFFE first", units)
            << units << QString(QChar(0xFFFE)) + QLatin1String("ab");
        QTest::addRow("CString%d lone surrogates", units)
            << units << QString(QChar(0xDC00)) + QChar(0xD800) + QLatin1Char('a');
        QTest::addRow("CString%d only U+FEFF", units) << units << QString(QChar(0xFEFF));
    }
}

void tst_CString::byteOrderMarks()
{
    forRow([](auto row) {
        QFETCH(QString, source);
        const typename decltype(row)::Type text(source);
        QCOMPARE(text.str(), source);
        QCOMPARE(text.isValid(), true);
    });
}

void tst_CString::copyOut()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        String text(letters(row.UNITS));
        text = QStringLiteral("xy");
        unsigned short dest[row.UNITS + 1];
        std::fill(std::begin(dest), std::end(dest), static_cast<unsigned short>(0xEEEE));
        QVERIFY(copyUnits(text, dest));
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(dest), 2 * row.UNITS), text.byteArray());
        QCOMPARE(int(dest[row.UNITS]), 0xEEEE);
        QVERIFY(!copyUnits(text, nullptr));
        QCOMPARE(text.byteArray().size(), 2 * row.UNITS);
    });
}

void tst_CString::leftoversDoNotCross()
{
    CString32 source(QStringLiteral("abcdef"));
    source = QStringLiteral("xy");
    const CString128 dest(source.str());
    QCOMPARE(dest, CString128(QStringLiteral("xy")));
}

void tst_CString::equality()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        const String text(letters(row.UNITS));
        QVERIFY(text == String(letters(row.UNITS)));
        QVERIFY(!(text != String(letters(row.UNITS))));
        // A difference in any single unit, in any single bit of it.
        for (int i = 0; i < row.UNITS; ++i) {
            for (int bit = 0; bit < 16; ++bit) {
                QByteArray bytes = text.byteArray();
                const int index = 2 * i + bit / 8;
                bytes[index] = char(bytes.at(index) ^ (1 << (bit % 8)));
                const String other(bytes);
                QVERIFY2(text != other, qPrintable(QString::number(i)));
                QVERIFY(!(other == text));
            }
        }
    });
}

void tst_CString::hash()
{
    forRow([](auto row) {
        using String = typename decltype(row)::Type;
        String leftover(QStringLiteral("abcdef"));
        leftover = QStringLiteral("xy");
        const String plain(QStringLiteral("xy"));
        QCOMPARE(qHash(plain), qHash(String(QStringLiteral("xy"))));
        QCOMPARE(qHash(plain, 7), qHash(String(QStringLiteral("xy")), 7));
        QVERIFY(qHash(plain) != qHash(leftover));
        const QSet<String> set = {plain, leftover, String(QStringLiteral("xy"))};
        QCOMPARE(set.size(), 2);
    });
}

void tst_CString::debug()
{
    forRow([](auto row) {
        const typename decltype(row)::Type text(QStringLiteral("Axis 1"));
        QString shown;
        QDebug(&shown) << text << 1;
        QCOMPARE(shown, QStringLiteral("CString%1(\"Axis 1\") 1 ").arg(row.UNITS));
        const QScopedArrayPointer<char> inTest(QTest::toString(text));
        QCOMPARE(QString::fromUtf8(inTest.data()), QStringLiteral("CString%1(\"Axis 1\")").arg(row.UNITS));
    });
}

QTEST_APPLESS_MAIN(tst_CString)
#include "tst_CString.moc"
