#include <core/types/VariantStream.h>

#include <core/types/DateTimeStream.h>
#include <core/types/MetaTypes.h>

#include <QDataStream>
#include <QDateTime>

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

bool readChecked(QDataStream& stream, QVariant& payload)
{
    quint32 number = 0;
    qint8 null = 0;
    stream >> number;
    quint32 type = typeNumber(number, stream.version());
    if (stream.version() >= QDataStream::Qt_4_2) {
        stream >> null;
    }
    if (type == QMetaType::UnknownType) {
        payload = QVariant();
        QString nothing;
        if (stream.version() < QDataStream::Qt_5_0) {
            stream >> nothing;
        }
        return true;
    }
    if (type == QMetaType::User) {
        type = readUserType(stream);
    } else if (!isPlain(type)) {
        type = REFUSED;
    }
    if (type == REFUSED) {
        return false;
    }
    payload = QVariant(static_cast<int>(type), nullptr);
    payload.data_ptr().is_null = (null & 1) != 0;
    return readValue(stream, payload);
}

} // namespace

bool readPayload(QDataStream& stream, QVariant& payload)
{
    NTypes::metaTypes();
    const bool wasCorrupt = stream.status() == QDataStream::ReadCorruptData;
    const bool read = readChecked(stream, payload);
    // A value that Qt calls corrupt, such as half a UTF-16 unit, is refused, too.
    if (read && (wasCorrupt || stream.status() != QDataStream::ReadCorruptData)) {
        return true;
    }
    payload = QVariant();
    stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}

} // namespace NVariantStream
