#ifndef TLXCORE_STATICOBJECTS_H
#define TLXCORE_STATICOBJECTS_H

/**
 * @file
 * Static objects that the static objects of a program may already use.
 *
 * Next to a shared library the order is given: the library is loaded and initialised first. In a program that links
 * the static library, the order between source files is the linker's; there, such objects are built before everything
 * that does not ask for a place.
 */

// After the name in the definition of an object. Objects of one source file keep their order.
#if defined(__GNUC__) && !defined(__APPLE__)
#define TLX_INIT_EARLY __attribute__((init_priority(1000)))
#else
#define TLX_INIT_EARLY
#endif
// MSVC knows one place a source file: every object of a file that includes this header is built early.
#if defined(_MSC_VER) && !defined(__clang__)
#pragma warning(disable : 4073)
#pragma init_seg(lib)
#endif

#endif // TLXCORE_STATICOBJECTS_H
