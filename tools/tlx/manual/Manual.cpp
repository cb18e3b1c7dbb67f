#include <tools/tlx/manual/Manual.h>

#include <tools/tlx/program/Command.h>

#include <QCommandLineParser>

namespace {

const QString PURPOSE =
    QStringLiteral("Shows what the library tlxCore does with the values that it is given.");
const QString EXIT_CODES = QStringLiteral("0 done, 1 the input is damaged or not valid, 2 wrong usage.");

// The lines of the command's options, as QCommandLineParser lays them out.
QString optionsOf(const SCommand& command)
{
    QCommandLineParser parser;
    addOptions(parser, command);
    const QString help = parser.helpText();
    const int first = help.indexOf(QLatin1String("Options:"));
    return help.mid(help.indexOf(QLatin1Char('\n'), first) + 1);
}

QStringList optionNames(const SCommand& command)
{
    QStringList names;
    const QStringList words = optionsOf(command).simplified().split(QLatin1Char(' '));
    for (const QString& word : words) {
        const QString name = word.section(QLatin1Char(','), 0, 0);
        if (name.startsWith(QLatin1String("--")) && !names.contains(name)) {
            names << name;
        }
    }
    return names;
}

// Text as roff shows it: no line is taken for a request, no "-" for a hyphen, no "\" for an escape.
QString roff(const QString& text)
{
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    escaped.replace(QLatin1String("\n."), QLatin1String("\n\\&."));
    return escaped;
}

QString usage(const SCommand& command)
{
    return QStringLiteral("tlx %1 [OPTIONS] %2")
        .arg(QLatin1String(command.name), QLatin1String(command.arguments));
}

QString commandManual(const SCommand& command)
{
    return QStringLiteral(".SS %1\n%2\n.PP\n.nf\n%3\n%4.fi\n.PP\nExample:\n.B %5\n")
        .arg(QLatin1String(command.name), roff(QLatin1String(command.summary)), roff(usage(command)),
             roff(optionsOf(command)), roff(QLatin1String(command.example)));
}

} // namespace

namespace NManual {

QString overview()
{
    QString text = QStringLiteral("Usage: tlx COMMAND [OPTIONS] [ARGUMENTS]\n") + PURPOSE
                   + QStringLiteral("\n\nCommands:\n");
    for (const SCommand& command : commands()) {
        text += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -12)
                    .arg(QLatin1String(command.summary));
    }
    return text
           + QStringLiteral("\nOptions:\n"
                            "  --help             Shows this help; behind a command, the command's own.\n"
                            "  --version          Shows the version.\n"
                            "  --json             Behind a command: prints the result as one JSON object.\n"
                            "  --manual-page      Prints the manual page, for man -l.\n"
                            "  --bash-completion  Prints the completion script for bash.\n\n"
                            "Exit codes: ")
           + EXIT_CODES + QStringLiteral("\nExample: tlx value U16 0x1F\n");
}

QString commandHelp(const SCommand& command)
{
    return QStringLiteral("Usage: %1\n%2\n\nOptions:\n%3\nExample: %4\n")
        .arg(usage(command), QLatin1String(command.summary), optionsOf(command),
             QLatin1String(command.example));
}

QString manualPage()
{
    QString page =
        QStringLiteral(".TH TLX 1 \"\" \"tlx %1\" \"User Commands\"\n"
                       ".SH NAME\ntlx \\- shows values, files and directories as tlxCore sees them\n"
                       ".SH SYNOPSIS\n.B tlx\n.I COMMAND\n[OPTIONS] [ARGUMENTS]\n"
                       ".SH DESCRIPTION\n%2\n"
                       "Every command takes \\-\\-help and \\-\\-json.\n"
                       ".SH COMMANDS\n")
            .arg(QStringLiteral(TLX_VERSION), PURPOSE);
    for (const SCommand& command : commands()) {
        page += commandManual(command);
    }
    return page + QStringLiteral(".SH EXIT STATUS\n") + EXIT_CODES
           + QStringLiteral("\n.SH ENVIRONMENT\n.TP\n.B NO_COLOR\nWhen set, nothing is coloured.\n");
}

QString bashCompletion()
{
    QStringList names;
    QString cases;
    for (const SCommand& command : commands()) {
        names << QLatin1String(command.name);
        cases += QStringLiteral("        %1) words=\"%2\" ;;\n")
                     .arg(QLatin1String(command.name), optionNames(command).join(QLatin1Char(' ')));
    }
    return QStringLiteral("# bash completion for tlx\n"
                          "_tlx() {\n"
                          "    local current=${COMP_WORDS[COMP_CWORD]} words\n"
                          "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                          "        COMPREPLY=($(compgen -W \"%1 --help --version\" -- \"$current\"))\n"
                          "        return\n"
                          "    fi\n"
                          "    case ${COMP_WORDS[1]} in\n%2    esac\n"
                          "    case $current in\n"
                          "        -*) COMPREPLY=($(compgen -W \"$words\" -- \"$current\")) ;;\n"
                          "        *) COMPREPLY=($(compgen -f -- \"$current\")) ;;\n"
                          "    esac\n"
                          "}\n"
                          "complete -o filenames -F _tlx tlx\n")
        .arg(names.join(QLatin1Char(' ')), cases);
}

} // namespace NManual
