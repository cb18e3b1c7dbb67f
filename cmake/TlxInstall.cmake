# Install rules: library, headers, tlx, CMake package, pkg-config file. ${TLX_NAME} is in the name of everything that a
# program is built with or runs with, so that the builds with both Qt can be installed below one prefix.
include(CMakePackageConfigHelpers)

list(JOIN TLX_QT_MODULES " " TLX_QT_COMPONENTS)
set(TLX_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/${TLX_NAME}")

install(TARGETS tlxCore EXPORT ${TLX_NAME}Targets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)

get_property(headers GLOBAL PROPERTY TLX_PUBLIC_HEADERS)
foreach(header IN LISTS headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "${PROJECT_SOURCE_DIR}/core/${header}"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${TLX_NAME}/core/${folder}" COMPONENT development)
endforeach()
install(FILES "${PROJECT_BINARY_DIR}/include/core/tlxCoreVersion.h"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${TLX_NAME}/core" COMPONENT development)

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

install(EXPORT ${TLX_NAME}Targets NAMESPACE ${TLX_NAME}:: DESTINATION "${TLX_PACKAGE_DIR}" COMPONENT development)
configure_package_config_file(cmake/Config.cmake.in "${PROJECT_BINARY_DIR}/${TLX_NAME}Config.cmake"
    INSTALL_DESTINATION "${TLX_PACKAGE_DIR}" PATH_VARS TLX_TRANSLATIONS_DIR NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/${TLX_NAME}ConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/${TLX_NAME}Config.cmake"
    "${PROJECT_BINARY_DIR}/${TLX_NAME}ConfigVersion.cmake" DESTINATION "${TLX_PACKAGE_DIR}" COMPONENT development)

# The prefix in the pkg-config file is relative to the file, so that a moved tree still answers.
file(RELATIVE_PATH TLX_PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" TLX_PC_PREFIX "${TLX_PC_PREFIX}")
if(NOT BUILD_SHARED_LIBS)
    set(TLX_PC_CFLAGS "-DTLXCORE_STATIC")
endif()
list(TRANSFORM TLX_QT_MODULES REPLACE "(.+)" "${TLX_QT}\\1 >= ${TLX_QT_MINIMUM}" OUTPUT_VARIABLE TLX_PC_REQUIRES)
list(JOIN TLX_PC_REQUIRES " " TLX_PC_REQUIRES)
configure_file(cmake/pkgconfig.pc.in "${PROJECT_BINARY_DIR}/${TLX_NAME}.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/${TLX_NAME}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development)

install(FILES debugger/tlxcore_gdb.py debugger/tlxCore.natvis DESTINATION "${CMAKE_INSTALL_DATADIR}/${TLX_NAME}/debugger"
    COMPONENT development)
