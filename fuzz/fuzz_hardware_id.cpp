// Hardware identifiers: the scanner beside the expressions that define the forms, and the parser beside its rules.
#include <core/device/CDeviceHardwareId.h>
#include <fuzz/support/Fuzzer.h>

#include <QRegExp>
#include <QStringList>

namespace {

constexpr int TEXT_LENGTH = 64; // a QRegExp is slow

struct SReference
{
    QString prefix;
    quint16 numbers[3] = {65535, 65535, 65535};
    QString name;
    bool result = true;

    bool takeNumber(int index, const QString& part)
    {
        if (!QRegExp(QStringLiteral("^\\d{1,3}$")).exactMatch(part)) {
            return false;
        }
        int value = 0;
        for (const QChar digit : part) {
            value = value * 10 + digit.digitValue();
        }
        numbers[index] = static_cast<quint16>(value);
        return true;
    }

    explicit SReference(const QString& text)
    {
        if (text.isEmpty()) {
            return;
        }
        QStringList parts = text.split(QLatin1Char('_'));
        if (QRegExp(QStringLiteral("^\\D{1,1}")).indexIn(parts.first()) == 0) {
            prefix = parts.first().left(1);
            parts.first().remove(0, 1);
        }
        int index = 0;
        while (index < 3 && index < parts.size() && takeNumber(index, parts.at(index))) {
            ++index;
        }
        result = index > 0;
        if (result) {
            name = QStringList(parts.mid(index)).join(QLatin1Char('_'));
        }
    }
};

void checkForms(const QString& text)
{
    FUZZ_CHECK(CDeviceHardwareId::isMinimumHardwareId(text)
               == CDeviceHardwareId::minimumRegExp().exactMatch(text));
    FUZZ_CHECK(CDeviceHardwareId::isShortHardwareId(text)
               == CDeviceHardwareId::shortRegExp().exactMatch(text));
    FUZZ_CHECK(CDeviceHardwareId::isFullHardwareId(text) == CDeviceHardwareId::fullRegExp().exactMatch(text));
}

} // namespace

static void fuzz(Input& input)
{
    const QString text = input.text().left(TEXT_LENGTH);
    checkForms(text);
    const SReference expected(text);
    CDeviceHardwareId id(QStringLiteral("Z999_998_997_before"));
    FUZZ_CHECK(id.setHardwareId(text) == expected.result);
    FUZZ_CHECK(id.prefix() == expected.prefix && id.name() == expected.name);
    FUZZ_CHECK(id.platform() == expected.numbers[0] && id.version() == expected.numbers[1]);
    FUZZ_CHECK(id.revision() == expected.numbers[2]);
    FUZZ_CHECK(id.checkIVR(text) == QRegExp(QStringLiteral("^\\d{1,3}$")).exactMatch(text));
    // The parts fill a template one after the other: one with a "%" may take the place of those behind it.
    if (id.isValid() && !text.contains(QLatin1Char('%'))) {
        CDeviceHardwareId again(id.hardwareId());
        FUZZ_CHECK(again.hardwareId() == id.hardwareId());
        FUZZ_CHECK(again.platform() == id.platform() && again.prefix() == id.prefix());
    }
    CDeviceHardwareId parts;
    parts.setPrefix(text.left(1));
    FUZZ_CHECK(parts.setPlatform(text.mid(1, 3)) == parts.checkIVR(text.mid(1, 3)));
    parts.setVersion(text.mid(4, 3));
    parts.setName(text.mid(7));
    FUZZ_CHECK(parts.isMinimumHardwareId() == !parts.minimumHardwareId().isEmpty());
}
