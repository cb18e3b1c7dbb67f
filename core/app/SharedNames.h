#ifndef TLXCORE_SHAREDNAMES_H
#define TLXCORE_SHAREDNAMES_H

#include <QLatin1String>

#include <array>
#include <cstddef>

/**
 * @file
 * @brief The vocabulary that the tools share: mime types of what is dragged between them, and the names of severities.
 */

namespace NtlxGlobal {

/// A Latin-1 constant whose length is known to the compiler.
template <std::size_t size>
constexpr QLatin1String sharedName(const char (&text)[size])
{
    return QLatin1String(text, static_cast<int>(size - 1));
}

/// An object of an application.
inline constexpr QLatin1String mcMIME_APP_OBJECT = sharedName("application/x-tlappobject");
/// An object of a project.
inline constexpr QLatin1String mcMIME_PROJECT_OBJECT = sharedName("application/x-tlprojectobject");
/// A file on a device, of its file transfer.
inline constexpr QLatin1String mcMIME_FILE_TRANSFER_TARGET_FILE =
    sharedName("application/tlFileTransferTargetFile");
/// A device of a list.
inline constexpr QLatin1String mcMIME_DEVICE_OBJECT = sharedName("application/x-tldeviceobject");
/// A sub-device of a device.
inline constexpr QLatin1String mcMIME_SUB_DEVICE_OBJECT = sharedName("application/x-tlsubdeviceobject");
/// A motor.
inline constexpr QLatin1String mcMIME_MOTOR_OBJECT = sharedName("application/x-tlmotorobject");
/// A parameter file.
inline constexpr QLatin1String mcMIME_PARAMETER_FILE = sharedName("application/x-tlparameterfile");
/// A firmware image.
inline constexpr QLatin1String mcMIME_FIRMWARE_IMAGE = sharedName("application/x-tlfirmwareimage");
/// An FPGA image.
inline constexpr QLatin1String mcMIME_FPGA_IMAGE = sharedName("application/x-tlfpgaimage");
/// A log file.
inline constexpr QLatin1String mcMIME_LOG_FILE = sharedName("application/x-tllogfile");

/// The names of the syslog severities (RFC 5424), the severity as index.
inline constexpr std::array<QLatin1String, 8> mcSEVERITY_NAMES{
    {sharedName("emerg"), sharedName("alert"), sharedName("crit"), sharedName("error"), sharedName("warn"),
     sharedName("notice"), sharedName("info"), sharedName("debug")}};

} // namespace NtlxGlobal

#endif // TLXCORE_SHAREDNAMES_H
