#include <tests/reentrancy/LoggingCalls.h>

#include <core/tlxCore.h>

#include <QBitArray>
#include <QBuffer>
#include <QSize>

namespace {

template <QString (*Function)()>
void call()
{
    Function();
}

template <QString (*Function)(bool)>
void call()
{
    Function(true);
}

template <typename Value>
void write(const Value& value)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadOnly);
    QDataStream stream(&buffer);
    stream << value;
}

} // namespace

QVector<SLoggingCall> loggingCalls()
{
    return {
        {"CPath::installPath", call<CPath::installPath>, false},
        {"CPath::productName", call<CPath::productName>, false},
        {"CPath::appdataPath", call<CPath::appdataPath>, false},
        {"CPath::userdataPath", call<CPath::userdataPath>, false},
        {"CPath::binPath", call<CPath::binPath>, false},
        {"CPath::constConfigPath", call<CPath::constConfigPath>, false},
        {"CPath::logPath", call<CPath::logPath>, false},
        {"CPath::motorPath", call<CPath::motorPath>, false},
        {"CCompanyStrings::getCompanyShortName", call<CCompanyStrings::getCompanyShortName>, false},
        {"CCompanyStrings::getLogoBitmapFile_16x16", call<CCompanyStrings::getLogoBitmapFile_16x16>, false},
        {"CCompanyStrings::getProductName", [] { CCompanyStrings::getProductName(90); }, false},
        {"CCompanyStrings::getProductExeFile", [] { CCompanyStrings::getProductExeFile(90); }, false},
        {"CCompanyStrings::getImageFile, empty key", [] { CCompanyStrings::getImageFile(QString()); }, true},
        {"CStr::createLogFileName", [] { CStr::createLogFileName(QString(), true); }, false},
        {"CStr::createApplicationTitle",
         [] {
             const QString text = QStringLiteral("a");
             CStr::createApplicationTitle(QLocale::c(), QStringLiteral("Jun  1 2020"), text, text, text);
         },
         false},
        {"CCommandLineParser::argumentsMap", [] { CCommandLineParser::argumentsMap(); }, false},
        {"CVariant::operator=, foreign type",
         [] {
             CVariant value;
             value = QVariant(QSize(1, 2));
         },
         true},
        {"CVariant::fromStr, no such type",
         [] { CVariant::fromStr(QStringLiteral("1"), static_cast<NTypes::ETypes>(77)); }, true},
        {"CVariant::fromBitArray, no such type",
         [] { CVariant::fromBitArray(QBitArray(8), static_cast<NTypes::ETypes>(77)); }, true},
        {"CVariant::toBitArray, unknown", [] { CVariant().toBitArray(); }, true},
        {"CMotorBaseName, no number",
         [] {
             const QString text = QStringLiteral("a");
             CMotorBaseName(text, text, text, true);
         },
         true},
        {"CIPv6Address::setAddress, no address", [] { CIPv6Address().setAddress(QStringLiteral("x")); },
         true},
        {"CVariant to a stream that takes nothing", [] { write(CVariant(7)); }, true},
        {"CString32 to a stream that takes nothing", [] { write(CString32()); }, true},
        {"CTime to a stream that takes nothing", [] { write(CTime()); }, true},
        {"CDateTime to a stream that takes nothing", [] { write(CDateTime()); }, true},
        {"CDeviceList to a stream that takes nothing", [] { write(CDeviceList()); }, true},
    };
}
