# Toolchain: 64-bit Windows, MinGW-w64 with posix threads, from Linux; mingw-w64-posix-32.cmake makes it 32-bit. Programs
# run under Wine through scripts/run-wine.
# Qt for Windows is looked for where scripts/build-qt-windows puts it; TLXCORE_WINDOWS_QT (variable or environment)
# names another folder.

if(NOT DEFINED TLXCORE_WINDOWS_PROCESSOR)
    set(TLXCORE_WINDOWS_PROCESSOR x86_64)
endif()
if(TLXCORE_WINDOWS_PROCESSOR STREQUAL "i686")
    set(_tlx_qt_name qt-5.15-mingw32)
else()
    set(_tlx_qt_name qt-5.15-mingw64)
endif()
set(_tlx_triplet ${TLXCORE_WINDOWS_PROCESSOR}-w64-mingw32)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${TLXCORE_WINDOWS_PROCESSOR})

set(CMAKE_C_COMPILER ${_tlx_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${_tlx_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${_tlx_triplet}-windres)

if(DEFINED TLXCORE_WINDOWS_QT)
    set(_tlx_qt "${TLXCORE_WINDOWS_QT}")
elseif(DEFINED ENV{TLXCORE_WINDOWS_QT})
    set(_tlx_qt "$ENV{TLXCORE_WINDOWS_QT}")
elseif(DEFINED ENV{TLXCORE_CACHE})
    set(_tlx_qt "$ENV{TLXCORE_CACHE}/${_tlx_qt_name}")
elseif(DEFINED ENV{XDG_CACHE_HOME})
    set(_tlx_qt "$ENV{XDG_CACHE_HOME}/tlxcore/${_tlx_qt_name}")
else()
    set(_tlx_qt "$ENV{HOME}/.cache/tlxcore/${_tlx_qt_name}")
endif()

list(APPEND CMAKE_PREFIX_PATH "${_tlx_qt}")
set(CMAKE_FIND_ROOT_PATH /usr/${_tlx_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
# Qt and installed copies of this library lie outside the root, so libraries and packages are looked for on both sides.
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
# The build machine's own packages are for Linux.
set(CMAKE_FIND_USE_CMAKE_SYSTEM_PATH OFF)
set(CMAKE_FIND_USE_SYSTEM_ENVIRONMENT_PATH ON)

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/run-wine")
