# A room is a folder, or a list of folders, that builds into one small library. Its sources are the .cpp files
# right in it.

include_directories(${CMAKE_SOURCE_DIR})

add_library(murbo_precompiled_header STATIC ${CMAKE_SOURCE_DIR}/cmake/Precompiled.cpp)
target_precompile_headers(murbo_precompiled_header PRIVATE ${CMAKE_SOURCE_DIR}/cmake/Precompiled.h)

function(murbo_precompiled target)
    target_precompile_headers(${target} REUSE_FROM murbo_precompiled_header)
endfunction()

function(murbo_room name folders)
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
    murbo_precompiled(murbo_${name})
endfunction()
