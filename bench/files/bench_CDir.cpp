#include <core/files/CDir.h>

#include <benchmark/benchmark.h>

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

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

} // namespace
