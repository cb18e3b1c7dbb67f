#include <tools/tlx/manual/Completion.h>
#include <tools/tlx/manual/Manual.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/program/Suggestion.h>
#include <tools/tlx/program/Version.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>
#include <tools/tlx/terminal/Terminal.h>

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr const char* FORMATS[] = {"json", "jsonl", "csv"};

bool isFormat(const QString& argument)
{
    const auto names = [&argument](const char* format) {
        return argument == QLatin1String("--") + QLatin1String(format);
    };
    return std::any_of(std::begin(FORMATS), std::end(FORMATS), names);
}

// The format options before "--"; a command line that cannot be parsed is answered in the format, too.
QString formatOf(const QStringList& arguments)
{
    QString format;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("--")) {
            break;
        }
        format = isFormat(argument) ? argument.mid(2) : format;
    }
    return format;
}

void printReport(const Report& report, int code, const QString& format)
{
    if (format == QLatin1String("json") && !report.isWritten()) {
        printBytes(stdout, report.json());
        return;
    }
    if (!report.isWritten() && code != EXIT_USAGE) {
        if (format == QLatin1String("jsonl")) {
            printBytes(stdout, report.jsonLines());
        } else if (format == QLatin1String("csv")) {
            printBytes(stdout, report.csv());
        } else {
            printText(stdout, report.text(NTerminal::outputWidth(), NTerminal::wantsColour()));
        }
    }
    printText(stderr, report.errorText());
    if (code == EXIT_USAGE) {
        printText(stderr, QStringLiteral("See: tlx %1 --help\n").arg(report.command()));
    }
}

QCommandLineOption parserOption(const SOption& option)
{
    QStringList names{QLatin1String(option.name)};
    if (option.letter != 0) {
        names.prepend(QString(QLatin1Char(option.letter)));
    }
    return QCommandLineOption(names, option.summary, QLatin1String(option.value),
                              QLatin1String(option.fallback));
}

// What is wrong with a command line that the parser refuses, and what to do about it.
QString parserError(const QCommandLineParser& parser, const SCommand& command, const QStringList& arguments)
{
    static const QRegularExpression number(QStringLiteral("^-[0-9.]"));
    for (const QString& argument : arguments) {
        if (number.match(argument).hasMatch()) {
            return QStringLiteral(
                       "%1 looks like an option: put -- before the first argument that begins with a dash")
                .arg(argument);
        }
    }
    QStringList names;
    const QList<SOption> options = optionsOf(command);
    for (const SOption& option : options) {
        names << QLatin1String(option.name);
    }
    const QString unknown = parser.unknownOptionNames().value(0);
    return unknown.isEmpty() ? parser.errorText() : noSuch(QStringLiteral("option"), unknown, names);
}

int runCommand(const SCommand& command, const QStringList& arguments)
{
    QCommandLineParser parser;
    const QList<SOption> options = optionsOf(command);
    for (const SOption& option : options) {
        parser.addOption(parserOption(option));
    }
    const QString format = formatOf(arguments);
    Report report(QLatin1String(command.name), format == QLatin1String("jsonl"));
    int code = EXIT_DONE;
    if (!parser.parse(arguments)) {
        code = wrongUsage(report, parserError(parser, command, arguments));
    } else if (parser.isSet(QStringLiteral("help"))) {
        printText(stdout, NManual::commandHelp(command));
        return EXIT_DONE;
    } else {
        code = command.run(parser, report);
    }
    code = code == EXIT_DONE && report.hasError() ? int(EXIT_INVALID) : code;
    printReport(report, code, format);
    return code;
}

struct SGeneralOption
{
    const char* name;
    QString (*text)();
};

const SGeneralOption GENERAL_OPTIONS[] = {
    {"--help", NManual::overview},
    {"-h", NManual::overview},
    {"--version", versionText},
    {"--manual-page", NManual::manualPage},
    {"--bash-completion", NCompletion::bash},
    {"--zsh-completion", NCompletion::zsh},
    {"--fish-completion", NCompletion::fish},
};

} // namespace

const SCommand* findCommand(const QString& name)
{
    for (const SCommand& command : commands()) {
        if (name == QLatin1String(command.name)) {
            return &command;
        }
    }
    return nullptr;
}

QStringList commandNames()
{
    QStringList names;
    for (const SCommand& command : commands()) {
        names << QLatin1String(command.name);
    }
    return names;
}

QList<SOption> optionsOf(const SCommand& command)
{
    return QList<SOption>{
               {"help", QStringLiteral("Shows this help."), "", "", 'h'},
               {"json", QStringLiteral("Prints the result as one JSON object.")},
               {"jsonl", QStringLiteral("Prints the rows of the first table as one JSON object a line.")},
               {"csv", QStringLiteral("Prints the first table as comma-separated values.")},
           }
           + command.options;
}

int wrongUsage(Report& report, const QString& message)
{
    report.setError(message);
    return EXIT_USAGE;
}

int invalid(Report& report, const QString& message, qint64 offset)
{
    report.setError(message, offset);
    return EXIT_INVALID;
}

int runCommandLine(const QStringList& arguments)
{
    QStringList formats;
    while (isFormat(arguments.value(1 + formats.size()))) {
        formats << arguments.at(1 + formats.size());
    }
    const QString word = arguments.value(1 + formats.size());
    for (const SGeneralOption& option : GENERAL_OPTIONS) {
        if (word == QLatin1String(option.name)) {
            printText(stdout, option.text());
            return EXIT_DONE;
        }
    }
    const SCommand* command = findCommand(word);
    if (!command) {
        printText(stderr, word.isEmpty() ? NManual::overview()
                                         : QStringLiteral("tlx: %1\nSee: tlx --help\n")
                                               .arg(escapedForTerminal(
                                                   noSuch(QStringLiteral("command"), word, commandNames()))));
        return EXIT_USAGE;
    }
    return runCommand(*command, QStringList{word} + formats + arguments.mid(2 + formats.size()));
}
