#include <tools/tlx/program/Command.h>

#include <tools/tlx/manual/Manual.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>
#include <tools/tlx/terminal/Terminal.h>

#include <QCommandLineParser>

namespace {

const SCommand* findCommand(const QString& name)
{
    for (const SCommand& command : commands()) {
        if (name == QLatin1String(command.name)) {
            return &command;
        }
    }
    return nullptr;
}

void printReport(const Report& report, int code, bool json)
{
    if (json) {
        printBytes(stdout, report.json().toUtf8());
        return;
    }
    printText(stdout, report.text(NTerminal::outputWidth(), NTerminal::wantsColour()));
    printText(stderr, report.errorText());
    if (code == EXIT_USAGE) {
        printText(stderr, QStringLiteral("See: tlx %1 --help\n").arg(report.command()));
    }
}

int runCommand(const SCommand& command, const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser, command);
    Report report(QLatin1String(command.name));
    int code = EXIT_DONE;
    if (!parser.parse(arguments)) {
        code = wrongUsage(report, parser.errorText());
    } else if (parser.isSet(QStringLiteral("help"))) {
        printText(stdout, NManual::commandHelp(command));
        return EXIT_DONE;
    } else {
        code = command.run(parser, report);
    }
    printReport(report, code, arguments.contains(QLatin1String("--json")));
    return code;
}

struct SGeneralOption
{
    const char* name;
    QString (*text)();
};

QString version()
{
    return QStringLiteral("tlx " TLX_VERSION "\n");
}

const SGeneralOption GENERAL_OPTIONS[] = {
    {"--help", NManual::overview},
    {"-h", NManual::overview},
    {"--version", version},
    {"--manual-page", NManual::manualPage},
    {"--bash-completion", NManual::bashCompletion},
};

} // namespace

void addOptions(QCommandLineParser& parser, const SCommand& command)
{
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help.")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("Prints the result as one JSON object.")});
    if (command.addOptions) {
        command.addOptions(parser);
    }
}

int wrongUsage(Report& report, const QString& message)
{
    report.setError(message);
    return EXIT_USAGE;
}

int runCommandLine(const QStringList& arguments)
{
    const QString word = arguments.value(1);
    for (const SGeneralOption& option : GENERAL_OPTIONS) {
        if (word == QLatin1String(option.name)) {
            printText(stdout, option.text());
            return EXIT_DONE;
        }
    }
    const SCommand* command = findCommand(word);
    if (!command) {
        printText(stderr, word.isEmpty() ? NManual::overview()
                                         : QStringLiteral("tlx: no such command: %1\n").arg(word));
        return EXIT_USAGE;
    }
    return runCommand(*command, arguments.mid(1));
}
