#include <core/files/CTar.h>
#include <tests/files/TarArchive.h>

#include <benchmark/benchmark.h>

#include <QHash>
#include <QTemporaryDir>

#include <cstdlib>
#include <cstring>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif
#ifdef TLX_BENCH_LIBARCHIVE
#include <archive.h>
#include <archive_entry.h>
#endif
#ifdef TLX_BENCH_KARCHIVE
#include <KTar>
#endif

namespace {

constexpr int KIB = 1024;

QString memberName(qint64 i)
{
    return QStringLiteral("firmware/drive%1.bin").arg(i);
}

/// An archive of `count` members of `size` bytes each, made once.
const QString& archive(int count, int size)
{
    static const QTemporaryDir dir;
    static QHash<QString, QString> paths;
    const QString name = QStringLiteral("%1x%2.tar").arg(count).arg(size);
    if (!paths.contains(name)) {
        QFile file(dir.filePath(name));
        if (!file.open(QIODevice::WriteOnly)) {
            std::abort();
        }
        for (int i = 0; i < count; ++i) {
            file.write(tarFile(memberName(i).toLatin1(), size));
        }
        file.write(tarEnd());
        paths.insert(name, file.fileName());
    }
    return paths[name];
}

const QString& archiveOf(const benchmark::State& state)
{
    return archive(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)) * KIB);
}

void Index_tlx(benchmark::State& state)
{
    const QString& path = archiveOf(state);
    for (auto _ : state) {
        CTar tar;
        if (!tar.loadFile(path) || tar.count() != state.range(0)) {
            state.SkipWithError("not indexed");
        }
    }
}

#ifdef Q_OS_UNIX
/// Reads every header on its own, and nothing else.
void Index_pread(benchmark::State& state)
{
    const QByteArray path = QFile::encodeName(archiveOf(state));
    for (auto _ : state) {
        const int file = ::open(path.constData(), O_RDONLY);
        char header[512];
        qint64 pos = 0;
        qint64 count = 0;
        while (::pread(file, header, sizeof(header), pos) == 512
               && std::memcmp(header + 257, "ustar", 5) == 0) {
            pos += 512 + (std::strtoll(header + 124, nullptr, 8) + 511) / 512 * 512;
            ++count;
        }
        ::close(file);
        if (count != state.range(0)) {
            state.SkipWithError("not indexed");
        }
    }
}
#endif

#ifdef TLX_BENCH_LIBARCHIVE
void Index_libarchive(benchmark::State& state)
{
    const QByteArray path = QFile::encodeName(archiveOf(state));
    for (auto _ : state) {
        ::archive* reader = archive_read_new();
        archive_read_support_format_tar(reader);
        archive_read_open_filename(reader, path.constData(), 10240); // the block size that its manual uses
        archive_entry* entry = nullptr;
        qint64 count = 0;
        while (archive_read_next_header(reader, &entry) == ARCHIVE_OK) {
            ++count;
        }
        archive_read_free(reader);
        if (count != state.range(0)) {
            state.SkipWithError("not indexed");
        }
    }
}
#endif

#ifdef TLX_BENCH_KARCHIVE
void Index_KTar(benchmark::State& state)
{
    const QString& path = archiveOf(state);
    for (auto _ : state) {
        KTar tar(path, QStringLiteral("application/x-tar"));
        if (!tar.open(QIODevice::ReadOnly) || tar.directory()->entry(memberName(0)) == nullptr) {
            state.SkipWithError("not indexed");
        }
    }
}
#endif

/// All names, as texts of their own, in an order that is not the archive's.
QStringList askedNames(int count)
{
    QStringList names;
    for (qint64 i = 0; i < count; ++i) {
        names << memberName(i * 7919 % count);
    }
    return names;
}

void IndexOfName_tlx(benchmark::State& state)
{
    CTar tar;
    tar.loadFile(archiveOf(state));
    const QStringList names = askedNames(tar.count());
    int i = tar.index(names.first()); // the first search makes the hash, as the peer has one
    for (auto _ : state) {
        benchmark::DoNotOptimize(tar.index(names.at(i)));
        i = i + 1 < names.size() ? i + 1 : 0;
    }
}

void IndexOfName_QHash(benchmark::State& state)
{
    QHash<QString, int> hash;
    for (int k = 0; k < state.range(0); ++k) {
        hash.insert(memberName(k), k);
    }
    const QStringList names = askedNames(hash.size());
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(hash.value(names.at(i), -1));
        i = i + 1 < names.size() ? i + 1 : 0;
    }
}

void ReadMember_tlx(benchmark::State& state)
{
    CTar tar;
    tar.loadFile(archiveOf(state));
    int i = 0;
    for (auto _ : state) {
        QByteArray data;
        if (!tar.file(i, data)) {
            state.SkipWithError("not read");
        }
        benchmark::DoNotOptimize(data.constData());
        i = i + 1 < tar.count() ? i + 1 : 0;
    }
}

#ifdef Q_OS_UNIX
void ReadMember_pread(benchmark::State& state)
{
    const int size = static_cast<int>(state.range(1)) * KIB;
    const int file = ::open(QFile::encodeName(archiveOf(state)).constData(), O_RDONLY);
    qint64 i = 0;
    for (auto _ : state) {
        QByteArray data(size, Qt::Uninitialized);
        if (::pread(file, data.data(), static_cast<std::size_t>(size), i * (512 + size) + 512) != size) {
            state.SkipWithError("not read");
        }
        benchmark::DoNotOptimize(data.constData());
        i = i + 1 < state.range(0) ? i + 1 : 0;
    }
    ::close(file);
}
#endif

void smallAndLarge(benchmark::internal::Benchmark* run)
{
    run->Args({10000, 1})->Args({1000, 100})->Unit(benchmark::kMicrosecond);
}

} // namespace

BENCHMARK(Index_tlx)->Name("BM_Index/tlx")->Apply(smallAndLarge);
#ifdef Q_OS_UNIX
BENCHMARK(Index_pread)->Name("BM_Index/pread")->Apply(smallAndLarge);
#endif
#ifdef TLX_BENCH_LIBARCHIVE
BENCHMARK(Index_libarchive)->Name("BM_Index/libarchive")->Apply(smallAndLarge);
#endif
#ifdef TLX_BENCH_KARCHIVE
BENCHMARK(Index_KTar)->Name("BM_Index/KTar")->Apply(smallAndLarge);
#endif
BENCHMARK(IndexOfName_tlx)->Name("BM_IndexOfName/tlx")->Args({10000, 1});
BENCHMARK(IndexOfName_QHash)->Name("BM_IndexOfName/QHash")->Args({10000, 1});
BENCHMARK(ReadMember_tlx)->Name("BM_ReadMember/tlx")->Args({100, 100});
#ifdef Q_OS_UNIX
BENCHMARK(ReadMember_pread)->Name("BM_ReadMember/pread")->Args({100, 100});
#endif
