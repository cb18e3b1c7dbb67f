// Hardware identifiers: the scanner beside the expressions that define the forms, and the parser beside its rules.
#include <core/device/CDeviceHardwareId.h>
#include <fuzz/support/Fuzzer.h>
#include <tests/device/HardwareIdRules.h>

#include <QRegExp>

namespace {

constexpr int TEXT_LENGTH = 64; // a QRegExp is slow

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
    const SHardwareIdRules expected(text);
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
