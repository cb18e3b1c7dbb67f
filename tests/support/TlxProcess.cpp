#include <tests/support/TlxProcess.h>

#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>

// Found before a test changes the current directory, and with it the drive that Windows looks at.
static const QString PROGRAM = QFileInfo(QStringLiteral(TLX_PROGRAM)).absoluteFilePath();

QJsonObject STlxRun::json() const
{
    return QJsonDocument::fromJson(output).object();
}

QString tlxProgram()
{
    return PROGRAM;
}

STlxRun runTlx(const QStringList& arguments, const QStringList& environment, const QString& program,
               const QByteArray& input)
{
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const QString& text : environment) {
        variables.insert(text.section(QLatin1Char('='), 0, 0), text.section(QLatin1Char('='), 1));
    }
    process.setProcessEnvironment(variables);
    process.start(program.isEmpty() ? tlxProgram() : program, arguments);
    process.write(input);
    process.closeWriteChannel();
    STlxRun run;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit) {
        run.exitCode = process.exitCode();
    }
    run.output = process.readAllStandardOutput();
    run.errorOutput = process.readAllStandardError();
    return run;
}
