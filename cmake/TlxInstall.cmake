# Install rules: library, headers, tlx, CMake package, pkg-config file.
include(CMakePackageConfigHelpers)

set(TLX_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/tlxCore")

install(TARGETS tlxCore EXPORT tlxCoreTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)

get_property(headers GLOBAL PROPERTY TLX_PUBLIC_HEADERS)
foreach(header IN LISTS headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${PROJECT_SOURCE_DIR}/core/${header}"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/tlxCore/core/${folder}" COMPONENT development)
endforeach()
install(FILES "${PROJECT_BINARY_DIR}/include/core/tlxCoreVersion.h"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/tlxCore/core" COMPONENT development)

if(TARGET tlx)
    install(TARGETS tlx RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
endif()

install(FILES README.md CHANGELOG.md LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT documentation)
# The reference is there once the target `tlxcore_docs` was built.
install(DIRECTORY "${PROJECT_BINARY_DIR}/docs/html" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
    COMPONENT documentation OPTIONAL)
install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT documentation)
install(FILES "${PROJECT_BINARY_DIR}/docs/tlxCore.qch" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
    COMPONENT documentation OPTIONAL)

install(EXPORT tlxCoreTargets NAMESPACE tlxCore:: DESTINATION "${TLX_PACKAGE_DIR}" COMPONENT development)
configure_package_config_file(cmake/tlxCoreConfig.cmake.in "${PROJECT_BINARY_DIR}/tlxCoreConfig.cmake"
    INSTALL_DESTINATION "${TLX_PACKAGE_DIR}" PATH_VARS TLX_TRANSLATIONS_DIR NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/tlxCoreConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/tlxCoreConfig.cmake" "${PROJECT_BINARY_DIR}/tlxCoreConfigVersion.cmake"
    DESTINATION "${TLX_PACKAGE_DIR}" COMPONENT development)

# The prefix in the pkg-config file is relative to the file, so that a moved tree still answers.
file(RELATIVE_PATH TLX_PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" TLX_PC_PREFIX "${TLX_PC_PREFIX}")
if(NOT BUILD_SHARED_LIBS)
    set(TLX_PC_CFLAGS "-DTLXCORE_STATIC")
endif()
configure_file(cmake/tlxCore.pc.in "${PROJECT_BINARY_DIR}/tlxCore.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/tlxCore.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)

install(FILES debugger/tlxcore_gdb.py debugger/tlxCore.natvis DESTINATION "${CMAKE_INSTALL_DATADIR}/tlxCore/debugger"
    COMPONENT development)
