#ifndef TLXFUZZ_TARPEER_H
#define TLXFUZZ_TARPEER_H

#include <core/files/CTar.h>

/// Compares names, kinds, sizes and contents of an archive's members with what libarchive finds in `bytes`; nothing where
/// the fuzzers are built without it, and of what it refuses.
void compareWithPeer(CTar& tar, const QByteArray& bytes);

#endif // TLXFUZZ_TARPEER_H
