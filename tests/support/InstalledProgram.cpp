#include <tests/support/InstalledProgram.h>

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QProcess>

InstalledProgram::InstalledProgram(const QString& program, const QString& folder)
{
    mRoot = QFileInfo(mDirectory.path()).canonicalFilePath() + QLatin1Char('/');
    mOrigin = QDir::toNativeSeparators(QFileInfo(program).absolutePath());
    mProgram = install() + folder + QLatin1Char('/') + QFileInfo(program).fileName();
    mIsValid = mDirectory.isValid() && QDir().mkpath(install() + folder) && QDir().mkpath(home())
               && QFile::copy(program, mProgram);
}

QStringList InstalledProgram::environment() const
{
    // The copy finds the library where the original does: on Windows beside that.
    const QString path = mOrigin + QDir::listSeparator() + QString::fromLocal8Bit(qgetenv("PATH"));
    return {QLatin1String("HOME=") + home(), QLatin1String("USERPROFILE=") + home(),
            QLatin1String("APPDATA=") + appdata(), QLatin1String("PATH=") + path};
}

QProcessEnvironment InstalledProgram::variables() const
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    const QStringList own = environment();
    for (const QString& text : own) {
        variables.insert(text.section(QLatin1Char('='), 0, 0), text.section(QLatin1Char('='), 1));
    }
    return variables;
}

QMap<QString, QString> InstalledProgram::run(const QStringList& arguments, const QStringList& unset) const
{
    QProcess process;
    QProcessEnvironment variables = this->variables();
    for (const QString& name : unset) {
        variables.remove(name);
    }
    process.setProcessEnvironment(variables);
#ifdef Q_OS_WIN
    // A console host may outlive the program and hold its working directory, which then could not be removed.
    process.setWorkingDirectory(QDir::tempPath());
#else
    process.setWorkingDirectory(home());
#endif
    process.start(mProgram, arguments);
    QMap<QString, QString> answers;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0) {
        return answers;
    }
    mErrors = process.readAllStandardError();
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    const QStringList lines = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        const auto tabulator = line.indexOf(QLatin1Char('\t'));
        answers.insert(line.left(tabulator), line.mid(tabulator + 1).remove(QLatin1Char('\r')));
    }
    return answers;
}

QStringList InstalledProgram::entries() const
{
    QStringList found;
    QDirIterator walk(mRoot, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        if (path != mProgram) {
            found << path.mid(mRoot.size());
        }
    }
    found.sort();
    return found;
}
