#include <core/device/CDeviceList.h>
#include <core/types/CVariant.h>
#include <tests/files/TarArchive.h>
#include <tests/tools/CommandLines.h>

#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace {

template <typename Value>
QByteArray streamed(const Value& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

CDeviceList exampleList(unsigned short port)
{
    CDeviceList list(QStringLiteral("Hall"), CDeviceList::SOURCE_NONE);
    CDeviceItem item(QStringLiteral("Lift"), static_cast<CDeviceItem::EHostAddrType>(1),
                     QHostAddress(QStringLiteral("192.168.0.7")), port, QStringLiteral("left"));
    item.value2 = 1;
    item.addSubDevice(3, CSubDeviceItem(QStringLiteral("Brake")));
    list.addDevice(5, item);
    return list;
}

} // namespace

ExampleFiles::ExampleFiles()
{
    const CVariant number(QStringLiteral("31"), NTypes::TYPE_U16);
    const CVariant other(QStringLiteral("32"), NTypes::TYPE_U16);
    write(QStringLiteral("a.tar"), tarFile("a", 3) + tarFile("b/c", 600) + tarEnd());
    write(QStringLiteral("a.devices"), streamed(exampleList(1700)));
    write(QStringLiteral("b.devices"), streamed(exampleList(1701)));
    write(QStringLiteral("a.variants"), streamed(number) + streamed(number));
    write(QStringLiteral("b.variants"), streamed(number) + streamed(other));
    write(QStringLiteral("a.txt"), "123456789");
    write(QStringLiteral("a.sums"), "; sums\nCBF43926  a.txt\n");
    write(QStringLiteral("key"), "12345678901234567890");
    QDir(directory()).mkdir(QStringLiteral("d"));
    write(QStringLiteral("d/e"), "1");
}

QStringList ExampleFiles::entries() const
{
    QStringList found;
    QDirIterator walk(directory(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        found << QStringLiteral("%1 %2").arg(walk.fileInfo().isDir() ? 0 : walk.fileInfo().size()).arg(path);
    }
    found.sort();
    return found;
}

void ExampleFiles::write(const QString& name, const QByteArray& bytes)
{
    QFile file(mDirectory.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("the example files cannot be written");
    }
}

QList<QStringList> showingCommandLines()
{
    QList<QStringList> lines;
    for (const char* line : {"start drvadr=3 port=0x1F40 --unit UNIT_U16=0x1F",
                             "start --product 101",
                             "value U16 0x1F",
                             "value F64",
                             "value DATETIME 2018-05-04T13:22:10",
                             "value STRING32 text",
                             "number --notation hex --width 8 0x1F40",
                             "unit",
                             "unit UNIT_U16",
                             "unit --search u16",
                             "datetime --utc 2024-03-05T13:07:09.456",
                             "duration 1500 ms s",
                             "duration 1500 ms",
                             "stream a.variants",
                             "stream --kind auto a.variants",
                             "stream diff a.variants a.variants",
                             "hwid A012_003_Board",
                             "hwid 012_003_001",
                             "motor ACME_M100_1",
                             "ip FE80:0:0:0:0:0:0:1",
                             "devices a.devices",
                             "devices diff a.devices a.devices",
                             "devices export a.devices",
                             "crc a.txt",
                             "crc a.txt a.tar",
                             "crc -c a.sums",
                             "company",
                             "company 101",
                             "paths",
                             "tar list a.tar",
                             "tar list --utf8 a.tar",
                             "tar check a.tar",
                             "tar cat a.tar a",
                             "totp make --key-file key",
                             "totp make --quiet --key-file key",
                             "bench-ticks",
                             "tree d",
                             "tree d --files",
                             "entry /opt/TARVENIK/etc/conf/drive.ini",
                             "help",
                             "help value"}) {
        lines << QString::fromLatin1(line).split(QLatin1Char(' '));
    }
    return lines;
}
