#ifndef TLXTEST_OTHERPROCESS_H
#define TLXTEST_OTHERPROCESS_H

#include <functional>

/**
 * What needs a process in a state of its own, run in a copy of this one. `work` returns true when all was as expected;
 * the result is its result. Unix only.
 */
namespace OtherProcess {

enum class EResult
{
    Passed,
    Failed,
    Impossible ///< The state cannot be had here (not root, for one): the test has to skip and say so.
};

/// As a user whom permissions bind: the user himself, or "nobody" when the test runs as root.
EResult asOrdinaryUser(const std::function<bool()>& work);

/// With no file able to grow beyond `bytes`, as on a full disk.
EResult withFileSizeLimit(unsigned long bytes, const std::function<bool()>& work);

/// With `root` as the root directory. Only root may.
EResult inRoot(const char* root, const std::function<bool()>& work);

/// With a file system of `size` bytes ("64k") at a directory. Only root may, and only on Linux.
EResult withSmallDisk(const char* directory, const char* size, const std::function<bool()>& work);

/// With directory `from` visible at directory `to` too. Only root may, and only on Linux.
EResult withMount(const char* from, const char* to, const std::function<bool()>& work);

} // namespace OtherProcess

/// Verifies that the work passed; skips when it was impossible.
#define VERIFY_OTHER_PROCESS(call)                                                                           \
    do {                                                                                                     \
        const OtherProcess::EResult otherResult = call;                                                      \
        if (otherResult == OtherProcess::EResult::Impossible) {                                              \
            QSKIP("this row needs rights that the test does not have here: not tested");                     \
        }                                                                                                    \
        QVERIFY(otherResult == OtherProcess::EResult::Passed);                                               \
    } while (false)

#endif // TLXTEST_OTHERPROCESS_H
