#ifndef TLX_DIRECTORIES_H
#define TLX_DIRECTORIES_H

#include <core/files/CPath.h>

/// A directory of the installation or the user that CPath names, and makes when it is asked to.
struct SDirectory
{
    const char* name;
    QString (*path)(bool create);
};

inline const SDirectory DIRECTORIES[] = {
    {"bin", CPath::binPath},
    {"lib", CPath::libPath},
    {"etc", CPath::etcPath},
    {"txt", CPath::txtPath},
    {"image", CPath::imagePath},
    {"doc", CPath::docPath},
    {"constConfig", CPath::constConfigPath},
    {"constData", CPath::constDataPath},
    {"config", CPath::configPath},
    {"log", CPath::logPath},
    {"motor", CPath::motorPath},
    {"param", CPath::paramPath},
    {"data", CPath::dataPath},
    {"project", CPath::projectPath},
};

#endif // TLX_DIRECTORIES_H
