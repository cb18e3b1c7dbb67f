#include <tests/reentrancy/EveryStatic.h>

#include <core/tlxCore.h>

#include <QBitArray>

namespace {

/// Takes results that nobody looks at.
template <typename... Results>
void use(const Results&... /*results*/)
{}

void company()
{
    use(CCompanyStrings::getCompanyLongName(), CCompanyStrings::getCompanyMediumName(),
        CCompanyStrings::getCompanyShortName(), CCompanyStrings::getAddressName(),
        CCompanyStrings::getAddressStreet(), CCompanyStrings::getAddressCity(),
        CCompanyStrings::getAddressHtml(), CCompanyStrings::getWebUrl(), CCompanyStrings::getEMail());
    use(CCompanyStrings::getLogoAndNameBitmapFile_145x52(),
        CCompanyStrings::getLogoAndNameBitmapFile_105x30(),
        CCompanyStrings::getLogoAndNameBitmapFile_105x30_inverted(),
        CCompanyStrings::getLogoBitmapFile_32x32(), CCompanyStrings::getLogoBitmapFile_16x16());
    use(CCompanyStrings::getUpdateVersionFile(), CCompanyStrings::getUpdatePath(),
        CCompanyStrings::getUpdateChangelogFile(), CCompanyStrings::getOpenSourceUrl(),
        CCompanyStrings::getImageFile(QString()));
    use(CCompanyStrings::productSection(90), CCompanyStrings::getProductName(90),
        CCompanyStrings::getProductExeFile(90), CCompanyStrings::getProductSplashScreenBitmapFile(90),
        CCompanyStrings::getProductEMailAddress(90), CCompanyStrings::getProductUpdateVersionFile(90),
        CCompanyStrings::getProductUpdatePath(90), CCompanyStrings::getProductUpdateChangelogFile(90));
}

void codesAndTicks()
{
    const QByteArray key("key");
    use(CHmac::hmac(key, QCryptographicHash::Sha1, key), CHmac::hmacSha1(key, key), CHmac::hotp(key, 6),
        CHmac::totp(key, 0, 30, 6), CHmac::totpStr(key, 0, 30, 6),
        CHmac::validateTotp(QStringLiteral("000000"), key, 0, 30, 6, 1));
    use(CBenchmarkTimer::ticksPerUs());
    CPublicWait::sleep(0);
    CPublicWait::msleep(0);
    CPublicWait::usleep(0);
}

void devices()
{
    QStringList arguments{QStringLiteral("tool"), QStringLiteral("ip=192.0.2.1")};
    use(CCommandLineParser::argumentsMap(), CCommandLineParser::argumentsMap(&arguments),
        CCommandLineParser::argumentsMap(QStringLiteral("ip=192.0.2.1")));
    const QString text = QStringLiteral("A012_003_001_Name");
    use(CDeviceHardwareId::minimumRegExp(), CDeviceHardwareId::shortRegExp(), CDeviceHardwareId::fullRegExp(),
        CDeviceHardwareId::isMinimumHardwareId(text), CDeviceHardwareId::isShortHardwareId(text),
        CDeviceHardwareId::isFullHardwareId(text));
    use(CMotorBaseName::defaultMotorBaseName(), CMotorBaseName::fullRegExp(true),
        CMotorBaseName::isValid(text, true));
}

void paths()
{
    use(CPath::installPath(), CPath::productName(), CPath::appdataPath(), CPath::userdataPath());
    use(CPath::binPath(true), CPath::libPath(true), CPath::etcPath(true), CPath::txtPath(true),
        CPath::imagePath(true), CPath::docPath(true), CPath::constConfigPath(true),
        CPath::constDataPath(true), CPath::configPath(true), CPath::logPath(true), CPath::motorPath(true),
        CPath::paramPath(true), CPath::dataPath(true), CPath::projectPath(true));
    const QString name = QStringLiteral("a:b");
    use(CPath::createDirIfWanted(CPath::logPath(false), true), CPath::doesFilenameContainPath(name),
        CPath::prependPathIfNoPathIsGiven(name, name), CPath::trimPathIfPathIsEqual(name, name),
        CPath::filePath(name), CPath::ensurePathSeparatorAtEnd(name), CPath::ensurePathSeparatorAtStart(name),
        CPath::removePathSeparatorAtStart(name), CPath::removePathSeparatorAtEnd(name),
        CPath::addPathToPath(name, name), CPath::addFileNameToPath(name, name), CPath::cleanFileName(name));
    const auto point = CFTPath::EP_TMP;
    use(CFTPath::entryStrMap(), CFTPath::entryPoints(), CFTPath::toString(point),
        CFTPath::toEntryPoint(QStringLiteral("TMP")), CFTPath::toPath(point),
        CFTPath::fromPath(QStringLiteral("/tmp/a")),
        CFTPath::toRelativePath(QStringLiteral("/tmp/a"), point));
}

void writeFile(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write("text");
    }
}

