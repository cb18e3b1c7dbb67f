#ifndef TLXCORE_NUNITS_H
#define TLXCORE_NUNITS_H

#include <core/tlxCoreExport.h>

#include <QMetaType>
#include <QtGlobal>

class QDebug;

/**
 * @brief The units of a drive's objects (parameters).
 *
 * A unit is more than a physical unit: it also determines how the value is stored on the device, see
 * CUnitParser::type() and CUnitParser::size(). The numbers travel in parameter files and never change. An EObjectUnit
 * can hold any 32-bit number; numbers above 125 are unknown units.
 *
 * - A "fraction" is a signed 16-bit integer. The physical value of one step belongs to the drive; the catalogue does
 *   not hold it.
 * - A "user's unit" is a double in the unit in which the user enters the quantity.
 * - The units from UNIT_Volt_per_Ampere on are doubles in the unit that the name spells. The last five have a letter
 *   for a name: the catalogue fixes the letter, the number and the storage, and the drive's object what is measured.
 * - Reserved units are stored as signed 32-bit integers (UNIT_res35: 16-bit).
 *
 * @see \ref numbers_and_text
 * @since 1.0
 */
namespace NUnits {

/// Units, by number. Their texts are the enumerators' names.
enum EObjectUnit : quint32
{
    UNIT_UNKNOWN = 0,                     ///< No unit.
    UNIT_U8 = 1,                          ///< Unsigned integer, 8 bits.
    UNIT_I8 = 2,                          ///< Signed integer, 8 bits.
    UNIT_U16 = 3,                         ///< Unsigned integer, 16 bits.
    UNIT_I16 = 4,                         ///< Signed integer, 16 bits.
    UNIT_U32 = 5,                         ///< Unsigned integer, 32 bits.
    UNIT_I32 = 6,                         ///< Signed integer, 32 bits.
    UNIT_F32 = 7,                         ///< Floating point, 32 bits.
    UNIT_U64 = 8,                         ///< Unsigned integer, 64 bits.
    UNIT_I64 = 9,                         ///< Signed integer, 64 bits.
    UNIT_F64 = 10,                        ///< Floating point, 64 bits.
    UNIT_F80 = 11,                        ///< Floating point, 80 bits: no value type carries it.
    UNIT_STRING32 = 12,                   ///< UTF-16 text of 32 code units.
    UNIT_CHARSTR64 = 13,                  ///< 8-bit text of 64 bytes.
    UNIT_STRING128 = 14,                  ///< UTF-16 text of 128 code units.
    UNIT_CHARSTR256 = 15,                 ///< 8-bit text of 256 bytes.
    UNIT_I_FRAC = 16,                     ///< Current, fraction.
    UNIT_U_FRAC = 17,                     ///< Voltage, fraction.
    UNIT_R_FRAC = 18,                     ///< Resistance, fraction.
    UNIT_P_FRAC = 19,                     ///< Power, fraction.
    UNIT_S_FRAC = 20,                     ///< Distance, fraction.
    UNIT_V_FRAC = 21,                     ///< Velocity, fraction.
    UNIT_A_FRAC = 22,                     ///< Acceleration, fraction.
    UNIT_JERK_FRAC = 23,                  ///< Jerk, fraction.
    UNIT_TIME_FRAC = 24,                  ///< Time, fraction.
    UNIT_TEMPERATURE_FRAC = 25,           ///< Temperature, fraction.
    UNIT_PHI_FRAC = 26,                   ///< Angle, fraction.
    UNIT_OMEGA_FRAC = 27,                 ///< Angular velocity, fraction.
    UNIT_ALPHA_FRAC = 28,                 ///< Angular acceleration, fraction.
    UNIT_V_PER_A_FRAC = 29,               ///< Voltage per current, fraction.
    UNIT_FREQ_FRAC = 30,                  ///< Frequency, fraction.
    UNIT_F_FRAC = 31,                     ///< Force, fraction.
    UNIT_M_FRAC = 32,                     ///< Torque, fraction.
    UNIT_N_PER_A_FRAC = 33,               ///< Force per current, fraction.
    UNIT_NM_PER_A_FRAC = 34,              ///< Torque per current, fraction.
    UNIT_res35 = 35,                      ///< Reserved.
    UNIT_PERCENT_FRAC = 36,               ///< Percentage, fraction.
    UNIT_J_FRAC = 37,                     ///< Moment of inertia, fraction.
    UNIT_MASS_FRAC = 38,                  ///< Mass, fraction.
    UNIT_FAULT = 39,                      ///< Fault.
    UNIT_U_PC_P = 40,                     ///< User's unit: gain of the position controller.
    UNIT_U_POS = 41,                      ///< User's unit: position.
    UNIT_U_VEL = 42,                      ///< User's unit: velocity.
    UNIT_U_ACC = 43,                      ///< User's unit: acceleration.
    UNIT_U_JERK = 44,                     ///< User's unit: jerk.
    UNIT_U_MF = 45,                       ///< User's unit: torque or force.
    UNIT_U_VC_P = 46,                     ///< User's unit: gain of the velocity controller.
    UNIT_U_TC_P = 47,                     ///< User's unit: gain of the torque controller.
    UNIT_U_100mV = 48,                    ///< Voltage in 100 mV.
    UNIT_I_1mA = 49,                      ///< Current in mA.
    UNIT_T_100mDegree = 50,               ///< Temperature in tenths of a degree.
    UNIT_R_1mOhm = 51,                    ///< Resistance in milliohm.
    UNIT_L_1uHenry = 52,                  ///< Inductance in microhenry.
    UNIT_C_1uFarad = 53,                  ///< Capacitance in microfarad.
    UNIT_P_1mWatt = 54,                   ///< Power in milliwatt.
    UNIT_T_Degree = 55,                   ///< Temperature in degrees.
    UNIT_56 = 56,                         ///< Reserved.
    UNIT_57 = 57,                         ///< Reserved.
    UNIT_58 = 58,                         ///< Reserved.
    UNIT_59 = 59,                         ///< Reserved.
    UNIT_60 = 60,                         ///< Reserved.
    UNIT_61 = 61,                         ///< Reserved.
    UNIT_62 = 62,                         ///< Reserved.
    UNIT_63 = 63,                         ///< Reserved.
    UNIT_S_INC_32x32 = 64,                ///< Distance in increments, 32.32 bits.
    UNIT_V_INC_PER_SAMPLE_32x32 = 65,     ///< Velocity in increments per sample, 32.32 bits.
    UNIT_A_INC_PER_SAMPLE2_32x32 = 66,    ///< Acceleration in increments per sample squared, 32.32 bits.
    UNIT_JERK_INC_PER_SAMPLE3_32x32 = 67, ///< Jerk in increments per sample cubed, 32.32 bits.
    UNIT_T_SAMPLE = 68,                   ///< Time in samples.
    UNIT_69 = 69,                         ///< Reserved.
    UNIT_70 = 70,                         ///< Reserved.
    UNIT_71 = 71,                         ///< Reserved.
    UNIT_72 = 72,                         ///< Reserved.
    UNIT_73 = 73,                         ///< Reserved.
    UNIT_74 = 74,                         ///< Reserved.
    UNIT_75 = 75,                         ///< Reserved.
    UNIT_76 = 76,                         ///< Reserved.
    UNIT_77 = 77,                         ///< Reserved.
    UNIT_78 = 78,                         ///< Reserved.
    UNIT_79 = 79,                         ///< Reserved.
    UNIT_DATE_TIME = 80,                  ///< Date and time.
    UNIT_STRING64 = 81,                   ///< UTF-16 text of 64 code units.
    UNIT_CHARSTR128 = 82,                 ///< 8-bit text of 128 bytes.
    UNIT_UTF16CHAR = 83,                  ///< One UTF-16 code unit.
    UNIT_CHAR = 84,                       ///< One 8-bit character.
    UNIT_85 = 85,                         ///< Reserved.
    UNIT_86 = 86,                         ///< Reserved.
    UNIT_87 = 87,                         ///< Reserved.
    UNIT_88 = 88,                         ///< Reserved.
    UNIT_Volt_per_Ampere = 89,            ///< V/A.
    UNIT_Ampere = 90,                     ///< A.
    UNIT_Volt = 91,                       ///< V.
    UNIT_Ohm = 92,                        ///< Ohm.
    UNIT_Watt = 93,                       ///< W.
    UNIT_uFarad = 94,                     ///< Microfarad.
    UNIT_uHenry = 95,                     ///< Microhenry.
    UNIT_mHenry = 96,                     ///< Millihenry.
    UNIT_Hours = 97,                      ///< Hours.
    UNIT_mSeconds = 98,                   ///< Milliseconds.
    UNIT_Newton = 99,                     ///< N.
    UNIT_NewtonMeter = 100,               ///< Nm.
    UNIT_mMeter = 101,                    ///< Millimetres.
    UNIT_RPM = 102,                       ///< Revolutions per minute.
    UNIT_Meter_per_Second = 103,          ///< m/s.
    UNIT_DegreeCelsius = 104,             ///< Degrees Celsius.
    UNIT_Degree = 105,                    ///< Degrees of an angle.
    UNIT_Rad = 106,                       ///< Radians.
    UNIT_kg = 107,                        ///< Kilograms.
    UNIT_NewtonMeter_cMeter2 = 108,       ///< Nm cm^2.
    UNIT_Meter = 109,                     ///< Metres.
    UNIT_Nm_per_Ampere = 110,             ///< Nm/A.
    UNIT_N_per_Ampere = 111,              ///< N/A.
    UNIT_Volt_per_krpm = 112,             ///< Volt per 1000 revolutions per minute.
    UNIT_VoltSeconds_per_Meter = 113,     ///< Vs/m.
    UNIT_NewtonSeconds_per_rad = 114,     ///< Ns/rad.
    UNIT_Meter_per_Seconds = 115,         ///< m/s.
    UNIT_Meter_per_Seconds2 = 116,        ///< m/s^2.
    UNIT_Meter_per_Seconds3 = 117,        ///< m/s^3.
    UNIT_Revolutions_per_Seconds2 = 118,  ///< Revolutions per second squared.
    UNIT_Revolutions_per_Seconds3 = 119,  ///< Revolutions per second cubed.
    UNIT_Hertz = 120,                     ///< Hertz.
    UNIT_A = 121,                         ///< The letter "A": a double.
    UNIT_V = 122,                         ///< The letter "V": a double.
    UNIT_W = 123,                         ///< The letter "W": a double.
    UNIT_P = 124,                         ///< The letter "P": a double.
    UNIT_J = 125                          ///< The letter "J": a double.
};

/// Shows the enumerator, NUnits::UNIT_RPM; another number as NUnits::EObjectUnit(999).
TLXCORE_EXPORT QDebug operator<<(QDebug debug, EObjectUnit unit);

} // namespace NUnits

Q_DECLARE_METATYPE(NUnits::EObjectUnit)

#endif // TLXCORE_NUNITS_H
