# A floor is one folder and one target. Headers are included by file name alone, and a target sees
# only its own folder and those of the floors it links: an include that reaches upward does not compile.
function(korvanta_floor name kind)
    cmake_parse_arguments(FLOOR "" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
    add_library(${name} ${kind} ${sources})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${name} PUBLIC ${FLOOR_LINKS})
endfunction()

# Qt's headers cost most of a compile; every target precompiles them.
function(korvanta_precompile name)
    if("Qt6::Widgets" IN_LIST ARGN)
        target_precompile_headers(${name} PRIVATE <QtWidgets>)
    else()
        target_precompile_headers(${name} PRIVATE <QtCore>)
    endif()
endfunction()
