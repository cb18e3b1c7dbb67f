#include <tools/tlx/archive/OpenArchive.h>
#include <tools/tlx/report/Report.h>

#include <algorithm>

namespace {

constexpr qint64 BLOCK = 512;

// Names are bytes in an archive: UTF-8 where they can be, otherwise Latin-1.
QString textOf(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(bytes) : text;
}

} // namespace

bool OpenArchive::open(const QString& name, Report& report)
{
    if (!mInput.openRandom(name, report)) {
        return false;
    }
    mMembers = NArchiveWalk::walk(mInput.device());
    if (!mTar.loadFile(mInput.path())) {
        reportDamage(report);
    }
    return true;
}

// The damage is in the header at which indexing stopped, or where the file ends before it.
void OpenArchive::reportDamage(Report& report)
{
    qint64 header = 0;
    if (mTar.count() > 0) {
        const CTarFileInfo last = mTar.info(mTar.count() - 1);
        header = last.mPos + BLOCK + (last.mSize + BLOCK - 1) / BLOCK * BLOCK;
    }
    const QString format = header == 0 ? NArchiveWalk::otherFormat(mInput.device()) : QString();
    const SArchiveMember member = mMembers.value(header);
    if (!format.isEmpty()) {
        report.setError(format, 0);
    } else if (mMembers.contains(header) && qstrcmp(member.sizeFrom, "base-256") == 0) {
        report.setError(
            QStringLiteral("the size is in base-256, which the library does not read: %1 bytes of ")
                    .arg(member.size)
                + textOf(member.name),
            header);
    } else {
        report.setError(mTar.error().isEmpty() ? QStringLiteral("the header's size is not an octal number")
                                               : mTar.error(),
                        std::min(header, mInput.device().size()));
    }
}

SArchiveMember OpenArchive::member(int index) const
{
    return mMembers.value(mTar.info(index).mPos);
}

QString OpenArchive::kindName(int index) const
{
    switch (mTar.info(index).mType) {
    case CTarFileInfo::TYPE_FILE:
        return QStringLiteral("file");
    case CTarFileInfo::TYPE_SYMLINK:
        return QStringLiteral("link");
    case CTarFileInfo::TYPE_DIRECTORY:
        return QStringLiteral("directory");
    default:
        return QStringLiteral("other");
    }
}

bool OpenArchive::isExtension(int index) const
{
    return NArchiveWalk::isExtension(member(index).typeflag);
}

QStringList OpenArchive::losses(int index) const
{
    const CTarFileInfo info = mTar.info(index);
    return mMembers.contains(info.mPos) ? NArchiveWalk::losses(member(index), info.mName, info.mSize)
                                        : QStringList();
}

QString OpenArchive::wholeName(int index) const
{
    return textOf(member(index).name);
}

QString OpenArchive::wholeTarget(int index) const
{
    return textOf(member(index).linkName);
}

bool OpenArchive::hasWholeData(int index) const
{
    const CTarFileInfo info = mTar.info(index);
    return mMembers.contains(info.mPos) && !member(index).isSparse && member(index).size == info.mSize;
}

qint64 OpenArchive::dataStart(int index) const
{
    return mTar.info(index).mPos + BLOCK;
}

int OpenArchive::find(const QString& name) const
{
    const int shown = mTar.index(name);
    for (int i = 0; shown < 0 && i < mTar.count(); ++i) {
        if (!isExtension(i) && wholeName(i) == name) {
            return i;
        }
    }
    return shown;
}
