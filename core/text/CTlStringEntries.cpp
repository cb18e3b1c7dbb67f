#include <core/text/CTlString.h>

#include <core/text/NumberText.h>

#include <QStringList>

#include <algorithm>

namespace {

using SFormatValue = CTlString::SFormatValue;

constexpr int GROUP = 4;

QString filled(const QString& digits, int width)
{
    return digits.rightJustified(width, QLatin1Char('0'));
}

QString normalisedPart(const QString& s, int digits)
{
    const QStringList parts = s.split(QLatin1Char('.'));
    const int group = parts.size() < 2 ? 2 * GROUP : GROUP;
    QString joined(std::max(digits, 0), QLatin1Char('0'));
    for (const QString& part : parts) {
        joined += filled(part, group).right(group);
    }
    return CTlString::insertPointSeparator(joined.right(digits));
}

// What an entry is read as, and whether it is a number at all.
struct SEntry
{
    bool negative = false;
    bool isNumber = false;
    QString integer;
    QString fraction;
};

// The digits of groups that "." separates; a group that is not the first stands for four digits.
QString joinedGroups(const QString& part)
{
    const QStringList groups = part.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    QString digits;
    for (const QString& group : groups) {
        digits += digits.isEmpty() ? group : filled(group, GROUP);
    }
    return digits;
}

SEntry readEntry(const QString& text, bool binary, bool hasFraction)
{
    SEntry entry;
    QString body = text.trimmed();
    entry.negative = body.startsWith(QLatin1Char('-'));
    if (entry.negative || body.startsWith(QLatin1Char('+'))) {
        body.remove(0, 1);
    }
    if (!binary && body.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
        body.remove(0, 2);
    }
    const auto colon = hasFraction ? body.indexOf(QLatin1Char(':')) : -1;
    entry.integer = joinedGroups(body.left(colon));
    entry.fraction = joinedGroups(colon < 0 ? QString() : body.mid(colon + 1));
    const QString digits = entry.integer + entry.fraction;
    entry.isNumber = !digits.isEmpty() && std::all_of(digits.begin(), digits.end(), [binary](QChar c) {
        return NDigits::valueOf(c) < (binary ? 2 : 16);
    });
    return entry;
}

// Fills to `width`, then cuts to it unless it is negative; `fits` becomes false when more than zeros went.
QString fitted(const QString& digits, int width, bool& fits)
{
    const QString whole = filled(digits, width);
    const QString kept = whole.right(width);
    const auto end = whole.begin() + (whole.size() - kept.size());
    fits = fits && std::all_of(whole.begin(), end, [](QChar c) { return c == QLatin1Char('0'); });
    return kept;
}

bool fits64Bits(const QString& integer, const QString& fraction, bool negative, SFormatValue format)
{
    bool ok = false;
    if (format.notation == CTlString::NOTATION_DUAL) {
        NNumberReading::readUnsigned(integer + fraction, 2, ok);
        return ok && !negative; // binary numbers have no sign
    }
    if (negative) {
        NNumberReading::readSigned(QLatin1Char('-') + integer + fraction, 16, ok);
        return ok;
    }
    NNumberText::readHex(integer, fraction, format.width, std::max<int>(format.fractionDigits, 0), true, ok);
    return ok;
}

} // namespace

QString CTlString::validateUpperString(const QString& s, SFormatValue format)
{
    return normalisedPart(s, format.width - format.fractionDigits);
}

QString CTlString::validateLowerString(const QString& s, SFormatValue format)
{
    return normalisedPart(s, format.fractionDigits);
}

bool CTlString::validateHexStr(QString& s, SFormatValue format)
{
    const bool binary = format.notation == NOTATION_DUAL;
    const bool wasEmpty = s.isEmpty();
    const int fractionDigits = std::max<int>(format.fractionDigits, 0);
    const SEntry entry = readEntry(wasEmpty ? QStringLiteral("0") : s, binary, fractionDigits > 0);
    if (!entry.isNumber) {
        return false;
    }
    const bool cuts = format.width > 0;
    bool fits = true;
    const QString integer = fitted(entry.integer, cuts ? format.width - fractionDigits : -1, fits);
    const QString fraction = filled(entry.fraction, fractionDigits);
    const QString lower = cuts ? fitted(fraction, fractionDigits, fits) : fraction;
    s = CTlString::insertPointSeparator(integer);
    if (fractionDigits > 0) {
        s += QLatin1Char(':') + CTlString::insertPointSeparator(lower);
    }
    if (entry.negative) {
        s.prepend(QLatin1Char('-'));
    }
    return !wasEmpty && fits && fits64Bits(integer, lower, entry.negative, format);
}

bool CTlString::validateDualStr(QString& s, SFormatValue format)
{
    return validateHexStr(s, format);
}
