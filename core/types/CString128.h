#ifndef TLXCORE_CSTRING128_H
#define TLXCORE_CSTRING128_H

#include <core/types/CFixedString.h>

#include <QMetaType>

/**
 * @brief A text of exactly 128 UTF-16 code units, the value of type "STRING128"; see CFixedString.
 *
 * @code
 * CString128 name(QStringLiteral("Axis 1"));
 * name.str();                // "Axis 1"
 * name.byteArray().size();   // 256
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref typed_values
 * @since 1.0
 */
class TLXCORE_EXPORT CString128 : public CFixedString<CString128, 128>
{
public:
    /// Constructs from nothing, a QString, a QByteArray or an array of 128 units.
    using CFixedString::CFixedString;

    /// Writes the text and its terminator over the units. Units after it keep their old values.
    CString128& operator=(const QString& text) { return assigned(text); }

    /// Takes all 128 units.
    CString128& operator=(const unsigned short (&units)[128]) { return assigned(units); }

    /// Copies all 128 units to `dest`. Returns false and does nothing if `dest` is null.
    bool string128(unsigned short* dest) const { return copyTo(dest); }

    /// Returns the class's name, as registered with QMetaType.
    static const char* className() { return "CString128"; }
};

Q_DECLARE_METATYPE(CString128)

#endif // TLXCORE_CSTRING128_H
