// Linked into the programs that run under QEMU's user emulation. Qt starts processes with a file descriptor for the new
// process where the kernel offers that (waitid with P_PIDFD). QEMU 7.2 passes the question on but makes no such
// descriptor, so that exit codes were random. Here the question is answered with no, and Qt does without.

#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdarg.h>
#include <sys/syscall.h>

enum { ARGUMENTS = 6, P_PIDFD_NUMBER = 3 };

long syscall(long number, ...)
{
    static long (*next)(long, ...);
    long arguments[ARGUMENTS];
    va_list list;
    va_start(list, number);
    for (int i = 0; i < ARGUMENTS; ++i) {
        arguments[i] = va_arg(list, long);
    }
    va_end(list);
    if (number == SYS_waitid && arguments[0] == P_PIDFD_NUMBER) {
        errno = EINVAL;
        return -1;
    }
    if (!next) {
        next = (long (*)(long, ...))dlsym(RTLD_NEXT, "syscall");
    }
    return next(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], arguments[5]);
}
