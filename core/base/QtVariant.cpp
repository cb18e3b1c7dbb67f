#include <core/base/QtVariant.h>

#include <QDataStream>
#include <QIODevice>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

#include <core/base/Qt5Conversion.h>

namespace NQtVariant {

namespace {

template <typename T>
T number(const QVariant& value, bool* ok)
{
    T result = 0;
    const bool done = NQt5Conversion::convert(value, qMetaTypeId<T>(), &result);
    if (ok) {
        *ok = done;
    }
    return result;
}

} // namespace

bool canConvert(const QVariant& value, int type)
{
    return NQt5Conversion::canConvert(value, type);
}

bool isNull(const QVariant& value)
{
    return NQt5Conversion::isNull(value);
}

QVariant make(int type, const void* memory)
{
    return QVariant(QMetaType(type), memory);
}

bool convert(QVariant& value, int type)
{
    if (value.userType() == type) {
        return true;
    }
    if (!canConvert(value, type)) {
        value = QVariant();
        return false;
    }
    QVariant result = QVariant(QMetaType(type));
    // The flag decides here, not isNull(): a QChar(0) converts.
    const bool done = !value.isNull() && NQt5Conversion::convert(value, type, result.data());
    value = done ? result : QVariant(QMetaType(type));
    return done;
}

int toInt(const QVariant& value, bool* ok)
{
    return number<int>(value, ok);
}

uint toUInt(const QVariant& value, bool* ok)
{
    return number<uint>(value, ok);
}

qlonglong toLongLong(const QVariant& value, bool* ok)
{
    return number<qlonglong>(value, ok);
}

qulonglong toULongLong(const QVariant& value, bool* ok)
{
    return number<qulonglong>(value, ok);
}

double toDouble(const QVariant& value, bool* ok)
{
    return number<double>(value, ok);
}

QString toString(const QVariant& value)
{
    QString text;
    return NQt5Conversion::convert(value, QMetaType::QString, &text) ? text : value.toString();
}

bool load(QDataStream& stream, int type, void* memory)
{
    return QMetaType(type).load(stream, memory);
}

bool save(QDataStream& stream, int type, const void* memory)
{
    return QMetaType(type).save(stream, memory);
}

const char* typeName(int type)
{
    return QMetaType(type).name();
}

} // namespace NQtVariant

#else

namespace NQtVariant {

bool canConvert(const QVariant& value, int type)
{
    return value.canConvert(type);
}

bool isNull(const QVariant& value)
{
    return value.isNull();
}

QVariant make(int type, const void* memory)
{
    return QVariant(type, memory);
}

bool convert(QVariant& value, int type)
{
    return value.convert(type);
}

int toInt(const QVariant& value, bool* ok)
{
    return value.toInt(ok);
}

uint toUInt(const QVariant& value, bool* ok)
{
    return value.toUInt(ok);
}

qlonglong toLongLong(const QVariant& value, bool* ok)
{
    return value.toLongLong(ok);
}

qulonglong toULongLong(const QVariant& value, bool* ok)
{
    return value.toULongLong(ok);
}

double toDouble(const QVariant& value, bool* ok)
{
    return value.toDouble(ok);
}

QString toString(const QVariant& value)
{
    return value.toString();
}

bool load(QDataStream& stream, int type, void* memory)
{
    return QMetaType::load(stream, type, memory);
}

bool save(QDataStream& stream, int type, const void* memory)
{
    return QMetaType::save(stream, type, memory);
}

const char* typeName(int type)
{
    return QMetaType::typeName(type);
}

} // namespace NQtVariant

#endif
