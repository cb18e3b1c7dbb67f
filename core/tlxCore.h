#ifndef TLXCORE_H
#define TLXCORE_H

/**
 * @file
 * @brief Umbrella header: every public header of tlxCore, and nothing else.
 */

#include <core/app/CBenchmarkTimer.h>
#include <core/app/CCompanyStrings.h>
#include <core/app/CHmac.h>
#include <core/app/CPublicWait.h>
#include <core/app/SharedNames.h>
#include <core/base/QtCompat.h>
#include <core/device/CCommandLineParser.h>
#include <core/device/CDeviceHardwareId.h>
#include <core/device/CDeviceItem.h>
#include <core/device/CDeviceList.h>
#include <core/device/CIPv6Address.h>
#include <core/device/CMotorBaseName.h>
#include <core/device/CSubDeviceItem.h>
#include <core/device/DeviceStatus.h>
#include <core/files/CDir.h>
#include <core/files/CFTPath.h>
#include <core/files/CPath.h>
#include <core/files/CTar.h>
#include <core/files/CTarFileInfo.h>
#include <core/files/CTemporaryDir.h>
#include <core/files/EDirFilter.h>
#include <core/text/CDateTime.h>
#include <core/text/CMath.h>
#include <core/text/CStr.h>
#include <core/text/CTime.h>
#include <core/text/CTlString.h>
#include <core/text/CUnitParser.h>
#include <core/text/NUnits.h>
#include <core/tlxCoreExport.h>
#include <core/tlxCoreVersion.h>
#include <core/types/CFixedString.h>
#include <core/types/CString128.h>
#include <core/types/CString32.h>
#include <core/types/CString64.h>
#include <core/types/CVariant.h>
#include <core/types/NTypes.h>

#endif // TLXCORE_H
