# Toolchain: Linux on another processor, from Debian. scripts/test-processor sets the variables of the environment:
# TLXCORE_TRIPLET names the compiler, TLXCORE_SYSROOT the folder that scripts/build-sysroot made, TLXCORE_EXTRA_OBJECT an
# object file that every program is linked with, if any.

set(CMAKE_SYSTEM_NAME Linux)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR "$ENV{TLXCORE_TRIPLET}")

set(CMAKE_C_COMPILER "$ENV{TLXCORE_TRIPLET}-gcc")
set(CMAKE_CXX_COMPILER "$ENV{TLXCORE_TRIPLET}-g++")
set(CMAKE_SYSROOT "$ENV{TLXCORE_SYSROOT}")

# i686-linux-gnu's libraries lie in lib/i386-linux-gnu.
string(REGEX REPLACE "^i.86" "i386" CMAKE_LIBRARY_ARCHITECTURE "$ENV{TLXCORE_TRIPLET}")
set(_libraries lib/${CMAKE_LIBRARY_ARCHITECTURE} usr/lib/${CMAKE_LIBRARY_ARCHITECTURE})
list(TRANSFORM _libraries PREPEND "${CMAKE_SYSROOT}/")

# Programs are started as they are: they name the loader of the folder, and it finds all libraries there.
# DT_RPATH, unlike DT_RUNPATH, holds for the libraries that a library needs, too.
file(GLOB _loader "${CMAKE_SYSROOT}/lib/ld-linux*.so.*" "${CMAKE_SYSROOT}/lib/ld64.so.*")
list(GET _loader 0 _loader)
list(JOIN _libraries ":" _path)
set(CMAKE_EXE_LINKER_FLAGS_INIT "$ENV{TLXCORE_EXTRA_OBJECT} -Wl,--disable-new-dtags,-rpath,${_path},--dynamic-linker,${_loader}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-Wl,--disable-new-dtags,-rpath,${_path}")
foreach(_folder IN LISTS _libraries)
    string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -Wl,-rpath-link,${_folder}")
    string(APPEND CMAKE_SHARED_LINKER_FLAGS_INIT " -Wl,-rpath-link,${_folder}")
endforeach()

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
