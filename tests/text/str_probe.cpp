#include <core/text/CStr.h>

#include <QCoreApplication>
#include <QThread>

#include <cstdio>

// Says how the tool that it is in its installation is titled, and where its log files lie.

namespace {

void print(const char* name, const QString& value)
{
    std::printf("%s\t%s\n", name, value.toUtf8().constData());
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QLocale german(QLocale::German, QLocale::Germany);
    const QString date = QStringLiteral("Nov  5 2026");
    const QString name = QStringLiteral("Scope");
    const QString version = QStringLiteral("1.2");
    const QString extra = QStringLiteral("beta");
    const QString placeholder = QStringLiteral("%1");

    if (QCoreApplication::arguments().contains(QLatin1String("titles"))) {
        print("title", CStr::createApplicationTitle(german, date, name, version, extra));
        print("title without extra", CStr::createApplicationTitle(german, date, name, version, QString()));
        print("title with placeholder",
              CStr::createApplicationTitle(german, date, placeholder, version, extra));
        print("short", CStr::createShortApplicationTitle(german, name, version, date, 4000000000U));
        print("short without date", CStr::createShortApplicationTitle(german, name, version, QString(), 0U));
        return 0;
    }
    print("own", CStr::createLogFileName(QString(), false));
    print("named", CStr::createLogFileName(QStringLiteral("/some/where/scope.old.exe"), false));
    print("bare", CStr::createLogFileName(QStringLiteral("scope"), false));
    print("placeholder", CStr::createLogFileName(QStringLiteral("%1.exe"), true));
    print("thread", CStr::createLogFileName(QStringLiteral("scope.exe"), true));
    print("thread id", QString::number(reinterpret_cast<quintptr>(QThread::currentThreadId()), 16));
    return 0;
}
