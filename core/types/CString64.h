#ifndef TLXCORE_CSTRING64_H
#define TLXCORE_CSTRING64_H

#include <core/types/CFixedString.h>

#include <QMetaType>

/**
 * @brief A text of exactly 64 UTF-16 code units, the value of type "STRING64"; see CFixedString.
 *
 * @code
 * CString64 name(QStringLiteral("Axis 1"));
 * name.str();                // "Axis 1"
 * name.byteArray().size();   // 128
 * @endcode
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref typed_values
 * @since 1.0
 */
class TLXCORE_EXPORT CString64 : public CFixedString<CString64, 64>
{
public:
    /// Constructs from nothing, a QString, a QByteArray or an array of 64 units.
    using CFixedString::CFixedString;

    /// Writes the text and its terminator over the units. Units after it keep their old values.
    CString64& operator=(const QString& text) { return assigned(text); }

    /// Takes all 64 units.
    CString64& operator=(const unsigned short (&units)[64]) { return assigned(units); }

    /// Copies all 64 units to `dest`. Returns false and does nothing if `dest` is null.
    bool string64(unsigned short* dest) const { return copyTo(dest); }

    /// Returns the class's name, as registered with QMetaType.
    static const char* className() { return "CString64"; }
};

Q_DECLARE_METATYPE(CString64)

#endif // TLXCORE_CSTRING64_H
