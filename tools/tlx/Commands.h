#ifndef TLX_COMMANDS_H
#define TLX_COMMANDS_H

class CReport;
class QCommandLineParser;

// What the rows of the command table point at: each command lives in a file of its own.
void addDateTimeOptions(QCommandLineParser& parser);
int runDateTime(const QCommandLineParser& parser, CReport& report);
int runDuration(const QCommandLineParser& parser, CReport& report);
void addStreamOptions(QCommandLineParser& parser);
int runStream(const QCommandLineParser& parser, CReport& report);
int runCrc(const QCommandLineParser& parser, CReport& report);
void addNumberOptions(QCommandLineParser& parser);
int runNumber(const QCommandLineParser& parser, CReport& report);
int runValue(const QCommandLineParser& parser, CReport& report);
int runHwid(const QCommandLineParser& parser, CReport& report);
void addMotorOptions(QCommandLineParser& parser);
int runMotor(const QCommandLineParser& parser, CReport& report);
int runIp(const QCommandLineParser& parser, CReport& report);
void addDevicesOptions(QCommandLineParser& parser);
int runDevices(const QCommandLineParser& parser, CReport& report);
int runTar(const QCommandLineParser& parser, CReport& report);
void addTarOptions(QCommandLineParser& parser);
int runTotp(const QCommandLineParser& parser, CReport& report);
void addTotpOptions(QCommandLineParser& parser);
int runBenchTicks(const QCommandLineParser& parser, CReport& report);
void addTreeOptions(QCommandLineParser& parser);
int runTree(const QCommandLineParser& parser, CReport& report);
void addCopyOptions(QCommandLineParser& parser);
int runCopy(const QCommandLineParser& parser, CReport& report);
int runTrash(const QCommandLineParser& parser, CReport& report);
int runEntry(const QCommandLineParser& parser, CReport& report);

void addPathsOptions(QCommandLineParser& parser);
void addStartOptions(QCommandLineParser& parser);

int runCompany(const QCommandLineParser& parser, CReport& report);
int runPaths(const QCommandLineParser& parser, CReport& report);
int runStart(const QCommandLineParser& parser, CReport& report);
int runUnit(const QCommandLineParser& parser, CReport& report);

#endif // TLX_COMMANDS_H
