#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>

#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QDataStream>

#include <cstring>

namespace {

constexpr int VALUES = 64; // values a pass, so that going back to the buffer's beginning does not count

template <typename String>
int unitsOf()
{
    return String().byteArray().size() / 2;
}

template <typename String>
QString fullText()
{
    return QString(unitsOf<String>(), QLatin1Char('x'));
}

template <typename String>
void equal(benchmark::State& state)
{
    String left(fullText<String>());
    String right(fullText<String>());
    for (auto _ : state) {
        benchmark::DoNotOptimize(left);
        benchmark::DoNotOptimize(right);
        benchmark::DoNotOptimize(left == right);
    }
}

// All 2N bytes of two blocks that are equal up to the end.
template <typename String>
void equalMemory(benchmark::State& state)
{
    const QByteArray leftBytes = String(fullText<String>()).byteArray();
    const QByteArray rightBytes = String(fullText<String>()).byteArray();
    const char* left = leftBytes.constData();
    const char* right = rightBytes.constData();
    const std::size_t size = static_cast<std::size_t>(leftBytes.size());
    for (auto _ : state) {
        benchmark::DoNotOptimize(left);
        benchmark::DoNotOptimize(right);
        benchmark::DoNotOptimize(std::memcmp(left, right, size) == 0);
    }
}

template <typename Value>
void streamOut(benchmark::State& state, const Value& value)
{
    QByteArray bytes(VALUES * 300, '\0');
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    for (auto _ : state) {
        buffer.seek(0);
        for (int i = 0; i < VALUES; ++i) {
            stream << value;
        }
    }
    state.SetItemsProcessed(state.iterations() * VALUES);
}

template <typename Value>
void streamIn(benchmark::State& state, const Value& value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    for (int i = 0; i < VALUES; ++i) {
        out << value;
    }
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    Value target;
    for (auto _ : state) {
        buffer.seek(0);
        for (int i = 0; i < VALUES; ++i) {
            stream >> target;
        }
        benchmark::DoNotOptimize(target);
    }
    state.SetItemsProcessed(state.iterations() * VALUES);
}

template <typename String>
void addAll(const std::string& units)
{
    using benchmark::RegisterBenchmark;
    const QString text = fullText<String>();
    const String value(text);
    RegisterBenchmark(("BM_Equal/tlx/" + units).c_str(), equal<String>);
    RegisterBenchmark(("BM_Equal/memcmp/" + units).c_str(), equalMemory<String>);
    RegisterBenchmark(("BM_StreamOut/tlx/" + units).c_str(), streamOut<String>, value);
    RegisterBenchmark(("BM_StreamOut/QString/" + units).c_str(), streamOut<QString>, text);
    RegisterBenchmark(("BM_StreamIn/tlx/" + units).c_str(), streamIn<String>, value);
    RegisterBenchmark(("BM_StreamIn/QString/" + units).c_str(), streamIn<QString>, text);
}

const bool REGISTERED = [] {
    addAll<CString32>("32");
    addAll<CString64>("64");
    addAll<CString128>("128");
    return true;
}();

} // namespace
