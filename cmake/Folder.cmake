# One call a folder: every library and program of the tree is declared through these functions, so that warnings,
# visibility, precompiled headers and moc settings are the same everywhere and nothing is set globally.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

function(_product_defaults target)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON AUTOUIC ON
        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS
        QT_NO_FOREACH QT_USE_QSTRINGBUILDER)
    # stringop-overflow and maybe-uninitialized: false alarms of GCC 12 inside the standard library.
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror -Wnon-virtual-dtor
        -Woverloaded-virtual -Wno-error=deprecated-declarations
        $<$<CXX_COMPILER_ID:GNU>:-Wno-stringop-overflow>
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${PRODUCT_SANITIZE}>>:-Wno-maybe-uninitialized>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # For ccache: precompiled headers that depend on what is in them only.
        target_compile_options(${target} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
    if(PRODUCT_SANITIZE)
        string(REPLACE ";" "," _kinds "${PRODUCT_SANITIZE}")
        target_compile_options(${target} PRIVATE -fsanitize=${_kinds} -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${_kinds})
    endif()
endfunction()

function(_product_together target)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${PRODUCT_UNITY} UNITY_BUILD_BATCH_SIZE 10)
endfunction()

# product_library(NAME STATIC|SHARED|MODULE SOURCES … [HEADERS …] [DEPENDS …] [PRIVATE_DEPENDS …]
#                 [PCH … | PCH_FROM TARGET] [TOGETHER])
#   HEADERS   headers outside the folder that moc has to read (declarations in host/)
#   PCH       headers to precompile
#   PCH_FROM  library whose precompiled headers serve here too (same dependencies)
#   TOGETHER  sources whose headers cost more than they do themselves: with PRODUCT_UNITY ten of them are compiled as one,
#             which takes a fraction of the time. What they keep in unnamed namespaces needs names of its own then.
function(product_library name kind)
    cmake_parse_arguments(A "TOGETHER" "PCH_FROM" "SOURCES;HEADERS;DEPENDS;PRIVATE_DEPENDS;PCH" ${ARGN})
    add_library(${name} ${kind} ${A_SOURCES} ${A_HEADERS})
    _product_defaults(${name})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/..)
    target_link_libraries(${name} PUBLIC ${A_DEPENDS} PRIVATE ${A_PRIVATE_DEPENDS})
    if(A_TOGETHER)
        _product_together(${name})
    endif()
    if(kind STREQUAL "SHARED")
        string(TOUPPER ${name} _upper)
        target_compile_definitions(${name} PRIVATE ${_upper}_LIBRARY)
    endif()
    if(A_PCH)
        target_precompile_headers(${name} PRIVATE ${A_PCH})
    elseif(A_PCH_FROM)
        target_precompile_headers(${name} REUSE_FROM ${A_PCH_FROM})
    endif()
endfunction()

# product_program(NAME SOURCES … [DEPENDS …] [PCH … | PCH_FROM TARGET] [TOGETHER])
function(product_program name)
    cmake_parse_arguments(A "TOGETHER" "PCH_FROM" "SOURCES;DEPENDS;PCH" ${ARGN})
    add_executable(${name} ${A_SOURCES})
    _product_defaults(${name})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${A_DEPENDS})
    if(A_TOGETHER)
        _product_together(${name})
    endif()
    if(A_PCH)
        target_precompile_headers(${name} PRIVATE ${A_PCH})
    elseif(A_PCH_FROM)
        target_precompile_headers(${name} REUSE_FROM ${A_PCH_FROM})
    endif()
endfunction()

# product_test(NAME SOURCES … [DEPENDS …] [PCH … | PCH_FROM TARGET] [TOGETHER] [LABELS …] [TIMEOUT seconds] [SHARDS n]):
# one GoogleTest program, one CTest test; with SHARDS n as many tests, which share its cases and run side by side.
function(product_test name)
    cmake_parse_arguments(A "" "TIMEOUT;SHARDS" "LABELS" ${ARGN})
    product_program(${name} ${A_UNPARSED_ARGUMENTS})
    if(NOT A_TIMEOUT)
        set(A_TIMEOUT 300)
    endif()
    if(NOT A_SHARDS)
        set(A_SHARDS 1)
    endif()
    foreach(_shard RANGE 1 ${A_SHARDS})
        set(_test ${name})
        if(A_SHARDS GREATER 1)
            string(APPEND _test .${_shard})
        endif()
        math(EXPR _index "${_shard} - 1")
        add_test(NAME ${_test} COMMAND ${name})
        set_tests_properties(${_test} PROPERTIES LABELS "${A_LABELS}" TIMEOUT ${A_TIMEOUT}
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;PRODUCT_BINARY_DIR=${CMAKE_BINARY_DIR};\
GTEST_TOTAL_SHARDS=${A_SHARDS};GTEST_SHARD_INDEX=${_index}")
    endforeach()
endfunction()

set(PCH_STD <algorithm> <chrono> <functional> <map> <memory> <optional> <string> <unordered_map> <vector>)
set(PCH_WIDGETS ${PCH_STD} <QtCore/QtCore> <QtWidgets/QtWidgets>)
set(PCH_WIRE ${PCH_STD} <nlohmann/json.hpp>)
set(PCH_GTEST <gtest/gtest.h> <gmock/gmock.h>)

# product_pch(NAME HEADERS … [DEPENDS …]): headers that are precompiled once for many targets (PCH_FROM).
function(product_pch name)
    cmake_parse_arguments(A "" "" "HEADERS;DEPENDS" ${ARGN})
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
    product_library(${name} STATIC SOURCES ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp DEPENDS ${A_DEPENDS} PCH ${A_HEADERS})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF)
endfunction()
