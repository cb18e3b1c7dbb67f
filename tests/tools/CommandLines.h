#ifndef TLXTEST_COMMANDLINES_H
#define TLXTEST_COMMANDLINES_H

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QTemporaryDir>

/// Files for the example command lines: "a.tar", "a.devices", "b.devices", "a.variants", "b.variants", "a.txt", "a.sums",
/// "a.json", "d/" with a file, "key".
class ExampleFiles
{
public:
    ExampleFiles();

    QString directory() const { return mDirectory.path(); }

    /// Every entry below the directory with its size, sorted.
    QStringList entries() const;

private:
    void write(const QString& name, const QByteArray& bytes);

    QTemporaryDir mDirectory;
};

/// A command line of each command and task that only shows something; all of them succeed where the example files are.
QList<QStringList> showingCommandLines();

#endif // TLXTEST_COMMANDLINES_H
