# The MinGW-w64 compiler of Debian with POSIX threads, which Qt needs.
# A toolchain by itself for building Qt, and a part of windows.toolchain.cmake.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(MINGW x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# moc, rcc and uic run on this machine: Debian's own, of the same Qt version.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
