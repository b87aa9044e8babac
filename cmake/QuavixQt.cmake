# SPDX-License-Identifier: MIT
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)

# Compiling Qt takes longer than all other headers, so all libraries with a toolkit share one precompiled header.
if(NOT TARGET quavix_qt_headers)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generated/qt_headers.cpp CONTENT "")
    add_library(quavix_qt_headers OBJECT ${PROJECT_BINARY_DIR}/generated/qt_headers.cpp)
    target_link_libraries(quavix_qt_headers PRIVATE quavix_options Qt6::Widgets)
    target_compile_definitions(quavix_qt_headers PRIVATE QT_NO_KEYWORDS)
    target_precompile_headers(quavix_qt_headers PRIVATE <QtWidgets>)
endif()

# quavix_qt_library(NAME SOURCES... LINK targets...): a library with forms, signals and resources of Qt.
function(quavix_qt_library name)
    quavix_library(${name} ${ARGN})
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
    target_precompile_headers(${name} REUSE_FROM quavix_qt_headers)
endfunction()
