#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/input/InputFile.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>

#include <core/app/CHmac.h>

#include <QCommandLineParser>

#include <limits>

namespace {

const char KEY_VARIABLE[] = "TLX_TOTP_KEY";

struct SNumber
{
    const char* name;
    const char* fallback;
    const char* text;
    quint64 highest;
};

const SNumber T0{"t0", "0", "Start of step 0, seconds since 1970-01-01 UTC (default 0).",
                 std::numeric_limits<quint64>::max()};
const SNumber STEP{"step", "30", "Length of a step in seconds (default 30).",
                   std::numeric_limits<quint32>::max()};
const SNumber DIGITS{"digits", "6", "Number of digits, up to 1000 (default 6).", 1000};
const SNumber WINDOW{"window", "1", "check: steps before the current one that are accepted too (default 1).",
                     1000000};

bool readNumber(const QCommandLineParser& parser, const SNumber& number, quint64* value, Report& report)
{
    bool ok = false;
    *value = parser.value(QLatin1String(number.name)).toULongLong(&ok);
    if (!ok || *value > number.highest) {
        wrongUsage(report, QStringLiteral("--%1: a number from 0 to %2 is expected")
                               .arg(QLatin1String(number.name))
                               .arg(number.highest));
    }
    return !report.hasError();
}

// The key's bytes as they stand in the file or the environment, which other users cannot read as they can arguments.
bool readText(const QCommandLineParser& parser, QByteArray* text, Report& report)
{
    if (!parser.isSet(QStringLiteral("key-file"))) {
        *text = qgetenv(KEY_VARIABLE);
        return qEnvironmentVariableIsSet(KEY_VARIABLE);
    }
    InputFile file;
    if (!file.openSequential(parser.value(QStringLiteral("key-file")), report)) {
        return false;
    }
    *text = file.device().readAll();
    return true;
}

bool decode(const QCommandLineParser& parser, const QByteArray& text, QByteArray* key)
{
    *key = text;
    if (parser.isSet(QStringLiteral("hex"))) {
        const QByteArray digits = text.trimmed().toLower();
        *key = QByteArray::fromHex(digits);
        return key->toHex() == digits;
    }
    if (parser.isSet(QStringLiteral("base64"))) {
        const auto result = QByteArray::fromBase64Encoding(
            text.trimmed(), QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
        *key = result.decoded;
        return result.decodingStatus == QByteArray::Base64DecodingStatus::Ok;
    }
    return true;
}

int readKey(const QCommandLineParser& parser, QByteArray* key, Report& report)
{
    QByteArray text;
    if (!readText(parser, &text, report)) {
        return report.hasError()
                   ? int(EXIT_INVALID)
                   : wrongUsage(report, QStringLiteral("a key is needed: --key-file or the variable %1")
                                            .arg(QLatin1String(KEY_VARIABLE)));
    }
    if (!decode(parser, text, key)) {
        return invalid(report, QStringLiteral("the key is not valid in the given form"));
    }
    return EXIT_DONE;
}

void showCode(const QString& code, const QCommandLineParser& parser, Report& report)
{
    report.add("code", "Code", code);
    if (parser.isSet(QStringLiteral("quiet")) && !parser.isSet(QStringLiteral("json"))) {
        printText(stdout, code + QLatin1Char('\n'));
        report.setWritten();
    }
}

int reportCheck(int result, Report& report)
{
    static const char* const ANSWERS[] = {"valid", "not valid", "wrong length"};
    report.add("result", "Result", result);
    report.add("valid", "Valid", result == 0);
    if (result != 0) {
        report.setError(QStringLiteral("the code: %1").arg(QLatin1String(ANSWERS[result])));
    }
    return result == 0 ? EXIT_DONE : EXIT_INVALID;
}

} // namespace

QList<SOption> totpOptions()
{
    QList<SOption> options{
        {"key-file", QStringLiteral("File whose bytes are the key; without it, the variable TLX_TOTP_KEY."),
         "file"},
        {"hex", QStringLiteral("The key is written as hexadecimal digits.")},
        {"base64", QStringLiteral("The key is written as Base64.")},
        {"quiet", QStringLiteral("make: prints the code alone.")}};
    for (const SNumber& number : {T0, STEP, DIGITS, WINDOW}) {
        options << SOption{number.name, QLatin1String(number.text), "number", number.fallback};
    }
    return options;
}

QStringList totpWords(int position)
{
    return position == 1 ? QStringList{QStringLiteral("make"), QStringLiteral("check")} : QStringList();
}

int runTotp(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    const bool isMake = arguments == QStringList{QStringLiteral("make")};
    const bool isCheck = arguments.size() == 2 && arguments.first() == QLatin1String("check");
    if (!isMake && !isCheck) {
        return wrongUsage(report, QStringLiteral("make or check CODE is expected"));
    }
    if (parser.isSet(QStringLiteral("hex")) && parser.isSet(QStringLiteral("base64"))) {
        return wrongUsage(report, QStringLiteral("the key is either hexadecimal or Base64"));
    }
    quint64 t0 = 0;
    quint64 step = 0;
    quint64 digits = 0;
    quint64 window = 0;
    if (!readNumber(parser, T0, &t0, report) || !readNumber(parser, STEP, &step, report)
        || !readNumber(parser, DIGITS, &digits, report) || !readNumber(parser, WINDOW, &window, report)) {
        return EXIT_USAGE;
    }
    QByteArray key;
    if (const int code = readKey(parser, &key, report); code != EXIT_DONE) {
        return code;
    }
    const auto stepSeconds = static_cast<quint32>(step);
    const auto digitCount = static_cast<qint32>(digits);
    if (isMake) {
        showCode(CHmac::totpStr(key, t0, stepSeconds, digitCount), parser, report);
        return EXIT_DONE;
    }
    return reportCheck(
        CHmac::validateTotp(arguments.at(1), key, t0, stepSeconds, digitCount, static_cast<quint32>(window)),
        report);
}
