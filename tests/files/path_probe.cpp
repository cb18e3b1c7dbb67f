#include <core/files/CDir.h>
#include <core/files/CPath.h>
#include <tools/tlx/commands/Directories.h>

#include <QCoreApplication>

#include <cstdio>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

// Says where the program that it is finds its directories. Arguments: "create" makes them ("installed": only those of
// the installation), "mask" sets a strict mask for new files first. "race" and a directory: makes directories below it, with
// as many others as do the same, and says how many are missing. "move" and
// two names: renames that directory first.

namespace {

void print(const char* name, const QString& value)
{
    std::printf("%s\t%s\n", name, value.toUtf8().constData());
}

int missingAfterRace(const QString& root)
{
    std::getchar(); // all start together
    int missing = 0;
    for (int round = 0; round < 100; ++round) {
        const QString path = QStringLiteral("%1/%2/a/b/c/d").arg(root).arg(round);
        const bool isMade = round % 2 == 0 ? QDir(CPath::createDirIfWanted(path, true)).exists()
                                           : CDir::copyDirectory(QString(), path);
        missing += isMade ? 0 : 1;
    }
    return missing;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool create = arguments.contains(QLatin1String("create"));
#ifdef Q_OS_UNIX
    if (arguments.contains(QLatin1String("mask"))) {
        ::umask(0077);
    }
#endif
    if (arguments.value(1) == QLatin1String("race")) {
        print("missing", QString::number(missingAfterRace(arguments.value(2))));
        return 0;
    }
    if (arguments.value(1) == QLatin1String("move")) {
        std::rename(arguments.value(2).toUtf8().constData(), arguments.value(3).toUtf8().constData());
    }
    print("install", CPath::installPath());
    print("product", CPath::productName());
    print("appdata", CPath::appdataPath());
    print("userdata", CPath::userdataPath());
    for (const SDirectory& row : DIRECTORIES) {
        const bool wanted = create
                            && !(arguments.contains(QLatin1String("installed"))
                                 && !row.path(false).startsWith(CPath::installPath()));
        print(row.name, row.path(wanted));
    }
    return 0;
}
