// Uses the operators and templates of the public headers, so that a compiler looks into them; compiled, never run.
#include <core/tlxCore.h>
#include <core/tlxCoreQTest.h>

#include <cstddef>
#include <cstdint>

namespace {

template <typename String, int N>
bool useString(const QByteArray& bytes, QDataStream& stream)
{
    unsigned short units[static_cast<std::size_t>(N)] = {};
    const String made(bytes);
    String value(made);
    value = QStringLiteral("text");
    value = units;
    value = made;
    stream << value;
    stream >> value;
    qDebug() << value << value.str() << value.byteArray();
    return value == made || value != made || value == QStringLiteral("text")
           || qHash(value) == qHash(made, 1);
}

template <typename Value>
bool useValue(const Value& made, QDataStream& stream)
{
    Value value(made);
    value = made;
    stream << value;
    stream >> value;
    return value == made || value != made;
}

bool useVariant(const CVariant& made, QDataStream& stream)
{
    CVariant value(std::int64_t(1));
    value = std::size_t(2);
    value = 3L;
    const std::size_t size = value;
    const std::int64_t number = value;
    qDebug() << value << quint64(size) << qint64(number);
    return useValue(made, stream) || made < value || made > value || made <= value || made >= value
           || qHash(made) == qHash(value, 1);
}

} // namespace

bool useHeaders(QDataStream& stream);
bool useHeaders(QDataStream& stream)
{
    const QByteArray bytes;
    return useString<CString32, 32>(bytes, stream) || useString<CString64, 64>(bytes, stream)
           || useString<CString128, 128>(bytes, stream) || useVariant(5, stream)
           || useValue(NTypes::tsDateTime(), stream) || useValue(CTime(), stream)
           || useValue(CDateTime(), stream) || useValue(CDeviceHardwareId(), stream)
           || useValue(CMotorBaseName(), stream) || useValue(CIPv6Address(), stream)
           || useValue(CSubDeviceItem(), stream) || useValue(CDeviceItem(), stream)
           || useValue(CDeviceList(), stream);
}
