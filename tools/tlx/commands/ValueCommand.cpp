#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/input/InputFile.h>
#include <tools/tlx/input/Judgement.h>
#include <tools/tlx/input/Types.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>

#include <core/text/CStr.h>
#include <core/types/CVariant.h>

#include <QBitArray>
#include <QCommandLineParser>

#include <cmath>

namespace {

// What a reader gave; an undefined value where it refused.
using TRead = QJsonValue (*)(const CVariant& value);

struct SReading
{
    NTypes::ETypes type;
    TRead read;
};

const QJsonValue REFUSED = QJsonValue(QJsonValue::Undefined);

// 64-bit numbers, infinities and NaN have no place in a JSON number.
template <typename Number>
QJsonValue jsonNumber(Number number)
{
    const double value = static_cast<double>(number);
    const bool fits = sizeof(Number) < sizeof(qint64) || std::is_floating_point<Number>::value;
    return fits && std::isfinite(value) ? QJsonValue(value) : QJsonValue(QString::number(number));
}

template <typename Number, Number (CVariant::*Reader)(bool*) const>
QJsonValue readNumber(const CVariant& value)
{
    bool ok = false;
    const Number number = (value.*Reader)(&ok);
    return ok ? jsonNumber(number) : REFUSED;
}

template <typename Text, Text (CVariant::*Reader)(bool*) const>
QJsonValue readUtf16(const CVariant& value)
{
    bool ok = false;
    const QString text = (value.*Reader)(&ok).str();
    return ok ? QJsonValue(text) : REFUSED;
}

template <int Size, bool (CVariant::*Reader)(char (&)[Size]) const>
QJsonValue readBytes(const CVariant& value)
{
    char bytes[Size] = {};
    return (value.*Reader)(bytes) ? QJsonValue(QString::fromUtf8(bytes)) : REFUSED;
}

QJsonValue readChar(const CVariant& value)
{
    char character = 0;
    return value.toChar(character) ? QJsonValue(QString(QLatin1Char(character))) : REFUSED;
}

QJsonValue readUtf16Char(const CVariant& value)
{
    QChar character;
    return value.toUtf16Char(character) ? QJsonValue(QString(character)) : REFUSED;
}

const SReading READINGS[] = {
    {NTypes::TYPE_U8, readNumber<unsigned char, &CVariant::toU8>},
    {NTypes::TYPE_I8, readNumber<signed char, &CVariant::toI8>},
    {NTypes::TYPE_U16, readNumber<unsigned short, &CVariant::toU16>},
    {NTypes::TYPE_I16, readNumber<short, &CVariant::toI16>},
    {NTypes::TYPE_U32, readNumber<unsigned int, &CVariant::toU32>},
    {NTypes::TYPE_I32, readNumber<int, &CVariant::toI32>},
    {NTypes::TYPE_F32, readNumber<float, &CVariant::toF32>},
    {NTypes::TYPE_U64, readNumber<unsigned long long, &CVariant::toU64>},
    {NTypes::TYPE_I64, readNumber<long long, &CVariant::toI64>},
    {NTypes::TYPE_F64, readNumber<double, &CVariant::toF64>},
    {NTypes::TYPE_STRING32, readUtf16<CString32, &CVariant::toString32>},
    {NTypes::TYPE_STRING64, readUtf16<CString64, &CVariant::toString64>},
    {NTypes::TYPE_STRING128, readUtf16<CString128, &CVariant::toString128>},
    {NTypes::TYPE_CHARSTR64, readBytes<64, &CVariant::toCharStr64>},
    {NTypes::TYPE_CHARSTR128, readBytes<128, &CVariant::toCharStr128>},
    {NTypes::TYPE_CHARSTR256, readBytes<256, &CVariant::toCharStr256>},
    {NTypes::TYPE_CHAR, readChar},
    {NTypes::TYPE_UTF16CHAR, readUtf16Char},
};

QString payloadName(const QVariant& payload)
{
    return payload.isValid() ? QString::fromLatin1(payload.typeName()) : QStringLiteral("none");
}

void addForms(Report& report, const CVariant& value)
{
    report.add("type", "Type", CStr::nTypeToStr(value.type()));
    report.add("typeNumber", "Type number", static_cast<int>(value.type()));
    report.add("payload", "Payload", payloadName(value));
    report.add("valid", "Valid", value.isValid());
    report.add("null", "Null", value.isNull());
    report.add("text", "Text", value.toStr());
    report.add("localText", "Text in this locale", value.toLocaleStr());
}

// The bits of an integer, the most significant first, a blank between two bytes; empty for other types.
QString bitsOf(const CVariant& value)
{
    const quint32 type = value.type();
    if (type < NTypes::TYPE_U8 || type > NTypes::TYPE_I64 || type == NTypes::TYPE_F32) {
        return QString();
    }
    const QBitArray bits = value.toBitArray();
    QString text;
    for (int i = bits.size(); i-- > 0;) {
        text += QLatin1Char(bits.testBit(i) ? '1' : '0');
        if (i > 0 && i % 8 == 0) {
            text += QLatin1Char(' ');
        }
    }
    return text;
}

void addDigits(Report& report, const CVariant& value)
{
    const QString digits = value.toHex(QString());
    if (!digits.isEmpty()) {
        report.add("hex", "Hexadecimal", digits);
    }
    const QString bits = bitsOf(value);
    if (!bits.isEmpty()) {
        report.add("bits", "Bits", bits);
    }
}

void addReadings(Report& report, const CVariant& value)
{
    report.setSection(QStringLiteral("readAs"), QStringLiteral("Read as"));
    for (const SReading& reading : READINGS) {
        const QJsonValue result = reading.read(value);
        if (!result.isUndefined()) {
            const QString name = CStr::nTypeToStr(reading.type);
            report.add(name.toLower(), name, result);
        }
    }
}

void addDefault(Report& report, NTypes::ETypes type)
{
    const CVariant value(type);
    report.setSection(QStringLiteral("default"), QStringLiteral("Default value of the type"));
    report.add("payload", "Payload", payloadName(value));
    report.add("text", "Text", value.toStr());
}

// One value a line of standard input, as a row each.
int showLines(NTypes::ETypes type, Report& report)
{
    InputFile input;
    if (!input.openSequential(QStringLiteral("-"), report)) {
        return EXIT_INVALID;
    }
    report.add("type", "Type", CStr::nTypeToStr(type));
    report.beginTable("values", {"line", "text", "value", "hex", "accepted", "note"});
    int lines = 0;
    int refused = 0;
    for (QByteArray line = input.device().readLine(); !line.isEmpty() && outputState() == OUTPUT_WRITTEN;
         line = input.device().readLine()) {
        const bool hasEnd = line.endsWith('\n');
        const QString text =
            QString::fromLocal8Bit(hasEnd ? line.chopped(line.endsWith("\r\n") ? 2 : 1) : line);
        const CVariant value(text, type);
        const QString said = judgement(text, value);
        refused += said.isEmpty() ? 0 : 1;
        report.addRow({++lines, text, value.toStr(), value.toHex(QString()), said.isEmpty(),
                       said.isEmpty() ? QJsonValue() : QJsonValue(said)});
    }
    if (refused > 0) {
        report.setError(QStringLiteral("%1 of %2 lines are not values of the type: see the notes")
                            .arg(refused)
                            .arg(lines));
    }
    return EXIT_DONE;
}

void showOne(const CVariant& value, NTypes::ETypes type, Report& report)
{
    addForms(report, value);
    addDigits(report, value);
    addReadings(report, value);
    addDefault(report, type);
}

} // namespace

QStringList valueWords(int position)
{
    return position == 1 ? NLookup::typeNames() : QStringList();
}

int runValue(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty() || arguments.size() > 2) {
        return wrongUsage(
            report, QStringLiteral("a type and at most one text are expected: put -- before a text that "
                                   "begins with a dash"));
    }
    NTypes::ETypes type = NTypes::TYPE_UNKNOWN;
    if (!NLookup::findType(arguments.first(), type)) {
        return wrongUsage(report, NLookup::noSuchType(arguments.first()));
    }
    if (!CVariant(type).isValid()) {
        return invalid(report, QStringLiteral("no value of type %1 exists: the library knows its name only")
                                   .arg(CStr::nTypeToStr(type)));
    }
    if (arguments.size() == 2 && isStandardInput(arguments.last())) {
        return showLines(type, report);
    }
    const CVariant value = arguments.size() == 2 ? CVariant(arguments.last(), type) : CVariant(type);
    showOne(value, type, report);
    const QString said = arguments.size() == 2 ? judgement(arguments.last(), value) : QString();
    if (!said.isEmpty()) {
        report.setError(arguments.last() + QLatin1String(": ") + said);
    }
    return EXIT_DONE;
}
