#ifndef TLXCORE_CPATH_H
#define TLXCORE_CPATH_H

#include <core/tlxCoreExport.h>

#include <QString>

/**
 * @brief Where the files of a tool lie, and helpers that join and tidy paths.
 *
 * The files are in three trees: the installation (programs, read-only configuration, texts, images, documents), the
 * user's application data (configuration, logs) and the user's documents (motor and parameter files, data, projects).
 * The user's trees of different tools differ in productName(), the name of the installation directory.
 *
 * Every directory is returned as an absolute path that ends in "/", so a file name can be appended. No function reports
 * a failure. A function that takes `create` creates the missing directory if it is true, see createDirIfWanted();
 * otherwise it does not access the disk.
 *
 * A "separator" is "/" or the platform's own QDir::separator(). A name that begins with ":" is a file name like any
 * other; only a path that begins with ":/" is a Qt resource.
 *
 * The constants can be used by static objects of a program.
 *
 * @code
 * QFile file(CPath::configPath(true) + QStringLiteral("view.ini"));
 * @endcode
 *
 * Any thread may call these functions, see \ref threads.
 * @see \ref files_guide
 * @since 1.0
 */
class TLXCORE_EXPORT CPath
{
public:
    static const QString CPATH_BIN;     ///< "bin/": programs and libraries.
    static const QString CPATH_LIB;     ///< "lib/": unused; libraries are beside the programs.
    static const QString CPATH_ETC;     ///< "etc/"
    static const QString CPATH_TXT;     ///< "etc/txt/"
    static const QString CPATH_IMG;     ///< "etc/image/"
    static const QString CPATH_DOC;     ///< "etc/doc/"
    static const QString CPATH_CCONF;   ///< "etc/conf/": read-only configuration.
    static const QString CPATH_CDATA;   ///< "etc/data/": read-only data.
    static const QString CPATH_CONF;    ///< "conf/": the user's configuration.
    static const QString CPATH_LOG;     ///< "log/"
    static const QString CPATH_MOT;     ///< "motor/"
    static const QString CPATH_PAR;     ///< "param/"
    static const QString CPATH_DAT;     ///< "data/"
    static const QString CPATH_PRJ;     ///< "project/"
    static const QString CPATH_PLUGINS; ///< "plugins/": for callers.
    static const QString CPATH_COMPANY; ///< "TARVENIK/": parts the maker's files from those of others.

    CPath() = default;

    /// Returns the installation: the parent of the directory that contains the running executable. Before there is an
    /// application object, Qt warns and the parent of the current directory serves.
    static QString installPath();

    /// Returns the name of the installation directory, which is the product's name; empty if that directory is a root.
    static QString productName();

    /**
     * @brief Returns the user's application data: "<APPDATA>/TARVENIK/<product>/".
     *
     * The environment variable APPDATA is taken unchanged, as local 8-bit text. When it is not set, the path
     * begins with "/".
     */
    static QString appdataPath();

    /**
     * @brief Returns the user's documents: "<documents>/TARVENIK/<product>/".
     *
     * On Windows the shell names the documents folder (SHGetFolderPathA, at most 259 characters of the system's code
     * page). The home directory is used if the shell returns none, if the folder's name has letters outside that code
     * page, and on other systems.
     */
    static QString userdataPath();

    static QString binPath(bool create);   ///< "bin/" of the installation.
    static QString libPath(bool create);   ///< The same as binPath(): libraries are beside the programs.
    static QString etcPath(bool create);   ///< "etc/" of the installation.
    static QString txtPath(bool create);   ///< "etc/txt/" of the installation.
    static QString imagePath(bool create); ///< "etc/image/" of the installation.
    static QString docPath(bool create);   ///< "etc/doc/" of the installation.
    static QString constConfigPath(bool create); ///< "etc/conf/" of the installation.
    static QString constDataPath(bool create);   ///< "etc/data/" of the installation.
    static QString configPath(bool create);      ///< "conf/" of the user's application data.
    static QString logPath(bool create);         ///< "log/" of the user's application data.
    static QString motorPath(bool create);       ///< "motor/" of the user's documents.
    static QString paramPath(bool create);       ///< "param/" of the user's documents.
    static QString dataPath(bool create);        ///< "data/" of the user's documents.
    static QString projectPath(bool create);     ///< "project/" of the user's documents.

    /**
     * @brief Returns `path` unchanged; creates the missing directory and its parents if `create` is true.
     *
     * A new directory gets the permissions rwxrwxr-x, whatever the process's mask. Its parents, and whatever existed
     * before (also a file in the way), are not changed. Several programs may create one directory at once.
     * Failures are silent.
     */
    static QString createDirIfWanted(const QString& path, bool create);

    /// Returns true if the name contains a separator.
    static bool doesFilenameContainPath(const QString& name);

    /**
     * @brief Makes a bare file name absolute, in the directory that contains `path`.
     *
     * "C:/a/b/" and "C:/a/b/x.txt" both mean "C:/a/b". A name that is empty or contains a separator stays as it is.
     */
    static QString prependPathIfNoPathIsGiven(const QString& fileName, const QString& path);

    /// Returns the bare file name if its directory is `path` (as QDir compares directories), else `fileName` unchanged.
    static QString trimPathIfPathIsEqual(const QString& fileName, const QString& path);

    /// Returns the absolute directory that contains `name`, without a separator at the end; empty for an empty name.
    static QString filePath(const QString& name);

    /// Appends "/" unless the text ends in a separator; an empty text becomes "/".
    static QString ensurePathSeparatorAtEnd(QString s);

    /// Inserts "/" at the front unless the text begins with a separator; an empty text becomes "/".
    static QString ensurePathSeparatorAtStart(const QString& s);

    /// Removes one separator at the front.
    static QString removePathSeparatorAtStart(const QString& s);

    /// Removes one separator at the end: "a//" becomes "a/".
    static QString removePathSeparatorAtEnd(const QString& s);

    /// Joins two directories; the result ends in a separator.
    static QString addPathToPath(const QString& path, const QString& subPath);

    /// Joins a directory and a file name; nothing is appended.
    static QString addFileNameToPath(const QString& path, const QString& fileName);

    /**
     * @brief Removes characters that file systems reject from a file name. The result is always absolute.
     *
     * White space of the name is simplified first, then the characters < > : ! ? | and " are removed. "*" and "\"
     * stay. The directory part is not cleaned. A bare name is in the current directory.
     */
    static QString cleanFileName(const QString& fileName);
};

#endif // TLXCORE_CPATH_H
