#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/devices/DeviceListFile.h>
#include <tools/tlx/devices/DeviceListJson.h>
#include <tools/tlx/input/InputFile.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>

#include <QCommandLineParser>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

#include <algorithm>

namespace {

using Order = QDataStream::ByteOrder;

void show(const CDeviceList& list, Report& report)
{
    report.add("name", "Name", list.name);
    report.add("sourceType", "Source type", static_cast<qint32>(list.sourceType));
    report.add("count", "Devices", list.size());
    QList<QJsonArray> devices;
    QList<QJsonArray> subDevices;
    for (auto entry = list.devices.constBegin(); entry != list.devices.constEnd(); ++entry) {
        devices << NDeviceListJson::deviceRow(entry.key(), entry.value());
        const auto& subs = entry.value().subDevices;
        for (auto sub = subs.constBegin(); sub != subs.constEnd(); ++sub) {
            QJsonArray row = NDeviceListJson::subDeviceRow(sub.key(), sub.value());
            row.prepend(static_cast<qint64>(entry.key()));
            subDevices << row;
        }
    }
    report.addTable(QStringLiteral("devices"), NDeviceListJson::deviceKeys(), devices);
    report.addTable(QStringLiteral("subDevices"),
                    QStringList{QStringLiteral("device")} + NDeviceListJson::subDeviceKeys(), subDevices);
}

// The list of a file as far as it reads; false when the file cannot be opened.
bool read(const QString& name, Order order, SDeviceListContent& content, Report& report)
{
    InputFile input;
    if (!input.openRandom(name, report)) {
        return false;
    }
    content = NDeviceListFile::readWithHint(input.device(), order);
    return true;
}

int showFile(const QString& name, Order order, Report& report)
{
    SDeviceListContent content;
    if (!read(name, order, content, report)) {
        return EXIT_INVALID;
    }
    show(content.list, report);
    if (!content.fault.isEmpty()) {
        report.setError(content.fault, content.faultByte);
    }
    return EXIT_DONE;
}

// The list as rows of paths and values, "5/port" and "5/sub 3/name"; "5#1" is a second entry under the key 5.
QMap<QString, QJsonValue> fieldsOf(const QJsonObject& object, const QString& prefix)
{
    QMap<QString, QJsonValue> fields;
    for (auto value = object.constBegin(); value != object.constEnd(); ++value) {
        if (!value->isArray()) {
            fields.insert(prefix + value.key(), *value);
            continue;
        }
        QMap<int, int> seen;
        const QString kind = value.key() == QLatin1String("devices") ? QStringLiteral("device ")
                                                                     : QStringLiteral("sub-device ");
        const QJsonArray array = value->toArray();
        for (const QJsonValue& entry : array) {
            const QJsonValue key = entry[QLatin1String("key")];
            const int nth = seen[key.toInt()]++;
            const QString again = nth > 0 ? QStringLiteral("#%1").arg(nth) : QString();
            const QString path = prefix + kind + key.toVariant().toString() + again + QLatin1Char('/');
            const QMap<QString, QJsonValue> inside = fieldsOf(entry.toObject(), path);
            for (auto field = inside.constBegin(); field != inside.constEnd(); ++field) {
                fields.insert(field.key(), *field);
            }
        }
    }
    return fields;
}

int showDifferences(const QString& nameA, const QString& nameB, Order order, Report& report)
{
    SDeviceListContent contents[2];
    const QString names[] = {nameA, nameB};
    QMap<QString, QJsonValue> fields[2];
    for (int i = 0; i < 2; ++i) {
        if (!read(names[i], order, contents[i], report)) {
            return EXIT_INVALID;
        }
        fields[i] = fieldsOf(NDeviceListJson::toJson(contents[i].list), QString());
    }
    QStringList paths = fields[0].keys() + fields[1].keys();
    paths.removeDuplicates();
    std::sort(paths.begin(), paths.end());
    QList<QJsonArray> rows;
    for (const QString& path : qAsConst(paths)) {
        const QJsonValue a = fields[0].value(path);
        const QJsonValue b = fields[1].value(path);
        if (a != b || fields[0].contains(path) != fields[1].contains(path)) {
            rows << QJsonArray{path, a, b};
        }
    }
    report.addTable("differences", {"field", "a", "b"}, rows);
    for (int i = 0; i < 2; ++i) {
        if (!contents[i].fault.isEmpty()) {
            report.setError(names[i] + QStringLiteral(": ") + contents[i].fault, contents[i].faultByte);
        }
    }
    if (!rows.isEmpty()) {
        report.setError(QStringLiteral("%1 fields differ").arg(rows.size()));
    }
    return EXIT_DONE;
}

// The list as JSON; a damaged one is not written.
int exportFile(const QString& name, Order order, const QCommandLineParser& parser, Report& report)
{
    SDeviceListContent content;
    if (!read(name, order, content, report)) {
        return EXIT_INVALID;
    }
    if (!content.fault.isEmpty()) {
        return invalid(report, content.fault, content.faultByte);
    }
    if (!NDeviceListJson::hasPlaceFor(content.list)) {
        return invalid(
            report,
            QStringLiteral("JSON cannot hold this list: an address has no text form that is read back"));
    }
    if (parser.isSet(QStringLiteral("json"))) {
        report.add("list", "List", NDeviceListJson::toJson(content.list));
        return EXIT_DONE;
    }
    printBytes(stdout, NDeviceListJson::toText(content.list));
    report.setWritten();
    return EXIT_DONE;
}

bool readJson(const QString& name, CDeviceList& list, Report& report)
{
    InputFile input;
    if (!input.openSequential(name, report)) {
        return false;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(input.device().readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        report.setError(QStringLiteral("%1: ").arg(name) + error.errorString(), error.offset);
        return false;
    }
    QString fault;
    if (!NDeviceListJson::fromJson(document.object(), list, fault)) {
        report.setError(QStringLiteral("%1: ").arg(name) + fault);
        return false;
    }
    return true;
}

int importFile(const QString& jsonName, const QString& name, Order order, bool force, Report& report)
{
    CDeviceList list;
    if (!readJson(jsonName, list, report)) {
        return EXIT_INVALID;
    }
    if (QFileInfo::exists(name) && !force) {
        return invalid(report, QStringLiteral("%1 already exists; --force replaces it").arg(name));
    }
    QSaveFile file(name);
    const QByteArray bytes = NDeviceListFile::written(list, order);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        return fileFault(report, name, file.errorString());
    }
    report.add("file", "File", name);
    report.add("bytes", "Bytes", wideNumber(bytes.size()));
    report.add("count", "Devices", list.size());
    return EXIT_DONE;
}

} // namespace

