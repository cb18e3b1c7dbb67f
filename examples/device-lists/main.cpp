// A list of devices: filled, merged with another, and carried through a stream.
#include <core/tlxCore.h>

#include <QDataStream>
#include <QDebug>

namespace {

//! [item]
CDeviceItem drive(const QString& name, const QString& address)
{
    const auto type = static_cast<CDeviceItem::EHostAddrType>(1); // the tools name their own address types
    CDeviceItem item(name, type, QHostAddress(address), 4000, QString());
    item.value2 = 1;
    item.addSubDevice(1, CSubDeviceItem(QStringLiteral("Encoder")));
    return item;
}
//! [item]

} // namespace

int main()
{
    //! [merge]
    CDeviceList hall(QStringLiteral("Hall 3"), CDeviceList::SOURCE_NONE);
    hall.addDevice(1, drive(QStringLiteral("Spindle"), QStringLiteral("192.168.0.1")));

    CDeviceList found;
    found.addDevice(1, drive(QStringLiteral("Spindle, found"), QStringLiteral("192.168.0.9")));
    found.addDevice(2, drive(QStringLiteral("Feed"), QStringLiteral("192.168.0.2")));

    // Nothing is replaced: device 1 is there twice now, the newcomer in front.
    hall.unite(found);
    //! [merge]

    //! [stream]
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << hall;

    CDeviceList again;
    QDataStream in(bytes);
    in >> again;
    //! [stream]

    qInfo() << again.name << again.size() << again.device(1).name;
    return again == hall && hall.size() == 3 && hall.device(1).name == QLatin1String("Spindle, found")
                   && hall.device(2).isValid()
               ? 0
               : 1;
}
