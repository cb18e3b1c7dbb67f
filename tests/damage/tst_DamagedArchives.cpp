#include <core/base/QtTexts.h>
#include <core/files/CTar.h>

#include <tests/damage/DamageRows.h>
#include <tests/files/TarArchive.h>
#include <tests/support/MessageLog.h>

#include <QtTest>

namespace {

constexpr int BLOCK = 512;
constexpr int FILE_SIZE = 700;
constexpr int LINK_HEADER = 3 * BLOCK;

// A file of two blocks, a link, a directory, the end.
QByteArray goldenArchive()
{
    STarMember link;
    link.name = "link";
    link.typeflag = '2';
    link.linkName = "firmware/image.bin";
    STarMember directory;
    directory.name = "logic/";
    directory.typeflag = '5';
    return tarFile("firmware/image.bin", FILE_SIZE) + tarMember(link) + tarMember(directory) + tarEnd();
}

// The header that gets every value; the others get the sample.
bool isFirstHeader(int at)
{
    return at < BLOCK;
}

/// What a reader has to find, worked out from the bytes as the format says.
struct SExpected
{
    bool loaded = false;
    QByteArray error; ///< A part of the error text; empty: silent.
    QList<CTarFileInfo> members;
};

QByteArray textAt(const QByteArray& block, int offset)
{
    const int zero = block.indexOf('\0', offset);
    return block.mid(offset, zero < 0 ? -1 : zero - offset);
}

qint64 sizeIn(const QByteArray& block)
{
    bool ok = false;
    const QByteArray text = textAt(block, 124);
    qint64 size = NQtCompat::integerText(QString::fromLatin1(text)).toLongLong(&ok, 8);
    if ((!ok || size < 0) && text.size() >= 12 && text.at(11) == ' ') {
        size = NQtCompat::integerText(QString::fromLatin1(text.left(12))).toLongLong(&ok, 8);
    }
    return ok ? size : -1;
}

CTarFileInfo memberIn(const QByteArray& block, qint64 pos)
{
    CTarFileInfo info;
    info.mName = QString::fromLatin1(textAt(block, 0));
    info.mLinkName = QString::fromLatin1(textAt(block, 157));
    info.mSize = sizeIn(block);
    info.mPos = pos;
    const char kind = block.at(156);
    info.mType = kind == '0' || kind == 0 ? CTarFileInfo::TYPE_FILE
                 : kind == '2'            ? CTarFileInfo::TYPE_SYMLINK
                 : kind == '5'            ? CTarFileInfo::TYPE_DIRECTORY
                                          : CTarFileInfo::TYPE_INVALID;
    return info;
}

SExpected expectedOf(const QByteArray& bytes)
{
    SExpected expected;
    qint64 pos = 0;
    while (pos <= bytes.size() - BLOCK) {
        const QByteArray block = bytes.mid(static_cast<int>(pos), BLOCK);
        if (block == QByteArray(BLOCK, '\0')) {
            expected.loaded = true;
            return expected;
        }
        if (block.mid(257, 5) != "ustar") {
            expected.error = "not a tar archive";
            return expected;
        }
        const qint64 size = sizeIn(block);
        if (size < 0 || size > std::numeric_limits<qint64>::max() - 2 * BLOCK - pos) {
            return expected;
        }
        expected.members << memberIn(block, pos);
        pos += BLOCK + (size + BLOCK - 1) / BLOCK * BLOCK;
    }
    expected.error = "too short";
    return expected;
}

// What was wrong, empty when nothing was.
QByteArray wrongIn(CTar& tar, const QString& path, const QByteArray& bytes)
{
    const SExpected expected = expectedOf(bytes);
    if (tar.loadFile(path) != expected.loaded || tar.infos() != expected.members) {
        return "members";
    }
    if (!tar.error().contains(QLatin1String(expected.error))
        || tar.error().isEmpty() != expected.error.isEmpty()) {
        return "error " + tar.error().toUtf8();
    }
    for (int i = 0; i < tar.count(); ++i) {
        const CTarFileInfo& member = expected.members.at(i);
        const qint64 left = bytes.size() - (member.mPos + BLOCK);
        QByteArray data("untouched");
        const bool fits = member.mSize <= left;
        const QByteArray right =
            fits ? bytes.mid(static_cast<int>(member.mPos) + BLOCK, static_cast<int>(member.mSize))
                 : QByteArray("untouched");
        if (tar.file(i, data) != fits || data != right) {
            return "contents of " + QByteArray::number(i);
        }
        if (!fits && !tar.error().contains(QLatin1String("bytes read but"))) {
            return "error of contents: " + tar.error().toUtf8();
        }
    }
    return QByteArray();
}

} // namespace

