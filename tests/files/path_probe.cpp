#include <core/files/CPath.h>
#include <tools/tlx/Directories.h>

#include <QCoreApplication>

#include <cstdio>
#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

// Says where the program that it is finds its directories. Arguments: "create" makes them ("installed": only those of
// the installation), "mask" sets a strict mask for new files first.

namespace {

void print(const char* name, const QString& value)
{
    std::printf("%s\t%s\n", name, value.toUtf8().constData());
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
