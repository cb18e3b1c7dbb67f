// Integers from text and back beside QString's own, in base 10 and 16, short and long. Where ours fills with zeros to a
// width, so does the peer.
#include <core/text/CStr.h>
#include <core/text/CTlString.h>

#include <benchmark/benchmark.h>

#include <QStringList>

#include <string>
#include <vector>

namespace {

// Values of `digits` digits each, spread over the range.
std::vector<qint64> values(int digits)
{
    qint64 smallest = 1;
    for (int i = 1; i < digits; ++i) {
        smallest *= 10;
    }
    std::vector<qint64> list;
    for (qint64 i = 0; i < 64; ++i) {
        list.push_back(smallest + smallest / 7 * (i % 56) + i % smallest);
    }
    return list;
}

QStringList texts(int digits, int base)
{
    QStringList list;
    for (const qint64 value : values(digits)) {
        list << QString::number(value, base);
    }
    return list;
}

template <typename Items, typename Operation>
void registerOperation(const std::string& name, const Items& items, Operation operation)
{
    benchmark::RegisterBenchmark(name.c_str(), [items, operation](benchmark::State& state) {
        for (auto _ : state) {
            for (const auto& item : items) {
                benchmark::DoNotOptimize(operation(item));
            }
        }
        state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items.size()));
    });
}

void registerReading(int digits, int base)
{
    const QStringList list = texts(digits, base);
    const std::string arguments = "/" + std::to_string(digits) + "_digits/base_" + std::to_string(base);
    registerOperation("BM_ReadI64/tlx" + arguments, list, [base](const QString& text) {
        bool ok = false;
        return CStr::strToI64(text, &ok, base);
    });
    registerOperation("BM_ReadI64/QString" + arguments, list, [base](const QString& text) {
        bool ok = false;
        return text.toLongLong(&ok, base);
    });
    if (digits > 9) {
        return;
    }
    registerOperation("BM_ReadU32/tlx" + arguments, list, [base](const QString& text) {
        bool ok = false;
        return CStr::strToU32(text, &ok, base);
    });
    registerOperation("BM_ReadU32/QString" + arguments, list, [base](const QString& text) {
        bool ok = false;
        return text.toUInt(&ok, base);
    });
}

void registerFormatted(const std::string& notation, CTlString::SFormatValue format, int digits, int base)
{
    const std::string arguments = "/" + std::to_string(digits) + "_digits";
    const std::vector<qint64> list = values(digits);
    registerOperation("BM_Format " + notation + "/tlx" + arguments, list, [format](qint64 value) {
        return CTlString::toStr(static_cast<long long>(value), format);
    });
    registerOperation("BM_Format " + notation + "/QString" + arguments, list, [base, format](qint64 value) {
        return format.width == 0 ? QString::number(value, base)
                                 : QStringLiteral("%1").arg(value, format.width, base, QLatin1Char('0'));
    });
    registerOperation("BM_Read " + notation + "/tlx" + arguments, texts(digits, base),
                      [format](const QString& text) {
                          bool ok = false;
                          return CTlString::toI64(text, format, 1.0, &ok);
                      });
    registerOperation("BM_Read " + notation + "/QString" + arguments, texts(digits, base),
                      [base](const QString& text) {
                          bool ok = false;
                          return text.toLongLong(&ok, base);
                      });
}

} // namespace

int main(int argc, char** argv)
{
    for (const int digits : {1, 5, 9, 18}) {
        registerReading(digits, 10);
        registerReading(digits, 16);
    }
    for (const int digits : {1, 5, 9, 15}) {
        registerFormatted("decimal", {0, 0, 0, CTlString::NOTATION_DECIMAL}, digits, 10);
        registerFormatted("fixed point", {0, 0, 0, CTlString::NOTATION_FIXED_POINT}, digits, 10);
        registerFormatted("hexadecimal", {0, 16, 0, CTlString::NOTATION_HEX}, digits, 16);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
