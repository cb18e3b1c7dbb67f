#include <tools/tlx/commands/Commands.h>
#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>

#include <core/files/CTar.h>

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr qint64 BLOCK = 512;
constexpr int CHECKSUM_OFFSET = 148;
constexpr int CHECKSUM_WIDTH = 8;

const char* kindName(qint32 type)
{
    switch (type) {
    case CTarFileInfo::TYPE_FILE:
        return "file";
    case CTarFileInfo::TYPE_SYMLINK:
        return "link";
    case CTarFileInfo::TYPE_DIRECTORY:
        return "directory";
    default:
        return "other";
    }
}

qint64 nextHeader(const CTarFileInfo& info)
{
    return info.mPos + BLOCK + (info.mSize + BLOCK - 1) / BLOCK * BLOCK;
}

// The damage stands in the header at which indexing stopped, or where the file ends before it.
void reportDamage(Report& report, const CTar& tar, qint64 fileSize)
{
    const qint64 header = tar.count() == 0 ? 0 : nextHeader(tar.info(tar.count() - 1));
    const QString text =
        tar.error().isEmpty() ? QStringLiteral("the header's size is not an octal number") : tar.error();
    report.setError(text, std::min(header, fileSize));
}

// The archive as `loadFile` took it; an archive that cannot be opened has no damage that has a place.
bool load(const QString& fileName, CTar& tar, Report& report, int* code)
{
    if (tar.loadFile(fileName)) {
        *code = EXIT_DONE;
        return true;
    }
    *code = EXIT_INVALID;
    const QFileInfo file(fileName);
    if (!file.isFile() || !file.isReadable()) {
        report.setError(QStringLiteral("%1: %2").arg(fileName, tar.error()));
        return false;
    }
    reportDamage(report, tar, file.size());
    return true;
}

QStringList memberRow(const CTarFileInfo& info, int index)
{
    return {QString::number(index),
            QLatin1String(kindName(info.mType)),
            QString::number(info.mSize),
            QString::number(info.mPos),
            info.mName,
            info.mLinkName};
}

int list(const QString& fileName, Report& report)
{
    CTar tar;
    int code = EXIT_DONE;
    if (load(fileName, tar, report, &code)) {
        QList<QStringList> rows;
        for (int i = 0; i < tar.count(); ++i) {
            rows << memberRow(tar.info(i), i);
        }
        report.addTable(QStringLiteral("members"),
                        {QStringLiteral("index"), QStringLiteral("kind"), QStringLiteral("size"),
                         QStringLiteral("position"), QStringLiteral("name"), QStringLiteral("linkName")},
                        rows);
    }
    return code;
}

int cat(const QString& fileName, const QString& member, const QCommandLineParser& parser, Report& report)
{
    CTar tar;
    int code = EXIT_DONE;
    if (!load(fileName, tar, report, &code)) {
        return code;
    }
    bool isNumber = true;
    const bool byIndex = parser.isSet(QStringLiteral("index"));
    const int index = byIndex ? member.toInt(&isNumber) : tar.index(member);
    if (!isNumber) {
        return wrongUsage(report, QStringLiteral("not an index: %1").arg(member));
    }
    QByteArray data;
    if (index < 0 && !byIndex) {
        report.setError(QStringLiteral("no such member: %1").arg(member));
        return EXIT_INVALID;
    }
    if (!tar.file(index, data)) {
        const bool isMember = tar.info(index) != CTarFileInfo();
        report.setError(tar.error(), isMember ? tar.info(index).mPos + BLOCK : -1);
        return EXIT_INVALID;
    }
    if (parser.isSet(QStringLiteral("json"))) {
        report.add(QStringLiteral("base64"), QString(), QString::fromLatin1(data.toBase64()));
    } else {
        printBytes(stdout, data);
    }
    return code;
}

// POSIX: the sum of the header's bytes, with blanks in place of the checksum itself.
bool isChecksumRight(QFile& file, const CTarFileInfo& info)
{
    if (!file.seek(info.mPos)) {
        return false;
    }
    QByteArray header = file.read(BLOCK);
    const QByteArray field = header.mid(CHECKSUM_OFFSET, CHECKSUM_WIDTH);
    header.replace(CHECKSUM_OFFSET, CHECKSUM_WIDTH, QByteArray(CHECKSUM_WIDTH, ' '));
    quint32 sum = 0;
    for (const char byte : qAsConst(header)) {
        sum += static_cast<uchar>(byte);
    }
    bool ok = false;
    return QString::fromLatin1(field.constData(), qstrnlen(field.constData(), CHECKSUM_WIDTH)).toUInt(&ok, 8)
               == sum
           && ok;
}

// What CTar reads without complaint, but a person may want to know.
QStringList warnings(const CTar& tar, QFile& file)
{
    QStringList texts;
    for (int i = 0; i < tar.count(); ++i) {
        const CTarFileInfo info = tar.info(i);
        const QString where = QStringLiteral("member %1 at byte %2: ").arg(i).arg(info.mPos);
        if (!isChecksumRight(file, info)) {
            texts << where + QStringLiteral("wrong checksum");
        }
        if (!info.isValid()) {
            texts << where + QStringLiteral("a kind that is not supported");
        }
        if (tar.index(info.mName) != i) {
            texts << where + QStringLiteral("a name that another member has");
        }
    }
    return texts;
}

int check(const QString& fileName, Report& report)
{
    CTar tar;
    int code = EXIT_DONE;
    if (!load(fileName, tar, report, &code)) {
        return code;
    }
    int kinds[] = {0, 0, 0, 0};
    qint64 bytes = 0;
    for (int i = 0; i < tar.count(); ++i) {
        ++kinds[tar.info(i).mType];
        bytes += tar.info(i).mSize;
    }
    QFile file(fileName);
    file.open(QIODevice::ReadOnly);
    const QStringList texts = warnings(tar, file);
    report.add(QStringLiteral("members"), QStringLiteral("Members"), tar.count());
    report.add(QStringLiteral("files"), QStringLiteral("Regular files"), kinds[CTarFileInfo::TYPE_FILE]);
    report.add(QStringLiteral("links"), QStringLiteral("Symbolic links"), kinds[CTarFileInfo::TYPE_SYMLINK]);
    report.add(QStringLiteral("directories"), QStringLiteral("Directories"),
               kinds[CTarFileInfo::TYPE_DIRECTORY]);
    report.add(QStringLiteral("others"), QStringLiteral("Other kinds"), kinds[CTarFileInfo::TYPE_INVALID]);
    report.add(QStringLiteral("bytes"), QStringLiteral("Bytes in members"), QString::number(bytes));
    report.add(QStringLiteral("warnings"), QStringLiteral("Warnings"), QJsonArray::fromStringList(texts));
    return code;
}

} // namespace

void addTarOptions(QCommandLineParser& parser)
{
    parser.addOption(
        {QStringLiteral("index"), QStringLiteral("cat: MEMBER is an index from `list`, not a name.")});
}

int runTar(const QCommandLineParser& parser, Report& report)
{
    const QStringList arguments = parser.positionalArguments();
    const QString task = arguments.value(0);
    const QString fileName = arguments.value(1);
    if (task == QLatin1String("list") && arguments.size() == 2) {
        return list(fileName, report);
    }
    if (task == QLatin1String("check") && arguments.size() == 2) {
        return check(fileName, report);
    }
    if (task == QLatin1String("cat") && arguments.size() == 3) {
        return cat(fileName, arguments.at(2), parser, report);
    }
    return wrongUsage(report, QStringLiteral("list FILE, check FILE or cat FILE MEMBER is expected"));
}
