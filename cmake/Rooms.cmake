# A room is a folder that builds into one small library. Its sources are the .cpp files right in it.

include_directories(${CMAKE_SOURCE_DIR})

add_library(murbo_precompiled_header STATIC ${CMAKE_SOURCE_DIR}/cmake/Precompiled.cpp)
target_precompile_headers(murbo_precompiled_header PRIVATE ${CMAKE_SOURCE_DIR}/cmake/Precompiled.h)

function(murbo_precompiled target)
    target_precompile_headers(${target} REUSE_FROM murbo_precompiled_header)
endfunction()

function(murbo_room name folder)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
    if(NOT sources)
        add_library(murbo_${name} INTERFACE)
        target_link_libraries(murbo_${name} INTERFACE ${ARGN})
        return()
    endif()
    add_library(murbo_${name} STATIC ${sources})
    target_link_libraries(murbo_${name} PUBLIC ${ARGN})
    murbo_precompiled(murbo_${name})
endfunction()