void directories()
{
    const CTemporaryDir directory;
    const QString source = CDir::addPathToPath(directory.path(), QStringLiteral("source"));
    const QString copy = CDir::addPathToPath(directory.path(), QStringLiteral("copy"));
    const QString file = CDir::addFileNameToPath(source, QStringLiteral("file"));
    const QString missing = directory.path() + QStringLiteral("/missing");
    use(CDir::copyDirectory(QString(), source));
    writeFile(file);
    use(CDir::copyFile(file, copy + QStringLiteral("file")),
        CDir::copyFileF(file, copy + QStringLiteral("file")), CDir::copyDirectoryRecursive(source, copy),
        CDir::copyDirectoryRecursive(source, copy, [](int, int) {}), CDir::getRelativeSubPath(source, file));
    const auto all = NtlxGlobal::DIR_FILTER_ALL;
    const QDir::Filters filters = CDir::toDirFilter(all);
    use(CDir::entryInfoList(copy, QStringList(), filters), CDir::entryInfoList(copy, QStringList(), all),
        CDir::entryInfoList(copy, all, QStringList()));
    use(CDir::entryInfoListRecursive(copy, QStringList(), filters),
        CDir::entryInfoListRecursive(copy, QStringList(), all), CDir::listFilesAndDirectories(copy),
        CDir::listFileAndDirInfos(copy));
    use(CDir::removeFile(file), CDir::removeDirectory(source), CDir::removeDirectoryRecursive(copy),
        CDir::removeFileOrDirectory(missing), CDir::removeFilesByPathList({missing}),
        CDir::moveToTrash(missing));
}

void numbersOfText()
{
    const QString text = QStringLiteral("1");
    bool ok = false;
    unsigned char u8 = 0;
    unsigned short u16 = 0;
    unsigned int u32 = 0;
    unsigned long long u64 = 0;
    signed char i8 = 0;
    short i16 = 0;
    int i32 = 0;
    long long i64 = 0;
    float f32 = 0;
    double f64 = 0;
    use(CStr::strToU8(text, u8, 10), CStr::strToU8(text, &ok, 10), CStr::strToU8(u8, text, 10));
    use(CStr::strToU16(text, u16, 10), CStr::strToU16(text, &ok, 10), CStr::strToU16(u16, text, 10));
    use(CStr::strToU32(text, u32, 10), CStr::strToU32(text, &ok, 10), CStr::strToU32(u32, text, 10));
    use(CStr::strToU64(text, u64, 10), CStr::strToU64(text, &ok, 10), CStr::strToU64(u64, text, 10));
    use(CStr::strToI8(text, i8, 10), CStr::strToI8(text, &ok, 10), CStr::strToI8(i8, text));
    use(CStr::strToI16(text, i16, 10), CStr::strToI16(text, &ok, 10), CStr::strToI16(i16, text));
    use(CStr::strToI32(text, i32, 10), CStr::strToI32(text, &ok, 10), CStr::strToI32(i32, text));
    use(CStr::strToI64(text, i64, 10), CStr::strToI64(text, &ok, 10), CStr::strToI64(i64, text));
    use(CStr::strToF32(text, f32), CStr::strToF32(text, &ok), CStr::strToF32(f32, text));
    use(CStr::strToF64(text, f64), CStr::strToF64(text, &ok), CStr::strToF64(f64, text));
    const QChar point = QLatin1Char('.');
    use(CStr::nTypeToStr(NTypes::TYPE_U8), CStr::fixPointToStr(1, 8, point),
        CStr::strToFixPoint(text, &ok, 8, point), CStr::doubleToString(1.5, 3));
}

