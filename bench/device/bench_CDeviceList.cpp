#include <core/device/CDeviceList.h>

#include <benchmark/benchmark.h>

#include <QDataStream>

namespace {

CDeviceList makeList(int count)
{
    CDeviceList list(QStringLiteral("Hall 3"), static_cast<CDeviceList::ESourceType>(1));
    for (int i = 0; i < count; ++i) {
        CDeviceItem item(QStringLiteral("Device %1").arg(i), static_cast<CDeviceItem::EHostAddrType>(1),
                         QHostAddress(0xC0A80000U + static_cast<quint32>(i)), 1700, QStringLiteral("extra"));
        item.value2 = 1;
        for (unsigned char sub = 1; sub <= 3; ++sub) {
            item.addSubDevice(sub, CSubDeviceItem(QStringLiteral("Sub-device")));
        }
        list.addDevice(static_cast<unsigned int>(i), item);
    }
    return list;
}

/// The same data as the tools would keep it without the class.
struct SBareList
{
    QString name;
    qint32 sourceType = 0;
    QMap<unsigned int, CDeviceItem> devices;
};

QDataStream& operator<<(QDataStream& stream, const SBareList& list)
{
    return stream << list.name << list.sourceType << list.devices;
}

QDataStream& operator>>(QDataStream& stream, SBareList& list)
{
    return stream >> list.name >> list.sourceType >> list.devices;
}

template <typename List>
QByteArray written(const List& list)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << list;
    return bytes;
}

CDeviceList listOf(const CDeviceList& list, const CDeviceList*)
{
    return list;
}

SBareList listOf(const CDeviceList& list, const SBareList*)
{
    return {list.name, list.sourceType, list.devices};
}

template <typename List>
void write(benchmark::State& state)
{
    const List list = listOf(makeList(static_cast<int>(state.range(0))), static_cast<const List*>(nullptr));
    for (auto _ : state) {
        benchmark::DoNotOptimize(written(list));
    }
}

template <typename List>
void read(benchmark::State& state)
{
    const QByteArray bytes = written(makeList(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        QDataStream stream(bytes);
        List list;
        stream >> list;
        benchmark::DoNotOptimize(list);
    }
}

} // namespace

BENCHMARK_TEMPLATE(write, CDeviceList)->Name("BM_WriteDeviceList/tlx")->Arg(10)->Arg(500);
BENCHMARK_TEMPLATE(write, SBareList)->Name("BM_WriteDeviceList/QMap")->Arg(10)->Arg(500);
BENCHMARK_TEMPLATE(read, CDeviceList)->Name("BM_ReadDeviceList/tlx")->Arg(10)->Arg(500);
BENCHMARK_TEMPLATE(read, SBareList)->Name("BM_ReadDeviceList/QMap")->Arg(10)->Arg(500);
