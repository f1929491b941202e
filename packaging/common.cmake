# What the archives of both systems have in common. Run by CPack over the staged folder.

set(folder "${CPACK_TEMPORARY_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}")

# Runs a command in the staging area; a failure ends the packaging.
function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY "${CPACK_TEMPORARY_DIRECTORY}"
                    COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Puts the plugins that Rankelo can use into `destination`. Result: their paths there.
function(copy_plugins destination result)
    foreach(name ${ARGN})
        get_filename_component(kind "${name}" DIRECTORY)
        file(COPY "${CPACK_RANKELO_PLUGINS}/${name}" DESTINATION "${destination}/${kind}")
        list(APPEND copied "${destination}/${name}")
    endforeach()
    set(${result} ${copied} PARENT_SCOPE)
endfunction()

# Puts the licence texts of Debian packages, whose work the folder carries, into licences/.
function(copy_licences)
    file(MAKE_DIRECTORY "${folder}/licences")
    foreach(package ${ARGN})
        file(COPY_FILE "/usr/share/doc/${package}/copyright" "${folder}/licences/${package}.txt")
    endforeach()
    foreach(text GPL-2 GPL-3 LGPL-2 LGPL-2.1 LGPL-3 GFDL-1.3 Apache-2.0)
        file(REAL_PATH "/usr/share/common-licenses/${text}" path)
        file(COPY_FILE "${path}" "${folder}/licences/${text}.txt")
    endforeach()
endfunction()

# The sorted list of the folder's files, relative to `base`. Everything gets the one time and
# the modes that make two archives of one commit the same.
function(settle_files base result)
    run(find "${folder}" -type f -exec chmod u=rw,go=r {} +)
    run(find "${folder}" -type d -exec chmod u=rwx,go=rx {} +)
    foreach(program ${ARGN})
        run(chmod u=rwx,go=rx "${folder}/${program}")
    endforeach()
    run(find "${folder}" -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +)
    file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE "${base}" "${folder}/*")
    list(SORT files)
    set(${result} ${files} PARENT_SCOPE)
endfunction()
