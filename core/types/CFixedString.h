#ifndef TLXCORE_CFIXEDSTRING_H
#define TLXCORE_CFIXEDSTRING_H

#include <core/base/QtCompat.h>
#include <core/tlxCoreExport.h>

#include <QByteArray>
#include <QDataStream>
#include <QDebug>
#include <QHash>
#include <QSharedData>
#include <QSharedDataPointer>
#include <QString>
#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <cstring>

/**
 * @brief What CString32, CString64 and CString128 have in common: a text of exactly N UTF-16 code units.
 *
 * The N units are implicitly shared. The text ends at the first zero unit. A text of N units has no terminator; a
 * longer one is truncated to N units. Units after the terminator are part of the value: they count in operator==, in
 * byteArray() and in the stream.
 *
 * Use the three classes; Derived is the class itself.
 *
 * Distinct objects may be used on distinct threads, see \ref threads.
 * @see \ref typed_values
 * @since 1.0
 */
template <typename Derived, int N>
class CFixedString
{
public:
    /// The code units as a C array.
    typedef unsigned short TArray[static_cast<std::size_t>(N)];

    /// Constructs an empty text, all units zero.
    CFixedString()
        : mBlock(new SBlock)
    {}

    /// Takes the first N units of the text. The remaining units are zero.
    CFixedString(const QString& text)
        : CFixedString()
    {
        assign(text);
    }

    /// Takes the first 2N bytes as units in the machine's byte order. The remaining units are zero. An odd number of
    /// bytes sets half of a unit.
    CFixedString(const QByteArray& bytes)
        : CFixedString()
    {
        const int size = bytes.size() < BYTES ? static_cast<int>(bytes.size()) : BYTES;
        std::memcpy(ownCodeUnits(), bytes.constData(), static_cast<std::size_t>(size));
    }

    /// Takes all N units.
    CFixedString(const TArray& units)
        : CFixedString()
    {
        assign(units);
    }

    /// Shares the units, also with what is moved from.
    CFixedString(const CFixedString& other) noexcept
        : mBlock(other.mBlock)
    {}
    virtual ~CFixedString() = default;

    /// Returns true if the text is not empty, that is, if the first unit is not zero.
    bool isValid() const { return codeUnits()[0] != 0; }

    /// Returns the text up to the first zero unit, or all N units. Byte-order marks are ordinary units.
    QString str() const
    {
        const QChar* const begin = reinterpret_cast<const QChar*>(codeUnits());
        return QString(begin, static_cast<int>(std::find(begin, begin + N, QChar(0)) - begin));
    }

    /// Returns all N units as they are in memory: 2N bytes, with the terminator and the units after it.
    QByteArray byteArray() const { return QByteArray(reinterpret_cast<const char*>(codeUnits()), BYTES); }

    /// Returns true if all N units are equal, those after the terminator included.
    bool operator==(const CFixedString& other) const
    {
        // Looks at the result once, so that the time does not depend on where two texts differ.
        const unsigned short* const left = codeUnits();
        const unsigned short* const right = other.codeUnits();
        unsigned short difference = 0;
        for (int i = 0; i < N; ++i) {
            difference = static_cast<unsigned short>(difference | (left[i] ^ right[i]));
        }
        return difference == 0;
    }
    /// The negation of operator==.
    bool operator!=(const CFixedString& other) const { return !(*this == other); }

    /// Writes the N units in the stream's byte order: 2N bytes, no length, no terminator.
    friend QDataStream& operator<<(QDataStream& stream, const Derived& value)
    {
        TArray ordered;
        if (stream.byteOrder() == QDataStream::BigEndian) {
            qToBigEndian<quint16>(value.codeUnits(), N, ordered);
        } else {
            qToLittleEndian<quint16>(value.codeUnits(), N, ordered);
        }
        stream.writeRawData(reinterpret_cast<const char*>(ordered), BYTES);
        return stream;
    }

    /// Reads N units. Units missing from a truncated stream are zero; check the stream's status.
    friend QDataStream& operator>>(QDataStream& stream, Derived& value)
    {
        TArray ordered;
        const int count = stream.readRawData(reinterpret_cast<char*>(ordered), BYTES);
        std::fill(ordered + (std::max)(count, 0) / 2, ordered + N, quint16(0));
        if (stream.byteOrder() == QDataStream::BigEndian) {
            qFromBigEndian<quint16>(ordered, N, value.mBlock->codeUnits);
        } else {
            qFromLittleEndian<quint16>(ordered, N, value.mBlock->codeUnits);
        }
        return stream;
    }

    /// Hash of all N units.
    friend NQtCompat::THash qHash(const Derived& value, NQtCompat::THash seed = 0) noexcept
    {
        return qHashBits(value.codeUnits(), sizeof(TArray), seed);
    }

    /// Shows the class, the text, and the units after the terminator unless all are zero.
    friend QDebug operator<<(QDebug debug, const Derived& value)
    {
        const QDebugStateSaver saver(debug);
        const QString shown = value.str();
        QString rest = QString(reinterpret_cast<const QChar*>(value.codeUnits()), N).mid(shown.size() + 1);
        while (rest.endsWith(QChar(0))) {
            rest.chop(1);
        }
        debug.nospace() << Derived::className() << '(' << shown;
        if (!rest.isEmpty()) {
            debug << ", after the terminator " << rest;
        }
        debug << ')';
        return debug;
    }

protected:
    /// Shares the units.
    CFixedString& operator=(const CFixedString& other) noexcept
    {
        mBlock = other.mBlock;
        return *this;
    }

    /// Writes the text and its terminator. Units after the terminator keep their old values.
    void assign(const QString& text)
    {
        const int length = text.size() < N ? static_cast<int>(text.size()) : N;
        unsigned short* const target = ownCodeUnits();
        std::memcpy(target, text.constData(), static_cast<std::size_t>(length) * sizeof(QChar));
        if (length < N) {
            target[length] = 0;
        }
    }

    /// Writes all units.
    void assign(const TArray& units) { std::memcpy(ownCodeUnits(), units, sizeof(TArray)); }

    /// As assign(), and returns the object.
    template <typename Value>
    Derived& assigned(const Value& value)
    {
        assign(value);
        return static_cast<Derived&>(*this);
    }

    /// Copies all N units to `dest`; false when `dest` is null.
    bool copyTo(unsigned short* dest) const
    {
        if (dest) {
            std::memcpy(dest, codeUnits(), sizeof(TArray));
        }
        return dest != nullptr;
    }

private:
    /// @cond INTERNAL
    struct SBlock : QSharedData
    {
        quint32 unused[3] = {}; // streams and comparison are faster with units at an even 16 bytes
        TArray codeUnits = {};
    };
    /// @endcond

    static constexpr int BYTES = static_cast<int>(sizeof(TArray));

    const unsigned short* codeUnits() const
    {
        const SBlock* const block = mBlock.constData();
        Q_ASSUME(block != nullptr);
        return block->codeUnits;
    }

    unsigned short* ownCodeUnits()
    {
        SBlock* const block = mBlock.data();
        Q_ASSUME(block != nullptr);
        return block->codeUnits;
    }

    QSharedDataPointer<SBlock> mBlock;
};

#endif // TLXCORE_CFIXEDSTRING_H
