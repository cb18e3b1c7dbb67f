#include <core/text/CDateTime.h>
#include <core/text/CStr.h>
#include <core/text/CTime.h>
#include <core/types/CVariant.h>
#include <tools/tlx/streams/ValueStream.h>
#include <tools/tlx/terminal/Progress.h>

#include <QIODevice>

namespace {

struct SVersion
{
    const char* name;
    QDataStream::Version version;
};

constexpr SVersion VERSIONS[] = {
    {"5.15", QDataStream::Qt_5_15}, {"5.12", QDataStream::Qt_5_12}, {"5.6", QDataStream::Qt_5_6},
    {"5.4", QDataStream::Qt_5_4},   {"5.2", QDataStream::Qt_5_2},   {"5.1", QDataStream::Qt_5_1},
    {"5.0", QDataStream::Qt_5_0},   {"4.8", QDataStream::Qt_4_8},   {"4.6", QDataStream::Qt_4_6}};

// One value out of the stream. What the stream cannot see is in `fault`: a number after the value (a tag, a unit) that
// no value has.
struct SItem
{
    QString type;
    QString text;
    QString fault;
};

SItem readVariant(QDataStream& stream)
{
    CVariant value;
    stream >> value;
    const QString type = CStr::nTypeToStr(value.type());
    const QString fault = QStringLiteral("no such type: %1").arg(static_cast<quint32>(value.type()));
    return {type, value.toStr(), type.isEmpty() ? fault : QString()};
}

SItem readTime(QDataStream& stream)
{
    CTime value;
    stream >> value;
    const QString unit = CTime::unitStr(value.unit());
    const QString fault = QStringLiteral("no such unit: %1").arg(static_cast<qint32>(value.unit()));
    return {unit, QString::number(value.value()),
            unit.isEmpty() && value.unit() != CTime::UNIT_UNKNOWN ? fault : QString()};
}

SItem readDateTime(QDataStream& stream)
{
    CDateTime value;
    stream >> value;
    const Qt::TimeSpec spec = value.timeSpec();
    return {spec == Qt::LocalTime ? QStringLiteral("local") : QStringLiteral("UTC"),
            value.toIsoDateTime(spec == Qt::LocalTime ? spec : Qt::UTC), QString()};
}

SItem readText(QDataStream& stream)
{
    QString value;
    stream >> value;
    return {QStringLiteral("text"), value, QString()};
}

template <typename String>
SItem readFixedString(QDataStream& stream)
{
    String value;
    stream >> value;
    return {QLatin1String(String::className()), value.str(), QString()};
}

struct SKind
{
    const char* name;
    SItem (*read)(QDataStream& stream);
};

constexpr SKind KINDS[] = {{"variant", readVariant},
                           {"time", readTime},
                           {"datetime", readDateTime},
                           {"text", readText},
                           {"string32", readFixedString<CString32>},
                           {"string64", readFixedString<CString64>},
                           {"string128", readFixedString<CString128>}};

template <typename Row, std::size_t Count>
QStringList namesOf(const Row (&rows)[Count])
{
    QStringList names;
    for (const Row& row : rows) {
        names << QLatin1String(row.name);
    }
    return names;
}

// What is wrong with the value that was just read; empty when nothing is. `byte` is where it begins, and becomes the
// byte to name.
QString faultOf(const QDataStream& stream, const SItem& item, const QString& kind, qint64& byte)
{
    constexpr qint64 TAG_SIZE = 4;
    switch (stream.status()) {
    case QDataStream::Ok:
        break;
    case QDataStream::ReadPastEnd:
        return QStringLiteral("the file ends inside the value that begins here");
    default:
        return QStringLiteral("no value of the kind %1 begins here").arg(kind);
    }
    byte = item.fault.isEmpty() ? byte : stream.device()->pos() - TAG_SIZE;
    return item.fault;
}

} // namespace

namespace NValueStream {

QStringList kinds()
{
    return namesOf(KINDS);
}

QStringList versions()
{
    return namesOf(VERSIONS);
}

bool findVersion(const QString& name, QDataStream::Version& version)
{
    const int index = versions().indexOf(name);
    version = VERSIONS[index < 0 ? 0 : index].version;
    return index >= 0;
}

SStreamContent read(QIODevice& device, const SStreamForm& form)
{
    const SKind& kind = KINDS[kinds().indexOf(form.kind)];
    device.seek(0);
    QDataStream stream(&device);
    stream.setVersion(form.version);
    stream.setByteOrder(form.order);
    SStreamContent content{form, {}, {}, -1};
    Progress progress(QStringLiteral("reading"), device.size());
    while (content.fault.isEmpty() && !stream.atEnd()) {
        qint64 byte = device.pos();
        const SItem item = kind.read(stream);
        const qint64 start = byte;
        content.fault = faultOf(stream, item, form.kind, byte);
        if (content.fault.isEmpty()) {
            content.items << SStreamItem{start, item.type, item.text};
        } else {
            content.faultByte = byte;
        }
        progress.show(device.pos());
    }
    return content;
}

SStreamContent readAny(QIODevice& device, QDataStream::Version version)
{
    SStreamContent best;
    const QStringList names = kinds();
    for (const QString& name : names) {
        for (const auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            const SStreamContent content = read(device, {name, order, version});
            if (content.fault.isEmpty()) {
                return content;
            }
            if (best.fault.isEmpty() || content.faultByte > best.faultByte) {
                best = content;
            }
        }
    }
    return best;
}

QString otherOrder(QIODevice& device, const SStreamForm& form)
{
    SStreamForm other = form;
    const bool isBig = form.order == QDataStream::BigEndian;
    other.order = isBig ? QDataStream::LittleEndian : QDataStream::BigEndian;
    if (!read(device, other).fault.isEmpty()) {
        return QString();
    }
    return isBig ? QStringLiteral("reads with --little-endian")
                 : QStringLiteral("reads without --little-endian");
}

QString orderName(QDataStream::ByteOrder order)
{
    return order == QDataStream::BigEndian ? QStringLiteral("big-endian") : QStringLiteral("little-endian");
}

} // namespace NValueStream
