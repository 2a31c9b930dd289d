# A floor is one folder and one target. Headers are included by file name alone, and a target sees
# only its own folder and those of the floors it links: an include that reaches upward does not compile.
# `headers` is the set of precompiled ones, see below.
function(korvanta_floor name kind headers)
    cmake_parse_arguments(FLOOR "" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(${name} ${kind} ${sources})
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
                                              $<INSTALL_INTERFACE:include/korvanta>)
    target_link_libraries(${name} PUBLIC ${FLOOR_LINKS})
    target_precompile_headers(${name} REUSE_FROM ${headers})
endfunction()

# Qt's headers cost most of a compile. Two sets of them are compiled once, the one for the floors that
# know of data only, the other for all the rest; a set for each target, or all of Qt in one, costs more
# than it saves.
function(korvanta_headers name link)
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
    add_library(${name} STATIC ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE ${link})
    target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

set(data_headers <QHash> <QList> <QMap> <QObject> <QSet> <QString> <QStringList> <QVariant> <algorithm>
                 <functional> <memory> <optional>)
korvanta_headers(data-headers Qt6::Core ${data_headers})
korvanta_headers(window-headers Qt6::Widgets ${data_headers} <QKeyEvent> <QLabel> <QMenu> <QPainter>
                 <QPointer> <QPushButton> <QWidget>)
