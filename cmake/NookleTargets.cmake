# How every target of the project is compiled, and the two kinds of target that there are.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}")

add_library(nookle_options INTERFACE)
# Some libraries ask for -pthread, and precompiled headers want the same options everywhere.
target_compile_options(nookle_options INTERFACE -pthread)
target_compile_options(nookle_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-qual)
# From Qt 6.5 on, the macros by which its tests wait convert by themselves.
if(Qt6_VERSION VERSION_LESS 6.5)
    target_compile_options(nookle_options INTERFACE -Wconversion)
else()
    target_compile_options(nookle_options INTERFACE
        $<$<NOT:$<IN_LIST:Qt6::Test,$<TARGET_PROPERTY:LINK_LIBRARIES>>>:-Wconversion>)
endif()
# GCC 12 takes an empty optional of one of Qt's types for an uninitialised one once it optimises.
target_compile_options(nookle_options INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-maybe-uninitialized>)
# Most of what the loader adjusts at a start are tables of virtual functions, which fit into a tenth of the room.
include(CheckLinkerFlag)
check_linker_flag(CXX -Wl,-z,pack-relative-relocs NOOKLE_PACKS_RELOCATIONS)
if(NOOKLE_PACKS_RELOCATIONS)
    target_link_options(nookle_options INTERFACE $<$<CONFIG:Release>:-Wl,-z,pack-relative-relocs>)
endif()
# A release leaves out what nothing uses.
target_compile_options(nookle_options INTERFACE $<$<CONFIG:Release>:-ffunction-sections -fdata-sections>)
target_link_options(nookle_options INTERFACE $<$<CONFIG:Release>:-Wl,--gc-sections>)
# What newer releases of Qt deprecate has nothing to replace it in the oldest one.
target_compile_definitions(nookle_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
    QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x060400 QT_DEPRECATED_WARNINGS_SINCE=0x060400)
if(NOOKLE_SANITIZE)
    target_compile_options(nookle_options INTERFACE -fsanitize=address -fno-omit-frame-pointer)
    target_link_options(nookle_options INTERFACE -fsanitize=address,undefined)
endif()
if(NOOKLE_FUZZ)
    target_compile_options(nookle_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# A launcher that was asked for by name goes before. The sloppiness is what ccache's manual asks for with precompiled
# headers, and so is the option.
find_program(NOOKLE_CCACHE_PROGRAM ccache)
mark_as_advanced(NOOKLE_CCACHE_PROGRAM)
set(NOOKLE_USES_CCACHE OFF)
if(NOOKLE_CCACHE AND NOOKLE_CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(NOOKLE_USES_CCACHE ON)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros
        "${NOOKLE_CCACHE_PROGRAM}")
    if(NOOKLE_PRECOMPILE)
        target_compile_options(nookle_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    endif()
endif()

# nookle_precompile(TARGET)
# The target's files find the common headers compiled.
function(nookle_precompile target)
    if(NOOKLE_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM nookle_precompiled)
    endif()
endfunction()

# nookle_layer(NAME SOURCES file... LINKS target...)
# A static library whose headers are visible only to the targets that link it: a layer sees what it links, and nothing
# above it.
function(nookle_layer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE nookle_options)
    # A release need not clean up after exceptions: Qt and this program throw none. Files that catch those of the standard
    # library say so.
    target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-fno-exceptions -fno-asynchronous-unwind-tables>)
    # Not in the tests' own code, whose compiling it would make half as long again.
    if(NOOKLE_SANITIZE)
        target_compile_options(${name} PRIVATE -fsanitize=undefined -fno-sanitize-recover=undefined)
    endif()
    nookle_precompile(${name})
endfunction()

set(NOOKLE_TEST_TIMEOUT 60 CACHE STRING "Seconds that a unit test may take")

# nookle_test(NAME LINKS target... [LABELS label...])
# The Qt Test executable of NAME.cpp.
function(nookle_test name)
    cmake_parse_arguments(ARG "" "" "LINKS;LABELS" ${ARGN})
    add_executable(${name} ${name}.cpp)
    target_link_libraries(${name} PRIVATE ${ARG_LINKS} nookle_options nookle_fakes Qt6::Test)
    nookle_precompile(${name})
    # Empty for most tests, whose generated code is included by themselves.
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp" PROPERTIES
        SKIP_PRECOMPILE_HEADERS ON)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        LABELS "unit;${ARG_LABELS}"
        TIMEOUT ${NOOKLE_TEST_TIMEOUT})
endfunction()
