# How every target of this tree is compiled, and the one-line functions that register them.

set(TLX_QT_DEFINITIONS
    QT_DEPRECATED_WARNINGS
    QT_DISABLE_DEPRECATED_BEFORE=0x050d00
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_CAST_TO_ASCII
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_NO_URL_CAST_FROM_STRING
    QT_USE_QSTRINGBUILDER)

if(TLXCORE_QT_MAJOR EQUAL 6)
    # What Qt 6 deprecates has no other name that Qt 5 knows.
    list(APPEND TLX_QT_DEFINITIONS QT_NO_DEPRECATED_WARNINGS)
    list(REMOVE_ITEM TLX_QT_DEFINITIONS QT_DEPRECATED_WARNINGS)
endif()

if(MSVC)
    set(TLX_WARNINGS /W4 /permissive- /utf-8)
    set(TLX_WERROR_OPTION /WX)
else()
    set(TLX_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
    set(TLX_WERROR_OPTION -Werror)
endif()

if(WIN32)
    list(APPEND TLX_QT_DEFINITIONS NOMINMAX UNICODE)
    # Windows looks for a program's DLLs beside the program.
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
endif()

# Language level, strict Qt definitions, warnings and sanitizers of one target.
function(tlx_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_definitions(${target} PRIVATE ${TLX_QT_DEFINITIONS})
    target_compile_options(${target} PRIVATE ${TLX_WARNINGS})
    if(TLXCORE_QT_MAJOR EQUAL 6 AND NOT target STREQUAL tlxCore AND NOT MSVC)
        target_compile_options(${target} PRIVATE -Wno-conversion) # sizes have 64 bits; programs and tests count in int
    endif()
    if(TLXCORE_WERROR)
        target_compile_options(${target} PRIVATE ${TLX_WERROR_OPTION})
    endif()
    if(TLXCORE_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${TLXCORE_SANITIZE} -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${TLXCORE_SANITIZE})
        if(TLXCORE_SANITIZE MATCHES "undefined")
            target_compile_options(${target} PRIVATE
                -fsanitize=float-cast-overflow,float-divide-by-zero -fno-sanitize-recover=all)
        endif()
    endif()
    if(TLXCORE_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic) # threads count, too
        target_link_options(${target} PRIVATE --coverage)
    endif()
endfunction()

# Doubles have the same results on every processor. The old registers of 32-bit x86 hold wider intermediate results;
# arm64 and s390x compute a product and a sum in one step, with one rounding less, unless they are told not to.
function(tlx_same_doubles target)
    if(MSVC)
        return()
    endif()
    target_compile_options(${target} PRIVATE -ffp-contract=off)
    if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86|x86_64|AMD64)$")
        target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse)
    endif()
endfunction()

# Adds the sources of one folder of the library, and its public headers to the list that is installed:
#   tlx_core_folder(PUBLIC a.h b.h PRIVATE a.cpp c.h)
function(tlx_core_folder)
    cmake_parse_arguments(arg "" "" "PUBLIC;PRIVATE" ${ARGN})
    file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}/core" "${CMAKE_CURRENT_SOURCE_DIR}")
    foreach(file IN LISTS arg_PUBLIC arg_PRIVATE)
        target_sources(tlxCore PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${file}")
    endforeach()
    foreach(header IN LISTS arg_PUBLIC)
        if(folder)
            set(header "${folder}/${header}")
        endif()
        set_property(GLOBAL APPEND PROPERTY TLX_PUBLIC_HEADERS "${header}")
    endforeach()
endfunction()

# One Qt Test program, named after its source file, run by CTest:
#   tlx_add_test(tst_CVariant [SOURCES more.cpp] [LIBRARIES more])
function(tlx_add_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    tlx_configure_target(${name})
    target_link_libraries(${name} PRIVATE tlxCore tlxTestSupport ${TLX_QT}::Test ${arg_LIBRARIES})
    if(TLXCORE_PRECOMPILE)
        target_precompile_headers(${name} REUSE_FROM tlxTestHeaders)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    # Wine takes several times as long for files and processes.
    set_tests_properties(${name} PROPERTIES TIMEOUT $<IF:$<BOOL:${CMAKE_CROSSCOMPILING}>,1200,300>)
    if(CMAKE_CROSSCOMPILING)
        set_tests_properties(${name} PROPERTIES ENVIRONMENT QTEST_FUNCTION_TIMEOUT=1100000)
    endif()
endfunction()

# One Google Benchmark program; PEERS are the libraries that it measures beside ours.
function(tlx_add_benchmark name)
    cmake_parse_arguments(arg "" "" "PEERS" ${ARGN})
    add_executable(${name} ${name}.cpp)
    tlx_configure_target(${name})
    target_link_libraries(${name} PRIVATE tlxCore benchmark::benchmark_main ${arg_PEERS})
    set_property(GLOBAL APPEND PROPERTY TLX_BENCHMARKS ${name})
endfunction()

# One libFuzzer target: tlx_add_fuzzer(fuzz_tar [SOURCES more.cpp])
function(tlx_add_fuzzer name)
    cmake_parse_arguments(arg "" "" "SOURCES" ${ARGN})
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    tlx_configure_target(${name})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_libraries(${name} PRIVATE tlxFuzzSupport tlxCore)
    set_property(GLOBAL APPEND PROPERTY TLX_FUZZERS ${name})
endfunction()
