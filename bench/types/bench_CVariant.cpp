#include <core/types/CVariant.h>

#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QVariant>

#include <string>

namespace {

// The bare payload, made as a program makes it.
template <typename T>
QVariant bare(const T& value)
{
    return QVariant::fromValue(value);
}

template <typename Variant, typename T>
Variant makeOf(const T& value)
{
    if constexpr (std::is_same<Variant, QVariant>::value) {
        return bare(value);
    } else {
        return Variant(value);
    }
}

template <typename Variant, typename T>
void make(benchmark::State& state, const T& value)
{
    T source = value;
    for (auto _ : state) {
        benchmark::DoNotOptimize(source);
        Variant variant = makeOf<Variant>(source);
        benchmark::DoNotOptimize(variant);
    }
}

template <typename Variant, typename T>
void copy(benchmark::State& state, const T& value)
{
    Variant source = makeOf<Variant>(value);
    for (auto _ : state) {
        benchmark::DoNotOptimize(source);
        Variant variant(source);
        benchmark::DoNotOptimize(variant);
    }
}

template <typename Variant, typename T>
void assign(benchmark::State& state, const T& value)
{
    const Variant source = makeOf<Variant>(value);
    Variant target = makeOf<Variant>(value);
    for (auto _ : state) {
        target = source;
        benchmark::DoNotOptimize(target);
    }
}

template <typename Variant, typename T>
void equal(benchmark::State& state, const T& value)
{
    Variant left = makeOf<Variant>(value);
    Variant right = makeOf<Variant>(value);
    for (auto _ : state) {
        benchmark::DoNotOptimize(left);
        benchmark::DoNotOptimize(right);
        benchmark::DoNotOptimize(left == right);
    }
}

QString ourText(const CVariant& value)
{
    return value.toStr();
}

QString textOfQt(const QVariant& value)
{
    return value.toString();
}

// QVariant::toString makes a character of an 8-bit number: QString::number is what does the same.
QString byteTextOfQt(const QVariant& value)
{
    return QString::number(value.toInt());
}

template <typename Variant, typename T, QString (*Text)(const Variant&)>
void toText(benchmark::State& state, const T& value)
{
    Variant variant = makeOf<Variant>(value);
    for (auto _ : state) {
        benchmark::DoNotOptimize(variant);
        benchmark::DoNotOptimize(Text(variant));
    }
}

template <typename T>
void addPair(const std::string& operation, const std::string& type, void (*ours)(benchmark::State&, const T&),
             void (*peer)(benchmark::State&, const T&), const T& value)
{
    benchmark::RegisterBenchmark(("BM_" + operation + "/tlx/" + type).c_str(), ours, value);
    benchmark::RegisterBenchmark(("BM_" + operation + "/QVariant/" + type).c_str(), peer, value);
}

template <typename T>
void addNumber(const std::string& type, const T& value)
{
    addPair<T>("Make", type, make<CVariant, T>, make<QVariant, T>, value);
    addPair<T>("Copy", type, copy<CVariant, T>, copy<QVariant, T>, value);
    addPair<T>("Assign", type, assign<CVariant, T>, assign<QVariant, T>, value);
    addPair<T>("Equal", type, equal<CVariant, T>, equal<QVariant, T>, value);
}

template <typename T>
void addInteger(const std::string& type, const T& value)
{
    addNumber(type, value);
    addPair<T>("ToStr", type, toText<CVariant, T, ourText>,
               sizeof(T) == 1 ? toText<QVariant, T, byteTextOfQt> : toText<QVariant, T, textOfQt>, value);
}

const bool REGISTERED = [] {
    addInteger<unsigned char>("U8", 200);
    addInteger<signed char>("I8", -100);
    addInteger<unsigned short>("U16", 60000);
    addInteger<short>("I16", -30000);
    addInteger<unsigned int>("U32", 4000000000U);
    addInteger<int>("I32", -2000000000);
    addInteger<unsigned long long>("U64", 18000000000000000000ULL);
    addInteger<long long>("I64", -9000000000000000000LL);
    addNumber<float>("F32", 1.5F);
    addNumber<double>("F64", 2.5);
    addNumber<QChar>("UTF16CHAR", QChar(0x20AC));
    return true;
}();

} // namespace
