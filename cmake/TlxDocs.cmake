# The `docs` target: Doxygen over the public headers and docs/; every warning is an error.
find_package(Doxygen QUIET)
if(DOXYGEN_FOUND)
    get_property(headers GLOBAL PROPERTY TLX_PUBLIC_HEADERS)
    list(TRANSFORM headers PREPEND "core/")
    list(JOIN headers " " TLX_DOC_HEADERS)
    configure_file(docs/Doxyfile.in "${PROJECT_BINARY_DIR}/docs/Doxyfile" @ONLY)
    add_custom_target(docs
        COMMAND Doxygen::doxygen "${PROJECT_BINARY_DIR}/docs/Doxyfile"
        WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
        COMMENT "Documentation of the public headers"
        VERBATIM)
endif()
