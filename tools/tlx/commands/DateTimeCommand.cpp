#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/report/Report.h>

#include <core/text/CDateTime.h>

#include <QCommandLineParser>

namespace {

// What is written: the fields of a number or of bytes stand in `spec`, and so does a text without a zone.
bool readNumber(const QString& text, Qt::TimeSpec spec, CDateTime& dateTime)
{
    bool ok = false;
    qint64 packed = static_cast<qint64>(text.toULongLong(&ok, 0));
    if (!ok) {
        packed = text.toLongLong(&ok, 0);
    }
    if (ok) {
        dateTime = CDateTime(packed, spec);
    }
    return ok;
}

bool readIso(const QString& text, Qt::TimeSpec spec, CDateTime& dateTime)
{
    QDateTime value = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!value.isValid()) {
        return false;
    }
    if (value.timeSpec() == Qt::LocalTime) {
        value.setTimeSpec(spec);
    }
    dateTime = value;
    return true;
}

bool readBytes(const QString& text, Qt::TimeSpec spec, CDateTime& dateTime)
{
    const QByteArray digits = text.simplified().remove(QLatin1Char(' ')).toLatin1().toLower();
    const QByteArray bytes = QByteArray::fromHex(digits);
    if (bytes.size() != 8 || bytes.toHex() != digits) {
        return false;
    }
    dateTime = CDateTime::fromI64ByteArray(bytes, spec);
    return true;
}

void addForms(Report& report, const CDateTime& dateTime, Qt::TimeSpec spec)
{
    const quint64 packed = dateTime.toI64(spec);
    report.add("text", "ISO 8601", dateTime.toIsoDateTime(spec));
    report.add("packed", "Packed", QString::number(packed));
    report.add("packedHex", "Packed, hexadecimal",
               QStringLiteral("0x%1").arg(packed, 16, 16, QLatin1Char('0')));
    report.add("bytes", "8 bytes", QString::fromLatin1(dateTime.toI64ByteArray(spec).toHex(' ')));
}

} // namespace

QList<SOption> dateTimeOptions()
{
    return {{"utc", QStringLiteral("Reads a date-time without a time zone as UTC, not as local time.")},
            {"bytes", QStringLiteral("The value is the 8 bytes, in hexadecimal digits.")}};
}

int runDateTime(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one date-time is expected"));
    }
    const QString& text = arguments.first();
    const Qt::TimeSpec spec = parser.isSet(QStringLiteral("utc")) ? Qt::UTC : Qt::LocalTime;
    CDateTime dateTime;
    const bool read = parser.isSet(QStringLiteral("bytes"))
                          ? readBytes(text, spec, dateTime)
                          : readNumber(text, spec, dateTime) || readIso(text, spec, dateTime);
    if (!read) {
        return invalid(report, QStringLiteral("neither an ISO 8601 date-time nor a packed one: ") + text);
    }
    report.add("valid", "Valid", dateTime.isValid());
    if (!dateTime.isValid()) {
        return invalid(report, QStringLiteral("no such date or time of day: ") + text);
    }
    report.setSection(QStringLiteral("local"), QStringLiteral("Local time"));
    addForms(report, dateTime, Qt::LocalTime);
    report.setSection(QStringLiteral("utc"), QStringLiteral("UTC"));
    addForms(report, dateTime, Qt::UTC);
    return EXIT_DONE;
}
