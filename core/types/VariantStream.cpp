#include <core/types/VariantStream.h>

#include <core/base/QtZones.h>
#include <core/types/DateTimeStream.h>
#include <core/types/MetaTypes.h>
#include <core/types/VariantTypeNumbers.h>

#include <QDataStream>
#include <QDateTime>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cstring>

// The layout of a QVariant in a stream: type number (32 bits), null flag (8 bits, from Qt 4.2), for a user type its name
// with the terminating zero after a 32-bit length, then the value. Before Qt 5.0 an invalid variant has an empty text
// as its value.
namespace NVariantStream {

namespace {

// Sizes in the stream.
constexpr int NUMBER_SIZE = 4;
constexpr int HEAD_SIZE = NUMBER_SIZE + 1;
constexpr int MAX_FIXED_SIZE = 8;
constexpr int MAX_NAME = 32;

// From the machine's byte order to the stream's, or back.
void orderBytes(const QDataStream& stream, char* begin, char* end)
{
    if ((stream.byteOrder() == QDataStream::LittleEndian) != (Q_BYTE_ORDER == Q_LITTLE_ENDIAN)) {
        std::reverse(begin, end);
    }
}

struct SHead
{
    quint32 number = 0;
    bool isNull = false;
};

// In one access to the device.
SHead readHead(QDataStream& stream)
{
    SHead head;
    char bytes[HEAD_SIZE] = {};
    const int size = stream.version() >= QDataStream::Qt_4_2 ? HEAD_SIZE : NUMBER_SIZE;
    if (stream.readRawData(bytes, size) >= NUMBER_SIZE) {
        orderBytes(stream, bytes, bytes + NUMBER_SIZE);
        std::memcpy(&head.number, bytes, sizeof(head.number));
        head.isNull = (bytes[NUMBER_SIZE] & 1) != 0;
    }
    return head;
}

// Reads the name of a user type: its number if it is one of the library's own.
quint32 readUserType(QDataStream& stream)
{
    char name[MAX_NAME] = {};
    quint32 length = 0;
    stream >> length;
    if (length >= sizeof(name)) {
        return REFUSED;
    }
    const int size = static_cast<int>(length);
    if (stream.readRawData(name, size) != size) {
        return REFUSED;
    }
    for (quint32 type = 0; type < NTypeTable::TYPE_COUNT; ++type) {
        const int metaType = NMetaTypes::metaTypeOf(static_cast<NTypes::ETypes>(type));
        if (metaType >= QMetaType::User && std::strcmp(name, NQtVariant::typeName(metaType)) == 0) {
            return static_cast<quint32>(metaType);
        }
    }
    return REFUSED;
}

// The type that the head announces, if a variant may hold it.
quint32 readType(QDataStream& stream, const SHead& head)
{
    const quint32 type = typeNumber(head.number, stream.version());
    if (type == USER_TYPE) {
        return readUserType(stream);
    }
    return isIn(PLAIN_TYPES, type) ? type : REFUSED;
}

void readNothing(QDataStream& stream)
{
    if (stream.version() < QDataStream::Qt_5_0) {
        QString nothing;
        stream >> nothing;
    }
}

// As QByteArray's operator, which does not stop before the length leaves an int.
bool readBytes(QDataStream& stream, QByteArray& bytes)
{
    constexpr quint32 NULL_ARRAY = ~quint32(0);
    constexpr quint32 MAX_LENGTH = 0x3FFFFFFF;
    constexpr int STEP = 0x100000; // the length may lie
    quint32 length = 0;
    stream >> length;
    if (length == NULL_ARRAY) {
        return true;
    }
    if (length > MAX_LENGTH) {
        return false;
    }
    const int size = static_cast<int>(length);
    bytes = QByteArray("");
    while (bytes.size() < size) {
        const int count = static_cast<int>(bytes.size());
        const int step = std::min(STEP, size - count);
        bytes.resize(count + step);
        if (stream.readRawData(bytes.data() + count, step) != step) {
            bytes.clear();
            break;
        }
    }
    return true;
}

bool readValue(QDataStream& stream, int type, void* value)
{
    switch (type) {
    case QMetaType::QByteArray:
        return readBytes(stream, *static_cast<QByteArray*>(value));
    case QMetaType::QDateTime:
        return NDateTimeStream::read(stream, *static_cast<QDateTime*>(value));
    default:
        return NQtVariant::load(stream, type, value);
    }
}

// Bytes of a number that lies in the stream as in memory, but for the order of its bytes; 0 of everything else.
int fixedSize(const QDataStream& stream, int type)
{
    constexpr quint64 BY_SIZE[] = {typeSet({QMetaType::UChar, QMetaType::SChar}),
                                   typeSet({QMetaType::Short, QMetaType::UShort}),
                                   typeSet({QMetaType::Int, QMetaType::UInt}),
                                   typeSet({QMetaType::LongLong, QMetaType::ULongLong, QMetaType::Double})};
    const bool isOther =
        type == QMetaType::Double && stream.floatingPointPrecision() != QDataStream::DoublePrecision;
    if (isOther || stream.version() < QDataStream::Qt_5_0) {
        return 0;
    }
    int size = MAX_FIXED_SIZE;
    for (int i = 3; i >= 0 && !isIn(BY_SIZE[i], static_cast<quint32>(type)); --i) {
        size /= 2;
    }
    return size;
}

// A number and the tag after it, in one access to the device. What is missing is 0.
void readNumber(QDataStream& stream, int type, int size, QVariant& payload, qint32& tag)
{
    char bytes[MAX_FIXED_SIZE + NUMBER_SIZE] = {};
    const int got = stream.readRawData(bytes, size + NUMBER_SIZE);
    if (got == size + NUMBER_SIZE) {
        orderBytes(stream, bytes + size, bytes + got);
        std::memcpy(&tag, bytes + size, sizeof(tag));
    } else if (got < size) {
        std::fill(bytes, bytes + size, '\0');
    }
    orderBytes(stream, bytes, bytes + size);
    payload = NQtVariant::make(type, bytes);
}

// Head, number and tag in one access to the device.
void writeNumber(QDataStream& stream, const QVariant& payload, int size, qint32 tag)
{
    char bytes[HEAD_SIZE + MAX_FIXED_SIZE + NUMBER_SIZE];
    char* const value = bytes + HEAD_SIZE;
    const qint32 type = payload.userType();
    std::memcpy(bytes, &type, sizeof(type));
    orderBytes(stream, bytes, bytes + NUMBER_SIZE);
    bytes[NUMBER_SIZE] = 0;
    std::memcpy(value, payload.constData(), static_cast<std::size_t>(size));
    orderBytes(stream, value, value + size);
    std::memcpy(value + size, &tag, sizeof(tag));
    orderBytes(stream, value + size, value + size + NUMBER_SIZE);
    stream.writeRawData(bytes, HEAD_SIZE + size + NUMBER_SIZE);
}

// The same value in a null payload, which nothing else of Qt's makes of every type.
QVariant nulled(const QVariant& payload)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << payload;
    bytes[NUMBER_SIZE] = 1;
    QDataStream in(bytes);
    QVariant result;
    in >> result;
    return result;
}

bool readChecked(QDataStream& stream, QVariant& payload, qint32& tag)
{
    const SHead head = readHead(stream);
    const quint32 number = readType(stream, head);
    if (number == REFUSED) {
        return false;
    }
    const int type = static_cast<int>(number);
    if (type == QMetaType::UnknownType) {
        payload = QVariant();
        readNothing(stream);
    } else if (const int size = head.isNull ? 0 : fixedSize(stream, type)) {
        readNumber(stream, type, size, payload, tag);
        return true;
    } else {
        payload = NQtVariant::make(type, nullptr);
        if (!readValue(stream, type, payload.data())) {
            return false;
        }
        if (head.isNull) {
            payload = nulled(payload);
        }
    }
    stream >> tag;
    return true;
}

} // namespace

bool read(QDataStream& stream, QVariant& payload, qint32& tag)
{
    tag = 0;
    const bool wasCorrupt = stream.status() == QDataStream::ReadCorruptData;
    // A value that Qt calls corrupt, such as half a UTF-16 unit, is refused, too.
    if (readChecked(stream, payload, tag)
        && (wasCorrupt || stream.status() != QDataStream::ReadCorruptData)) {
        return true;
    }
    payload = QVariant();
    tag = 0;
    stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}

void write(QDataStream& stream, const QVariant& payload, qint32 tag)
{
    const int size = fixedSize(stream, payload.userType());
    if (size > 0 && !payload.isNull()) {
        writeNumber(stream, payload, size, tag);
    } else {
        NQtCompat::write(stream, payload);
        stream << tag;
    }
}

} // namespace NVariantStream
