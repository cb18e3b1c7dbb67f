#ifndef TLXCORE_UNITTABLE_H
#define TLXCORE_UNITTABLE_H

#include <core/text/NUnits.h>

#include <iterator>

// The one table of what is true of each unit; the row's index is the unit's number.
namespace NUnitTable {

using namespace NUnits;

struct SUnitInfo
{
    EObjectUnit unit;
    quint16 size;    // bytes of the stored value
    quint16 storage; // the basic unit whose representation the value has
    const char* name;
};

#define TLX_UNIT(unit, size, storage)                                                                        \
    {                                                                                                        \
        unit, size, storage, #unit                                                                           \
    }

constexpr SUnitInfo UNIT_TABLE[] = {
    TLX_UNIT(UNIT_UNKNOWN, 0, 0),
    TLX_UNIT(UNIT_U8, 1, 1),
    TLX_UNIT(UNIT_I8, 1, 2),
    TLX_UNIT(UNIT_U16, 2, 3),
    TLX_UNIT(UNIT_I16, 2, 4),
    TLX_UNIT(UNIT_U32, 4, 5),
    TLX_UNIT(UNIT_I32, 4, 6),
    TLX_UNIT(UNIT_F32, 4, 7),
    TLX_UNIT(UNIT_U64, 8, 8),
    TLX_UNIT(UNIT_I64, 8, 9),
    TLX_UNIT(UNIT_F64, 8, 10),
    TLX_UNIT(UNIT_F80, 10, 11),
    TLX_UNIT(UNIT_STRING32, 64, 12),
    TLX_UNIT(UNIT_CHARSTR64, 64, 13),
    TLX_UNIT(UNIT_STRING128, 256, 14),
    TLX_UNIT(UNIT_CHARSTR256, 256, 15),
    TLX_UNIT(UNIT_I_FRAC, 2, 4),
    TLX_UNIT(UNIT_U_FRAC, 2, 4),
    TLX_UNIT(UNIT_R_FRAC, 2, 4),
    TLX_UNIT(UNIT_P_FRAC, 2, 4),
    TLX_UNIT(UNIT_S_FRAC, 2, 4),
    TLX_UNIT(UNIT_V_FRAC, 2, 4),
    TLX_UNIT(UNIT_A_FRAC, 2, 4),
    TLX_UNIT(UNIT_JERK_FRAC, 2, 4),
    TLX_UNIT(UNIT_TIME_FRAC, 2, 4),
    TLX_UNIT(UNIT_TEMPERATURE_FRAC, 2, 4),
    TLX_UNIT(UNIT_PHI_FRAC, 2, 4),
    TLX_UNIT(UNIT_OMEGA_FRAC, 2, 4),
    TLX_UNIT(UNIT_ALPHA_FRAC, 2, 4),
    TLX_UNIT(UNIT_V_PER_A_FRAC, 2, 4),
    TLX_UNIT(UNIT_FREQ_FRAC, 2, 4),
    TLX_UNIT(UNIT_F_FRAC, 2, 4),
    TLX_UNIT(UNIT_M_FRAC, 2, 4),
    TLX_UNIT(UNIT_N_PER_A_FRAC, 2, 4),
    TLX_UNIT(UNIT_NM_PER_A_FRAC, 2, 4),
    TLX_UNIT(UNIT_res35, 2, 4),
    TLX_UNIT(UNIT_PERCENT_FRAC, 2, 4),
    TLX_UNIT(UNIT_J_FRAC, 2, 4),
    TLX_UNIT(UNIT_MASS_FRAC, 2, 4),
    TLX_UNIT(UNIT_FAULT, 4, 5),
    TLX_UNIT(UNIT_U_PC_P, 8, 10),
    TLX_UNIT(UNIT_U_POS, 8, 10),
    TLX_UNIT(UNIT_U_VEL, 8, 10),
    TLX_UNIT(UNIT_U_ACC, 8, 10),
    TLX_UNIT(UNIT_U_JERK, 8, 10),
    TLX_UNIT(UNIT_U_MF, 8, 10),
    TLX_UNIT(UNIT_U_VC_P, 8, 10),
    TLX_UNIT(UNIT_U_TC_P, 8, 10),
    TLX_UNIT(UNIT_U_100mV, 2, 4),
    TLX_UNIT(UNIT_I_1mA, 4, 6),
    TLX_UNIT(UNIT_T_100mDegree, 2, 4),
    TLX_UNIT(UNIT_R_1mOhm, 4, 6),
    TLX_UNIT(UNIT_L_1uHenry, 4, 6),
    TLX_UNIT(UNIT_C_1uFarad, 4, 6),
    TLX_UNIT(UNIT_P_1mWatt, 4, 6),
    TLX_UNIT(UNIT_T_Degree, 2, 4),
    TLX_UNIT(UNIT_56, 4, 6),
    TLX_UNIT(UNIT_57, 4, 6),
    TLX_UNIT(UNIT_58, 4, 6),
    TLX_UNIT(UNIT_59, 4, 6),
    TLX_UNIT(UNIT_60, 4, 6),
    TLX_UNIT(UNIT_61, 4, 6),
    TLX_UNIT(UNIT_62, 4, 6),
    TLX_UNIT(UNIT_63, 4, 6),
    TLX_UNIT(UNIT_S_INC_32x32, 8, 9),
    TLX_UNIT(UNIT_V_INC_PER_SAMPLE_32x32, 8, 9),
    TLX_UNIT(UNIT_A_INC_PER_SAMPLE2_32x32, 8, 9),
    TLX_UNIT(UNIT_JERK_INC_PER_SAMPLE3_32x32, 8, 9),
    TLX_UNIT(UNIT_T_SAMPLE, 4, 6),
    TLX_UNIT(UNIT_69, 4, 6),
    TLX_UNIT(UNIT_70, 4, 6),
    TLX_UNIT(UNIT_71, 4, 6),
    TLX_UNIT(UNIT_72, 4, 6),
    TLX_UNIT(UNIT_73, 4, 6),
    TLX_UNIT(UNIT_74, 4, 6),
    TLX_UNIT(UNIT_75, 4, 6),
    TLX_UNIT(UNIT_76, 4, 6),
    TLX_UNIT(UNIT_77, 4, 6),
    TLX_UNIT(UNIT_78, 4, 6),
    TLX_UNIT(UNIT_79, 4, 6),
    TLX_UNIT(UNIT_DATE_TIME, 8, 9),
    TLX_UNIT(UNIT_STRING64, 128, 81),
    TLX_UNIT(UNIT_CHARSTR128, 128, 82),
    TLX_UNIT(UNIT_UTF16CHAR, 2, 83),
    TLX_UNIT(UNIT_CHAR, 1, 84),
    TLX_UNIT(UNIT_85, 4, 6),
    TLX_UNIT(UNIT_86, 4, 6),
    TLX_UNIT(UNIT_87, 4, 6),
    TLX_UNIT(UNIT_88, 4, 6),
    TLX_UNIT(UNIT_Volt_per_Ampere, 8, 10),
    TLX_UNIT(UNIT_Ampere, 8, 10),
    TLX_UNIT(UNIT_Volt, 8, 10),
    TLX_UNIT(UNIT_Ohm, 8, 10),
    TLX_UNIT(UNIT_Watt, 8, 10),
    TLX_UNIT(UNIT_uFarad, 8, 10),
    TLX_UNIT(UNIT_uHenry, 8, 10),
    TLX_UNIT(UNIT_mHenry, 8, 10),
    TLX_UNIT(UNIT_Hours, 8, 10),
    TLX_UNIT(UNIT_mSeconds, 8, 10),
    TLX_UNIT(UNIT_Newton, 8, 10),
    TLX_UNIT(UNIT_NewtonMeter, 8, 10),
    TLX_UNIT(UNIT_mMeter, 8, 10),
    TLX_UNIT(UNIT_RPM, 8, 10),
    TLX_UNIT(UNIT_Meter_per_Second, 8, 10),
    TLX_UNIT(UNIT_DegreeCelsius, 8, 10),
    TLX_UNIT(UNIT_Degree, 8, 10),
    TLX_UNIT(UNIT_Rad, 8, 10),
    TLX_UNIT(UNIT_kg, 8, 10),
    TLX_UNIT(UNIT_NewtonMeter_cMeter2, 8, 10),
    TLX_UNIT(UNIT_Meter, 8, 10),
    TLX_UNIT(UNIT_Nm_per_Ampere, 8, 10),
    TLX_UNIT(UNIT_N_per_Ampere, 8, 10),
    TLX_UNIT(UNIT_Volt_per_krpm, 8, 10),
    TLX_UNIT(UNIT_VoltSeconds_per_Meter, 8, 10),
    TLX_UNIT(UNIT_NewtonSeconds_per_rad, 8, 10),
    TLX_UNIT(UNIT_Meter_per_Seconds, 8, 10),
    TLX_UNIT(UNIT_Meter_per_Seconds2, 8, 10),
    TLX_UNIT(UNIT_Meter_per_Seconds3, 8, 10),
    TLX_UNIT(UNIT_Revolutions_per_Seconds2, 8, 10),
    TLX_UNIT(UNIT_Revolutions_per_Seconds3, 8, 10),
    TLX_UNIT(UNIT_Hertz, 8, 10),
    TLX_UNIT(UNIT_A, 8, 10),
    TLX_UNIT(UNIT_V, 8, 10),
    TLX_UNIT(UNIT_W, 8, 10),
    TLX_UNIT(UNIT_P, 8, 10),
    TLX_UNIT(UNIT_J, 8, 10),
};

#undef TLX_UNIT

constexpr quint32 UNIT_COUNT = std::size(UNIT_TABLE);

constexpr bool unitTableIsInOrder()
{
    for (quint32 i = 0; i < UNIT_COUNT; ++i) {
        if (UNIT_TABLE[i].unit != i) {
            return false;
        }
    }
    return true;
}
static_assert(UNIT_COUNT == UNIT_J + 1 && unitTableIsInOrder(), "one row a unit");

} // namespace NUnitTable

#endif // TLXCORE_UNITTABLE_H
