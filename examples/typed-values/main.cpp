// Typed values: made for a unit, filled from text, written to a stream file and read back.
#include <core/tlxCore.h>

#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QTemporaryDir>

namespace {

//! [make]
// The unit of a device object says which type its value has; the user's text fills it.
CVariant valueOfUnit(NUnits::EObjectUnit unit, const QString& text)
{
    CVariant value(CUnitParser::type(unit));
    value.fromStr(text);
    return value;
}
//! [make]

//! [write]
bool write(const QString& fileName, const QList<CVariant>& values)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_5_15);
    for (const CVariant& value : values) {
        stream << value;
    }
    return stream.status() == QDataStream::Ok;
}
//! [write]

//! [read]
bool read(const QString& fileName, QList<CVariant>& values)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_5_15);
    while (!stream.atEnd()) {
        CVariant value;
        stream >> value;
        QString message;
        if (!CStr::inStreamStatus(stream, QStringLiteral("parameter"), message)) {
            qWarning().noquote() << message;
            return false;
        }
        values << value;
    }
    return true;
}
//! [read]

} // namespace

int main()
{
    const QList<CVariant> values{
        valueOfUnit(NUnits::UNIT_U16, QStringLiteral("0x1F")),
        valueOfUnit(NUnits::UNIT_Ampere, QStringLiteral("2.5")),
        valueOfUnit(NUnits::UNIT_STRING32, QStringLiteral("Axis 1")),
        valueOfUnit(NUnits::UNIT_DATE_TIME, QStringLiteral("2018-05-04T13:22:10.560")),
    };

    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("values.bin"));
    QList<CVariant> again;
    if (!write(fileName, values) || !read(fileName, again)) {
        return 1;
    }
    for (const CVariant& value : again) {
        qInfo().noquote() << CStr::nTypeToStr(value.type()) << value.toStr()
                          << value.toHex(QStringLiteral("0x"));
    }
    return again == values && again.first().toU16() == 31 ? 0 : 1;
}
