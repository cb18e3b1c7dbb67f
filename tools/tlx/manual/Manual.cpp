#include <tools/tlx/manual/Manual.h>

#include <tools/tlx/program/Command.h>
#include <tools/tlx/terminal/Cells.h>
#include <tools/tlx/terminal/Terminal.h>

#include <algorithm>

namespace {

const QString PURPOSE =
    QStringLiteral("Shows what the library tlxCore does with a value, a file or a directory.");
const QString EXIT_CODES =
    QStringLiteral("0: done; 1: the input is damaged, not valid or different; 2: wrong usage.");

struct SGeneral
{
    const char* name;
    const char* summary;
};

constexpr SGeneral GENERAL[] = {
    {"--help", "Shows this help; after a command, the help for that command."},
    {"--version", "Shows the versions of tlx, Qt and the compiler, and the commit."},
    {"--json", "Before or after a command: prints the result as one JSON object."},
    {"--manual-page", "Prints the manual page, for man -l."},
    {"--bash-completion", "Prints the completion script for bash."},
    {"--zsh-completion", "Prints the completion script for zsh."},
    {"--fish-completion", "Prints the completion script for fish."},
};

int helpWidth()
{
    constexpr int USUAL = 80;
    const int width = NTerminal::outputWidth();
    return width > 0 ? width : USUAL;
}

// "  NAME  text": the text wrapped beside the name, or below it where there is little room.
QString entry(const QString& name, const QString& text, int nameWidth)
{
    constexpr int LEAST = 24;
    const int room = helpWidth() - nameWidth - 4;
    const bool isBelow = room < LEAST;
    const int indent = isBelow ? 6 : nameWidth + 4;
    const QStringList lines = NCells::wrapped(text, isBelow ? helpWidth() - indent : room);
    QString result =
        QLatin1String("  ") + (isBelow ? name + QLatin1Char('\n') : NCells::filled(name, nameWidth + 2));
    for (int i = 0; i < lines.size(); ++i) {
        result += (i > 0 || isBelow ? QString(indent, QLatin1Char(' ')) : QString()) + lines.at(i)
                  + QLatin1Char('\n');
    }
    return result;
}

QString paragraph(const QString& text)
{
    return NCells::wrapped(text, helpWidth()).join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString optionText(const SOption& option)
{
    QString text = option.letter == 0 ? QString() : QStringLiteral("-%1, ").arg(QLatin1Char(option.letter));
    text += QStringLiteral("--") + QLatin1String(option.name);
    return *option.value == 0 ? text : text + QStringLiteral(" <%1>").arg(QLatin1String(option.value));
}

QString optionLines(const SCommand& command)
{
    const QList<SOption> options = optionsOf(command);
    int width = 0;
    for (const SOption& option : options) {
        width = std::max(width, int(optionText(option).size()));
    }
    QString lines;
    for (const SOption& option : options) {
        lines += entry(optionText(option), option.summary, width);
    }
    return lines;
}

QString usage(const SCommand& command)
{
    return QStringLiteral("tlx %1 [OPTIONS] %2")
        .arg(QLatin1String(command.name), QLatin1String(command.arguments))
        .trimmed();
}

// Text as roff shows it: no line is taken for a request, no "-" for a hyphen, no "\" for an escape.
QString roff(const QString& text)
{
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    return escaped.startsWith(QLatin1Char('.')) ? QStringLiteral("\\&") + escaped : escaped;
}

QString commandManual(const SCommand& command)
{
    QString text =
        QStringLiteral(".SS %1\n%2\n.PP\n.B %3\n")
            .arg(QLatin1String(command.name), roff(QLatin1String(command.summary)), roff(usage(command)));
    for (const SOption& option : command.options) {
        text += QStringLiteral(".TP\n.B %1\n%2\n").arg(roff(optionText(option)), roff(option.summary));
    }
    return text + QStringLiteral(".PP\nExample:\n.B %1\n").arg(roff(QLatin1String(command.example)));
}

} // namespace

namespace NManual {

QString overview()
{
    QString text = QStringLiteral("Usage: tlx COMMAND [OPTIONS] [ARGUMENTS]\n") + paragraph(PURPOSE)
                   + QStringLiteral("\nCommands:\n");
    constexpr int NAME_WIDTH = 12;
    for (const SCommand& command : commands()) {
        text += entry(QLatin1String(command.name), QLatin1String(command.summary), NAME_WIDTH);
    }
    text += QLatin1String("\nOptions:\n");
    for (const SGeneral& option : GENERAL) {
        constexpr int OPTION_WIDTH = 18;
        text += entry(QLatin1String(option.name), QLatin1String(option.summary), OPTION_WIDTH);
    }
    return text + QLatin1Char('\n') + paragraph(QStringLiteral("Exit codes: ") + EXIT_CODES)
           + QStringLiteral("Example: tlx value U16 0x1F\n");
}

QString commandHelp(const SCommand& command)
{
    return paragraph(QStringLiteral("Usage: ") + usage(command)) + paragraph(QLatin1String(command.summary))
           + QStringLiteral("\nOptions:\n") + optionLines(command)
           + QStringLiteral("\nExample: %1\n").arg(QLatin1String(command.example));
}

QString manualPage()
{
    QString page = QStringLiteral(".TH TLX 1 \"\" \"tlx %1\" \"User Commands\"\n"
                                  ".SH NAME\ntlx \\- shows how tlxCore reads values, files and directories\n"
                                  ".SH SYNOPSIS\n.B tlx\n.I COMMAND\n[OPTIONS] [ARGUMENTS]\n"
                                  ".SH DESCRIPTION\n%2\n"
                                  "Wherever a file is read, \\- is standard input.\n"
                                  "Every command takes these options:\n")
                       .arg(QStringLiteral(TLX_VERSION), PURPOSE);
    SCommand common{};
    const QList<SOption> options = optionsOf(common);
    for (const SOption& option : options) {
        page += QStringLiteral(".TP\n.B %1\n%2\n").arg(roff(optionText(option)), roff(option.summary));
    }
    page += QLatin1String(".SH COMMANDS\n");
    for (const SCommand& command : commands()) {
        page += commandManual(command);
    }
    return page + QStringLiteral(".SH EXIT STATUS\n") + EXIT_CODES
           + QStringLiteral("\n.SH ENVIRONMENT\n.TP\n.B NO_COLOR\nWhen set, nothing is coloured.\n");
}

} // namespace NManual
