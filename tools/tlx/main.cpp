#include <tools/tlx/input/SystemNames.h>
#include <tools/tlx/input/Undecodable.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Table.h>
#include <tools/tlx/terminal/Output.h>

#include <QCoreApplication>

namespace {

// The exit code of what was done, unless the output did not arrive.
int finish(int code)
{
    if (outputState() == OUTPUT_LOST) {
        printText(stderr, QStringLiteral("tlx: write error: %1\n").arg(outputError()));
    }
    return outputState() == OUTPUT_WRITTEN || code != EXIT_DONE ? code : int(EXIT_INVALID);
}

// What the library warns of may hold characters out of the input.
void printMessage(QtMsgType, const QMessageLogContext&, const QString& message)
{
    printText(stderr, escapedForTerminal(message) + QLatin1Char('\n'));
}

} // namespace

int main(int argc, char* argv[])
{
    QList<QByteArray> given;
    for (int i = 1; i < argc; ++i) {
        given << argv[i];
    }
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(printMessage);
    const QList<QByteArray> lost = NSystemNames::undecodable(given);
    if (!lost.isEmpty()) {
        const QString what =
            QStringLiteral("an argument is not valid in the system's encoding: choose a locale that has it");
        printText(stderr, QStringLiteral("tlx: %1\n").arg(NUndecodable::counted(lost, what)));
        return EXIT_INVALID;
    }
    return finish(runCommandLine(QCoreApplication::arguments()));
}
