#ifndef TLX_COMMANDS_H
#define TLX_COMMANDS_H

class Report;
class QCommandLineParser;

// What the rows of the command table point at: each command lives in a file of its own.
void addDateTimeOptions(QCommandLineParser& parser);
int runDateTime(const QCommandLineParser& parser, Report& report);
int runDuration(const QCommandLineParser& parser, Report& report);
void addStreamOptions(QCommandLineParser& parser);
int runStream(const QCommandLineParser& parser, Report& report);
int runCrc(const QCommandLineParser& parser, Report& report);
void addNumberOptions(QCommandLineParser& parser);
int runNumber(const QCommandLineParser& parser, Report& report);
int runValue(const QCommandLineParser& parser, Report& report);
int runHwid(const QCommandLineParser& parser, Report& report);
void addMotorOptions(QCommandLineParser& parser);
int runMotor(const QCommandLineParser& parser, Report& report);
int runIp(const QCommandLineParser& parser, Report& report);
void addDevicesOptions(QCommandLineParser& parser);
int runDevices(const QCommandLineParser& parser, Report& report);
int runTar(const QCommandLineParser& parser, Report& report);
void addTarOptions(QCommandLineParser& parser);
int runTotp(const QCommandLineParser& parser, Report& report);
void addTotpOptions(QCommandLineParser& parser);
int runBenchTicks(const QCommandLineParser& parser, Report& report);
void addTreeOptions(QCommandLineParser& parser);
int runTree(const QCommandLineParser& parser, Report& report);
void addCopyOptions(QCommandLineParser& parser);
int runCopy(const QCommandLineParser& parser, Report& report);
int runTrash(const QCommandLineParser& parser, Report& report);
int runEntry(const QCommandLineParser& parser, Report& report);

void addPathsOptions(QCommandLineParser& parser);
void addStartOptions(QCommandLineParser& parser);

int runCompany(const QCommandLineParser& parser, Report& report);
int runPaths(const QCommandLineParser& parser, Report& report);
int runStart(const QCommandLineParser& parser, Report& report);
int runUnit(const QCommandLineParser& parser, Report& report);

#endif // TLX_COMMANDS_H
