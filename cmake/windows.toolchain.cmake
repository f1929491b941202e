# Builds Rankelo for Windows on Debian, with a Qt for Windows in the folder that
# RANKELO_WINDOWS_QT names (a CMake variable or an environment variable).

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES RANKELO_WINDOWS_QT)
if(NOT RANKELO_WINDOWS_QT)
    set(RANKELO_WINDOWS_QT "$ENV{RANKELO_WINDOWS_QT}")
endif()
if(NOT EXISTS "${RANKELO_WINDOWS_QT}/lib/cmake/Qt6/Qt6Config.cmake")
    message(FATAL_ERROR "RANKELO_WINDOWS_QT must name a folder with Qt for Windows; "
                        "'${RANKELO_WINDOWS_QT}' holds none. packaging/windows/build-qt makes one.")
endif()
set(RANKELO_WINDOWS_QT "${RANKELO_WINDOWS_QT}" CACHE PATH "Qt built for Windows with MinGW-w64")

include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake")
# How CTest runs what is built.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../packaging/windows/in-wine")
list(PREPEND CMAKE_FIND_ROOT_PATH "${RANKELO_WINDOWS_QT}")
