#include <core/types/VariantStream.h>

#include <core/types/DateTimeStream.h>
#include <core/types/MetaTypes.h>
#include <core/types/VariantPayload.h>
#include <core/types/VariantTypeNumbers.h>

#include <QDataStream>
#include <QDateTime>
#include <QtEndian>

#include <algorithm>
#include <cstring>

// The layout of a QVariant in a stream: type number (32 bits), null flag (8 bits, from Qt 4.2), for a user type its name
// with the terminating zero behind a 32-bit length, then the value. Before Qt 5.0 an invalid variant has an empty text
// as its value.
namespace NVariantStream {

using NVariantPayload::data;
using NVariantPayload::exact;
using NVariantPayload::metaType;

namespace {

// Sizes in the stream.
constexpr int NUMBER_SIZE = 4;
constexpr int HEAD_SIZE = NUMBER_SIZE + 1;
constexpr int MAX_IMAGE = 8;
constexpr int MAX_BYTES = 256;
constexpr int MAX_NAME = 32;

// From this version on a number in the stream is its memory image in the stream's byte order.
bool hasImages(const QDataStream& stream)
{
    return stream.version() >= QDataStream::Qt_4_6;
}

int imageSize(const QDataStream& stream, quint32 type)
{
    if (!hasImages(stream)) {
        return 0;
    }
    switch (type) {
    case QMetaType::Char:
    case QMetaType::UChar:
    case QMetaType::SChar:
        return 1;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::QChar:
        return 2;
    case QMetaType::Int:
    case QMetaType::UInt:
        return 4;
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return 8;
    case QMetaType::Float:
        return stream.floatingPointPrecision() == QDataStream::DoublePrecision ? 8 : 4;
    case QMetaType::Double:
        return stream.floatingPointPrecision() == QDataStream::DoublePrecision ? 8 : 0;
    default:
        return 0;
    }
}

// Turns a number's bytes from the machine's into the stream's order, or back.
void orderImage(const QDataStream& stream, char* image, int size)
{
    constexpr bool LITTLE_ENDIAN_MACHINE = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;
    if ((stream.byteOrder() == QDataStream::LittleEndian) != LITTLE_ENDIAN_MACHINE) {
        std::reverse(image, image + size);
    }
}

template <typename Number>
Number fromImage(const QDataStream& stream, const char* image)
{
    return stream.byteOrder() == QDataStream::LittleEndian ? qFromLittleEndian<Number>(image)
                                                           : qFromBigEndian<Number>(image);
}

template <typename Number>
void toImage(const QDataStream& stream, Number number, char* image)
{
    if (stream.byteOrder() == QDataStream::LittleEndian) {
        qToLittleEndian<Number>(number, image);
    } else {
        qToBigEndian<Number>(number, image);
    }
}

bool isOwn(int type)
{
    const NTypes::SMetaTypes& own = NTypes::metaTypes();
    return type == own.string32 || type == own.string64 || type == own.string128 || type == own.dateTime;
}

// The payload if it is bytes that are written at once.
const QByteArray* shortBytes(const QDataStream& stream, const QVariant& payload)
{
    const QByteArray* const bytes = exact<QByteArray>(payload);
    return bytes && hasImages(stream) && !bytes->isNull() && bytes->size() <= MAX_BYTES ? bytes : nullptr;
}

// Type number and null flag; gives where the value goes.
char* writeHead(const QDataStream& stream, const QVariant& payload, char* raw)
{
    toImage(stream, numberInStream(static_cast<quint32>(metaType(payload)), stream.version()), raw);
    raw[NUMBER_SIZE] = payload.data_ptr().is_null ? 1 : 0;
    return raw + HEAD_SIZE;
}

// Reads the name of a user type; its number if it is one of the library's own.
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
        stream.setStatus(QDataStream::ReadPastEnd);
        return REFUSED;
    }
    const NTypes::SMetaTypes& own = NTypes::metaTypes();
    for (const int type : {own.string32, own.string64, own.string128, own.dateTime}) {
        if (std::strcmp(name, QMetaType::typeName(type)) == 0) {
            return static_cast<quint32>(type);
        }
    }
    return REFUSED;
}