void phrases()
{
    const QLocale locale = QLocale::c();
    const QString date = QStringLiteral("Jun  1 2020");
    const QString text = QStringLiteral("a.b");
    use(CStr::getVersionString(text, text), CStr::getVersionString(text, date, locale, text),
        CStr::createDate(locale, date), CStr::createQDateFrom__DATE__(date),
        CStr::createApplicationTitle(locale, date, text, text, text),
        CStr::createShortApplicationTitle(locale, text, text, date, 1),
        CStr::createDeviceSelectionValue(text, 1), CStr::createSubDeviceSelectionValue(text, text, 1));
    bool wasCut = false;
    unsigned int revision = 0;
    unsigned short shortRevision = 0;
    int major = 0;
    int minor = 0;
    use(CStr::cutString(text, 4, wasCut, true), CStr::revisionToString(revision),
        CStr::revisionToString(shortRevision), CStr::stringToRevision(text, revision),
        CStr::stringToRevision(text, shortRevision), CStr::_splitStringAtDot(text, major, minor));
    QString message;
    unsigned short units[8] = {};
    use(CStr::serialToString(1), CStr::memSizeToString(1), CStr::createLogFileName(QString(), true),
        CStr::inStreamStatus(QDataStream(), text, message), CStr::indexOfAmpersand(text),
        CStr::toUtf16(text, units, sizeof(units)), CStr::fromUtf16(QByteArray(4, 'a')),
        CStr::fromUtf16(units, sizeof(units)));
}

template <typename... Numbers>
void showNumbers(unsigned int format)
{
    use(CTlString::toStr(Numbers(1), format)...);
}

void formats()
{
    const CTlString::SFormatValue format(2, 8, 0, CTlString::NOTATION_HEX);
    QString text = QStringLiteral("1");
    bool ok = false;
    showNumbers<signed char, unsigned char, short, unsigned short, int, unsigned int, long long,
                unsigned long long, float, double>(format);
    use(CTlString::toI8(text, format, 1, &ok), CTlString::toU8(text, format, 1, &ok),
        CTlString::toI16(text, format, 1, &ok), CTlString::toU16(text, format, 1, &ok),
        CTlString::toI32(text, format, 1, &ok), CTlString::toU32(text, format, 1, &ok),
        CTlString::toI64(text, format, 1, &ok), CTlString::toU64(text, format, 1, &ok),
        CTlString::toF32(text, format, 1, &ok), CTlString::toF64(text, format, 1, &ok));
    use(CTlString::insertPointSeparator(text), CTlString::validateUpperString(text, format),
        CTlString::validateLowerString(text, format), CTlString::validateHexStr(text, format),
        CTlString::validateDualStr(text, format));
}

void numbersAndTimes()
{
    const double number = 1.5;
    use(CMath::round(number, 1), CMath::roundOff(number, 1), CMath::roundUp(number, 1), CMath::exp10(2),
        CMath::checkDouble(&number), CMath::crc32(&number, sizeof(number)));
    const auto unit = CTime::unit(QStringLiteral("s"));
    long long whole = 0;
    CTime::ETimeUnit wholeUnit = unit;
    use(CTime::createUnitHash(), CTime::convertToPrevIntegerValue(number, unit, whole, wholeUnit),
        CTime::convertValue(number, unit, wholeUnit), CTime::toS(number, unit), CTime::unitStr(unit));
    use(CDateTime::fromI64ByteArray(QByteArray(8, '\1'), Qt::UTC));
}

void units()
{
    const QString text = QStringLiteral("UNIT_U16");
    const auto unit = NUnits::UNIT_U16;
    const unsigned int number = unit;
    use(CUnitParser::unitToStr(unit), CUnitParser::strToUnit(text), CUnitParser::checkUnitStr(text),
        CUnitParser::type(unit), CUnitParser::type(number), CUnitParser::type(text), CUnitParser::size(unit),
        CUnitParser::size(number), CUnitParser::size(text));
    use(CUnitParser::initUnitToStr(), CUnitParser::initStrToUnit(), CUnitParser::initTypeMap());
}

void values()
{
    NTypes::registerMetaTypes();
    use(CString32::className(), CString64::className(), CString128::className());
    for (quint32 number = 0; number <= NTypes::TYPE_CHAR; ++number) {
        const auto type = static_cast<NTypes::ETypes>(number);
        const CVariant value = CVariant::fromStr(QStringLiteral("1"), type);
        use(CVariant::fromBitArray(QBitArray(8), type), value.toStr(), value.toLocaleStr(), value == value);
    }
}

} // namespace

void callEveryStatic()
{
    company();
    codesAndTicks();
    devices();
    paths();
    directories();
    numbersOfText();
    phrases();
    formats();
    numbersAndTimes();
    units();
    values();
}
