#include <core/device/CDeviceList.h>
#include <core/files/CDir.h>
#include <core/files/CTar.h>
#include <core/types/CVariant.h>
#include <tests/files/TarArchive.h>

#include <benchmark/benchmark.h>

#include <QDataStream>
#include <QFileInfo>
#include <QHostAddress>
#include <QVector>

#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

// What an item costs as the items become many: its time, and the memory that is in use at the peak.

namespace {

/// The process's memory, as Linux tells it; 0 elsewhere.
class PeakMemory
{
public:
    PeakMemory()
    {
#ifdef __GLIBC__
        malloc_trim(0);
#endif
        QFile reset(QStringLiteral("/proc/self/clear_refs"));
        if (reset.open(QIODevice::WriteOnly)) {
            reset.write("5"); // the peak begins anew
            reset.close();
        }
        mBefore = status("VmRSS:");
    }

    /// Bytes in use at the peak since the construction, beyond those in use then.
    qint64 bytes() const
    {
        return status("VmHWM:") - mBefore;
    }

private:
    static qint64 status(const QByteArray& field)
    {
        QFile file(QStringLiteral("/proc/self/status"));
        file.open(QIODevice::ReadOnly);
        const QByteArray text = file.readAll();
        return text.mid(text.indexOf(field) + field.size()).simplified().split(' ').first().toLongLong()
               * 1024;
    }

    qint64 mBefore = 0;
};

/// Runs `work` on what `make` makes of a number of items, which is not measured. `work` returns how many it met.
template <typename Make, typename Work>
void grow(benchmark::State& state, Make make, Work work)
{
    const int count = static_cast<int>(state.range(0));
    const auto input = make(count);
    qint64 peak = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const PeakMemory memory;
        state.ResumeTiming();
        if (work(input) != count) {
            state.SkipWithError("items are missing");
        }
        peak = memory.bytes();
    }
    state.counters["time/item"] = benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate
                                                                | benchmark::Counter::kInvert);
    state.counters["peak/item"] = static_cast<double>(peak) / count;
}

// Memory where there is some: a disk would be measured otherwise.
QString place()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath())
           + QStringLiteral("/bench_Growth_XXXXXX");
}

/// A directory that goes with the last copy of this.
using Directory = std::shared_ptr<QTemporaryDir>;

Directory makeDirectory()
{
    return std::make_shared<QTemporaryDir>(place());
}

QString archiveIn(const Directory& directory)
{
    return directory->filePath(QStringLiteral("x.tar"));
}

Directory makeArchive(int count)
{
    const Directory directory = makeDirectory();
    QFile file(archiveIn(directory));
    file.open(QIODevice::WriteOnly);
    for (int i = 0; i < count; ++i) {
        file.write(tarFile("firmware/drive" + QByteArray::number(i) + ".bin", 0));
    }
    file.write(tarEnd());
    return directory;
}

int loadArchive(const Directory& directory)
{
    CTar tar;
    tar.loadFile(archiveIn(directory));
    return tar.count();
}

int listArchive(const Directory& directory)
{
    CTar tar;
    tar.loadFile(archiveIn(directory));
    const QStringList names = tar.names();
    const QList<CTarFileInfo> infos = tar.infos();
    return qMin(names.size(), infos.size());
}

int findInArchive(const Directory& directory)
{
    CTar tar;
    tar.loadFile(archiveIn(directory));
    const QStringList names = tar.names();
    const QList<CTarFileInfo> infos = tar.infos();
    return tar.index(names.last()) + 1;
}

/// 100 files a directory.
Directory makeTree(int count)
{
    const Directory directory = makeDirectory();
    for (int i = 0; i < count; ++i) {
        const QString folder = directory->filePath(QString::number(i / 100));
        if (i % 100 == 0) {
            QDir().mkdir(folder);
        }
        QFile(folder + QLatin1Char('/') + QString::number(i)).open(QIODevice::WriteOnly);
    }
    return directory;
}

int listTree(const Directory& directory)
{
    return CDir::entryInfoListRecursive(directory->path(), {}, NtlxGlobal::DIR_FILTER_FILES).size();
}

CDeviceList makeDevices(int count)
{
    CDeviceList list(QStringLiteral("Hall 3"), CDeviceList::SOURCE_NONE);
    for (int i = 0; i < count; ++i) {
        const QHostAddress address(0xC0A80000U + static_cast<quint32>(i));
        list.addDevice(static_cast<unsigned int>(i),
                       CDeviceItem(QStringLiteral("Device %1").arg(i), CDeviceItem::HOST_ADDR_NONE, address,
                                   1700, QStringLiteral("extra")));
    }
    return list;
}

QVector<CVariant> makeVariants(int count)
{
    QVector<CVariant> variants;
    for (int i = 0; i < count; ++i) {
        variants << (i % 2 == 0 ? CVariant(static_cast<quint32>(i))
                                : CVariant(CString32(QString::number(i))));
    }
    return variants;
}

template <typename T>
QByteArray written(const T& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

template <typename T>
T read(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    T value;
    stream >> value;
    return value;
}

int writeDevices(const CDeviceList& list)
{
    return written(list).isEmpty() ? 0 : list.devices.size();
}

int readDevices(const QByteArray& bytes)
{
    return read<CDeviceList>(bytes).devices.size();
}

int writeVariants(const QVector<CVariant>& variants)
{
    return written(variants).isEmpty() ? 0 : variants.size();
}

int readVariants(const QByteArray& bytes)
{
    return read<QVector<CVariant>>(bytes).size();
}

QByteArray makeDeviceStream(int count)
{
    return written(makeDevices(count));
}

QByteArray makeVariantStream(int count)
{
    return written(makeVariants(count));
}

void decades(benchmark::internal::Benchmark* run)
{
    run->RangeMultiplier(10)->Range(1000, 1000000)->Iterations(1)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK_CAPTURE(grow, archive load, makeArchive, loadArchive)->Apply(decades);
BENCHMARK_CAPTURE(grow, archive load names infos, makeArchive, listArchive)->Apply(decades);
BENCHMARK_CAPTURE(grow, archive load names infos index, makeArchive, findInArchive)->Apply(decades);
BENCHMARK_CAPTURE(grow, tree list, makeTree, listTree)->Apply(decades);
BENCHMARK_CAPTURE(grow, devices write, makeDevices, writeDevices)->Apply(decades);
BENCHMARK_CAPTURE(grow, devices read, makeDeviceStream, readDevices)->Apply(decades);
BENCHMARK_CAPTURE(grow, variants write, makeVariants, writeVariants)->Apply(decades);
BENCHMARK_CAPTURE(grow, variants read, makeVariantStream, readVariants)->Apply(decades);
