#ifndef TLXFUZZ_CHECK_H
#define TLXFUZZ_CHECK_H

#include <cstdio>
#include <cstdlib>

/// Ends the program with the condition's text when it does not hold, which libFuzzer keeps as a finding.
#define FUZZ_CHECK(condition)                                                                                \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition);              \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)

#endif // TLXFUZZ_CHECK_H
