# Turns the staged folder into the archive for Linux: adds the libraries that a desktop does not
# surely have, Qt's plugins, the licences and the menu entry. Run by CPack.
cmake_minimum_required(VERSION 3.25)
include("${CPACK_RANKELO_SOURCE}/packaging/common.cmake")

# Of the kernel's and compiler's family: there is one right copy on a system, its own.
set(system_libraries
    "^ld-linux" "^lib(c|m|dl|rt|pthread|resolv|util|gcc_s|stdc\\+\\+)\\.so\\.")

# Speak with the desktop's own services, drivers and settings: the desktop's copy is preferred.
set(desktop_libraries
    "^lib(EGL|GLX|OpenGL|GLdispatch|X11|X11-xcb|xcb|Xau|Xdmcp|ICE|SM|bsd|md|uuid)\\.so\\."
    "^lib(fontconfig|freetype|expat|png16|brotlidec|brotlicommon|z|glib-2\\.0|pcre2-8)\\.so\\."
    "^lib(dbus-1|systemd|cap|gcrypt|gpg-error|lz4|lzma|zstd|gomp)\\.so\\."
    "^lib(cups|avahi-client|avahi-common|gnutls|p11-kit|idn2|unistring|tasn1|nettle|hogweed)\\.so\\."
    "^lib(gmp|ffi|gssapi_krb5|krb5|krb5support|k5crypto|com_err|keyutils)\\.so\\.")

copy_plugins("${folder}/lib/plugins" plugins
    platforms/libqxcb.so platforms/libqoffscreen.so
    platforminputcontexts/libcomposeplatforminputcontextplugin.so
    platforminputcontexts/libibusplatforminputcontextplugin.so
    imageformats/libqgif.so imageformats/libqjpeg.so
    sqldrivers/libqsqlite.so printsupport/libcupsprintersupport.so)
file(WRITE "${folder}/qt.conf" "[Paths]\nPrefix = .\nPlugins = lib/plugins\n")

file(GET_RUNTIME_DEPENDENCIES
    EXECUTABLES "${folder}/Rankelo" MODULES ${plugins}
    PRE_EXCLUDE_REGEXES ${system_libraries}
    RESOLVED_DEPENDENCIES_VAR libraries)
# One plain file under the name that the loader asks for: a stick knows no links.
foreach(library ${libraries})
    get_filename_component(name "${library}" NAME)
    set(place lib)
    foreach(pattern ${desktop_libraries})
        if(name MATCHES "${pattern}")
            set(place lib/fallback)
        endif()
    endforeach()
    file(REAL_PATH "${library}" real)
    file(MAKE_DIRECTORY "${folder}/${place}")
    file(COPY_FILE "${real}" "${folder}/${place}/${name}")
    # The package manager may know the same file under /lib or under /usr/lib.
    get_filename_component(real "${real}" NAME)
    list(APPEND origins "*/x86_64-linux-gnu/${real}")
endforeach()

# Every library finds its own needs by itself, in the order that the program uses.
file(GLOB_RECURSE libraries RELATIVE "${folder}/lib" "${folder}/lib/*.so*")
foreach(library ${libraries})
    get_filename_component(place "/${library}" DIRECTORY)
    string(REGEX REPLACE "/[^/]+" "/.." up "${place}")
    string(REGEX REPLACE "/$" "" up "${up}")
    string(REPLACE "$ORIGIN/lib" "$ORIGIN${up}" rpath "${CPACK_RANKELO_RPATH}")
    run(patchelf --force-rpath --set-rpath "${rpath}" "${folder}/lib/${library}")
endforeach()

execute_process(COMMAND dpkg-query --search ${origins} OUTPUT_VARIABLE owners
                COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+\n" owners "${owners}")
list(TRANSFORM owners REPLACE ":.*\n" "")
list(REMOVE_DUPLICATES owners)
copy_licences(${owners} libqt6sql6-sqlite)

set(here "${CPACK_RANKELO_SOURCE}/packaging/linux")
file(COPY "${here}/install.sh" "${here}/README.txt" "${here}/io.github.rankelo.Rankelo.desktop"
     DESTINATION "${folder}")
file(COPY "${CPACK_RANKELO_SOURCE}/assets/icons/app/" DESTINATION "${folder}/icons")

settle_files("${CPACK_TEMPORARY_DIRECTORY}" files Rankelo install.sh)
set(archive "${CPACK_TEMPORARY_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.tar.gz")
string(JOIN "\n" list ${files})
file(WRITE "${CPACK_TEMPORARY_DIRECTORY}/files" "${list}\n")
run(tar --create --files-from=files --owner=root:0 --group=root:0 --format=gnu
    "--use-compress-program=gzip --best --no-name" "--file=${archive}")
set(CPACK_EXTERNAL_BUILT_PACKAGES "${archive}")
