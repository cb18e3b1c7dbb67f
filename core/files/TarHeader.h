#ifndef TLXCORE_TARHEADER_H
#define TLXCORE_TARHEADER_H

#include <QLatin1String>
#include <QtGlobal>

/**
 * The fields of one header block of a ustar archive that CTar uses. The block belongs to the caller and holds
 * BLOCK_SIZE bytes; no function reads beyond them.
 */
class TarHeader
{
public:
    static constexpr int BLOCK_SIZE = 512;

    explicit TarHeader(const char* block)
        : mBlock(block)
    {}

    /// The end mark of an archive: nothing but zero bytes.
    bool isZero() const;

    /// The magic begins with "ustar", whatever follows (a zero byte, or the blank of GNU tar).
    bool hasMagic() const;

    /// A CTarFileInfo::EType.
    qint32 type() const;

    /// Texts in the block, without their zero byte.
    QLatin1String name() const { return text(NAME); }
    QLatin1String linkName() const { return text(LINK_NAME); }

    /// Size of the data in bytes; negative when the field does not convert.
    qint64 size() const;

private:
    struct SField
    {
        int offset;
        int width;
    };

    static constexpr SField NAME{0, 100};
    static constexpr SField SIZE{124, 12};
    static constexpr SField TYPEFLAG{156, 1};
    static constexpr SField LINK_NAME{157, 100};
    static constexpr SField MAGIC{257, 6};
    static_assert(MAGIC.offset + MAGIC.width <= BLOCK_SIZE, "fields lie within the block");

    QLatin1String text(const SField& field) const;

    const char* mBlock;
};

#endif // TLXCORE_TARHEADER_H
