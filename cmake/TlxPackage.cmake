# CPack: Debian packages by component, and archives. scripts/package builds and checks them all.
set(CPACK_PACKAGE_NAME "tlxcore")
set(CPACK_PACKAGE_VENDOR "tlxCore")
set(CPACK_PACKAGE_CONTACT "tlxCore maintainers <maintainers@tlxcore.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME "tlxcore-${PROJECT_VERSION}-source")
set(CPACK_SOURCE_IGNORE_FILES "/build/" "/\\.git/" "/\\.cache/" "__pycache__")

if(WIN32)
    # One folder for a MinGW project: everything together.
    set(CPACK_GENERATOR ZIP)
    set(CPACK_MONOLITHIC_INSTALL ON)
    set(CPACK_PACKAGE_FILE_NAME "tlxCore-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR}")
else()
    set(CPACK_GENERATOR DEB TGZ)
    set(CPACK_COMPONENTS_ALL runtime development tools documentation)
endif()

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/core")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "libtlxcore${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/debian/triggers")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "core library of the drive controllers' tools\n\
 Typed values, numbers and text, durations, object units, device lists,\n\
 directories, archives, settings and one-time codes.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME "libtlxcore-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "libtlxcore${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "core library of the drive controllers' tools - development\n\
 Headers, the CMake package and the pkg-config file of the library.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME "tlxcore-tools")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "libtlxcore${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "core library of the drive controllers' tools - tlx\n\
 The command-line program that shows what the library does with values,\n\
 files and directories.")

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME "tlxcore-doc")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_DOCUMENTATION_DESCRIPTION "core library of the drive controllers' tools - reference\n\
 The reference made from the headers, the pages of the subsystems and\n\
 the Qt help file.")

include(CPack)