// The bytes of an 8-bit text and the tag behind them, in one access to the device.
void readShortBytes(QDataStream& stream, int size, QByteArray& bytes, qint32& tag)
{
    char raw[MAX_BYTES + NUMBER_SIZE];
    const int got = stream.readRawData(raw, size + NUMBER_SIZE);
    if (got >= size) {
        bytes = size > 0 ? QByteArray(raw, size) : QByteArray("");
    }
    if (got == size + NUMBER_SIZE) {
        tag = fromImage<qint32>(stream, raw + size);
    }
}

// Longer ones, in steps: the length may lie.
void readLongBytes(QDataStream& stream, int size, QByteArray& bytes, qint32& tag)
{
    constexpr int STEP = 0x100000;
    while (bytes.size() < size) {
        const int before = bytes.size();
        const int count = std::min(STEP, size - before);
        bytes.resize(before + count);
        if (stream.readRawData(bytes.data() + before, count) != count) {
            bytes.clear();
            stream.setStatus(QDataStream::ReadPastEnd);
            break;
        }
    }
    stream >> tag;
}

// As QByteArray's operator, which does not stop before the length leaves an int.
bool readBytes(QDataStream& stream, QByteArray& bytes, qint32& tag)
{
    constexpr quint32 NULL_ARRAY = ~quint32(0);
    constexpr quint32 MAX_LENGTH = 0x3FFFFFFF;
    quint32 length = 0;
    stream >> length;
    if (length == NULL_ARRAY) {
        stream >> tag;
    } else if (length > MAX_LENGTH) {
        return false;
    } else if (length <= MAX_BYTES) {
        readShortBytes(stream, static_cast<int>(length), bytes, tag);
    } else {
        readLongBytes(stream, static_cast<int>(length), bytes, tag);
    }
    return true;
}

bool readValue(QDataStream& stream, QVariant& payload, qint32& tag)
{
    const int type = metaType(payload);
    void* const value = payload.data();
    if (type == QMetaType::QByteArray) {
        return readBytes(stream, *static_cast<QByteArray*>(value), tag);
    }
    const bool done = type == QMetaType::QDateTime
                          ? NDateTimeStream::read(stream, *static_cast<QDateTime*>(value))
                          : QMetaType::load(stream, type, value);
    if (done) {
        stream >> tag;
    }
    return done;
}

// Type number and null flag, in one access to the device.
struct SHead
{
    quint32 number = 0;
    bool null = false;
};

SHead readHead(QDataStream& stream)
{
    SHead head;
    char raw[HEAD_SIZE] = {};
    const int size = stream.version() >= QDataStream::Qt_4_2 ? HEAD_SIZE : NUMBER_SIZE;
    if (stream.readRawData(raw, size) >= NUMBER_SIZE) {
        head.number = fromImage<quint32>(stream, raw);
        head.null = (raw[NUMBER_SIZE] & 1) != 0;
    }
    return head;
}

// A number and the tag behind it, in one access to the device. What is missing is 0.
void readImage(QDataStream& stream, quint32 type, int size, QVariant& payload, qint32& tag)
{
    char raw[MAX_IMAGE + NUMBER_SIZE] = {};
    const int got = stream.readRawData(raw, size + NUMBER_SIZE);
    if (got == size + NUMBER_SIZE) {
        tag = fromImage<qint32>(stream, raw + size);
    }
    if (got < size) {
        std::fill(raw, raw + size, '\0');
    }
    orderImage(stream, raw, size);
    if (type == QMetaType::Float && size == MAX_IMAGE) {
        double wide = 0;
        std::memcpy(&wide, raw, sizeof(wide));
        const float narrow = static_cast<float>(wide);
        std::memcpy(raw, &narrow, sizeof(narrow));
    }
    payload = QVariant(static_cast<int>(type), raw);
}

