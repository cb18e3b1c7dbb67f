#include <core/types/CVariant.h>

#include <QBitArray>
#include <QBuffer>
#include <QDataStream>
#include <QtEndian>

#include <benchmark/benchmark.h>

// CVariant on its way out and in: streams beside the bare QVariant (and beside a QVariant with the tag behind it, which
// is what the bytes are), digits and bits beside Qt's own.
namespace {

constexpr int COUNT = 1000;

CVariant sample(int type)
{
    switch (type) {
    case NTypes::TYPE_U8:
        return static_cast<unsigned char>(200);
    case NTypes::TYPE_I32:
        return -5;
    case NTypes::TYPE_F64:
        return 0.1;
    case NTypes::TYPE_STRING32:
        return CString32(QStringLiteral("Axis 1"));
    case NTypes::TYPE_CHARSTR64:
        return CVariant(static_cast<NTypes::ETypes>(type));
    default:
        return NTypes::tsDateTime{{45, 9, 7, 13}, {5, 3, 2024}};
    }
}

struct STagged
{
    QVariant payload;
    qint32 tag;
};

QDataStream& operator<<(QDataStream& stream, const STagged& value)
{
    return stream << value.payload << value.tag;
}

QDataStream& operator>>(QDataStream& stream, STagged& value)
{
    return stream >> value.payload >> value.tag;
}

CVariant peerOf(const CVariant& value, const CVariant*)
{
    return value;
}

QVariant peerOf(const CVariant& value, const QVariant*)
{
    return value;
}

STagged peerOf(const CVariant& value, const STagged*)
{
    return {value, static_cast<qint32>(value.type())};
}

template <typename Value>
void streamOut(benchmark::State& state)
{
    const Value value = peerOf(sample(static_cast<int>(state.range(0))), static_cast<Value*>(nullptr));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    for (auto _ : state) {
        buffer.seek(0);
        QDataStream stream(&buffer);
        for (int i = 0; i < COUNT; ++i) {
            stream << value;
        }
        benchmark::DoNotOptimize(bytes.constData());
    }
    state.SetItemsProcessed(state.iterations() * COUNT);
}

template <typename Value>
void streamIn(benchmark::State& state)
{
    const Value value = peerOf(sample(static_cast<int>(state.range(0))), static_cast<Value*>(nullptr));
    QByteArray bytes;
    {
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        for (int i = 0; i < COUNT; ++i) {
            stream << value;
        }
    }
    for (auto _ : state) {
        QDataStream stream(bytes);
        Value read{};
        for (int i = 0; i < COUNT; ++i) {
            stream >> read;
        }
        benchmark::DoNotOptimize(&read);
    }
    state.SetItemsProcessed(state.iterations() * COUNT);
}

void types(benchmark::internal::Benchmark* benchmark)
{
    for (const int type : {NTypes::TYPE_U8, NTypes::TYPE_I32, NTypes::TYPE_F64, NTypes::TYPE_STRING32,
                           NTypes::TYPE_CHARSTR64, NTypes::TYPE_DATETIME}) {
        benchmark->Arg(type);
    }
}

void hexOfVariant(benchmark::State& state)
{
    const CVariant value(0x1234ABCDULL);
    const QString prefix = QStringLiteral("0x");
    for (auto _ : state) {
        benchmark::DoNotOptimize(value.toHex(prefix));
    }
}

void hexOfByteArray(benchmark::State& state)
{
    const CVariant value(0x1234ABCDULL);
    const QString prefix = QStringLiteral("0x");
    for (auto _ : state) {
        const quint64 number = qToBigEndian<quint64>(value.toU64());
        const QByteArray bytes(reinterpret_cast<const char*>(&number), sizeof(number));
        benchmark::DoNotOptimize(QString(prefix + QString::fromLatin1(bytes.toHex())));
    }
}

void bitsOfVariant(benchmark::State& state)
{
    const CVariant value(0x123456789ABCDEFULL);
    for (auto _ : state) {
        benchmark::DoNotOptimize(value.toBitArray());
    }
}

void bitsOfBits(benchmark::State& state)
{
    const quint64 number = qToLittleEndian<quint64>(0x123456789ABCDEFULL);
    for (auto _ : state) {
        benchmark::DoNotOptimize(QBitArray::fromBits(reinterpret_cast<const char*>(&number), 64));
    }
}

BENCHMARK_TEMPLATE(streamOut, CVariant)->Name("BM_VariantOut/tlx")->Apply(types);
BENCHMARK_TEMPLATE(streamOut, QVariant)->Name("BM_VariantOut/QVariant")->Apply(types);
BENCHMARK_TEMPLATE(streamOut, STagged)->Name("BM_VariantOut/QVariantAndTag")->Apply(types);
BENCHMARK_TEMPLATE(streamIn, CVariant)->Name("BM_VariantIn/tlx")->Apply(types);
BENCHMARK_TEMPLATE(streamIn, QVariant)->Name("BM_VariantIn/QVariant")->Apply(types);
BENCHMARK_TEMPLATE(streamIn, STagged)->Name("BM_VariantIn/QVariantAndTag")->Apply(types);
BENCHMARK(hexOfVariant)->Name("BM_VariantHex/tlx");
BENCHMARK(hexOfByteArray)->Name("BM_VariantHex/QByteArray");
BENCHMARK(bitsOfVariant)->Name("BM_VariantBits/tlx");
BENCHMARK(bitsOfBits)->Name("BM_VariantBits/QBitArray");

} // namespace
