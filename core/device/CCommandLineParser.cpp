#include <core/device/CCommandLineParser.h>

#include <core/base/QtTexts.h>

#include <QCoreApplication>

static const QLatin1String LANGUAGE("lang");

CCommandLineParser::CCommandLineParser()
    : arguments(argumentsMap())
{}

CCommandLineParser::CCommandLineParser(QStringList* list)
    : arguments(argumentsMap(list))
{}

CCommandLineParser::CCommandLineParser(const CCommandLineParser& other) noexcept = default;

CCommandLineParser& CCommandLineParser::operator=(const CCommandLineParser& other) noexcept = default;

CCommandLineParser::~CCommandLineParser() = default;

QMap<QString, QString> CCommandLineParser::argumentsMap(QStringList* list)
{
    QMap<QString, QString> map;
    if (!list) {
        return map;
    }
    for (const QString& argument : qAsConst(*list)) {
        const auto equals = argument.indexOf(QLatin1Char('='));
        if (equals > 0) {
            map.insert(argument.left(equals), argument.mid(equals + 1));
        }
    }
    return map;
}

QMap<QString, QString> CCommandLineParser::argumentsMap()
{
    QStringList list = QCoreApplication::arguments();
    return argumentsMap(&list);
}

QMap<QString, QString> CCommandLineParser::argumentsMap(const QString& option)
{
    QMap<QString, QString> map;
    if (option.isEmpty()) {
        return map;
    }
    const QStringList list = QCoreApplication::arguments();
    for (int i = 1; i < list.size();) {
        const QString& key = list.at(i++);
        if (!key.startsWith(option)) {
            continue;
        }
        QString words;
        for (; i < list.size() && !list.at(i).startsWith(QLatin1Char('-')); ++i) {
            words += list.at(i) + QLatin1Char(' ');
        }
        map.insert(key, words.trimmed());
    }
    return map;
}

int CCommandLineParser::currentUnit() const
{
    return NQtCompat::integerText(value(QStringLiteral("cu"))).toInt();
}

int CCommandLineParser::userLevel() const
{
    return NQtCompat::integerText(value(QStringLiteral("level"))).toInt();
}

quint32 CCommandLineParser::comAddress() const
{
    return NQtCompat::integerText(value(QStringLiteral("comadr"))).toUInt();
}

quint32 CCommandLineParser::deviceFunction() const
{
    // The default text is that of the two addresses below, which an unsigned number rejects: absent, it is 0.
    return NQtCompat::integerText(arguments.value(QStringLiteral("df"), QStringLiteral("-1"))).toUInt();
}

int CCommandLineParser::powerAddress() const
{
    return NQtCompat::integerText(arguments.value(QStringLiteral("powadr"), QStringLiteral("-1"))).toInt();
}

int CCommandLineParser::driveAddress() const
{
    return NQtCompat::integerText(arguments.value(QStringLiteral("drvadr"), QStringLiteral("-1"))).toInt();
}

quint32 CCommandLineParser::deviceClass() const
{
    return NQtCompat::integerText(value(QStringLiteral("devtype"))).toUInt();
}

int CCommandLineParser::port() const
{
    const QString text = value(QStringLiteral("port"));
    return NQtCompat::integerText(text).toInt(nullptr, text.startsWith(QLatin1String("0x")) ? 16 : 10);
}

QLocale CCommandLineParser::language() const
{
    // Not the default locale: QLocale(QString()) would give that of the system.
    const QString text = value(LANGUAGE);
    return text.isEmpty() ? QLocale::c() : QLocale(text);
}

void CCommandLineParser::setLanguage(const QLocale& locale)
{
    arguments.insert(LANGUAGE, locale.name().left(2));
}
