# SPDX-License-Identifier: MIT
# Builds for Windows on Linux, with the MinGW-w64 cross compiler and the Qt that scripts/qt-windows
# built. KEST_WINDOWS_QT is the folder that it is in.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KEST_WINDOWS_QT)
list(APPEND CMAKE_FIND_ROOT_PATH ${KEST_WINDOWS_QT} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# What is built is run by Wine, in the display and with the settings of scripts/with-wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-run)
