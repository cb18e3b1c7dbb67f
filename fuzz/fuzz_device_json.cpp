// Device lists as JSON: what `tlx devices export` writes is read back equal, unless JSON has no place for it.
#include <fuzz/support/Fuzzer.h>
#include <tools/tlx/devices/DeviceListFile.h>
#include <tools/tlx/devices/DeviceListJson.h>

#include <QBuffer>
#include <QJsonDocument>

#include <algorithm>

namespace {

/// Every address can be told by its text; JSON has a place for everything else.
bool hasTexts(const CDeviceList& list)
{
    return std::all_of(list.devices.cbegin(), list.devices.cend(), [](const CDeviceItem& item) {
        const QHostAddress& address = item.hostAddress;
        return address.isNull() || QHostAddress(address.toString()) == address;
    });
}

/// Through the text of a file, as export and import do it.
bool reads(const QByteArray& json, CDeviceList& list)
{
    QString fault;
    const bool isRead = NDeviceListJson::fromJson(QJsonDocument::fromJson(json).object(), list, fault);
    FUZZ_CHECK(isRead == fault.isEmpty());
    return isRead;
}

void checkThereAndBack(const CDeviceList& list)
{
    CDeviceList again;
    FUZZ_CHECK(NDeviceListJson::hasPlaceFor(list) == hasTexts(list));
    FUZZ_CHECK(!hasTexts(list) || (reads(NDeviceListJson::toText(list), again) && again == list));
}

void checkFile(const CDeviceList& list, QDataStream::ByteOrder order)
{
    QByteArray bytes = NDeviceListFile::written(list, order);
    QBuffer buffer(&bytes);
    FUZZ_CHECK(buffer.open(QIODevice::ReadOnly));
    const SDeviceListContent content = NDeviceListFile::read(buffer, order);
    FUZZ_CHECK(content.fault.isEmpty() && content.list == list);
}

} // namespace

static void fuzz(Input& input)
{
    const bool isStream = input.choose(2) == 0;
    const auto order = input.choose(2) == 0 ? QDataStream::BigEndian : QDataStream::LittleEndian;
    QByteArray bytes = input.bytes();
    if (isStream) {
        QBuffer buffer(&bytes);
        FUZZ_CHECK(buffer.open(QIODevice::ReadOnly));
        checkThereAndBack(NDeviceListFile::read(buffer, order).list);
        return;
    }
    CDeviceList list;
    if (reads(bytes, list)) {
        checkThereAndBack(list);
        checkFile(list, order);
    }
}
