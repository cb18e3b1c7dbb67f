// The CRC-32 at every alignment beside its definition bit by bit; and the roundings of any number.
#include <core/text/CMath.h>
#include <fuzz/support/Fuzzer.h>

#include <cmath>

namespace {

quint32 bitwiseCrc(const char* data, int length)
{
    quint32 crc = 0xFFFFFFFFU;
    for (int i = 0; i < length; ++i) {
        crc ^= static_cast<unsigned char>(data[i]);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
        }
    }
    return length > 0 ? ~crc : 0;
}

void checkRounding(double value, unsigned int digits)
{
    const double factor = CMath::exp10(static_cast<int>(digits));
    const double down = CMath::roundOff(value, digits);
    const double up = CMath::roundUp(value, digits);
    CMath::round(value, digits);
    const bool exact = std::abs(value) * factor < 1e15;
    if (digits <= 15 && exact) {
        const double step = 1.0 / factor;
        FUZZ_CHECK(down <= value + step * 1e-6 && value - down < step * 1.000001);
        FUZZ_CHECK(up >= value - step * 1e-6 && up - value < step * 1.000001);
        FUZZ_CHECK(std::abs(CMath::round(value, digits) - value) < step * 0.500001 + std::abs(value) * 1e-15);
    }
}

} // namespace

static void fuzz(Input& input)
{
    const int offset = input.choose(64);
    const double value = input.take<double>();
    checkRounding(value, input.take<unsigned char>());
    CMath::exp10(input.take<int>());
    const QByteArray bytes = input.bytes();
    const QByteArray moved = QByteArray(offset, 'x') + bytes;
    FUZZ_CHECK(CMath::crc32(moved.constData() + offset, bytes.size())
               == bitwiseCrc(bytes.constData(), bytes.size()));
    if (bytes.size() >= 8) {
        const bool plausible = CMath::checkDouble(moved.constData() + offset);
        double number = 0;
        std::memcpy(&number, bytes.constData(), sizeof(number));
        FUZZ_CHECK(!plausible || std::isfinite(number));
    }
}
