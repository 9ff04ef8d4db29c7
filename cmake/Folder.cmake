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
        -Woverloaded-virtual -Wno-error=deprecated-declarations -Wno-stringop-overflow
        $<$<BOOL:${PRODUCT_SANITIZE}>:-Wno-maybe-uninitialized>)
    if(PRODUCT_SANITIZE)
        string(REPLACE ";" "," _kinds "${PRODUCT_SANITIZE}")
        target_compile_options(${target} PRIVATE -fsanitize=${_kinds} -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${_kinds})
    endif()
endfunction()

# product_library(NAME STATIC|SHARED|MODULE SOURCES … [HEADERS …] [DEPENDS …] [PRIVATE_DEPENDS …]
#                 [PCH … | PCH_FROM TARGET])
#   HEADERS   headers outside the folder that moc has to read (declarations in host/)
#   PCH       headers to precompile
#   PCH_FROM  library whose precompiled headers serve here too (same dependencies)
function(product_library name kind)
    cmake_parse_arguments(A "" "PCH_FROM" "SOURCES;HEADERS;DEPENDS;PRIVATE_DEPENDS;PCH" ${ARGN})
    add_library(${name} ${kind} ${A_SOURCES} ${A_HEADERS})
    _product_defaults(${name})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/..)
    target_link_libraries(${name} PUBLIC ${A_DEPENDS} PRIVATE ${A_PRIVATE_DEPENDS})
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

# product_program(NAME SOURCES … [DEPENDS …] [PCH …])
function(product_program name)
    cmake_parse_arguments(A "" "" "SOURCES;DEPENDS;PCH" ${ARGN})
    add_executable(${name} ${A_SOURCES})
    _product_defaults(${name})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${A_DEPENDS})
    if(A_PCH)
        target_precompile_headers(${name} PRIVATE ${A_PCH})
    endif()
endfunction()

# product_test(NAME SOURCES … [DEPENDS …] [PCH …] [LABELS …] [TIMEOUT seconds]): one GoogleTest program, one CTest test.
function(product_test name)
    cmake_parse_arguments(A "" "TIMEOUT" "SOURCES;DEPENDS;PCH;LABELS" ${ARGN})
    product_program(${name} SOURCES ${A_SOURCES} DEPENDS ${A_DEPENDS} PCH ${A_PCH})
    if(NOT A_TIMEOUT)
        set(A_TIMEOUT 300)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES LABELS "${A_LABELS}" TIMEOUT ${A_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;PRODUCT_BINARY_DIR=${CMAKE_BINARY_DIR}")
endfunction()

set(PCH_STD <algorithm> <chrono> <functional> <map> <memory> <optional> <string> <unordered_map> <vector>)
set(PCH_WIDGETS ${PCH_STD} <QtCore/QtCore> <QtWidgets/QtWidgets>)
set(PCH_WIRE ${PCH_STD} <nlohmann/json.hpp>)
set(PCH_GTEST <gtest/gtest.h> <gmock/gmock.h>)
