#include <tools/tlx/manual/Completion.h>

#include <tools/tlx/program/Command.h>

namespace {

constexpr int POSITIONS = 3; // arguments that a command has words for

QString joined(const QStringList& words)
{
    return words.join(QLatin1Char(' '));
}

QStringList optionNames(const SCommand& command)
{
    QStringList names;
    const QList<SOption> options = optionsOf(command);
    for (const SOption& option : options) {
        names << QStringLiteral("--") + QLatin1String(option.name);
    }
    return names;
}

// Text between single quotes, for every shell.
QString quoted(const QString& text)
{
    QString inside = text;
    return QLatin1Char('\'') + inside.replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}

// Lines "COMMAND:POSITION) offered=..." and "COMMAND:--OPTION) offered=..." of a shell's case.
QString cases(const QString& indent)
{
    QString lines;
    const QString line = indent + QStringLiteral("%1:%2) offered=%3 ;;\n");
    for (const SCommand& command : commands()) {
        const QString name = QLatin1String(command.name);
        for (int position = 1; command.words && position <= POSITIONS; ++position) {
            const QStringList words = command.words(position);
            if (!words.isEmpty()) {
                lines += line.arg(name, QString::number(position), quoted(joined(words)));
            }
        }
        lines += line.arg(name, QStringLiteral("-"), quoted(joined(optionNames(command))));
        for (const SOption& option : command.options) {
            if (option.choices) {
                lines += line.arg(name, QStringLiteral("--") + QLatin1String(option.name),
                                  quoted(joined(option.choices())));
            }
        }
    }
    return lines;
}

QString generalWords()
{
    return joined(
        commandNames()
        + QStringList{QStringLiteral("--help"), QStringLiteral("--version"), QStringLiteral("--json")});
}

} // namespace

namespace NCompletion {

QString bash()
{
    return QStringLiteral(
               "# bash completion for tlx\n"
               "_tlx() {\n"
               "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
               "    local command= position=0 offered= i\n"
               "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
               "        case ${COMP_WORDS[i]} in\n"
               "            -*) ;;\n"
               "            *) if [ -z \"$command\" ]; then command=${COMP_WORDS[i]}; else "
               "position=$((position + 1)); fi ;;\n"
               "        esac\n"
               "    done\n"
               "    if [ -z \"$command\" ]; then\n"
               "        COMPREPLY=($(compgen -W '%1' -- \"$current\"))\n"
               "        return\n"
               "    fi\n"
               "    local key=$((position + 1))\n"
               "    case $current in -*) key=- ;; *) case $previous in --*) key=$previous ;; esac ;; esac\n"
               "    for key in \"$key\" $((position + 1)); do\n"
               "        case $command:$key in\n%2        esac\n"
               "        [ -z \"$offered\" ] || break\n"
               "    done\n"
               "    COMPREPLY=($(compgen -W \"$offered\" -- \"$current\"))\n"
               "    case $current in -*) ;; *) COMPREPLY+=($(compgen -f -- \"$current\")) ;; esac\n"
               "}\n"
               "complete -o filenames -F _tlx tlx\n")
        .arg(generalWords(), cases(QString(12, QLatin1Char(' '))));
}

QString zsh()
{
    return QStringLiteral(
               "#compdef tlx\n"
               "_tlx() {\n"
               "    local word current=${words[CURRENT]} previous=${words[CURRENT-1]} command= position=1 "
               "key\n"
               "    local -a typed=(${words[2,CURRENT-1]})\n"
               "    for word in $typed; do\n"
               "        case $word in\n"
               "            -*) ;;\n"
               "            *) if [[ -z $command ]]; then command=$word; else position=$((position + 1)); fi "
               ";;\n"
               "        esac\n"
               "    done\n"
               "    if [[ -z $command ]]; then\n"
               "        compadd -- ${=:-'%1'}\n"
               "        return\n"
               "    fi\n"
               "    local offered=\n"
               "    key=$position\n"
               "    case $current in -*) key=- ;; *) case $previous in --*) key=$previous ;; esac ;; esac\n"
               "    for key in $key $position; do\n"
               "        case $command:$key in\n%2        esac\n"
               "        [[ -z $offered ]] || break\n"
               "    done\n"
               "    compadd -- ${=offered}\n"
               "    case $current in -*) ;; *) _files ;; esac\n"
               "}\n"
               "if [[ $funcstack[1] == _tlx ]]; then _tlx \"$@\"; else compdef _tlx tlx; fi\n")
        .arg(joined(commandNames()), cases(QString(12, QLatin1Char(' '))));
}

QString fish()
{
    QString text = QStringLiteral("# fish completion for tlx\n");
    const QString line = QStringLiteral("complete -c tlx %1 -a %2\n");
    for (const SCommand& command : commands()) {
        const QString name = QLatin1String(command.name);
        text += QStringLiteral("complete -c tlx -n __fish_use_subcommand -f -a %1 -d %2\n")
                    .arg(name, quoted(QLatin1String(command.summary)));
        const QString seen = QStringLiteral("__fish_seen_subcommand_from ") + name;
        QStringList words;
        for (int position = 1; command.words && position <= POSITIONS; ++position) {
            words += command.words(position);
        }
        if (!words.isEmpty()) {
            text += line.arg(QStringLiteral("-n ") + quoted(seen), quoted(joined(words)));
        }
        const QList<SOption> options = optionsOf(command);
        for (const SOption& option : options) {
            text += QStringLiteral("complete -c tlx -n %1 -l %2 -d %3%4%5\n")
                        .arg(quoted(seen), QLatin1String(option.name), quoted(option.summary),
                             *option.value == 0 ? QString() : QStringLiteral(" -r"),
                             option.choices ? QStringLiteral(" -f -a ") + quoted(joined(option.choices()))
                                            : QString());
        }
    }
    return text;
}

} // namespace NCompletion
