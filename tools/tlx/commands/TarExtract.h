#ifndef TLX_TAREXTRACT_H
#define TLX_TAREXTRACT_H

class OpenArchive;
class QCommandLineParser;
class Report;

/// `tar extract`: makes the members that the command line names, or all, below a folder.
int extractMembers(OpenArchive& archive, const QCommandLineParser& parser, Report& report);

#endif // TLX_TAREXTRACT_H
