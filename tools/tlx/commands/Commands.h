#ifndef TLX_COMMANDS_H
#define TLX_COMMANDS_H

#include <tools/tlx/program/Command.h>

// What the rows of the command table point at: each command is in a file of its own.

QList<SOption> startOptions();
int runStart(const QCommandLineParser& parser, Report& report);

QStringList valueWords(int position);
int runValue(const QCommandLineParser& parser, Report& report);

QList<SOption> numberOptions();
int runNumber(const QCommandLineParser& parser, Report& report);

QList<SOption> unitOptions();
QStringList unitWords(int position);
int runUnit(const QCommandLineParser& parser, Report& report);

QList<SOption> dateTimeOptions();
int runDateTime(const QCommandLineParser& parser, Report& report);

QStringList durationWords(int position);
int runDuration(const QCommandLineParser& parser, Report& report);

QList<SOption> streamOptions();
QStringList streamWords(int position);
int runStream(const QCommandLineParser& parser, Report& report);

int runHwid(const QCommandLineParser& parser, Report& report);

QList<SOption> motorOptions();
int runMotor(const QCommandLineParser& parser, Report& report);

int runIp(const QCommandLineParser& parser, Report& report);

QList<SOption> devicesOptions();
QStringList devicesWords(int position);
int runDevices(const QCommandLineParser& parser, Report& report);

QList<SOption> crcOptions();
int runCrc(const QCommandLineParser& parser, Report& report);

int runCompany(const QCommandLineParser& parser, Report& report);

QList<SOption> pathsOptions();
int runPaths(const QCommandLineParser& parser, Report& report);

QList<SOption> tarOptions();
QStringList tarWords(int position);
int runTar(const QCommandLineParser& parser, Report& report);

QList<SOption> totpOptions();
QStringList totpWords(int position);
int runTotp(const QCommandLineParser& parser, Report& report);

int runBenchTicks(const QCommandLineParser& parser, Report& report);

QList<SOption> treeOptions();
int runTree(const QCommandLineParser& parser, Report& report);

QList<SOption> copyOptions();
int runCopy(const QCommandLineParser& parser, Report& report);

int runTrash(const QCommandLineParser& parser, Report& report);

int runEntry(const QCommandLineParser& parser, Report& report);

QStringList helpWords(int position);
int runHelp(const QCommandLineParser& parser, Report& report);

#endif // TLX_COMMANDS_H
