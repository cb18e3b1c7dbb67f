#include <tests/golden/GoldenFile.h>

#include <QFile>

namespace NGolden {

namespace {

constexpr QDataStream::ByteOrder ORDERS[] = {QDataStream::BigEndian, QDataStream::LittleEndian};
constexpr QDataStream::FloatingPointPrecision PRECISIONS[] = {QDataStream::SinglePrecision,
                                                              QDataStream::DoublePrecision};

QByteArray orderName(QDataStream::ByteOrder order)
{
    return order == QDataStream::BigEndian ? "big" : "little";
}

QByteArray precisionName(QDataStream::FloatingPointPrecision precision)
{
    return precision == QDataStream::SinglePrecision ? "single" : "double";
}

// Versions of equal bytes share a line.
QByteArray linesOf(const SGoldenCase& value, SSetting setting, const QByteArray& precision)
{
    QByteArray lines;
    for (int first = FIRST_VERSION; first <= LAST_VERSION;) {
        setting.version = first;
        const QByteArray bytes = bytesOf(value, setting);
        int last = first;
        while (last < LAST_VERSION) {
            setting.version = last + 1;
            if (bytesOf(value, setting) != bytes) {
                break;
            }
            ++last;
        }
        const QByteArray versions = QByteArray::number(first) + '-' + QByteArray::number(last);
        const QList<QByteArray> fields = {value.name, versions, orderName(setting.order), precision,
                                          bytes.toHex()};
        lines += fields.join(" | ") + '\n';
        first = last + 1;
    }
    return lines;
}

bool readLine(const QByteArray& line, TBytes& bytes)
{
    const QList<QByteArray> fields = line.split('|');
    if (fields.size() != 5) {
        return false;
    }
    const QList<QByteArray> versions = fields.at(1).trimmed().split('-');
    const QByteArray order = fields.at(2).trimmed();
    const QByteArray precision = fields.at(3).trimmed();
    for (SSetting setting : allSettings()) {
        const bool isMeant = setting.version >= versions.first().toInt()
                             && setting.version <= versions.last().toInt()
                             && order == orderName(setting.order)
                             && (precision == "any" || precision == precisionName(setting.precision));
        if (isMeant) {
            bytes.insert(keyOf(fields.at(0).trimmed(), setting), QByteArray::fromHex(fields.at(4).trimmed()));
        }
    }
    return true;
}

} // namespace

QList<SSetting> allSettings()
{
    QList<SSetting> settings;
    for (int version = FIRST_VERSION; version <= LAST_VERSION; ++version) {
        for (const auto order : ORDERS) {
            for (const auto precision : PRECISIONS) {
                settings.append({version, order, precision});
            }
        }
    }
    return settings;
}

void apply(const SSetting& setting, QDataStream& stream)
{
    stream.setVersion(setting.version);
    stream.setByteOrder(setting.order);
    stream.setFloatingPointPrecision(setting.precision);
}

QByteArray bytesOf(const SGoldenCase& value, const SSetting& setting)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    apply(setting, stream);
    value.write(stream);
    return bytes;
}

QByteArray copyOf(const SGoldenCase& value, const SSetting& setting, const QByteArray& bytes,
                  QDataStream::Status* status, qint64* rest)
{
    QDataStream in(bytes);
    apply(setting, in);
    QByteArray copy;
    QDataStream out(&copy, QIODevice::WriteOnly);
    apply(setting, out);
    value.copy(in, out);
    *status = in.status();
    *rest = in.device()->bytesAvailable();
    return copy;
}

QByteArray nameOf(const SSetting& setting)
{
    return "version " + QByteArray::number(setting.version) + ", " + orderName(setting.order) + ", "
           + precisionName(setting.precision);
}

QByteArray keyOf(const QByteArray& valueName, const SSetting& setting)
{
    return valueName + ", " + nameOf(setting);
}

QByteArray linesOf(const SGoldenCase& value)
{
    QByteArray lines;
    for (const auto order : ORDERS) {
        const QByteArray single = linesOf(value, {FIRST_VERSION, order, QDataStream::SinglePrecision}, "any");
        const QByteArray wide = linesOf(value, {FIRST_VERSION, order, QDataStream::DoublePrecision}, "any");
        if (single == wide) {
            lines += wide;
        } else {
            lines += linesOf(value, {FIRST_VERSION, order, QDataStream::SinglePrecision}, "single")
                     + linesOf(value, {FIRST_VERSION, order, QDataStream::DoublePrecision}, "double");
        }
    }
    return lines;
}

TBytes read(const QString& path)
{
    TBytes bytes;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return bytes;
    }
    const QList<QByteArray> lines = file.readAll().trimmed().split('\n');
    for (const QByteArray& line : lines) {
        if (!readLine(line, bytes)) {
            return TBytes();
        }
    }
    return bytes;
}

void prepareProcess()
{
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3"); // Berlin, as Windows reads it, too
}

} // namespace NGolden
