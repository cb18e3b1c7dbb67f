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
#define DELETE (0x00010000L)
#define ERROR 0
#define IN
#define NO_ERROR 0L
#define OPTIONAL
#define OUT
#define TIME_BYTES 0x0004
#define TIME_MS 0x0001
#define far
#define interface struct
#define near
#define small char
#endif

// Not every compiler's Windows headers define these for C++.
#ifndef min
#define min(a, b) (((a) < (b)) ? (a) : (b))
#endif
#ifndef max
#define max(a, b) (((a) > (b)) ? (a) : (b))
#endif

#endif // TLXTEST_WINDOWSHEADERS_H
