#ifndef TLXTEST_INSTALLEDPROGRAM_H
#define TLXTEST_INSTALLEDPROGRAM_H

#include <QMap>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

/**
 * @brief A test's helper program, copied into an installation tree of its own ("<temporary>/Prog/Tool/bin/") and run
 * from there, so that the directories it asks for lie in that tree and under a home of its own.
 *
 * The helper prints one line an answer: a name, a tabulator, the value in UTF-8.
 */
class InstalledProgram
{
public:
    /// Copies the program, into another folder of the installation if wanted; isValid() says whether that worked.
    explicit InstalledProgram(const QString& program, const QString& folder = QStringLiteral("bin"));

    bool isValid() const { return mIsValid; }

    QString program() const { return mProgram; } ///< The copy.
    QString root() const { return mRoot; }       ///< Temporary directory, ends in "/".
    QString install() const { return mRoot + QLatin1String("Prog/Tool/"); } ///< Installation directory.
    QString home() const { return mRoot + QLatin1String("home"); }          ///< Home of the user who runs it.
    QString appdata() const { return mRoot + QLatin1String("appdata"); }    ///< His APPDATA.

    /// The variables that it runs with, as "NAME=value".
    QStringList environment() const;

    /// Those of this process, with environment() and where the copy finds the library.
    QProcessEnvironment variables() const;

    /// Runs it and gives its answers by name; empty when it fails. `unset` names variables that it must not see.
    QMap<QString, QString> run(const QStringList& arguments = {}, const QStringList& unset = {}) const;

    QByteArray errors() const { return mErrors; } ///< What the last run wrote to the standard error.

    /// Every file and directory below the temporary directory, relative to it, except the copied program.
    QStringList entries() const;

private:
    QTemporaryDir mDirectory;
    QString mRoot;
    QString mOrigin;
    QString mProgram;
    mutable QByteArray mErrors;
    bool mIsValid = false;
};

#endif // TLXTEST_INSTALLEDPROGRAM_H
