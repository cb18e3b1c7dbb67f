#ifndef TLXCORE_CSTRING64_H
#define TLXCORE_CSTRING64_H

#include <core/types/CFixedString.h>

#include <QMetaType>

/**
 * @brief A text of exactly 64 UTF-16 code units, the value of type "STRING64": names and texts as devices exchange them.
 *
 * Implicitly shared. A text of 64 units has no terminator, a longer one is cut; an empty text is not valid. Units
 * behind the terminator are part of the value (see CFixedString).
 *
 * @code
 * CString64 name(QStringLiteral("Axis 1"));
 * name.str();                // "Axis 1"
 * name.byteArray().size();   // 128
 * @endcode
 */
class TLXCORE_EXPORT CString64 : public CFixedString<CString64, 64>
{
public:
    /// From nothing, a QString, a QByteArray or an array of 64 units.
    using CFixedString::CFixedString;

    /// Writes the text and its terminator over the units. Callers rely on it that the units behind the terminator
    /// keep what they held.
    CString64& operator=(const QString& text)
    {
        assign(text);
        return *this;
    }

    /// Takes all 64 units.
    CString64& operator=(const unsigned short (&units)[64])
    {
        assign(units);
        return *this;
    }

    /// Copies all 64 units to `dest`; false, and nothing done, when `dest` is null.
    bool string64(unsigned short* dest) const { return copyTo(dest); }

    /// The class's name, as it is registered with QMetaType.
    static const char* className() { return "CString64"; }
};

Q_DECLARE_METATYPE(CString64)

#endif // TLXCORE_CSTRING64_H