/// A small archive with each byte changed and cut at every length.
class tst_DamagedArchives : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void golden();
    void flipped();
    void cut();

private:
    QByteArray wrong(const QByteArray& bytes);

    void write(const QByteArray& bytes);

    QTemporaryDir mDirectory;
    QFile mFile;
    QByteArray mWritten;
};

// Only what differs: the file has hundreds of thousands of contents.
void tst_DamagedArchives::write(const QByteArray& bytes)
{
    if (!mFile.isOpen()) {
        mFile.setFileName(mDirectory.filePath(QStringLiteral("damaged.tar")));
        QVERIFY(mFile.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    }
    const int length = bytes.size();
    if (mWritten.size() != length) {
        QVERIFY(mFile.resize(length) && mFile.seek(0) && mFile.write(bytes) == length);
        mWritten = bytes;
    }
    for (int at = 0; at < length; ++at) {
        if (mWritten.at(at) != bytes.at(at)) {
            QVERIFY(mFile.seek(at) && mFile.write(bytes.constData() + at, 1) == 1);
            mWritten[at] = bytes.at(at);
        }
    }
}

// Reading holds the members' contents, a buffer of at most the archive, and what Qt needs for an open file.
QByteArray tst_DamagedArchives::wrong(const QByteArray& bytes)
{
    constexpr qint64 SMALL = 32 * 1024;
    const QString path = mDirectory.filePath(QStringLiteral("damaged.tar"));
    write(bytes);
    QByteArray wrong;
    const qint64 peak = peakOf([&] {
        CTar tar;
        wrong = wrongIn(tar, path, bytes);
    });
    return peak > 4 * bytes.size() + SMALL ? "peak " + QByteArray::number(peak) : wrong;
}

void tst_DamagedArchives::golden()
{
    const QByteArray bytes = goldenArchive();
    QCOMPARE(wrong(bytes), QByteArray());
    const SExpected expected = expectedOf(bytes);
    QVERIFY(expected.loaded);
    QCOMPARE(expected.members.size(), 3);
    QCOMPARE(expected.members.at(0).mSize, qint64(FILE_SIZE));
    QCOMPARE(expected.members.at(1).mPos, qint64(LINK_HEADER));
    QCOMPARE(expected.members.at(1).mLinkName, QStringLiteral("firmware/image.bin"));
    QCOMPARE(int(expected.members.at(2).mType), int(CTarFileInfo::TYPE_DIRECTORY));
}

void tst_DamagedArchives::flipped()
{
    const MessageLog log;
    QByteArray found;
    forEachFlippedByte(goldenArchive(), isFirstHeader, [&](const QByteArray& damaged, int at) {
        const QByteArray wrongHere = found.isEmpty() ? wrong(damaged) : QByteArray();
        if (!wrongHere.isEmpty()) {
            found = "byte " + QByteArray::number(at) + " as " + damaged.mid(at, 1).toHex() + ": " + wrongHere;
        }
    });
    QCOMPARE(found, QByteArray());
    QCOMPARE(log.messages(), QStringList());
}

void tst_DamagedArchives::cut()
{
    const QByteArray bytes = goldenArchive();
    for (int length = 0; length < bytes.size(); ++length) {
        const QByteArray wrongHere = wrong(bytes.left(length));
        QVERIFY2(wrongHere.isEmpty(), QByteArray(QByteArray::number(length) + ": " + wrongHere).constData());
    }
}

QTEST_GUILESS_MAIN(tst_DamagedArchives)
#include "tst_DamagedArchives.moc"
