#include <tools/tlx/program/Command.h>

#include <QCoreApplication>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    return runCommandLine(QCoreApplication::arguments());
}
