#include <tools/tlx/commands/Directories.h>
#include <tools/tlx/commands/UntouchedDirectories.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

UntouchedDirectories::UntouchedDirectories()
{
    for (const SDirectory& directory : DIRECTORIES) {
        QString path = QDir::cleanPath(directory.path(false));
        while (!QFileInfo::exists(path) && !mMissing.contains(path)) {
            mMissing << path;
            path = QFileInfo(path).path();
        }
    }
    const auto isDeeper = [](const QString& a, const QString& b) { return a.size() > b.size(); };
    std::sort(mMissing.begin(), mMissing.end(), isDeeper);
}

UntouchedDirectories::~UntouchedDirectories()
{
    for (const QString& path : qAsConst(mMissing)) {
        QDir().rmdir(path);
    }
}
