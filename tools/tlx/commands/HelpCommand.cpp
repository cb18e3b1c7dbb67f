#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/manual/Manual.h>
#include <tools/tlx/program/Suggestion.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>

#include <QCommandLineParser>

QStringList helpWords(int position)
{
    return position == 1 ? commandNames() : QStringList();
}

int runHelp(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() > 1) {
        return wrongUsage(report, QStringLiteral("at most one command is expected"));
    }
    const QString name = arguments.value(0);
    const SCommand* command = findCommand(name);
    if (!name.isEmpty() && !command) {
        return wrongUsage(report, noSuch(QStringLiteral("command"), name, commandNames()));
    }
    const QString text = command ? NManual::commandHelp(*command) : NManual::overview();
    if (parser.isSet(QStringLiteral("json"))) {
        report.add("text", "Text", text);
        return EXIT_DONE;
    }
    printText(stdout, text);
    report.setWritten();
    return EXIT_DONE;
}