// A value of the library's own types: head and name in one access to the device.
void writeOwnType(QDataStream& stream, const QVariant& payload, int type, qint32 tag)
{
    const char* const name = QMetaType::typeName(type);
    const int size = static_cast<int>(std::strlen(name)) + 1;
    char raw[HEAD_SIZE + NUMBER_SIZE + MAX_NAME];
    char* const length = writeHead(stream, payload, raw);
    toImage(stream, size, length);
    std::copy(name, name + size, length + NUMBER_SIZE);
    stream.writeRawData(raw, HEAD_SIZE + NUMBER_SIZE + size);
    QMetaType::save(stream, type, data(payload));
    stream << tag;
}

bool readInvalid(QDataStream& stream, QVariant& payload, qint32& tag)
{
    payload = QVariant();
    QString nothing;
    if (stream.version() < QDataStream::Qt_5_0) {
        stream >> nothing;
    }
    stream >> tag;
    return true;
}

bool readChecked(QDataStream& stream, QVariant& payload, qint32& tag)
{
    const SHead head = readHead(stream);
    quint32 type = typeNumber(head.number, stream.version());
    if (type == QMetaType::UnknownType) {
        return readInvalid(stream, payload, tag);
    }
    if (type == QMetaType::User) {
        type = readUserType(stream);
    } else if (!isPlain(type)) {
        type = REFUSED;
    }
    if (type == REFUSED) {
        return false;
    }
    bool done = true;
    const int size = imageSize(stream, type);
    if (size > 0) {
        readImage(stream, type, size, payload, tag);
    } else {
        payload = QVariant(static_cast<int>(type), nullptr);
        done = readValue(stream, payload, tag);
    }
    payload.data_ptr().is_null = head.null;
    return done;
}

// Head, value and tag of a number in one access to the device.
void writeImage(QDataStream& stream, const QVariant& payload, int size, qint32 tag)
{
    char raw[HEAD_SIZE + MAX_IMAGE + NUMBER_SIZE];
    char* const value = writeHead(stream, payload, raw);
    if (metaType(payload) == QMetaType::Float && size == MAX_IMAGE) {
        const double wide = static_cast<double>(*static_cast<const float*>(data(payload)));
        std::memcpy(value, &wide, sizeof(wide));
    } else {
        std::memcpy(value, data(payload), static_cast<std::size_t>(size));
    }
    orderImage(stream, value, size);
    toImage(stream, tag, value + size);
    stream.writeRawData(raw, HEAD_SIZE + size + NUMBER_SIZE);
}

// The same for the bytes of an 8-bit text.
void writeBytes(QDataStream& stream, const QVariant& payload, const QByteArray& bytes, qint32 tag)
{
    char raw[HEAD_SIZE + NUMBER_SIZE + MAX_BYTES + NUMBER_SIZE];
    char* const value = writeHead(stream, payload, raw);
    toImage(stream, static_cast<qint32>(bytes.size()), value);
    char* const end = std::copy(bytes.cbegin(), bytes.cend(), value + NUMBER_SIZE);
    toImage(stream, tag, end);
    stream.writeRawData(raw, static_cast<int>(end + NUMBER_SIZE - raw));
}

} // namespace

bool read(QDataStream& stream, QVariant& payload, qint32& tag)
{
    NTypes::metaTypes();
    tag = 0;
    const bool wasCorrupt = stream.status() == QDataStream::ReadCorruptData;
    const bool done = readChecked(stream, payload, tag);
    // A value that Qt calls corrupt, such as half a UTF-16 unit, is refused, too.
    if (done && (wasCorrupt || stream.status() != QDataStream::ReadCorruptData)) {
        return true;
    }
    payload = QVariant();
    tag = 0;
    stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}

void write(QDataStream& stream, const QVariant& payload, qint32 tag)
{
    NTypes::metaTypes();
    const int type = metaType(payload);
    const int size = imageSize(stream, static_cast<quint32>(type));
    if (size > 0) {
        writeImage(stream, payload, size, tag);
    } else if (isOwn(type) && hasImages(stream)) {
        writeOwnType(stream, payload, type, tag);
    } else if (const QByteArray* bytes = shortBytes(stream, payload)) {
        writeBytes(stream, payload, *bytes, tag);
    } else {
        stream << payload << tag;
    }
}

} // namespace NVariantStream