QList<SOption> devicesOptions()
{
    return {{"little-endian", QStringLiteral("Reads and writes numbers with their low byte first.")},
            {"force", QStringLiteral("import: replaces an existing file.")}};
}

QStringList devicesWords(int position)
{
    return position == 1
               ? QStringList{QStringLiteral("diff"), QStringLiteral("export"), QStringLiteral("import")}
               : QStringList();
}

int runDevices(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    const QString task = arguments.value(0);
    const Order order =
        parser.isSet(QStringLiteral("little-endian")) ? QDataStream::LittleEndian : QDataStream::BigEndian;
    if (arguments.size() == 1) {
        return showFile(task, order, report);
    }
    if (arguments.size() == 2 && task == QLatin1String("export")) {
        return exportFile(arguments.at(1), order, parser, report);
    }
    if (arguments.size() == 3 && task == QLatin1String("diff")) {
        return showDifferences(arguments.at(1), arguments.at(2), order, report);
    }
    if (arguments.size() == 3 && task == QLatin1String("import")) {
        return importFile(arguments.at(1), arguments.at(2), order, parser.isSet(QStringLiteral("force")),
                          report);
    }
    return wrongUsage(
        report, QStringLiteral("a file, diff and two files, export and a file, or import, a JSON file and "
                               "a file, is expected"));
}
