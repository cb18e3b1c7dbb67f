#include <core/text/CStr.h>

#include <core/app/CCompanyStrings.h>
#include <core/base/QtLocale.h>
#include <core/base/QtReady.h>
#include <core/base/QtTexts.h>
#include <core/files/CPath.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <QThread>

namespace {

QString withExtra(const QString& text, const QString& extra)
{
    return extra.isEmpty() ? text : text + QStringLiteral(" - %1").arg(extra);
}

QString twoNumbers(unsigned int major, unsigned int minor, int minorDigits)
{
    return QString::number(major) + QLatin1Char('.')
           + QString::number(minor).rightJustified(minorDigits, QLatin1Char('0'));
}

// A revision is two numbers of half its width.
template <typename T>
bool readRevision(const QString& text, T& revision)
{
    constexpr int HALF = 4 * int(sizeof(T));
    const auto isHalf = [](int number) { return number >= 0 && number < (1 << HALF); };
    int major = 0;
    int minor = 0;
    const bool ok = CStr::_splitStringAtDot(text, major, minor) && isHalf(major) && isHalf(minor);
    if (ok) {
        revision =
            static_cast<T>(static_cast<unsigned int>(major) << HALF | static_cast<unsigned int>(minor));
    }
    return ok;
}

constexpr struct
{
    qint64 below;
    int shift;
    const char* unit;
} MEM_SIZES[] = {
    {Q_INT64_C(10) << 20, 10, "KiB"},
    {Q_INT64_C(10) << 30, 20, "MiB"},
    {Q_INT64_C(10) << 40, 30, "GiB"},
    {Q_INT64_C(10) << 50, 40, "TiB"},
};

} // namespace

QString CStr::getVersionString(const QString& version, const QString& extra)
{
    return withExtra(QStringLiteral("[ V%1 ]").arg(version), extra);
}

QString CStr::getVersionString(const QString& version, const QString& date, const QLocale& locale,
                               const QString& extra)
{
    return withExtra(QStringLiteral("[ V%1 - %2 ]").arg(version).arg(createDate(locale, date)), extra);
}

QString CStr::createDate(const QLocale& locale, const QString& compilerDate)
{
    return NQtLocale::shortDate(locale, createQDateFrom__DATE__(compilerDate));
}

QDate CStr::createQDateFrom__DATE__(const QString& compilerDate)
{
    QStringList parts = compilerDate.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (parts.size() != 3) {
        return QDate();
    }
    parts[1] = parts.at(1).rightJustified(2, QLatin1Char('0'));
    // No locale has this name, so it is the C locale, whose months are English; callers rely on that.
    const QLocale english(QLatin1String("QLocale::English"));
    return english.toDate(parts.join(QLatin1Char(' ')), QStringLiteral("MMM dd yyyy"));
}

QString CStr::createApplicationTitle(const QLocale& locale, const QString& date, const QString& name,
                                     const QString& version, const QString& extra)
{
    return QStringLiteral("%1 - %2 - %3")
        .arg(name)
        .arg(CCompanyStrings::getCompanyLongName())
        .arg(getVersionString(version, date, locale, extra));
}

QString CStr::createShortApplicationTitle(const QLocale& locale, const QString& name, const QString& version,
                                          const QString& compilerDate, unsigned int build)
{
    Q_UNUSED(locale)
    return QStringLiteral("%1 %2 - V%3").arg(CCompanyStrings::getCompanyShortName()).arg(name).arg(version)
           + QLatin1String(" - [ Build ") + QString::number(build) + QLatin1String(" - ")
           + createQDateFrom__DATE__(compilerDate).toString(Qt::ISODate) + QLatin1String(" ]");
}

QString CStr::createDeviceSelectionValue(const QString& name, unsigned int serial)
{
    return QStringLiteral("%1 [s/n: %2]").arg(name).arg(serial);
}

QString CStr::createSubDeviceSelectionValue(const QString& subName, const QString& deviceName,
                                            unsigned int serial)
{
    return QStringLiteral("%1 - %2").arg(subName).arg(createDeviceSelectionValue(deviceName, serial));
}

QString CStr::revisionToString(unsigned int revision)
{
    return twoNumbers(revision >> 16, revision & 0xFFFFU, 3);
}

QString CStr::revisionToString(unsigned short revision)
{
    return twoNumbers(revision >> 8, revision & 0xFFU, 2);
}

bool CStr::stringToRevision(QString text, unsigned int& revision)
{
    return readRevision(text, revision);
}

bool CStr::stringToRevision(QString text, unsigned short& revision)
{
    return readRevision(text, revision);
}

bool CStr::_splitStringAtDot(QString text, int& major, int& minor)
{
    minor = 0;
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() > 2) {
        return false;
    }
    bool ok = false;
    major = NQtCompat::integerText(parts.first()).toInt(&ok);
    if (ok && parts.size() == 2) {
        minor = NQtCompat::integerText(parts.at(1)).toInt(&ok);
    }
    return ok;
}

QString CStr::serialToString(unsigned int serial)
{
    QString text = QString::number(serial);
    for (const int position : {1, 5, 9}) {
        text.insert(position, QLatin1Char(' '));
    }
    return text.trimmed();
}

QString CStr::memSizeToString(long long bytes)
{
    // A unit begins at ten of it, so that small sizes stay exact.
    if (bytes < 10240) {
        return QStringLiteral("%1 Byte").arg(bytes);
    }
    for (const auto& size : MEM_SIZES) {
        if (bytes < size.below) {
            const double shown = static_cast<double>(bytes) / static_cast<double>(Q_INT64_C(1) << size.shift);
            return QStringLiteral("%1 ").arg(shown, 0, 'f', 1) + QLatin1String(size.unit);
        }
    }
    return QStringLiteral("%1 PiB").arg(bytes >> 50);
}

QString CStr::createLogFileName(QString baseName, bool withThreadId)
{
    const QString file = baseName.isEmpty() ? QCoreApplication::applicationFilePath() : baseName;
    QString name = QFileInfo(file).completeBaseName();
    if (withThreadId) {
        name += QStringLiteral("_TID%1").arg(reinterpret_cast<quintptr>(QThread::currentThreadId()), 0, 16);
    }
    return CPath::logPath(true) + name + QLatin1String(".log");
}
