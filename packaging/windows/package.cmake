# Turns the staged folder into the archive and the installer for Windows: adds Qt's and the
# compiler's DLLs, Qt's plugins and the licences. Run by CPack.
cmake_minimum_required(VERSION 3.25)
include("${CPACK_RANKELO_SOURCE}/packaging/common.cmake")

copy_plugins("${folder}/plugins" plugins
    platforms/qwindows.dll styles/qwindowsvistastyle.dll
    imageformats/qgif.dll imageformats/qjpeg.dll sqldrivers/qsqlite.dll)
file(WRITE "${folder}/qt.conf" "[Paths]\nPrefix = .\nPlugins = plugins\n")

# CMake looks for DLLs under their names in small letters, Windows under any.
set(search "${CPACK_TEMPORARY_DIRECTORY}/search")
file(MAKE_DIRECTORY "${search}")
foreach(place ${CPACK_RANKELO_DLL_FOLDERS})
    file(GLOB libraries "${place}/*.dll")
    foreach(library ${libraries})
        get_filename_component(name "${library}" NAME)
        string(TOLOWER "${name}" name)
        file(CREATE_LINK "${library}" "${search}/${name}" SYMBOLIC)
    endforeach()
endforeach()

set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND "${CPACK_RANKELO_OBJDUMP}")
# What is not resolved is Windows' own.
file(GET_RUNTIME_DEPENDENCIES
    EXECUTABLES "${folder}/Rankelo.exe" MODULES ${plugins}
    DIRECTORIES "${search}"
    RESOLVED_DEPENDENCIES_VAR libraries UNRESOLVED_DEPENDENCIES_VAR windows_own)
foreach(library ${libraries})
    file(REAL_PATH "${library}" library)
    file(COPY "${library}" DESTINATION "${folder}")
    if(library MATCHES "/lib[^/]*\\.dll$") # the compiler's come with their debug information
        get_filename_component(name "${library}" NAME)
        run("${CPACK_RANKELO_STRIP}" "${folder}/${name}")
    endif()
endforeach()
message(STATUS "Left to Windows: ${windows_own}")

copy_licences(libqt6core6 libsqlite3-0
               gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev)
configure_file("${CPACK_RANKELO_SOURCE}/packaging/windows/README.txt" "${folder}/README.txt"
               @ONLY NEWLINE_STYLE CRLF)
configure_file("${folder}/LICENSE" "${folder}/LICENSE.txt" @ONLY NEWLINE_STYLE CRLF)
file(REMOVE "${folder}/LICENSE")

settle_files("${folder}" files)
set(ENV{TZ} UTC)
set(archive "${CPACK_TEMPORARY_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.zip")
list(TRANSFORM files PREPEND "Rankelo-${CPACK_PACKAGE_VERSION}/" OUTPUT_VARIABLE entries)
string(JOIN "\n" list ${entries})
file(WRITE "${CPACK_TEMPORARY_DIRECTORY}/files" "${list}\n")
run(sh -c "zip -q -X -9 -@ \"$1\" <files" zip "${archive}")

# The installer puts the same files, but leaves alone what a quiz master makes their own.
set(kept Rankelo.MDB JOKER.BMP)
set(install "")
set(uninstall "")
set(folders "")
foreach(file ${files})
    get_filename_component(place "${file}" DIRECTORY)
    if(NOT file IN_LIST kept)
        string(APPEND install "SetOutPath \"$INSTDIR/${place}\"\nFile \"@/${file}\"\n")
        string(APPEND uninstall "Delete \"$INSTDIR/${file}\"\n")
    endif()
    while(NOT place STREQUAL "")
        list(APPEND folders "${place}")
        get_filename_component(place "${place}" DIRECTORY)
    endwhile()
endforeach()
list(REMOVE_DUPLICATES folders)
list(SORT folders ORDER DESCENDING)
foreach(place ${folders})
    string(APPEND uninstall "RMDir \"$INSTDIR/${place}\"\n")
endforeach()
string(REPLACE "/" "\\" install "${install}")
string(REPLACE "/" "\\" uninstall "${uninstall}")
string(REPLACE "@\\" "${folder}/" install "${install}")
file(WRITE "${CPACK_TEMPORARY_DIRECTORY}/install.nsh" "${install}")
file(WRITE "${CPACK_TEMPORARY_DIRECTORY}/uninstall.nsh" "${uninstall}")

set(installer "${CPACK_TEMPORARY_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}-setup.exe")
run(makensis -V2 -INPUTCHARSET UTF8 -NOCD
    "-DVERSION=${CPACK_PACKAGE_VERSION}" "-DNOTICE=${CPACK_RANKELO_NOTICE}"
    "-DFOLDER=${folder}" "-DOUTPUT=${installer}"
    "-DICON=${CPACK_RANKELO_SOURCE}/assets/icons/app.ico"
    "${CPACK_RANKELO_SOURCE}/packaging/windows/installer.nsi")
set(CPACK_EXTERNAL_BUILT_PACKAGES "${archive}" "${installer}")
