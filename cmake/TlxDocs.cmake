# The target `tlxcore_docs`: the reference from the public headers and docs/, with an architecture drawing made from the code's
# includes, and the same as a Qt help file where qhelpgenerator is there. Every warning of Doxygen is an error.
find_package(Doxygen QUIET)
find_package(Python3 QUIET COMPONENTS Interpreter)
find_program(DOT dot)
# A style for narrow and dark screens; without it the pages have Doxygen's own.
find_path(DOXYGEN_AWESOME doxygen-awesome.css PATHS /usr/share/doxygen-awesome-css)
find_program(QHELPGENERATOR qhelpgenerator PATHS /usr/lib/qt5/bin)

if(DOXYGEN_FOUND AND Python3_FOUND AND DOT)
    get_property(headers GLOBAL PROPERTY TLX_PUBLIC_HEADERS)
    list(TRANSFORM headers PREPEND "core/")
    list(APPEND headers "\"${PROJECT_BINARY_DIR}/include/core/tlxCoreVersion.h\"")
    list(JOIN headers " " TLX_DOC_HEADERS)
    set(TLX_DOC_OUTPUT "${PROJECT_BINARY_DIR}/docs")
    set(TLX_DOC_DRAWINGS "${PROJECT_BINARY_DIR}/drawings") # not below the output, whose copy Doxygen would find, too
    file(MAKE_DIRECTORY "${TLX_DOC_DRAWINGS}")
    set(TLX_DOC_HELP NO)
    if(QHELPGENERATOR)
        set(TLX_DOC_HELP YES)
    endif()
    set(TLX_DOC_STYLE "")
    if(DOXYGEN_AWESOME)
        set(TLX_DOC_STYLE "\"${DOXYGEN_AWESOME}/doxygen-awesome.css\"")
    endif()
    configure_file(docs/Doxyfile.in "${TLX_DOC_OUTPUT}/Doxyfile" @ONLY)

    add_custom_target(tlxcore_docs
        COMMAND Python3::Interpreter docs/architecture.py . > "${TLX_DOC_DRAWINGS}/architecture.dot"
        COMMAND "${DOT}" -Tsvg -o "${TLX_DOC_DRAWINGS}/architecture.svg" "${TLX_DOC_DRAWINGS}/architecture.dot"
        COMMAND "${CMAKE_COMMAND}" -E rm -rf "${TLX_DOC_OUTPUT}/html" "${TLX_DOC_OUTPUT}/xml" # pages of names that are gone
        COMMAND Doxygen::doxygen "${TLX_DOC_OUTPUT}/Doxyfile"
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
        COMMENT "Documentation of the public headers"
        VERBATIM)
endif()
