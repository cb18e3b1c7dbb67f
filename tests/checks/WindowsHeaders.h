#ifndef TLXTEST_WINDOWSHEADERS_H
#define TLXTEST_WINDOWSHEADERS_H

// All that a program may include of Windows, with every macro: public headers compile before and after it.
#if defined(_WIN32)
#undef NOMINMAX
#undef WIN32_LEAN_AND_MEAN
// The order that Windows wants.
#include <winsock2.h>

#include <windows.h>

#include <mmsystem.h>
#else
// Elsewhere the macros of these headers that look most like names of other people.
#define ABSOLUTE 1
#define CALLBACK
#define CONST const
#define CopyFile CopyFileW
#define CreateDirectory CreateDirectoryW
#define DELETE (0x00010000L)
#define DIFFERENCE 11
#define DeleteFile DeleteFileW
#define ERROR 0
#define FAR
#define GetObject GetObjectW
#define IGNORE 0
#define IN
#define INFINITE 0xffffffff
#define MAX_PATH 260
#define MoveFile MoveFileW
#define NEAR
#define NO_DATA 11004
#define NO_ERROR 0L
#define OPAQUE 2
#define OPTIONAL
#define OUT
#define PASCAL
#define RELATIVE 2
#define STRICT 1
#define TIME_BYTES 0x0004
#define TIME_MS 0x0001
#define TRANSPARENT 1
#define VOID void
#define WAIT_TIMEOUT 258
#define cdecl
#define environ _environ
#define far
#define hyper long long
#define interface struct
#define near
#define pascal
#define s_addr S_un.S_addr
#define small char
#define uuid_t UUID
#endif

// Not every compiler's Windows headers define these for C++. The C++ library compiles before them alone.
#ifdef QT_VERSION
#ifndef min
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif
#ifndef max
#define max(a, b) (((a) > (b)) ? (a) : (b))
#endif
#endif

#endif // TLXTEST_WINDOWSHEADERS_H
