#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Progress.h>

#include <core/text/CDateTime.h>
#include <core/text/CStr.h>
#include <core/text/CTime.h>
#include <core/types/CVariant.h>

#include <QCommandLineParser>
#include <QDataStream>
#include <QFile>

namespace {

struct SVersion
{
    const char* name;
    QDataStream::Version version;
};

constexpr SVersion VERSIONS[] = {
    {"5.15", QDataStream::Qt_5_15}, {"5.12", QDataStream::Qt_5_12}, {"5.6", QDataStream::Qt_5_6},
    {"5.4", QDataStream::Qt_5_4},   {"5.2", QDataStream::Qt_5_2},   {"5.1", QDataStream::Qt_5_1},
    {"5.0", QDataStream::Qt_5_0},   {"4.8", QDataStream::Qt_4_8},   {"4.6", QDataStream::Qt_4_6}};

// One value out of the stream as a row of the table. What the stream cannot see is said in `fault`: a number behind the
// value (a tag, a unit) that no value has.
struct SItem
{
    QString type;
    QString text;
    QString fault;
};

SItem readVariant(QDataStream& stream)
{
    CVariant value;
    stream >> value;
    const QString type = CStr::nTypeToStr(value.type());
    const QString fault = QStringLiteral("no such type: %1").arg(static_cast<quint32>(value.type()));
    return {type, value.toStr(), type.isEmpty() ? fault : QString()};
}

SItem readTime(QDataStream& stream)
{
    CTime value;
    stream >> value;
    const QString unit = CTime::unitStr(value.unit());
    const QString fault = QStringLiteral("no such unit: %1").arg(static_cast<qint32>(value.unit()));
    return {unit, QString::number(value.value()),
            unit.isEmpty() && value.unit() != CTime::UNIT_UNKNOWN ? fault : QString()};
}

SItem readDateTime(QDataStream& stream)
{
    CDateTime value;
    stream >> value;
    const Qt::TimeSpec spec = value.timeSpec();
    return {spec == Qt::LocalTime ? QStringLiteral("local") : QStringLiteral("UTC"),
            value.toIsoDateTime(spec == Qt::LocalTime ? spec : Qt::UTC), QString()};
}

SItem readText(QDataStream& stream)
{
    QString value;
    stream >> value;
    return {QStringLiteral("text"), value, QString()};
}

template <typename String>
SItem readFixedString(QDataStream& stream)
{
    String value;
    stream >> value;
    return {QLatin1String(String::className()), value.str(), QString()};
}

struct SKind
{
    const char* name;
    SItem (*read)(QDataStream& stream);
};

constexpr SKind KINDS[] = {{"variant", readVariant},
                           {"time", readTime},
                           {"datetime", readDateTime},
                           {"text", readText},
                           {"string32", readFixedString<CString32>},
                           {"string64", readFixedString<CString64>},
                           {"string128", readFixedString<CString128>}};

template <typename Row, std::size_t Count>
const Row* findRow(const Row (&rows)[Count], const QString& name)
{
    for (const Row& row : rows) {
        if (name == QLatin1String(row.name)) {
            return &row;
        }
    }
    return nullptr;
}

template <typename Row, std::size_t Count>
QString namesOf(const Row (&rows)[Count])
{
    QStringList names;
    for (const Row& row : rows) {
        names << QLatin1String(row.name);
    }
    return names.join(QLatin1String(", "));
}

// Reads up to the end or to the first value that makes no sense; gives the error, which names its first byte.
int readAll(QDataStream& stream, const SKind& kind, Report& report, QList<QStringList>& rows)
{
    constexpr qint64 TAG_SIZE = 4;
    const QIODevice& device = *stream.device();
    Progress progress(QStringLiteral("Reading"), device.size());
    while (!stream.atEnd()) {
        const qint64 start = device.pos();
        const SItem item = kind.read(stream);
        if (stream.status() == QDataStream::ReadPastEnd) {
            report.setError(QStringLiteral("the file ends inside the value that begins here"), start);
            return EXIT_INVALID;
        }
        if (stream.status() != QDataStream::Ok) {
            report.setError(
                QStringLiteral("here stands no value of the kind %1").arg(QLatin1String(kind.name)), start);
            return EXIT_INVALID;
        }
        if (!item.fault.isEmpty()) {
            report.setError(item.fault, device.pos() - TAG_SIZE);
            return EXIT_INVALID;
        }
        rows << QStringList{QString::number(start), item.type, item.text};
        progress.show(device.pos());
    }
    return EXIT_DONE;
}

} // namespace

void addStreamOptions(QCommandLineParser& parser)
{
    parser.addOption({QStringLiteral("kind"), QStringLiteral("What was streamed: %1.").arg(namesOf(KINDS)),
                      QStringLiteral("kind"), QStringLiteral("variant")});
    parser.addOption({QStringLiteral("stream-version"),
                      QStringLiteral("The stream's version of Qt: %1.").arg(namesOf(VERSIONS)),
                      QStringLiteral("version"), QStringLiteral("5.15")});
    parser.addOption(
        {QStringLiteral("little-endian"), QStringLiteral("The stream's byte order is little-endian.")});
}

int runStream(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one file is expected"));
    }
    const SKind* kind = findRow(KINDS, parser.value(QStringLiteral("kind")));
    if (!kind) {
        return wrongUsage(report,
                          QStringLiteral("no such kind: %1").arg(parser.value(QStringLiteral("kind"))));
    }
    const QString versionName = parser.value(QStringLiteral("stream-version"));
    const SVersion* version = findRow(VERSIONS, versionName);
    if (!version) {
        return wrongUsage(report, QStringLiteral("no such stream version: %1").arg(versionName));
    }
    QFile file(arguments.first());
    if (!file.open(QIODevice::ReadOnly)) {
        report.setError(QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
        return EXIT_INVALID;
    }
    QDataStream stream(&file);
    stream.setVersion(version->version);
    stream.setByteOrder(parser.isSet(QStringLiteral("little-endian")) ? QDataStream::LittleEndian
                                                                      : QDataStream::BigEndian);
    QList<QStringList> rows;
    const int code = readAll(stream, *kind, report, rows);
    report.add(QStringLiteral("kind"), QStringLiteral("Kind"), QLatin1String(kind->name));
    report.add(QStringLiteral("values"), QStringLiteral("Values"), rows.size());
    report.addTable(QStringLiteral("items"),
                    {QStringLiteral("byte"), QStringLiteral("type"), QStringLiteral("text")}, rows);
    return code;
}
