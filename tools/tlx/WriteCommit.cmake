# Writes the header that names the commit of the sources; leaves it alone when it is right. Sources without a
# repository (a released archive) have no commit.
execute_process(COMMAND git -C "${SOURCE_DIR}" rev-parse --short=12 HEAD
    OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
if(failed)
    set(commit "unknown")
endif()
set(text "#define TLX_COMMIT \"${commit}\"\n")
if(EXISTS "${HEADER}")
    file(READ "${HEADER}" written)
endif()
if(NOT written STREQUAL text)
    file(WRITE "${HEADER}" "${text}")
endif()
