#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Suggestion.h>
#include <tools/tlx/report/Report.h>

#include <core/text/CStr.h>
#include <core/text/CTlString.h>

#include <QCommandLineParser>

#include <type_traits>

namespace {

using SFormat = CTlString::SFormatValue;

constexpr const char* NOTATIONS[] = {"decimal", "fixed", "hex", "dual"};

// What one text gave, as texts: 64-bit numbers have no place in a JSON number.
struct SResult
{
    bool isValue = false; // the text is a number as a programmer writes it
    QString shown;        // that number under the descriptor
    bool isRead = false;  // the text is a number under the descriptor
    QString read;
};

QString plain(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

template <typename T>
QString plain(T value)
{
    return QString::number(value);
}

template <typename T>
bool plainValue(const QString& text, T& value, bool (*read)(const QString&, T&, int))
{
    return read(text, value, 0);
}

template <typename T>
bool plainValue(const QString& text, T& value, bool (*read)(const QString&, T&))
{
    return read(text, value);
}

template <typename T, typename Read, typename ReadUnder>
SResult resultOf(const QString& text, SFormat format, double factor, Read read, ReadUnder readUnder)
{
    SResult result;
    T value = 0;
    result.isValue = plainValue<T>(text, value, read);
    result.shown = CTlString::toStr(value, format);
    result.read = plain(readUnder(text, format, factor, &result.isRead));
    return result;
}

// One row a type: the name and what a text gives as a number of that type.
struct SType
{
    NTypes::ETypes type;
    SResult (*result)(const QString& text, SFormat format, double factor);
};

// NOLINTBEGIN(bugprone-macro-parentheses): types take none
#define TLX_INTEGER(Name, Type)                                                                              \
    {                                                                                                        \
        NTypes::TYPE_##Name, [](const QString& text, SFormat format, double factor) {                        \
            bool (*read)(const QString&, Type&, int) = CStr::strTo##Name;                                    \
            return resultOf<Type>(text, format, factor, read, CTlString::to##Name);                          \
        }                                                                                                    \
    }
#define TLX_FLOAT(Name, Type)                                                                                \
    {                                                                                                        \
        NTypes::TYPE_##Name, [](const QString& text, SFormat format, double factor) {                        \
            bool (*read)(const QString&, Type&) = CStr::strTo##Name;                                         \
            return resultOf<Type>(text, format, factor, read, CTlString::to##Name);                          \
        }                                                                                                    \
    }
// NOLINTEND(bugprone-macro-parentheses)

const SType TYPES[] = {
    TLX_INTEGER(I64, long long),  TLX_INTEGER(U64, unsigned long long),
    TLX_INTEGER(I32, int),        TLX_INTEGER(U32, unsigned int),
    TLX_INTEGER(I16, short),      TLX_INTEGER(U16, unsigned short),
    TLX_INTEGER(I8, signed char), TLX_INTEGER(U8, unsigned char),
    TLX_FLOAT(F32, float),        TLX_FLOAT(F64, double),
};

#undef TLX_INTEGER
#undef TLX_FLOAT

const SType* findType(const QString& name)
{
    for (const SType& type : TYPES) {
        if (name.compare(CStr::nTypeToStr(type.type), Qt::CaseInsensitive) == 0) {
            return &type;
        }
    }
    return nullptr;
}

QStringList typeNames()
{
    QStringList names;
    for (const SType& type : TYPES) {
        names << CStr::nTypeToStr(type.type);
    }
    return names;
}

QStringList notationNames()
{
    QStringList names;
    for (const char* name : NOTATIONS) {
        names << QLatin1String(name);
    }
    return names;
}

bool readNotation(const QString& text, quint8& notation)
{
    for (quint8 i = 0; i < 4; ++i) {
        if (text == QLatin1String(NOTATIONS[i])) {
            notation = i;
            return true;
        }
    }
    return CStr::strToU8(text, notation, 0);
}

// The descriptor: the packed number first, then what the other options set in it. Names the option that is wrong.
bool readFormat(const QCommandLineParser& parser, SFormat& format, QString& wrong)
{
    const struct
    {
        const char* name;
        qint8 SFormat::*field;
    } fields[] = {
        {"fraction", &SFormat::fractionDigits}, {"width", &SFormat::width}, {"shift", &SFormat::preShift}};
    wrong = QStringLiteral("format");
    unsigned int packed = 0;
    if (parser.isSet(wrong) && !CStr::strToU32(parser.value(wrong), packed, 0)) {
        return false;
    }
    format = packed;
    for (const auto& field : fields) {
        wrong = QLatin1String(field.name);
        if (parser.isSet(wrong) && !CStr::strToI8(parser.value(wrong), format.*field.field, 10)) {
            return false;
        }
    }
    wrong = QStringLiteral("notation");
    return !parser.isSet(wrong) || readNotation(parser.value(wrong), format.notation);
}

void addFormat(Report& report, SFormat format)
{
    report.setSection(QStringLiteral("format"), QStringLiteral("Format descriptor"));
    report.add("packed", "Packed",
               QStringLiteral("0x%1").arg(static_cast<unsigned int>(format), 8, 16, QLatin1Char('0')));
    report.add("fractionDigits", "Fraction digits", format.fractionDigits);
    report.add("width", "Width", format.width);
    report.add("preShift", "Shift", format.preShift);
    report.add("notation", "Notation",
               format.notation < 4 ? QLatin1String(NOTATIONS[format.notation])
                                   : QString::number(format.notation));
}

void addResult(Report& report, const QString& text, const SResult& result)
{
    report.setSection(QStringLiteral("shown"), QStringLiteral("The value, shown"));
    report.add("ok", "Is a value", result.isValue);
    if (result.isValue) {
        report.add("value", "Value", text);
        report.add("text", "Text", result.shown);
    }
    report.setSection(QStringLiteral("read"), QStringLiteral("The text, read"));
    report.add("ok", "Is a number", result.isRead);
    if (result.isRead) {
        report.add("text", "Text", text);
        report.add("value", "Value", result.read);
    }
}

} // namespace

QList<SOption> numberOptions()
{
    return {{"type", QStringLiteral("The type of the number: I8 to U64, F32 or F64 (I64)."), "TYPE", "I64", 0,
             typeNames},
            {"format", QStringLiteral("The whole descriptor as one number."), "NUMBER"},
            {"fraction", QStringLiteral("Digits after the point, -128 to 127."), "DIGITS"},
            {"width", QStringLiteral("Total characters, -128 to 127."), "WIDTH"},
            {"shift", QStringLiteral("Bits to shift right before showing, -128 to 127."), "BITS"},
            {"notation", QStringLiteral("decimal, fixed, hex, dual, or its number."), "NOTATION", "", 0,
             notationNames},
            {"factor", QStringLiteral("Multiplies a parsed number by this (1)."), "FACTOR", "1"}};
}

int runNumber(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report,
                          QStringLiteral("one text is expected: put -- before one that begins with a dash"));
    }
    const SType* type = findType(parser.value(QStringLiteral("type")));
    if (!type) {
        return wrongUsage(report,
                          noSuch(QStringLiteral("type of numbers"), parser.value(QStringLiteral("type")),
                                 typeNames(),
                                 QStringLiteral("the types are ") + typeNames().join(QLatin1String(", "))));
    }
    SFormat format;
    QString wrong;
    if (!readFormat(parser, format, wrong)) {
        return wrongUsage(report, QStringLiteral("not a possible %1: %2").arg(wrong, parser.value(wrong)));
    }
    double factor = 1;
    if (!CStr::strToF64(parser.value(QStringLiteral("factor")), factor)) {
        return wrongUsage(
            report, QStringLiteral("not a possible factor: %1").arg(parser.value(QStringLiteral("factor"))));
    }
    const SResult result = type->result(arguments.first(), format, factor);
    report.add("type", "Type", CStr::nTypeToStr(type->type));
    addFormat(report, format);
    addResult(report, arguments.first(), result);
    if (!result.isValue && !result.isRead) {
        return invalid(report, QStringLiteral("not a number: ") + arguments.first());
    }
    return EXIT_DONE;
}
