#ifndef TLX_UNTOUCHEDDIRECTORIES_H
#define TLX_UNTOUCHEDDIRECTORIES_H

#include <QStringList>

/**
 * @brief Removes the directories that the library makes while it answers questions, so that looking leaves nothing.
 *
 * Only directories that CPath names and that were missing at first, with their missing parents, and only while they are
 * empty.
 */
class UntouchedDirectories
{
public:
    UntouchedDirectories();
    ~UntouchedDirectories();
    UntouchedDirectories(const UntouchedDirectories&) = delete;
    UntouchedDirectories& operator=(const UntouchedDirectories&) = delete;

private:
    QStringList mMissing; // the deepest first
};

#endif // TLX_UNTOUCHEDDIRECTORIES_H
