#include <core/files/CDir.h>

#include <benchmark/benchmark.h>

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#ifdef Q_OS_LINUX
#include <unistd.h>
#endif

namespace {

// 40 directories of 50 files each, as a tree of parameter files is.
const QString& tree()
{
    static const QTemporaryDir directory;
    static const QString root = [] {
        for (int i = 0; i < 40; ++i) {
            const QString folder = directory.filePath(QStringLiteral("motor/type%1/%2").arg(i % 5).arg(i));
            QDir().mkpath(folder);
            for (int j = 0; j < 50; ++j) {
                QFile file(QStringLiteral("%1/parameter%2.par").arg(folder).arg(j));
                file.open(QIODevice::WriteOnly);
            }
        }
        return directory.path();
    }();
    return root;
}

void BM_ListRecursive_tlx(benchmark::State& state)
{
    const QString path = tree();
    for (auto _ : state) {
        benchmark::DoNotOptimize(CDir::entryInfoListRecursive(path, {}, NtlxGlobal::DIR_FILTER_ALL).size());
    }
}
BENCHMARK(BM_ListRecursive_tlx)->Name("BM_ListRecursive/tlx");

// The same list as a user would make it.
void BM_ListRecursive_QDirIterator(benchmark::State& state)
{
    const QString path = tree();
    const QDir::Filters filters = CDir::toDirFilter(NtlxGlobal::DIR_FILTER_ALL);
    for (auto _ : state) {
        QFileInfoList entries;
        QDirIterator iterator(path, {}, filters, QDirIterator::Subdirectories);
        while (iterator.hasNext()) {
            iterator.next();
            entries << iterator.fileInfo();
        }
        benchmark::DoNotOptimize(entries.size());
    }
}
BENCHMARK(BM_ListRecursive_QDirIterator)->Name("BM_ListRecursive/QDirIterator");

void BM_ListPaths_tlx(benchmark::State& state)
{
    const QString path = tree();
    for (auto _ : state) {
        benchmark::DoNotOptimize(CDir::listFilesAndDirectories(path).size());
    }
}
BENCHMARK(BM_ListPaths_tlx)->Name("BM_ListPaths/tlx");

// The walk alone: nothing is kept.
void BM_ListPaths_QDirIterator(benchmark::State& state)
{
    const QString path = tree();
    for (auto _ : state) {
        int count = 1;
        QDirIterator iterator(path, {}, QDir::AllEntries | QDir::NoDotAndDotDot,
                              QDirIterator::Subdirectories);
        while (iterator.hasNext()) {
            benchmark::DoNotOptimize(iterator.next());
            ++count;
        }
        benchmark::DoNotOptimize(count);
    }
}
BENCHMARK(BM_ListPaths_QDirIterator)->Name("BM_ListPaths/QDirIterator");

#ifdef Q_OS_LINUX
/// 1,000 files of 4 KiB in 20 directories, below the given directory.
QString smallFiles(const QString& below)
{
    const QString root = below + QStringLiteral("/source");
    for (int i = 0; i < 1000; ++i) {
        const QString folder = QStringLiteral("%1/%2").arg(root).arg(i % 20);
        QDir().mkpath(folder);
        QFile file(QStringLiteral("%1/%2.par").arg(folder).arg(i));
        file.open(QIODevice::WriteOnly);
        file.write(QByteArray(4096, 'x'));
    }
    return root;
}

/// Copies the files to where they lie, and removes the copy unmeasured. `copy` gets both paths.
template <typename Copy>
void copyTree(benchmark::State& state, const QString& place, Copy copy)
{
    const QTemporaryDir directory(place + QStringLiteral("/bench_CDir_XXXXXX"));
    if (!directory.isValid()) {
        state.SkipWithError("no such file system");
        return;
    }
    const QString source = smallFiles(directory.path());
    const QString target = directory.filePath(QStringLiteral("copy"));
    for (auto _ : state) {
        if (!copy(source, target)) {
            state.SkipWithError("not copied");
        }
        state.PauseTiming();
        QDir(target).removeRecursively();
        ::sync();
        state.ResumeTiming();
    }
}

bool copyByTlx(const QString& source, const QString& target)
{
    return CDir::copyDirectoryRecursive(source, target);
}

// What a user would type for the same promise.
bool copyByShell(const QString& source, const QString& target)
{
    const QString command = QStringLiteral("cp -r '%1' '%2' && sync -f '%2'").arg(source, target);
    return std::system(QFile::encodeName(command).constData()) == 0;
}

void measureOnDisk(benchmark::internal::Benchmark* run)
{
    run->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
}

// The current directory stands for a disk, /dev/shm is a tmpfs.
BENCHMARK_CAPTURE(copyTree, disk_tlx, QDir::currentPath(), copyByTlx)
    ->Name("BM_CopyTree/tlx/disk")
    ->Apply(measureOnDisk);
BENCHMARK_CAPTURE(copyTree, disk_cp, QDir::currentPath(), copyByShell)
    ->Name("BM_CopyTree/cp/disk")
    ->Apply(measureOnDisk);
BENCHMARK_CAPTURE(copyTree, tmpfs_tlx, QStringLiteral("/dev/shm"), copyByTlx)
    ->Name("BM_CopyTree/tlx/tmpfs")
    ->Apply(measureOnDisk);
BENCHMARK_CAPTURE(copyTree, tmpfs_cp, QStringLiteral("/dev/shm"), copyByShell)
    ->Name("BM_CopyTree/cp/tmpfs")
    ->Apply(measureOnDisk);
#endif

} // namespace
