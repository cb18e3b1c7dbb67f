// Command lines: the map beside a plain reading of the arguments, the typed keys beside Qt's conversions.
#include <core/base/QtTexts.h>
#include <core/device/CCommandLineParser.h>
#include <fuzz/support/Fuzzer.h>

#include <QCoreApplication>

#include <vector>

namespace {

QMap<QString, QString> expectedMap(const QStringList& list)
{
    QMap<QString, QString> map;
    for (const QString& argument : list) {
        const QString key = argument.section(QLatin1Char('='), 0, 0);
        if (!key.isEmpty() && argument.contains(QLatin1Char('='))) {
            map[key] = argument.section(QLatin1Char('='), 1);
        }
    }
    return map;
}

void checkTyped(CCommandLineParser parser, const QMap<QString, QString>& map)
{
    const auto text = [&map](const char* key) { return map.value(QLatin1String(key)); };
    const auto orMinusOne = [&map](const char* key) {
        return map.contains(QLatin1String(key))
                   ? NQtCompat::integerText(map.value(QLatin1String(key))).toInt()
                   : -1;
    };
    FUZZ_CHECK(parser.abAddress() == text("abadr") && parser.ip() == text("ip"));
    FUZZ_CHECK(parser.serverName() == text("server"));
    FUZZ_CHECK(parser.currentUnit() == NQtCompat::integerText(text("cu")).toInt()
               && parser.userLevel() == NQtCompat::integerText(text("level")).toInt());
    FUZZ_CHECK(parser.comAddress() == NQtCompat::integerText(text("comadr")).toUInt()
               && parser.deviceFunction() == NQtCompat::integerText(text("df")).toUInt());
    FUZZ_CHECK(parser.powerAddress() == orMinusOne("powadr")
               && parser.driveAddress() == orMinusOne("drvadr"));
    FUZZ_CHECK(parser.deviceClass() == NQtCompat::integerText(text("devtype")).toUInt());
    const QString port = text("port");
    FUZZ_CHECK(
        parser.port()
        == NQtCompat::integerText(port).toInt(nullptr, port.startsWith(QLatin1String("0x")) ? 16 : 10));
    const QLocale language = parser.language();
    FUZZ_CHECK(language == (text("lang").isEmpty() ? QLocale::c() : QLocale(text("lang"))));
    parser.setLanguage(language);
    FUZZ_CHECK(parser.contains(QStringLiteral("lang")));
}

/// The form "-option word word" reads the arguments of the application.
void checkOptions(const QByteArray& bytes, const QString& option)
{
    QList<QByteArray> texts = bytes.split('\0');
    std::vector<char*> arguments{const_cast<char*>("program")};
    for (QByteArray& text : texts) {
        arguments.push_back(text.data());
    }
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    const QCoreApplication application(count, arguments.data());
    QString key;
    QMap<QString, QStringList> words;
    const QStringList given = QCoreApplication::arguments().mid(1);
    for (const QString& argument : given) {
        if (argument.startsWith(option) && (key.isNull() || argument.startsWith(QLatin1Char('-')))) {
            key = argument;
            words[key].clear();
        } else if (argument.startsWith(QLatin1Char('-'))) {
            key = QString();
        } else if (!key.isNull()) {
            words[key] << argument;
        }
    }
    const QMap<QString, QString> map = CCommandLineParser::argumentsMap(option);
    FUZZ_CHECK(map.keys() == words.keys());
    for (auto entry = words.cbegin(); entry != words.cend(); ++entry) {
        FUZZ_CHECK(map.value(entry.key()) == entry.value().join(QLatin1Char(' ')).trimmed());
    }
}

} // namespace

static void fuzz(Input& input)
{
    const int form = input.choose(16);
    if (form == 0) {
        checkOptions(input.bytes(), QStringLiteral("-"));
        return;
    }
    QStringList list = input.texts();
    const QMap<QString, QString> map = expectedMap(list);
    FUZZ_CHECK(CCommandLineParser::argumentsMap(&list) == map);
    const CCommandLineParser parser(&list);
    FUZZ_CHECK(parser.count() == map.size());
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        FUZZ_CHECK(parser.contains(entry.key()) && parser.value(entry.key()) == entry.value());
    }
    checkTyped(parser, map);
}
