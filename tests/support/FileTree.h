#ifndef TLXTEST_FILETREE_H
#define TLXTEST_FILETREE_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A QString of a UTF-8 literal.
inline QString operator""_text(const char* utf8, std::size_t size)
{
    return QString::fromUtf8(utf8, static_cast<int>(size));
}

/**
 * @brief Files, directories and links below a temporary directory, made from short texts and read back as such.
 *
 * "a/b/" is a directory, "a/b=text" a file with its content, "a/b->target" a symbolic link. Missing parents are made.
 */
class FileTree
{
public:
    explicit FileTree(const QStringList& entries = {});

    /// Makes further entries; false when one cannot be made.
    bool make(const QStringList& entries) const;

    /// The absolute, canonical path of an entry.
    QString path(const QString& relative = {}) const;

    /// Every entry in the form above, sorted; hidden entries and links to nothing too. A pipe or device is "a|".
    QStringList entries(const QString& below = {}) const;

    /// The bytes of a file; null when it cannot be read.
    QByteArray read(const QString& relative) const;

private:
    bool makeOne(const QString& entry) const;

    QTemporaryDir mDirectory;
    QString mRoot;
};

/// Changes the current directory while it lives.
class InDirectory
{
public:
    explicit InDirectory(const QString& path);
    ~InDirectory();
    InDirectory(const InDirectory&) = delete;
    InDirectory& operator=(const InDirectory&) = delete;

private:
    QString mPrevious;
};

/// Sets (or, with a null value, unsets) an environment variable while it lives.
class WithVariable
{
public:
    WithVariable(const char* name, const QString& value);
    ~WithVariable();
    WithVariable(const WithVariable&) = delete;
    WithVariable& operator=(const WithVariable&) = delete;

private:
    const char* mName;
    QByteArray mPrevious;
};

#endif // TLXTEST_FILETREE_H
