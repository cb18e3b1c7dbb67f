# Toolchain: 32-bit Windows, MinGW-w64 with posix threads, from Linux; see mingw-w64-posix.cmake.

set(TLXCORE_WINDOWS_PROCESSOR i686)
include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64-posix.cmake")
