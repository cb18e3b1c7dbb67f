#include <tools/tlx/input/InputFile.h>

#include <tools/tlx/program/Command.h>
#include <tools/tlx/report/Report.h>
#include <tools/tlx/terminal/Output.h>

#include <QFileInfo>

#include <cstdio>

namespace {

constexpr qint64 PIECE = 1 << 20;

QString openFault(QFile& file)
{
    if (QFileInfo(file.fileName()).isDir()) {
        return QStringLiteral("Is a directory");
    }
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}

} // namespace

bool isStandardInput(const QString& name)
{
    return name == QLatin1String("-");
}

QString readingFault(const QString& path)
{
    QFile file(path);
    return openFault(file);
}

QString writingFault(const QString& path)
{
    if (QFileInfo(path).isDir()) {
        return QStringLiteral("Is a directory");
    }
    QTemporaryFile trial(QFileInfo(path).path() + QStringLiteral("/tlxXXXXXX"));
    return trial.open() ? QStringLiteral("the copy failed") : trial.errorString();
}

int fileFault(Report& report, const QString& name, const QString& reason)
{
    return invalid(report, QStringLiteral("%1: ").arg(name) + reason);
}

bool InputFile::openSequential(const QString& name, Report& report)
{
    mPath = name;
    mDevice = &mFile;
    if (isStandardInput(name)) {
        makeBinary(stdin);
        return mFile.open(stdin, QIODevice::ReadOnly);
    }
    mFile.setFileName(name);
    const QString fault = openFault(mFile);
    if (!fault.isEmpty()) {
        fileFault(report, name, fault);
    }
    return fault.isEmpty();
}

bool InputFile::openRandom(const QString& name, Report& report)
{
    if (!openSequential(name, report)) {
        return false;
    }
    if (isStandardInput(name)) {
        return copyStandardInput(report);
    }
    if (mFile.isSequential()) {
        fileFault(report, name, QStringLiteral("a pipe or a device, not a file: pass its content as \"-\""));
        return false;
    }
    return true;
}

// On Windows Qt calls the end of standard input a failure.
qint64 InputFile::read(char* data, qint64 size)
{
    const qint64 length = mDevice->read(data, size);
    const bool isEnd =
        length < 0 && isStandardInput(mPath) && std::feof(stdin) != 0 && std::ferror(stdin) == 0;
    return isEnd ? 0 : length;
}

bool InputFile::copyStandardInput(Report& report)
{
    QByteArray piece(static_cast<int>(PIECE), Qt::Uninitialized);
    bool isCopied = mCopy.open();
    qint64 length = 0;
    while (isCopied && (length = read(piece.data(), PIECE)) > 0) {
        isCopied = mCopy.write(piece.constData(), length) == length;
    }
    if (!isCopied || length < 0 || !mCopy.flush()) {
        fileFault(report, QStringLiteral("standard input"),
                  length < 0 ? mFile.errorString() : mCopy.errorString());
        return false;
    }
    mCopy.seek(0);
    mDevice = &mCopy;
    mPath = mCopy.fileName();
    return true;
}
