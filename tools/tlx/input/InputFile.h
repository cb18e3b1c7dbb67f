#ifndef TLX_INPUTFILE_H
#define TLX_INPUTFILE_H

#include <QFile>
#include <QString>
#include <QTemporaryFile>

#include <memory>

class Report;

/**
 * @brief A file that a command reads, or standard input where its name is "-".
 *
 * What cannot be read is said in the report with the system's reason: "NAME: Permission denied".
 */
class InputFile
{
public:
    /// Opens the file where bytes are read from front to end.
    bool openSequential(const QString& name, Report& report);

    /// Opens it where any byte is read at any time; standard input is copied into a temporary file first.
    bool openRandom(const QString& name, Report& report);

    QIODevice& device() { return *mDevice; }

    /// Reads up to `size` bytes; 0 at the end, negative after a failure.
    qint64 read(char* data, qint64 size);

    /// The file's own path, after openRandom(): of standard input that of the copy.
    QString path() const { return mPath; }

private:
    bool copyStandardInput(Report& report);

    QFile mFile;
    QTemporaryFile mCopy;
    QIODevice* mDevice = nullptr;
    QString mPath;
};

/// True when the name is that of standard input.
bool isStandardInput(const QString& name);

/// Why a file cannot be read, in the system's words; empty when it can. A directory cannot.
QString readingFault(const QString& path);

/// Why no file can be made in the place of `path`, in the system's words.
QString writingFault(const QString& path);

/// Says in the report that a file cannot be used: "NAME: reason".
int fileFault(Report& report, const QString& name, const QString& reason);

#endif // TLX_INPUTFILE_H
