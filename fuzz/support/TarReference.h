#ifndef TLXFUZZ_TARREFERENCE_H
#define TLXFUZZ_TARREFERENCE_H

#include <QByteArray>
#include <QList>
#include <QString>

/// What an archive holds, read from its bytes in memory by the rules alone.
class TarReference
{
public:
    struct SMember
    {
        QString name;
        QString linkName;
        int type;
        qint64 pos;
        qint64 size;
        bool whole; ///< The archive holds all bytes of it.
        QByteArray data;
    };

    explicit TarReference(const QByteArray& bytes);

    /// Whether the walk reached the end mark.
    bool isGood() const { return mGood; }

    /// Whether it is an archive of ustar's simple members only, whole, with nothing that readers differ in.
    bool isPlain() const { return mGood && mPlain; }

    const QList<SMember>& members() const { return mMembers; }

private:
    bool readMember(const QByteArray& block, qint64 pos);

    const QByteArray& mBytes;
    QList<SMember> mMembers;
    bool mGood = false;
    bool mPlain = true;
};

/// The header's checksum is written as mendHeaders() writes it.
bool hasChecksum(const QByteArray& block);

/// Gives every header that the walk reaches, or a guess at it, a magic and a right checksum.
void mendHeaders(QByteArray& bytes);

#endif // TLXFUZZ_TARREFERENCE_H
