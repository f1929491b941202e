# rankelo_layer(NAME LINKS...): one layer of the program, a static library made of every source of
# the calling folder. A pair X_unix.cpp / X_win.cpp is reduced to the half for the target system.
function(rankelo_layer name)
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    if(WIN32)
        list(FILTER sources EXCLUDE REGEX "_unix\\.cpp$")
    else()
        list(FILTER sources EXCLUDE REGEX "_win\\.cpp$")
    endif()
    add_library(rankelo_${name} STATIC ${sources})
    target_include_directories(rankelo_${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(rankelo_${name} PUBLIC ${ARGN})
endfunction()
