// The stream formats of the value classes: whatever is read without a failure is written and read again as the same.
#include <core/device/CDeviceHardwareId.h>
#include <core/device/CDeviceList.h>
#include <core/device/CIPv6Address.h>
#include <core/device/CMotorBaseName.h>
#include <core/text/CDateTime.h>
#include <core/text/CTime.h>
#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>
#include <core/types/NTypes.h>
#include <fuzz/support/Fuzzer.h>
#include <fuzz/support/Streams.h>

namespace {

template <typename Value>
void checkReadAgain(const SStreamSetup& setup, const Value& value, const QByteArray& written)
{
    Value again;
    qint64 taken = 0;
    FUZZ_CHECK(setup.read(written, again, taken) == QDataStream::Ok);
    FUZZ_CHECK(taken == written.size());
    FUZZ_CHECK(again == value);
    FUZZ_CHECK(qHash(again, 1) == qHash(value, 1));
    FUZZ_CHECK(setup.written(again) == written);
}

/// For formats of which every byte counts.
template <typename Value>
void checkExact(const SStreamSetup& setup, const QByteArray& bytes)
{
    Value value;
    qint64 taken = 0;
    const QDataStream::Status status = setup.read(bytes, value, taken);
    const QByteArray written = setup.written(value);
    if (status == QDataStream::Ok) {
        FUZZ_CHECK(bytes.startsWith(written) && taken == written.size());
        checkReadAgain(setup, value, written);
    }
}

/// For formats in which a value has several forms (flags, orders of keys).
template <typename Value>
void check(const SStreamSetup& setup, const QByteArray& bytes)
{
    Value value;
    qint64 taken = 0;
    const QDataStream::Status status = setup.read(bytes, value, taken);
    const QByteArray written = setup.written(value);
    if (status == QDataStream::Ok) {
        checkReadAgain(setup, value, written);
    }
}

/// What stands before the devices of a list.
struct SListHead
{
    QString name;
    qint32 type = 0;
};

QDataStream& operator>>(QDataStream& stream, SListHead& head)
{
    return stream >> head.name >> head.type;
}

void checkList(const SStreamSetup& setup, const QByteArray& bytes)
{
    CDeviceList list;
    qint64 taken = 0;
    SListHead head;
    qint64 headTaken = 0;
    const bool goodHead = setup.read(bytes, head, headTaken) == QDataStream::Ok;
    const QDataStream::Status status = setup.read(bytes, list, taken);
    FUZZ_CHECK(list.name == head.name && list.sourceType == head.type);
    // Behind a name that is corrupt the devices are read all the same, as Qt reads a map.
    if (status == QDataStream::ReadPastEnd || (goodHead && status != QDataStream::Ok)) {
        FUZZ_CHECK(list.size() == 0);
    }
    check<CDeviceList>(setup, bytes);
}

/// Beside Qt's own reader, which reads all that the class does not refuse.
void checkDateTime(const SStreamSetup& setup, const QByteArray& bytes)
{
    CDateTime value;
    qint64 taken = 0;
    const QDataStream::Status status = setup.read(bytes, value, taken);
    if (status == QDataStream::ReadCorruptData) {
        FUZZ_CHECK(value.isNull());
        return;
    }
    QDateTime expected;
    qint64 expectedTaken = 0;
    FUZZ_CHECK(setup.read(bytes, expected, expectedTaken) == status);
    FUZZ_CHECK(expectedTaken == taken);
    FUZZ_CHECK(value.timeSpec() == expected.timeSpec());
    FUZZ_CHECK(value == CDateTime(expected));
    FUZZ_CHECK(setup.written(value) == setup.written(expected));
}

using TCheck = void (*)(const SStreamSetup& setup, const QByteArray& bytes);

constexpr TCheck CHECKS[] = {checkExact<NTypes::tsDate>,
                             checkExact<NTypes::tsTime>,
                             checkExact<NTypes::tsDateTime>,
                             checkExact<CString32>,
                             checkExact<CString64>,
                             checkExact<CString128>,
                             checkExact<CTime>,
                             checkExact<CDeviceHardwareId>,
                             checkExact<CMotorBaseName>,
                             checkExact<CIPv6Address>,
                             checkExact<CSubDeviceItem>,
                             check<CDeviceItem>,
                             checkList,
                             checkDateTime};

} // namespace

static void fuzz(Input& input)
{
    const TCheck check = CHECKS[input.choose(static_cast<int>(sizeof(CHECKS) / sizeof(CHECKS[0])))];
    const SStreamSetup setup(input);
    check(setup, input.bytes());
}
