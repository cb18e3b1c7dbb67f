#include <tests/support/OtherProcess.h>

#include <csignal>
#include <cstdio>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sched.h>
#include <sys/mount.h>
#endif

namespace {

constexpr int IMPOSSIBLE = 77;
constexpr unsigned NOBODY = 65534;

using OtherProcess::EResult;

EResult inCopy(const std::function<bool()>& prepare, const std::function<bool()>& work)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int code = prepare() ? (work() ? 0 : 1) : IMPOSSIBLE;
        _exit(code);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) {
        return EResult::Failed;
    }
    return WEXITSTATUS(status) == 0            ? EResult::Passed
           : WEXITSTATUS(status) == IMPOSSIBLE ? EResult::Impossible
                                               : EResult::Failed;
}

#ifdef __linux__
// Seen by this process alone.
bool ownMount(const char* from, const char* to, const char* type, unsigned long flags, const char* options)
{
    return unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
           && mount(from, to, type, flags, options) == 0;
}
#else
constexpr unsigned long MS_BIND = 0;

bool ownMount(const char*, const char*, const char*, unsigned long, const char*)
{
    return false;
}
#endif

} // namespace

EResult OtherProcess::asOrdinaryUser(const std::function<bool()>& work)
{
    const auto dropRights = [] { return geteuid() != 0 || (setgid(NOBODY) == 0 && setuid(NOBODY) == 0); };
    return inCopy(dropRights, work);
}

EResult OtherProcess::withFileSizeLimit(unsigned long bytes, const std::function<bool()>& work)
{
    const auto limit = [bytes] {
        const rlimit size{bytes, bytes};
        std::signal(SIGXFSZ, SIG_IGN);
        return setrlimit(RLIMIT_FSIZE, &size) == 0;
    };
    return inCopy(limit, work);
}

EResult OtherProcess::inRoot(const char* root, const std::function<bool()>& work)
{
    return inCopy([root] { return chroot(root) == 0 && chdir("/") == 0; }, work);
}

EResult OtherProcess::withSmallDisk(const char* directory, const char* size,
                                    const std::function<bool()>& work)
{
    const std::string options = std::string("size=") + size;
    return inCopy([&] { return ownMount("tmpfs", directory, "tmpfs", 0, options.c_str()); }, work);
}

EResult OtherProcess::withMount(const char* from, const char* to, const std::function<bool()>& work)
{
    return inCopy([from, to] { return ownMount(from, to, nullptr, MS_BIND, nullptr); }, work);
}
