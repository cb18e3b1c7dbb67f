#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>

#include <core/device/CDeviceList.h>

#include <QCommandLineParser>
#include <QDataStream>
#include <QFile>

namespace {

using Order = QDataStream::ByteOrder;

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

QStringList deviceRow(unsigned int key, const CDeviceItem& item)
{
    return {QString::number(key),
            QString::number(item.number),
            item.name,
            QString::number(item.hostAddrType),
            item.hostAddress.toString(),
            QString::number(item.port),
            item.configurationName(),
            item.extraText,
            item.extraText2,
            yesNo(item.flag1),
            yesNo(item.flag2),
            QString::number(item.value1),
            QString::number(item.value2),
            yesNo(item.isValid())};
}

const QStringList& deviceColumns()
{
    static const QStringList columns{
        QStringLiteral("key"),           QStringLiteral("number"),    QStringLiteral("name"),
        QStringLiteral("addressType"),   QStringLiteral("address"),   QStringLiteral("port"),
        QStringLiteral("configuration"), QStringLiteral("extraText"), QStringLiteral("extraText2"),
        QStringLiteral("flag1"),         QStringLiteral("flag2"),     QStringLiteral("value1"),
        QStringLiteral("value2"),        QStringLiteral("valid")};
    return columns;
}

void show(const CDeviceList& list, Report& report)
{
    report.add(QStringLiteral("name"), QStringLiteral("name"), list.name);
    report.add(QStringLiteral("sourceType"), QStringLiteral("source type"), qint32(list.sourceType));
    report.add(QStringLiteral("count"), QStringLiteral("devices"), list.size());
    QList<QStringList> devices;
    QList<QStringList> subDevices;
    for (auto entry = list.devices.constBegin(); entry != list.devices.constEnd(); ++entry) {
        devices << deviceRow(entry.key(), entry.value());
        const QMap<unsigned char, CSubDeviceItem>& subs = entry.value().subDevices;
        for (auto sub = subs.constBegin(); sub != subs.constEnd(); ++sub) {
            subDevices << QStringList{QString::number(entry.key()), QString::number(sub.key()),
                                      QString::number(sub.value().number), sub.value().name};
        }
    }
    report.addTable(QStringLiteral("devices"), deviceColumns(), devices);
    report.addTable(
        QStringLiteral("subDevices"),
        {QStringLiteral("device"), QStringLiteral("key"), QStringLiteral("number"), QStringLiteral("name")},
        subDevices);
}

/// Walks the file once more, entry by entry, to say what the first part is that cannot be read, and where it starts.
void reportDamage(QFile& file, Order order, Report& report)
{
    file.seek(0);
    QDataStream stream(&file);
    stream.setByteOrder(order);
    QString name;
    CDeviceList::ESourceType source = CDeviceList::SOURCE_NONE;
    quint32 count = 0;
    stream >> name >> source >> count;
    qint64 start = 0;
    QString part = QStringLiteral("the list's head");
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        start = file.pos();
        part = QStringLiteral("device %1 of %2").arg(i + 1).arg(count);
        quint32 key = 0;
        CDeviceItem item;
        stream >> key >> item;
    }
    const bool cut = stream.status() == QDataStream::ReadPastEnd;
    report.setError(
        (cut ? QStringLiteral("%1 is cut off by the end of the file") : QStringLiteral("%1 is damaged"))
            .arg(part),
        start);
}

} // namespace

void addDevicesOptions(QCommandLineParser& parser)
{
    parser.addOption(
        {QStringLiteral("little-endian"), QStringLiteral("Reads numbers with their low byte first.")});
}

int runDevices(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 1) {
        return wrongUsage(report, QStringLiteral("one FILE is needed"));
    }
    QFile file(arguments.first());
    if (!file.open(QIODevice::ReadOnly)) {
        report.setError(QStringLiteral("%1: %2").arg(file.fileName(), file.errorString()));
        return EXIT_INVALID;
    }
    const Order order =
        parser.isSet(QStringLiteral("little-endian")) ? QDataStream::LittleEndian : QDataStream::BigEndian;
    QDataStream stream(&file);
    stream.setByteOrder(order);
    CDeviceList list;
    stream >> list;
    show(list, report);
    if (stream.status() != QDataStream::Ok) {
        reportDamage(file, order, report);
        return EXIT_INVALID;
    }
    if (!file.atEnd()) {
        report.setError(QStringLiteral("%1 bytes follow the list").arg(file.size() - file.pos()), file.pos());
        return EXIT_INVALID;
    }
    return EXIT_DONE;
}
