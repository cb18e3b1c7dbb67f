#ifndef TLXCORE_EXPORT_H
#define TLXCORE_EXPORT_H

#include <QtGlobal>

/**
 * @file
 * @brief Export macro of the shared library.
 *
 * TLXCORE_BUILD is defined while the library itself is compiled, TLXCORE_STATIC for a static library and its
 * users; the exported CMake target and tlxCore.pc carry the definition that applies.
 */

/// Marks what the library exports.
#if defined(TLXCORE_STATIC)
#define TLXCORE_EXPORT
#elif defined(TLXCORE_BUILD)
#define TLXCORE_EXPORT Q_DECL_EXPORT
#else
#define TLXCORE_EXPORT Q_DECL_IMPORT
#endif

#endif // TLXCORE_EXPORT_H
