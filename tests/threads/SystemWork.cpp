#include <core/app/CBenchmarkTimer.h>
#include <core/app/CCompanyStrings.h>
#include <core/app/CHmac.h>
#include <core/app/CPublicWait.h>
#include <core/files/CDir.h>
#include <core/files/CFTPath.h>
#include <core/files/CPath.h>
#include <core/files/CTar.h>
#include <core/files/CTemporaryDir.h>
#include <tests/files/TarArchive.h>
#include <tests/threads/ThreadWork.h>

namespace {

bool directories(int seed)
{
    const CTemporaryDir directory;
    const QString source = directory.path() + QStringLiteral("/source/%1").arg(seed);
    const QString copy = directory.path() + QStringLiteral("/copy");
    QFile file(source + QStringLiteral("/file"));
    const bool isMade =
        directory.isValid() && CDir::copyDirectory(QString(), source) && file.open(QIODevice::WriteOnly);
    file.close(); // Windows removes no open file
    return isMade && CDir::copyDirectoryRecursive(source, copy)
           && CDir::copyFileF(file.fileName(), copy + QStringLiteral("/file"))
           && CDir::listFilesAndDirectories(copy).size() == 2
           && CDir::entryInfoList(copy, {}, NtlxGlobal::DIR_FILTER_FILES).size() == 1
           && CDir::getRelativeSubPath(directory.path(), copy) == QLatin1String("copy")
           && CDir::removeDirectoryRecursive(copy) && CDir::removeFile(file.fileName());
}

bool paths(int seed)
{
    const QString name = QStringLiteral("file%1").arg(seed);
    return CPath::addPathToPath(QStringLiteral("/a"), name) == QStringLiteral("/a/") + name + QLatin1Char('/')
           && CPath::binPath(false).startsWith(CPath::installPath()) && !CPath::configPath(false).isEmpty()
           && !CPath::motorPath(false).isEmpty() && CPath::CPATH_BIN == QLatin1String("bin/");
}

bool entryPoints(int seed)
{
    const auto point = CFTPath::entryPoints().at(seed + 1);
    return CFTPath::toEntryPoint(CFTPath::toString(point)) == point && CFTPath::entryStrMap().size() == 8
           && CFTPath::toRelativePath(CFTPath::toPath(point) + QStringLiteral("x"), point)
                  == QLatin1String("x");
}

bool archives(int seed)
{
    const QTemporaryDir directory;
    const QString path = writeFile(directory, QStringLiteral("a.tar"),
                                   tarFile("one", 100 + seed) + tarFile("two", 2000) + tarEnd());
    CTar tar;
    QByteArray data;
    return tar.loadFile(path) && tar.count() == 2 && tar.file(QStringLiteral("one"), data)
           && data.size() == 100 + seed && !tar.file(9, data) && !tar.error().isEmpty();
}

bool messageCodes(int seed)
{
    const QByteArray key(seed + 1, 'k');
    CHmac code(QCryptographicHash::Sha1, key);
    code.addData("message");
    return code.result() == CHmac::hmac("message", QCryptographicHash::Sha1, key)
           && CHmac::totpStr(key, 0, 30, 6).size() == 6;
}

bool companyStrings(int seed)
{
    return !CCompanyStrings::getCompanyShortName().isEmpty() && !CCompanyStrings::getAddressHtml().isEmpty()
           && CCompanyStrings::productSection(seed).contains(QString::number(seed))
           && CCompanyStrings::getImageFile(QStringLiteral("no such key")).isEmpty();
}

bool ticks(int seed)
{
    CBenchmarkTimer timer;
    timer.start();
    CPublicWait::usleep(static_cast<unsigned long>(seed));
    return timer.elapsed() >= 0 && !timer.unit().isEmpty() && CBenchmarkTimer::ticksPerUs() > 0;
}

} // namespace

QVector<SThreadWork> systemWork()
{
    return {
        {"CDir, CTemporaryDir", directories},   {"CPath", paths},        {"CFTPath", entryPoints},
        {"CTar, CTarFileInfo", archives},       {"CHmac", messageCodes}, {"CCompanyStrings", companyStrings},
        {"CBenchmarkTimer, CPublicWait", ticks}};
}
