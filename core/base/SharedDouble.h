#ifndef TLXCORE_SHAREDDOUBLE_H
#define TLXCORE_SHAREDDOUBLE_H

/// Reads and writes of a plain double that threads share. A reader sees some number that was written, never half of two.
namespace NSharedDouble {

#if defined(__GNUC__) || defined(__clang__)

inline double load(const double& shared)
{
    double value;
    __atomic_load(&shared, &value, __ATOMIC_ACQUIRE);
    return value;
}

inline void store(double& shared, double value)
{
    __atomic_store(&shared, &value, __ATOMIC_RELEASE);
}

#else

// Aligned accesses of eight bytes are whole there.
inline double load(const double& shared)
{
    return static_cast<const volatile double&>(shared);
}

inline void store(double& shared, double value)
{
    static_cast<volatile double&>(shared) = value;
}

#endif

} // namespace NSharedDouble

#endif // TLXCORE_SHAREDDOUBLE_H
