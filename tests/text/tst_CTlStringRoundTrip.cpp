#include <core/text/CTlString.h>

#include <QRandomGenerator>
#include <QtTest>

#include <type_traits>

using SFormat = CTlString::SFormatValue;

namespace {

template <typename T, T (*READ)(const QString&, unsigned int, double, bool*)>
bool comesBack(T value, SFormat format)
{
    // The overloads are those of the language's own types.
    const auto shown = CTlString::toStr(
        static_cast<std::conditional_t<
            sizeof(T) == 8, std::conditional_t<std::is_signed<T>::value, long long, unsigned long long>, T>>(
            value),
        format);
    bool ok = false;
    const T back = READ(shown, format, 1.0, &ok);
    if (ok && back == value) {
        return true;
    }
    qWarning("%lld shown in 0x%08X as \"%s\" reads back as %lld", static_cast<long long>(value),
             static_cast<unsigned int>(format), qPrintable(shown), static_cast<long long>(back));
    return false;
}

// A number of any magnitude, all magnitudes alike; cut to what a double holds where the notation goes through one.
template <typename T>
T anyValue(QRandomGenerator& random, quint8 notation)
{
    const qint64 value = static_cast<qint64>(random.generate64()) >> random.bounded(64);
    if (sizeof(T) < 8 || notation == CTlString::NOTATION_HEX) {
        return static_cast<T>(value);
    }
    const qint64 exact = value % (Q_INT64_C(1) << 53);
    return static_cast<T>(notation == CTlString::NOTATION_DUAL || !std::is_signed<T>::value ? qAbs(exact)
                                                                                            : exact);
}

// A descriptor that shows every digit of the number, and no leading 0 in the fixed-point notation.
template <typename T>
SFormat wideEnough(T value, QRandomGenerator& random, quint8 notation)
{
    constexpr int BITS = static_cast<int>(sizeof(T) * 8);
    const auto format = [&](int fractionDigits, int width) {
        return SFormat(static_cast<qint8>(fractionDigits), static_cast<qint8>(width), 0, notation);
    };
    switch (notation) {
    case CTlString::NOTATION_DECIMAL:
        return format(random.bounded(5), random.bounded(-30, 31));
    case CTlString::NOTATION_FIXED_POINT:
        return format(value >= 1000 ? random.bounded(4) : 0, random.bounded(5, 31));
    case CTlString::NOTATION_HEX:
        return format(random.bounded(BITS / 4), random.bounded(BITS / 4, 40));
    default:
        // A negative number shows one bits up to the width, and a double holds 53 of them.
        return format(random.bounded(BITS), random.bounded(BITS, value < 0 ? 54 : 70));
    }
}

template <typename T, T (*READ)(const QString&, unsigned int, double, bool*)>
bool generatedComeBack(quint8 notation)
{
    QRandomGenerator random(90125U + notation);
    for (int i = 0; i < 5000; ++i) {
        const T value = anyValue<T>(random, notation);
        if (!comesBack<T, READ>(value, wideEnough(value, random, notation))) {
            return false;
        }
    }
    return true;
}

} // namespace

/// Texts of toStr() read back as the same number, over generated numbers and descriptors that are wide enough.
class tst_CTlStringRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void generated_data();
    void generated();
    void everyByte();
    void shifted();
};

void tst_CTlStringRoundTrip::generated_data()
{
    QTest::addColumn<quint8>("notation");
    QTest::newRow("decimal") << quint8(CTlString::NOTATION_DECIMAL);
    QTest::newRow("fixed point") << quint8(CTlString::NOTATION_FIXED_POINT);
    QTest::newRow("hexadecimal") << quint8(CTlString::NOTATION_HEX);
    QTest::newRow("binary") << quint8(CTlString::NOTATION_DUAL);
}

void tst_CTlStringRoundTrip::generated()
{
    QFETCH(quint8, notation);

    QVERIFY((generatedComeBack<qint8, &CTlString::toI8>(notation)));
    QVERIFY((generatedComeBack<quint8, &CTlString::toU8>(notation)));
    QVERIFY((generatedComeBack<qint16, &CTlString::toI16>(notation)));
    QVERIFY((generatedComeBack<quint16, &CTlString::toU16>(notation)));
    QVERIFY((generatedComeBack<qint32, &CTlString::toI32>(notation)));
    QVERIFY((generatedComeBack<quint32, &CTlString::toU32>(notation)));
    QVERIFY((generatedComeBack<qint64, &CTlString::toI64>(notation)));
    QVERIFY((generatedComeBack<quint64, &CTlString::toU64>(notation)));
}

void tst_CTlStringRoundTrip::everyByte()
{
    for (int value = -128; value < 256; ++value) {
        for (const SFormat format : {SFormat(0, 2, 0, 2), SFormat(1, 2, 0, 2), SFormat(0, 8, 0, 3),
                                     SFormat(3, 8, 0, 3), SFormat(0, 0, 0, 0), SFormat(0, 0, 0, 1)}) {
            QVERIFY(value > 127 || (comesBack<qint8, &CTlString::toI8>(static_cast<qint8>(value), format)));
            QVERIFY(value < 0 || (comesBack<quint8, &CTlString::toU8>(static_cast<quint8>(value), format)));
        }
    }
}

// A shift to the right loses the low bits only, a shift to the left nothing.
void tst_CTlStringRoundTrip::shifted()
{
    QRandomGenerator random(7);
    for (int i = 0; i < 5000; ++i) {
        const int bits = random.bounded(0, 28);
        const SFormat right(0, 16, static_cast<qint8>(bits), 2);
        const SFormat left(0, 16, static_cast<qint8>(-bits), 2);
        const qint32 number = anyValue<qint32>(random, CTlString::NOTATION_HEX);
        QVERIFY((comesBack<qint32, &CTlString::toI32>(number & static_cast<qint32>(~0U << bits), right)));
        QVERIFY((comesBack<qint32, &CTlString::toI32>(number, left)));
        QVERIFY((comesBack<quint32, &CTlString::toU32>(static_cast<quint32>(number), left)));
        QVERIFY((comesBack<qint64, &CTlString::toI64>(number, left)));
        QVERIFY((comesBack<qint16, &CTlString::toI16>(static_cast<qint16>(number), left)));
    }
}

QTEST_APPLESS_MAIN(tst_CTlStringRoundTrip)
#include "tst_CTlStringRoundTrip.moc"
