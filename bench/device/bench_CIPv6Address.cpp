#include <core/device/CIPv6Address.h>

#include <benchmark/benchmark.h>

#include <QHostAddress>
#include <QStringList>

namespace {

const QStringList& addresses()
{
    static const QStringList list{QStringLiteral("fe80:0:0:0:0:0:0:1"),
                                  QStringLiteral("2001:db8:85a3:8d3:1319:8a2e:370:7348"),
                                  QStringLiteral("ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff"),
                                  QStringLiteral("FE80:0000:0000:0000:02AA:00FF:FE9A:4CA2")};
    return list;
}

template <typename Address>
void parse(benchmark::State& state)
{
    Address address;
    for (auto _ : state) {
        for (const QString& text : addresses()) {
            benchmark::DoNotOptimize(address.setAddress(text));
            benchmark::DoNotOptimize(address);
        }
    }
    state.SetItemsProcessed(state.iterations() * addresses().size());
}

template <typename Address, typename Print>
void print(benchmark::State& state, Print print)
{
    QList<Address> list;
    for (const QString& text : addresses()) {
        list << Address(text);
    }
    for (auto _ : state) {
        for (const Address& address : list) {
            benchmark::DoNotOptimize(print(address));
        }
    }
    state.SetItemsProcessed(state.iterations() * list.size());
}

void printTlx(benchmark::State& state)
{
    print<CIPv6Address>(state, [](const CIPv6Address& address) { return address.str(); });
}

void printQt(benchmark::State& state)
{
    print<QHostAddress>(state, [](const QHostAddress& address) { return address.toString(); });
}

} // namespace

BENCHMARK_TEMPLATE(parse, CIPv6Address)->Name("BM_ParseIPv6/tlx");
BENCHMARK_TEMPLATE(parse, QHostAddress)->Name("BM_ParseIPv6/QHostAddress");
BENCHMARK(printTlx)->Name("BM_PrintIPv6/tlx");
BENCHMARK(printQt)->Name("BM_PrintIPv6/QHostAddress");
