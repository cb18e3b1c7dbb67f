#include <core/types/VariantPayload.h>

namespace NVariantPayload {

namespace {

template <typename T>
quint64 bitsAs(const QVariant& payload)
{
    return static_cast<quint64>(as<T>(payload));
}

template <typename T>
QVariant payloadAs(quint64 bits)
{
    const T value = static_cast<T>(bits);
    return QVariant(qMetaTypeId<T>(), &value);
}

} // namespace

quint64 integerBits(const QVariant& payload, NTypes::ETypes type)
{
    switch (type) {
    case NTypes::TYPE_U8:
        return bitsAs<uchar>(payload);
    case NTypes::TYPE_I8:
        return bitsAs<signed char>(payload);
    case NTypes::TYPE_U16:
        return bitsAs<ushort>(payload);
    case NTypes::TYPE_I16:
        return bitsAs<short>(payload);
    case NTypes::TYPE_U32:
        return bitsAs<uint>(payload);
    case NTypes::TYPE_I32:
        return bitsAs<int>(payload);
    case NTypes::TYPE_U64:
        return bitsAs<qulonglong>(payload);
    case NTypes::TYPE_I64:
        return bitsAs<qlonglong>(payload);
    default:
        return 0;
    }
}

QVariant integerPayload(quint64 bits, NTypes::ETypes type)
{
    switch (type) {
    case NTypes::TYPE_U8:
        return payloadAs<uchar>(bits);
    case NTypes::TYPE_I8:
        return payloadAs<signed char>(bits);
    case NTypes::TYPE_U16:
        return payloadAs<ushort>(bits);
    case NTypes::TYPE_I16:
        return payloadAs<short>(bits);
    case NTypes::TYPE_U32:
        return payloadAs<uint>(bits);
    case NTypes::TYPE_I32:
        return payloadAs<int>(bits);
    case NTypes::TYPE_U64:
        return payloadAs<qulonglong>(bits);
    case NTypes::TYPE_I64:
        return payloadAs<qlonglong>(bits);
    default:
        return QVariant();
    }
}

} // namespace NVariantPayload
