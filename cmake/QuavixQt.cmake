# SPDX-License-Identifier: MIT
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)

# quavix_qt_library(NAME SOURCES... LINK targets...): a library whose forms, signals and resources Qt's tools
# prepare. Its precompiled header holds Qt, which takes longer to read than everything else together.
function(quavix_qt_library name)
    quavix_library(${name} ${ARGN})
    target_link_libraries(${name} PUBLIC Qt6::Widgets)
    target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
    target_precompile_headers(${name} PRIVATE <QtWidgets>)
endfunction()
