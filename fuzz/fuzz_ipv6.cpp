// IPv6 addresses beside the expression and the rules that define them; an address's text parses back.
#include <core/device/CIPv6Address.h>
#include <fuzz/support/Fuzzer.h>

#include <QRegExp>
#include <QStringList>
#include <QVariant>

namespace {

constexpr int TEXT_LENGTH = 64; // a QRegExp is slow

const QByteArray BEFORE = QByteArray::fromHex("a0a1a2a3a4a5a6a7a8a9aaabacadaeaf");

QByteArray expectedBytes(const QString& text, bool accepted)
{
    QByteArray bytes = accepted ? BEFORE : QByteArray(16, '\0');
    const QStringList parts = text.split(QLatin1Char(':'));
    for (int i = 0; accepted && parts.size() == 8 && i < 8; ++i) {
        if (!parts.at(i).isEmpty()) {
            const ushort group = parts.at(i).toUShort(nullptr, 16);
            bytes[2 * i] = static_cast<char>(group & 0xFF);
            bytes[2 * i + 1] = static_cast<char>(group >> 8);
        }
    }
    return bytes;
}

} // namespace

static void fuzz(Input& input)
{
    const bool raw = input.choose(4) == 0;
    if (raw) {
        const QByteArray bytes = input.bytes();
        const CIPv6Address address(bytes);
        FUZZ_CHECK(address.byteArray() == (bytes.size() == 16 ? bytes : QByteArray(16, '\0')));
        FUZZ_CHECK(CIPv6Address(QVariant(bytes)) == address);
        return;
    }
    const QString text = input.text().left(TEXT_LENGTH);
    const QRegExp expression(QStringLiteral("^([0-9a-fA-F]{1,4}|:|0)(:([0-9a-fA-F]{0,4})|){7}$"));
    const bool accepted = expression.indexIn(text) != -1;
    const int before = loggedMessages();
    CIPv6Address address(BEFORE);
    FUZZ_CHECK(address.setAddress(text) == accepted);
    FUZZ_CHECK(loggedMessages() - before == (accepted ? 0 : 1));
    FUZZ_CHECK(address.byteArray() == expectedBytes(text, accepted));
    CIPv6Address again;
    FUZZ_CHECK(again.setAddress(address.str()) && again == address);
}
