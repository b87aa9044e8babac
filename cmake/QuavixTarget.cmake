# SPDX-License-Identifier: MIT
# What every target of the project is compiled with.
add_library(quavix_options INTERFACE)
target_compile_options(quavix_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wconversion
    -Wno-sign-conversion -Werror -fno-math-errno)
# GCC 12 reports maybe-uninitialized reads inside the standard library when the sanitizers instrument it.
if(QUAVIX_SANITIZE)
    target_compile_options(quavix_options INTERFACE
        -fsanitize=${QUAVIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(quavix_options INTERFACE -fsanitize=${QUAVIX_SANITIZE})
endif()
if(QUAVIX_FUZZ)
    target_compile_options(quavix_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
target_include_directories(quavix_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

# quavix_library(NAME SOURCES... LINK targets...): one static library per folder, with its links said out loud.
function(quavix_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC quavix_options ${arg_LINK})
endfunction()
