#include <core/base/Qt5Conversion.h>
#include <tests/base/VariantValues.h>

#include <QtTest>

#include <cstring>

using namespace NVariantValues;

namespace {

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
    void textsAndBytesAgreeWithQt();
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
    for (const QVariant& number : {as<long>(5), as<ulong>(5)}) {
        QVERIFY(NQt5Conversion::canConvert(number, QMetaType::ULongLong));
        QVERIFY(NQt5Conversion::canConvert(number, QMetaType::SChar));
        QVERIFY(!NQt5Conversion::canConvert(number, QMetaType::UShort));
        QVERIFY(!NQt5Conversion::canConvert(number, QMetaType::Double));
    }
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
    for (const QVariant& value : integers() + longs() + others()) {
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

void tst_Qt5Conversion::textsAndBytesAgreeWithQt()
{
    for (const QVariant& value : integers() + longs() + others()) {
        const QByteArray name = QByteArray(value.typeName()) + ' ' + value.toByteArray();
        QByteArray bytes;
        if (value.canConvert(QMetaType::QByteArray)) {
            QVERIFY2(NQt5Conversion::convert(value, QMetaType::QByteArray, &bytes), name.constData());
            QCOMPARE(bytes, value.toByteArray());
            QCOMPARE(bytes.isNull(), value.toByteArray().isNull());
        }
        QString text;
        const bool isBytes = value.userType() == QMetaType::QByteArray;
        QVERIFY2(NQt5Conversion::convert(value, QMetaType::QString, &text) == isBytes, name.constData());
        QCOMPARE(text, isBytes ? value.toString() : QString());
        QCOMPARE(text.isNull(), !isBytes || value.isNull());
    }
}
#endif

QTEST_APPLESS_MAIN(tst_Qt5Conversion)

#include "tst_Qt5Conversion.moc"
