// Motor names beside the expressions that define a part and a whole name; a name that was understood parses back.
#include <core/device/CMotorBaseName.h>
#include <fuzz/support/Fuzzer.h>

#include <QFileInfo>
#include <QRegExp>
#include <QStringList>

namespace {

constexpr int TEXT_LENGTH = 64; // a QRegExp is slow

bool isPart(const QString& text)
{
    return QRegExp(QStringLiteral("^([0-9a-zA-Z\\-&\\+]+)(\\t\\r|$)")).exactMatch(text);
}

bool isNumber(const QString& text, bool numeric)
{
    return numeric ? QRegExp(QStringLiteral("^([0-9]?)(\\t\\r|$)")).exactMatch(text) : isPart(text);
}

void checkParts(const QString& text, bool numeric)
{
    CMotorBaseName motor(numeric);
    FUZZ_CHECK(motor.setManufacturer(text) == isPart(text));
    FUZZ_CHECK(motor.manufacturer() == (isPart(text) ? text : QString()));
    FUZZ_CHECK(motor.setName(text) == isPart(text));
    FUZZ_CHECK(motor.setNumber(text) == isNumber(text, numeric));
    FUZZ_CHECK(motor.checkNumber(text) == QRegExp(QStringLiteral("^[0-9]+$")).exactMatch(text));
    motor.numberAsI32();
}

void checkFile(const QString& text, bool numeric)
{
    CMotorBaseName motor(QStringLiteral("m"), QStringLiteral("n"), QStringLiteral("8"), numeric);
    const bool result = motor.setFileBaseName(text);
    const QString file = QFileInfo(text).fileName();
    const QStringList parts = file.split(QLatin1Char('_'));
    const bool matches = CMotorBaseName::fullRegExp(numeric).exactMatch(file);
    FUZZ_CHECK(matches || (result && motor.isEmpty()));
    if (matches) {
        const bool expected = isPart(parts.at(0)) && isPart(parts.at(1)) && isNumber(parts.at(2), numeric);
        FUZZ_CHECK(result == expected);
        FUZZ_CHECK(motor.manufacturer() == (isPart(parts.at(0)) ? parts.at(0) : QString()));
        FUZZ_CHECK(!expected || motor.fileBaseName() == file);
    }
    if (motor.isValid()) {
        CMotorBaseName again(motor.fileBaseName(), numeric);
        FUZZ_CHECK(again == motor || motor.number() == QStringLiteral("0"));
    }
}

} // namespace

static void fuzz(Input& input)
{
    const bool numeric = input.choose(2) != 0;
    const QString text = input.text().left(TEXT_LENGTH);
    checkParts(text, numeric);
    checkFile(text, numeric);
    const QString base = QFileInfo(text).baseName();
    FUZZ_CHECK(CMotorBaseName::isValid(text, numeric)
               == CMotorBaseName::fullRegExp(numeric).exactMatch(base));
}
