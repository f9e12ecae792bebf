# A room is a folder, or a list of folders, that builds into one small library. Its sources are the .cpp files
# right in it.

include_directories(${CMAKE_SOURCE_DIR})

add_library(murbo_precompiled_header STATIC ${CMAKE_SOURCE_DIR}/cmake/Precompiled.cpp)
target_precompile_headers(murbo_precompiled_header PRIVATE ${CMAKE_SOURCE_DIR}/cmake/Precompiled.h)

function(murbo_precompiled target)
    target_precompile_headers(${target} REUSE_FROM murbo_precompiled_header)
endfunction()

function(murbo_room_library name folders)
    list(TRANSFORM folders PREPEND ${CMAKE_SOURCE_DIR}/ OUTPUT_VARIABLE patterns)
    list(TRANSFORM patterns APPEND /*.cpp)
    file(GLOB sources CONFIGURE_DEPENDS ${patterns})
    if(NOT sources)
        add_library(murbo_${name} INTERFACE)
        target_link_libraries(murbo_${name} INTERFACE ${ARGN})
        return()
    endif()
    add_library(murbo_${name} STATIC ${sources})
    target_link_libraries(murbo_${name} PUBLIC ${ARGN})
endfunction()

function(murbo_room name folders)
    murbo_room_library(${name} "${folders}" ${ARGN})
    get_target_property(kind murbo_${name} TYPE)
    if(NOT kind STREQUAL INTERFACE_LIBRARY)
        murbo_precompiled(murbo_${name})
    endif()
endfunction()

# A room that uses Qt: its classes get their meta-objects, and since Qt asks for other flags it has a precompiled
# header of its own.
function(murbo_qt_precompiled target)
    if(NOT TARGET murbo_qt_precompiled_header)
        add_library(murbo_qt_precompiled_header STATIC ${CMAKE_SOURCE_DIR}/cmake/Precompiled.cpp)
        target_link_libraries(murbo_qt_precompiled_header PUBLIC Qt6::Core QCoro6::Core)
        target_precompile_headers(murbo_qt_precompiled_header PRIVATE
            ${CMAKE_SOURCE_DIR}/cmake/Precompiled.h <QObject> <QTimer> <qcorotask.h>)
        set_target_properties(murbo_qt_precompiled_header PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endif()
    # Moc 6.4 stumbles over the concepts of the standard library; without the compiler's own words it passes them.
    # moc misreads a standard header whose macros it has not met: they come first.
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOMOC_COMPILER_PREDEFINES OFF POSITION_INDEPENDENT_CODE ON
        AUTOMOC_MOC_OPTIONS "--include=bits/c++config.h")
    target_precompile_headers(${target} REUSE_FROM murbo_qt_precompiled_header)
endfunction()

function(murbo_qt_room name folders)
    murbo_room_library(${name} "${folders}" Qt6::Core QCoro6::Core ${ARGN})
    get_target_property(kind murbo_${name} TYPE)
    if(NOT kind STREQUAL INTERFACE_LIBRARY)
        murbo_qt_precompiled(murbo_${name})
    endif()
endfunction()
