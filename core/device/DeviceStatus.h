#ifndef TLXCORE_DEVICESTATUS_H
#define TLXCORE_DEVICESTATUS_H

#include <QRegExp>
#include <QString>

/**
 * @brief Expressions that classify a device's status text, without regard to case, by what it contains.
 *
 * Every source file that includes this header has its own four, made when the program is loaded. Matching changes a
 * QRegExp: threads match with copies of their own.
 *
 * @code
 * QRegExp(NDeviceStatus::mcSETUP).exactMatch(QStringLiteral("Device in Setup mode"));    // true
 * @endcode
 *
 * @see \ref devices
 * @since 1.0
 */
namespace NDeviceStatus {

/// The device is in setup mode.
static const QRegExp mcSETUP(QStringLiteral(".*(setup){1,}.*"), Qt::CaseInsensitive);

/// The device is in failsafe mode.
static const QRegExp mcFAILSAFE(QStringLiteral(".*(failsafe){1,}.*"), Qt::CaseInsensitive);

/// The device could not mount its file system.
static const QRegExp mcMOUNT_ERROR(QStringLiteral(".*(mount error){1,}.*"), Qt::CaseInsensitive);

/// Any of the three.
static const QRegExp mcANY(QStringLiteral(".*(setup|failsafe|mount error){1,}.*"), Qt::CaseInsensitive);

} // namespace NDeviceStatus

#endif // TLXCORE_DEVICESTATUS_H
