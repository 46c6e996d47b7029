# One interface target carries the warnings and Qt strictness defines for every target.
add_library(captora_options INTERFACE)
target_compile_options(captora_options INTERFACE
    -Wall -Wextra -Wpedantic -Wold-style-cast -Wnon-virtual-dtor)
if(CAPTORA_WERROR)
    target_compile_options(captora_options INTERFACE -Werror)
endif()
target_compile_definitions(captora_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_USE_QSTRINGBUILDER
    QT_NO_KEYWORDS
    QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

# Sanitizer builds: every target of the tree is instrumented alike.
set(CAPTORA_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined")
if(CAPTORA_SANITIZE)
    target_compile_options(captora_options INTERFACE
        -fsanitize=${CAPTORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(captora_options INTERFACE -fsanitize=${CAPTORA_SANITIZE})
endif()

# Fuzzing: every target of the tree gets libFuzzer's coverage instrumentation, and the
# targets under tests/fuzz link its driver. Needs clang.
option(CAPTORA_FUZZ "Build the libFuzzer targets of tests/fuzz (clang only)" OFF)
if(CAPTORA_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "CAPTORA_FUZZ needs clang; configure with the fuzz preset")
    endif()
    target_compile_options(captora_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Adds a static library for one module folder.
function(captora_module name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC captora_options ${ARG_LINK})
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
endfunction()

# Fuzzing builds: every target is instrumented for coverage; the fuzz targets add libFuzzer.
if(CAPTORA_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "CAPTORA_FUZZ needs clang: configure with CXX=clang++")
    endif()
    target_compile_options(captora_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined)
    target_link_options(captora_options INTERFACE -fsanitize=address,undefined)
endif()
