#ifndef TLXCORE_QTEST_H
#define TLXCORE_QTEST_H

#include <core/tlxCore.h>

#include <QDebug>
#include <QtTest/qtest.h>

/**
 * @file
 * @brief Readable values in failing tests: QTest::toString for the library's value types.
 *
 * Include it in test programs, which link Qt Test; the library itself does not, and core/tlxCore.h leaves it out.
 */

/// Makes QTest show a type as its QDebug operator writes it.
#define TLXCORE_QTEST_TO_STRING(Type)                                                                        \
    template <>                                                                                              \
    inline char* QTest::toString(const Type& value)                                                          \
    {                                                                                                        \
        QString text;                                                                                        \
        QDebug(&text).nospace() << value;                                                                    \
        return qstrdup(text.toUtf8().constData());                                                           \
    }

TLXCORE_QTEST_TO_STRING(CDateTime)
TLXCORE_QTEST_TO_STRING(CDeviceHardwareId)
TLXCORE_QTEST_TO_STRING(CDeviceItem)
TLXCORE_QTEST_TO_STRING(CDeviceList)
TLXCORE_QTEST_TO_STRING(CFTPath::EEntryPoint)
TLXCORE_QTEST_TO_STRING(CIPv6Address)
TLXCORE_QTEST_TO_STRING(CMotorBaseName)
TLXCORE_QTEST_TO_STRING(CString128)
TLXCORE_QTEST_TO_STRING(CString32)
TLXCORE_QTEST_TO_STRING(CString64)
TLXCORE_QTEST_TO_STRING(CSubDeviceItem)
TLXCORE_QTEST_TO_STRING(CTarFileInfo)
TLXCORE_QTEST_TO_STRING(CTarFileInfo::EType)
TLXCORE_QTEST_TO_STRING(CTime)
TLXCORE_QTEST_TO_STRING(CTime::ETimeUnit)
TLXCORE_QTEST_TO_STRING(CTlString::SFormatValue)
TLXCORE_QTEST_TO_STRING(CVariant)
TLXCORE_QTEST_TO_STRING(NTypes::ETypes)
TLXCORE_QTEST_TO_STRING(NTypes::tsDate)
TLXCORE_QTEST_TO_STRING(NTypes::tsDateTime)
TLXCORE_QTEST_TO_STRING(NTypes::tsTime)
TLXCORE_QTEST_TO_STRING(NUnits::EObjectUnit)

#undef TLXCORE_QTEST_TO_STRING

#endif // TLXCORE_QTEST_H
