#ifndef TLXCORE_CSTRING32_H
#define TLXCORE_CSTRING32_H

#include <core/types/CFixedString.h>

#include <QMetaType>

/**
 * @brief A text of exactly 32 UTF-16 code units, the value of type "STRING32"; see CFixedString.
 *
 * @code
 * CString32 name(QStringLiteral("Axis 1"));
 * name.str();                // "Axis 1"
 * name.byteArray().size();   // 64
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref typed_values
 * @since 1.0
 */
class TLXCORE_EXPORT CString32 : public CFixedString<CString32, 32>
{
public:
    /// Constructs from nothing, a QString, a QByteArray or an array of 32 units.
    using CFixedString::CFixedString;

    /// Writes the text and its terminator over the units. Units after it keep their old values.
    CString32& operator=(const QString& text) { return assigned(text); }

    /// Takes all 32 units.
    CString32& operator=(const unsigned short (&units)[32]) { return assigned(units); }

    /// Copies all 32 units to `dest`. Returns false and does nothing if `dest` is null.
    bool string32(unsigned short* dest) const { return copyTo(dest); }

    /// Returns the class's name, as registered with QMetaType.
    static const char* className() { return "CString32"; }
};

Q_DECLARE_METATYPE(CString32)

#endif // TLXCORE_CSTRING32_H
