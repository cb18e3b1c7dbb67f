// Typed values in expressions: what to write where several conversions would do.
#include <core/tlxCore.h>

#include <QDebug>

#include <cstdint>
#include <vector>

namespace {

//! [compare]
bool isFive(const CVariant& value)
{
    return value.toI32() == 5; // as a number, whatever its type
}

bool isFiveAsI32(const CVariant& value)
{
    return value == CVariant(5); // the type must agree, too
}

bool isAxis(const CVariant& value)
{
    return value.toStr() == QLatin1String("Axis 1");
}
//! [compare]

//! [assign]
QString textOf(const CVariant& value)
{
    QString text = value; // a new text: the conversion is chosen by its type
    text = value.toStr(); // an old one has several assignments
    return text;
}
//! [assign]

//! [arg]
QString sentence(const CVariant& value)
{
    return QStringLiteral("%1 rpm").arg(value.toStr());
}
//! [arg]

//! [calculate]
double doubled(const CVariant& value)
{
    return value.toF64() * 2;
}

bool isSet(const CVariant& value)
{
    return value.toU64() != 0;
}
//! [calculate]

//! [widths]
std::size_t sizeFrom(const std::vector<std::uint8_t>& bytes)
{
    const CVariant size(bytes.size()); // "U64" where size_t has 64 bits, "U32" where it has 32
    const std::int64_t number = size;  // long and long long alike
    return static_cast<std::size_t>(number);
}
//! [widths]

} // namespace

int main()
{
    const CVariant speed(5);
    const CVariant name(CString32(QStringLiteral("Axis 1")));
    qInfo().noquote() << textOf(name) << sentence(speed) << doubled(speed);
    const bool right = isFive(speed) && isFiveAsI32(speed) && !isFiveAsI32(CVariant(5U)) && isAxis(name)
                       && textOf(name) == QLatin1String("Axis 1") && sentence(speed) == QLatin1String("5 rpm")
                       && doubled(speed) > 9.9 && isSet(speed) && sizeFrom({1, 2, 3}) == 3;
    return right ? 0 : 1;
}
