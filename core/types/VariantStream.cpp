#include <core/types/VariantStream.h>

#include <core/types/DateTimeStream.h>
#include <core/types/MetaTypes.h>

#include <QDataStream>
#include <QDateTime>
#include <QtEndian>

#include <algorithm>
#include <cstring>

// The layout of a QVariant in a stream: type number (32 bits), null flag (8 bits, from Qt 4.2), for a user type its name
// with the terminating zero behind a 32-bit length, then the value. Before Qt 5.0 an invalid variant has an empty text
// as its value.
namespace NVariantStream {

namespace {

constexpr quint32 REFUSED = ~quint32(0);

struct STypeNumbers
{
    quint8 old;
    quint8 current;
};

// Numbers that Qt 3 gave to what is read here.
constexpr STypeNumbers QT3_NUMBERS[] = {
    {0, QMetaType::UnknownType}, {3, QMetaType::QString},   {16, QMetaType::Int},
    {17, QMetaType::UInt},       {18, QMetaType::Bool},     {19, QMetaType::Double},
    {26, QMetaType::QDate},      {27, QMetaType::QTime},    {28, QMetaType::QDateTime},
    {29, QMetaType::QByteArray}, {33, QMetaType::LongLong}, {34, QMetaType::ULongLong}};

// Qt 4 kept void* to signed char, which follow QUuid today, from 128 on, and user types at 127.
constexpr quint32 QT4_USER = 127;
constexpr quint32 QT4_FIRST_EXTENDED = 128;
constexpr quint32 QT4_LAST_EXTENDED = 137;
constexpr quint32 QT4_SHIFT = QT4_FIRST_EXTENDED - QMetaType::VoidStar;

quint32 fromQt3(quint32 number)
{
    for (const STypeNumbers& row : QT3_NUMBERS) {
        if (row.old == number) {
            return row.current;
        }
    }
    return REFUSED;
}

quint32 fromQt4(quint32 number)
{
    if (number == QT4_USER) {
        return QMetaType::User;
    }
    if (number >= QT4_FIRST_EXTENDED && number <= QT4_LAST_EXTENDED) {
        return number - QT4_SHIFT;
    }
    return number;
}

// The number that the type has today.
quint32 typeNumber(quint32 number, int version)
{
    if (version < QDataStream::Qt_4_0) {
        return fromQt3(number);
    }
    return version < QDataStream::Qt_5_0 ? fromQt4(number) : number;
}

bool isPlain(quint32 type)
{
    switch (type) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::QChar:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::Char:
    case QMetaType::ULong:
    case QMetaType::UShort:
    case QMetaType::UChar:
    case QMetaType::Float:
    case QMetaType::SChar:
        return true;
    default:
        return false;
    }
}

// Sizes in the stream.
constexpr int NUMBER_SIZE = 4;
constexpr int HEAD_SIZE = NUMBER_SIZE + 1;
constexpr int MAX_IMAGE = 8;
constexpr int MAX_BYTES = 256;

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

// Type number and null flag; gives where the value goes.
char* writeHead(const QDataStream& stream, const QVariant& payload, char* raw)
{
    const quint32 type = static_cast<quint32>(payload.userType());
    const bool extended = type >= QMetaType::VoidStar && stream.version() < QDataStream::Qt_5_0;
    toImage(stream, extended ? type + QT4_SHIFT : type, raw);
    raw[NUMBER_SIZE] = payload.data_ptr().is_null ? 1 : 0;
    return raw + HEAD_SIZE;
}

// Reads the name of a user type; its number if it is one of the library's own.
quint32 readUserType(QDataStream& stream)
{
    char name[32] = {};
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

// As QByteArray's operator, which does not stop before the length leaves an int.
bool readBytes(QDataStream& stream, QByteArray& bytes)
{
    constexpr quint32 NULL_ARRAY = ~quint32(0);
    constexpr quint32 MAX_LENGTH = 0x3FFFFFFF;
    constexpr int STEP = 0x100000;
    quint32 length = 0;
    stream >> length;
    if (length == NULL_ARRAY) {
        return true;
    }
    if (length > MAX_LENGTH) {
        return false;
    }
    bytes = QByteArray("");
    const int size = static_cast<int>(length);
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
    return true;
}

bool readValue(QDataStream& stream, QVariant& payload)
{
    void* const value = payload.data();
    if (payload.userType() == QMetaType::QByteArray) {
        return readBytes(stream, *static_cast<QByteArray*>(value));
    }
    if (payload.userType() == QMetaType::QDateTime) {
        return NDateTimeStream::read(stream, *static_cast<QDateTime*>(value));
    }
    return QMetaType::load(stream, payload.userType(), value);
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
        done = readValue(stream, payload);
        if (done) {
            stream >> tag;
        }
    }
    payload.data_ptr().is_null = head.null;
    return done;
}

// Head, value and tag of a number in one access to the device.
void writeImage(QDataStream& stream, const QVariant& payload, int size, qint32 tag)
{
    char raw[HEAD_SIZE + MAX_IMAGE + NUMBER_SIZE];
    char* const value = writeHead(stream, payload, raw);
    if (payload.userType() == QMetaType::Float && size == MAX_IMAGE) {
        const double wide = static_cast<double>(*static_cast<const float*>(payload.constData()));
        std::memcpy(value, &wide, sizeof(wide));
    } else {
        std::memcpy(value, payload.constData(), static_cast<std::size_t>(size));
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
    const int type = payload.userType();
    const int size = imageSize(stream, static_cast<quint32>(type));
    if (size > 0) {
        writeImage(stream, payload, size, tag);
        return;
    }
    if (type == QMetaType::QByteArray && hasImages(stream)) {
        const QByteArray& bytes = *static_cast<const QByteArray*>(payload.constData());
        if (!bytes.isNull() && bytes.size() <= MAX_BYTES) {
            writeBytes(stream, payload, bytes, tag);
            return;
        }
    }
    stream << payload << tag;
}

} // namespace NVariantStream
