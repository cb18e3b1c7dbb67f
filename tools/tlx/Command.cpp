#include "Command.h"

#include "Report.h"

#include <QCommandLineParser>

#include <cstdio>

namespace {

void print(FILE* file, const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), file);
    std::fflush(file);
}

QString overview()
{
    QString text = QStringLiteral("Usage: tlx COMMAND [OPTIONS] [ARGUMENTS]\n"
                                  "Shows what the library tlxCore does with the values that it is given.\n\n"
                                  "Commands:\n");
    for (const SCommand& command : commands()) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -12)
                    .arg(QLatin1String(command.summary));
    }
    return text
           + QStringLiteral("\nOptions:\n"
                            "  --help       Shows this help; behind a command, the command's own.\n"
                            "  --version    Shows the version.\n"
                            "  --json       Behind a command: prints the result as one JSON object.\n\n"
                            "Exit codes: 0 done, 1 the input is damaged or not valid, 2 wrong usage.\n"
                            "Example: tlx value U16 0x1F\n");
}

QString commandHelp(const SCommand& command, const QCommandLineParser& parser)
{
    QString options = parser.helpText();
    options = options.mid(options.indexOf(QLatin1String("Options:")));
    options = options.left(options.indexOf(QLatin1String("\nArguments:")));
    return QStringLiteral("Usage: tlx %1 [OPTIONS] %2\n%3\n\n%4\nExample: %5\n")
        .arg(QLatin1String(command.name), QLatin1String(command.arguments), QLatin1String(command.summary),
             options, QLatin1String(command.example));
}

const SCommand* findCommand(const QString& name)
{
    for (const SCommand& command : commands()) {
        if (name == QLatin1String(command.name)) {
            return &command;
        }
    }
    return nullptr;
}

int runCommand(const SCommand& command, const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Shows this help.")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("Prints the result as one JSON object.")});
    if (command.addOptions) {
        command.addOptions(parser);
    }
    CReport report(QLatin1String(command.name));
    int code = EXIT_DONE;
    if (!parser.parse(arguments)) {
        code = wrongUsage(report, parser.errorText());
    } else if (parser.isSet(QStringLiteral("help"))) {
        print(stdout, commandHelp(command, parser));
        return EXIT_DONE;
    } else {
        code = command.run(parser, report);
    }
    const bool json = arguments.contains(QLatin1String("--json"));
    print(stdout, json ? report.json() : report.text());
    if (!json) {
        print(stderr, report.errorText());
    }
    if (code == EXIT_USAGE && !json) {
        print(stderr, QStringLiteral("See: tlx %1 --help\n").arg(QLatin1String(command.name)));
    }
    return code;
}

} // namespace

int wrongUsage(CReport& report, const QString& message)
{
    report.setError(message);
    return EXIT_USAGE;
}

int runCommandLine(const QStringList& arguments)
{
    const QString word = arguments.value(1);
    if (word == QLatin1String("--help") || word == QLatin1String("-h") || word == QLatin1String("help")) {
        print(stdout, overview());
        return EXIT_DONE;
    }
    if (word == QLatin1String("--version")) {
        print(stdout, QStringLiteral("tlx " TLX_VERSION "\n"));
        return EXIT_DONE;
    }
    const SCommand* command = findCommand(word);
    if (!command) {
        print(stderr, word.isEmpty() ? overview() : QStringLiteral("tlx: no such command: %1\n").arg(word));
        return EXIT_USAGE;
    }
    return runCommand(*command, arguments.mid(1));
}
