# What `cmake --install` lays out, and how CPack makes the archives of it that are handed out.

install(TARGETS Rankelo RUNTIME DESTINATION .)
install(FILES assets/JOKER.BMP assets/Rankelo.PDF LICENSE DESTINATION .)
# A database that is already in the folder may hold somebody's quiz.
install(CODE "
    set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
    if(NOT EXISTS \"\${folder}/Rankelo.MDB\")
        file(COPY_FILE \"${RANKELO_EMPTY_DATABASE}\" \"\${folder}/Rankelo.MDB\")
    endif()")

set(CPACK_GENERATOR External)
set(CPACK_PACKAGE_VENDOR "The Rankelo authors")
set(CPACK_PACKAGING_INSTALL_PREFIX "/Rankelo-${PROJECT_VERSION}")
set(CPACK_STRIP_FILES ON)
set(CPACK_EXTERNAL_ENABLE_STAGING ON)
set(CPACK_RANKELO_SOURCE "${PROJECT_SOURCE_DIR}")
set(CPACK_RANKELO_PLUGINS "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS}")

if(WIN32)
    set(CPACK_PACKAGE_FILE_NAME "Rankelo-${PROJECT_VERSION}-windows-x86_64")
    set(CPACK_EXTERNAL_PACKAGE_SCRIPT "${PROJECT_SOURCE_DIR}/packaging/windows/package.cmake")
    set(CPACK_RANKELO_NOTICE "${RANKELO_NOTICE}")
    set(CPACK_RANKELO_OBJDUMP "${CMAKE_OBJDUMP}")
    set(CPACK_RANKELO_STRIP "${CMAKE_STRIP}")
    set(CPACK_RANKELO_DLL_FOLDERS "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}")
    foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${library}
                        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
        get_filename_component(path "${path}" REALPATH)
        get_filename_component(path "${path}" DIRECTORY)
        list(APPEND CPACK_RANKELO_DLL_FOLDERS "${path}")
    endforeach()
    list(REMOVE_DUPLICATES CPACK_RANKELO_DLL_FOLDERS)
else()
    set(CPACK_PACKAGE_FILE_NAME "Rankelo-${PROJECT_VERSION}-linux-x86_64")
    set(CPACK_EXTERNAL_PACKAGE_SCRIPT "${PROJECT_SOURCE_DIR}/packaging/linux/package.cmake")

    # Our own libraries come first; those that belong to a desktop are taken from the desktop,
    # and from lib/fallback where it has none. As DT_RPATH this holds whatever LD_LIBRARY_PATH
    # the program is started with.
    set(CPACK_RANKELO_RPATH
        "$ORIGIN/lib:/usr/lib/x86_64-linux-gnu:/usr/lib64:/usr/lib:$ORIGIN/lib/fallback")
    set_target_properties(Rankelo PROPERTIES INSTALL_RPATH "${CPACK_RANKELO_RPATH}")
    target_link_options(Rankelo PRIVATE LINKER:--disable-new-dtags)
endif()
include(CPack)
