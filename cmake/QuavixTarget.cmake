# SPDX-License-Identifier: MIT
# Options of every target of the project.
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
# gold takes a third of the default linker's time, and a build links three dozen programs. It warns about every function
# that clang's sanitizers export.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=gold QUAVIX_LINKS_WITH_GOLD)
if(QUAVIX_LINKS_WITH_GOLD AND NOT QUAVIX_FUZZ)
    target_link_options(quavix_options INTERFACE -fuse-ld=gold)
endif()
target_include_directories(quavix_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

# quavix_library(NAME SOURCES... LINK targets...): one static library per folder, with explicit links.
function(quavix_library name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC quavix_options ${arg_LINK})
endfunction()

# quavix_implemented_by(NAME IMPLEMENTATION): links IMPLEMENTATION, which defines functions that NAME only declares,
# wherever NAME is linked, without making its headers available.
function(quavix_implemented_by name implementation)
    set_property(TARGET ${name} APPEND PROPERTY INTERFACE_LINK_LIBRARIES $<LINK_ONLY:${implementation}>)
endfunction()

# The C interfaces of the modules, for programs that load them: #include "modules/NAME/...".
add_library(quavix_module_interfaces INTERFACE)
target_include_directories(quavix_module_interfaces INTERFACE ${PROJECT_SOURCE_DIR})

# Hides everything of a module but its C interface.
function(quavix_export_interface_only name)
    target_link_options(${name} PRIVATE LINKER:--version-script=${PROJECT_SOURCE_DIR}/modules/exports.map)
    set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${PROJECT_SOURCE_DIR}/modules/exports.map)
endfunction()

# quavix_module(NAME FILE name.ocx SOURCES... LINK targets...): a module loaded at run time, built beside the programs.
# All but its entry point for installers (registration.cpp) is also in the object library NAME_objects, for tests.
function(quavix_module name)
    cmake_parse_arguments(arg "" "FILE" "SOURCES;LINK" ${ARGN})
    add_library(${name}_objects OBJECT ${arg_SOURCES})
    target_link_libraries(${name}_objects PUBLIC quavix_options quavix_module_interfaces ${arg_LINK})
    add_library(${name} MODULE registration.cpp)
    target_link_libraries(${name} PRIVATE ${name}_objects)
    # With sanitizers, the program that loads the module defines their functions.
    if(NOT QUAVIX_SANITIZE)
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
    quavix_export_interface_only(${name})
    set_target_properties(${name}_objects ${name} PROPERTIES
        POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    set_target_properties(${name} PROPERTIES
        PREFIX "" OUTPUT_NAME ${arg_FILE} SUFFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
endfunction()
