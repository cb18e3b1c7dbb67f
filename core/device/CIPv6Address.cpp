#include <core/device/CIPv6Address.h>

#include <core/base/Digits.h>
#include <core/base/TextScanner.h>

#include <QDataStream>
#include <QDebug>
#include <QHash>

#include <cstring>

namespace {

constexpr int GROUPS = 8;
constexpr int GROUP_DIGITS = 4;

/// The parts of an address text: as many as there are ":" and one more, the empty ones counted.
class Parts
{
public:
    /// Whether `text` is what "^([0-9a-fA-F]{1,4}|:|0)(:([0-9a-fA-F]{0,4})|){7}$" matches.
    bool read(QStringView text)
    {
        TextScanner scanner(text);
        if (scanner.takeOne(':')) {
            mCount = 2; // a lone ":" stands between two empty parts
        } else if (!readPart(scanner)) {
            return false;
        }
        for (int i = 1; i < GROUPS && scanner.takeOne(':'); ++i) {
            readPart(scanner);
        }
        return scanner.atEnd();
    }

    int count() const { return mCount; }

    /// The group of a part, -1 where the part is empty.
    int group(int index) const { return mGroups[static_cast<std::size_t>(index)]; }

private:
    bool readPart(TextScanner& scanner)
    {
        int group = 0;
        const auto addDigit = [&group](QChar codeUnit) {
            const unsigned int value = NDigits::valueOf(codeUnit);
            if (value < 16) {
                group = group * 16 + static_cast<int>(value);
            }
            return value < 16;
        };
        const bool any = scanner.take(addDigit, GROUP_DIGITS) > 0;
        mGroups[static_cast<std::size_t>(mCount)] = any ? group : -1;
        ++mCount;
        return any;
    }

    int mCount = 0;
    std::array<int, GROUPS + 1> mGroups{{-1, -1, -1, -1, -1, -1, -1, -1, -1}};
};

} // namespace

CIPv6Address::~CIPv6Address() = default;

void CIPv6Address::setAddress(const QByteArray& bytes)
{
    if (bytes.size() == static_cast<int>(mBytes.size())) {
        std::memcpy(mBytes.data(), bytes.constData(), mBytes.size());
    }
}

void CIPv6Address::setAddress(const unsigned char* bytes)
{
    if (bytes) {
        std::memmove(mBytes.data(), bytes, mBytes.size());
    }
}

void CIPv6Address::setAddress(const QVariant& variant)
{
    if (variant.userType() == QMetaType::QByteArray) {
        setAddress(variant.toByteArray());
    } else {
        clear();
    }
}

bool CIPv6Address::setAddress(const QString& text)
{
    Parts parts;
    if (!parts.read(text)) {
        clear();
        qWarning().noquote().nospace()
            << "CIPv6Address::setAddress() : " << text << " is not a IPv6-Address.";
        return false;
    }
    // "::" is deliberately not expanded, and an empty part keeps its group: callers rely on both.
    unsigned char* byte = mBytes.data();
    for (int i = 0; parts.count() == GROUPS && i < GROUPS; ++i, byte += 2) {
        const int group = parts.group(i);
        if (group >= 0) {
            byte[0] = static_cast<unsigned char>(group & 0xFF);
            byte[1] = static_cast<unsigned char>(group >> 8);
        }
    }
    return true;
}

QByteArray CIPv6Address::byteArray() const
{
    return QByteArray(reinterpret_cast<const char*>(mBytes.data()), static_cast<int>(mBytes.size()));
}

QString CIPv6Address::str() const
{
    char16_t text[GROUPS * (GROUP_DIGITS + 1)];
    char16_t* const end = text + GROUPS * (GROUP_DIGITS + 1);
    char16_t* first = end;
    for (std::size_t i = mBytes.size(); i > 0; i -= 2) {
        first = NDigits::writeBits(first, static_cast<quint64>(mBytes[i - 2] | mBytes[i - 1] << 8), 4);
        *--first = u':';
    }
    return NDigits::text(first + 1, end);
}

NQtCompat::THash qHash(const CIPv6Address& address, NQtCompat::THash seed) noexcept
{
    return qHashBits(&address[0], 16, seed);
}

QDataStream& operator<<(QDataStream& stream, const CIPv6Address& address)
{
    for (int i = 0; i < 16; ++i) {
        stream << static_cast<qint8>(address[i]);
    }
    return stream;
}

QDataStream& operator>>(QDataStream& stream, CIPv6Address& address)
{
    for (int i = 0; i < 16; ++i) {
        quint8 byte = 0;
        stream >> byte;
        address[i] = byte;
    }
    return stream;
}

QDebug operator<<(QDebug debug, const CIPv6Address& address)
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "CIPv6Address(" << qUtf8Printable(address.str()) << ')';
    return debug;
}
