#include <core/base/Qt5Conversion.h>

#include <QDateTime>
#include <QtTest>

#include <cstring>
#include <limits>

namespace {

template <typename T>
QVariant as(qlonglong number)
{
    return QVariant::fromValue(static_cast<T>(number));
}

QVariantList integers()
{
    QVariantList values;
    const qlonglong numbers[] = {0,
                                 5,
                                 -1,
                                 127,
                                 128,
                                 -128,
                                 255,
                                 256,
                                 65535,
                                 65536,
                                 -32769,
                                 2147483647,
                                 2147483648,
                                 4294967295,
                                 16777217,
                                 9007199254740993,
                                 9223371761976868863,
                                 std::numeric_limits<qlonglong>::max(),
                                 std::numeric_limits<qlonglong>::min()};
    for (const qlonglong number : numbers) {
        values << as<int>(number) << as<uint>(number) << as<qlonglong>(number) << as<qulonglong>(number)
               << as<short>(number) << as<ushort>(number) << as<char>(number) << as<signed char>(number)
               << as<uchar>(number) << as<long>(number) << as<ulong>(number) << QVariant(number != 0)
               << QVariant(QChar(static_cast<ushort>(number)));
    }
    return values;
}

QVariantList others()
{
    QVariantList values = {QVariant(),  QDate(),   QDate(2024, 3, 5), QTime(),
                           QDateTime(), QString(), QByteArray(),      QByteArray("ab\0cd", 5)};
    for (const double number : {0.0, 0.5, -0.5, 1.5, 2.5, -2.9, 300.7, 1e10, -1e10, 1e18, 0.1}) {
        values << number << QVariant::fromValue(static_cast<float>(number));
    }
    for (const char* text :
         {"", "0", "5", "-5", "70000", "-70000", "4294967296", "18446744073709551615", "1.5", "1e400", "nan",
          " 7 ", "0x10", "abc", "+3", "true", "1,000", "\xd9\xa3"}) {
        values << QString::fromUtf8(text) << QByteArray(text);
    }
    return values;
}

constexpr int TARGETS[] = {QMetaType::Int,   QMetaType::UInt,   QMetaType::LongLong, QMetaType::ULongLong,
                           QMetaType::Short, QMetaType::UShort, QMetaType::Char,     QMetaType::SChar,
                           QMetaType::UChar, QMetaType::Float,  QMetaType::Double,   QMetaType::QChar};

} // namespace

/// The conversions are those of Qt 5's QVariant.
class tst_Qt5Conversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreCut();
    void forgottenTypes();
    void nullValues();
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    void agreesWithQt();
#endif
};

void tst_Qt5Conversion::textsAreCut()
{
    short number = 0;
    QVERIFY(NQt5Conversion::convert(QStringLiteral("70000"), QMetaType::Short, &number));
    QCOMPARE(number, short(70000 - 65536));
    QVERIFY(!NQt5Conversion::convert(QStringLiteral("1.5"), QMetaType::Short, &number));
    int rounded = 0;
    QVERIFY(NQt5Conversion::convert(2.5, QMetaType::Int, &rounded));
    QCOMPARE(rounded, 3);
}

void tst_Qt5Conversion::forgottenTypes()
{
    const QVariant byte = as<uchar>(5);
    QVERIFY(NQt5Conversion::canConvert(byte, QMetaType::Int));
    QVERIFY(NQt5Conversion::canConvert(byte, QMetaType::UChar));
    QVERIFY(!NQt5Conversion::canConvert(byte, QMetaType::UShort));
    QVERIFY(!NQt5Conversion::canConvert(byte, QMetaType::Float));
    QVERIFY(NQt5Conversion::canConvert(as<ushort>(5), QMetaType::Float));
}

void tst_Qt5Conversion::nullValues()
{
    QVERIFY(NQt5Conversion::isNull(QChar(0)));
    QVERIFY(NQt5Conversion::isNull(QString()));
    QVERIFY(!NQt5Conversion::isNull(QStringLiteral("")));
    QVERIFY(!NQt5Conversion::isNull(0));
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
void tst_Qt5Conversion::agreesWithQt()
{
    for (const QVariant& value : integers() + others()) {
        QCOMPARE(NQt5Conversion::isNull(value), value.isNull());
        for (const int target : TARGETS) {
            const QByteArray name = QByteArray(value.typeName()) + " to " + QMetaType::typeName(target);
            const bool can = NQt5Conversion::canConvert(value, target);
            QVERIFY2(can == value.canConvert(target), name.constData());
            if (value.userType() == target) {
                continue;
            }
            QVariant expected = value;
            const bool done = expected.convert(target);
            QVariant result(target, nullptr);
            const bool ok = can && NQt5Conversion::convert(value, target, result.data());
            QVERIFY2(ok == done, name.constData());
            const auto size = static_cast<std::size_t>(QMetaType::sizeOf(target));
            QVERIFY2(!ok || std::memcmp(result.constData(), expected.constData(), size) == 0,
                     name.constData());
        }
    }
}
#endif

QTEST_APPLESS_MAIN(tst_Qt5Conversion)

#include "tst_Qt5Conversion.moc"
