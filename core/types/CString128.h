#ifndef TLXCORE_CSTRING128_H
#define TLXCORE_CSTRING128_H

#include <core/types/CFixedString.h>

#include <QMetaType>

/**
 * @brief A text of exactly 128 UTF-16 code units, the value of type "STRING128": names and texts as devices exchange them.
 *
 * Implicitly shared. A text of 128 units has no terminator, a longer one is cut; an empty text is not valid. Units
 * behind the terminator are part of the value (see CFixedString).
 *
 * @code
 * CString128 name(QStringLiteral("Axis 1"));
 * name.str();                // "Axis 1"
 * name.byteArray().size();   // 256
 * @endcode
 */
class TLXCORE_EXPORT CString128 : public CFixedString<CString128, 128>
{
public:
    /// From nothing, a QString, a QByteArray or an array of 128 units.
    using CFixedString::CFixedString;

    /// Writes the text and its terminator over the units. Callers rely on it that the units behind the terminator
    /// keep what they held.
    CString128& operator=(const QString& text)
    {
        assign(text);
        return *this;
    }

    /// Takes all 128 units.
    CString128& operator=(const unsigned short (&units)[128])
    {
        assign(units);
        return *this;
    }

    /// Copies all 128 units to `dest`; false, and nothing done, when `dest` is null.
    bool string128(unsigned short* dest) const { return copyTo(dest); }

    /// The class's name, as it is registered with QMetaType.
    static const char* className() { return "CString128"; }
};

Q_DECLARE_METATYPE(CString128)

#endif // TLXCORE_CSTRING128_H
