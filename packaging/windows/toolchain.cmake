# CMake's toolchain file for 64-bit Windows programs, built with Debian's mingw-w64 compiler (the variant with POSIX
# threads). It lies in the root of the tree of libraries and finds them from its own place, so the tree may be moved.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_VERSION 10.0)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(windows_triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${windows_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${windows_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${windows_triple}-windres)

# Libraries and headers for Windows only; programs (moc, rcc) only from this machine.
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR} /usr/${windows_triple})
set(CMAKE_PREFIX_PATH ${CMAKE_CURRENT_LIST_DIR})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

# Where Debian's qt6-base-dev-tools are; their version must be that of the Qt in this tree.
set(QT_HOST_PATH /usr)
file(GLOB qt_host_info /usr/lib/*/cmake/Qt6HostInfo)
list(GET qt_host_info 0 qt_host_info)
cmake_path(GET qt_host_info PARENT_PATH QT_HOST_PATH_CMAKE_DIR)

# `ctest` runs Windows programs under Wine; with a launcher of that name in the tree, through that.
find_program(QUILLSET_WINE NAMES wine-run.sh wine64 wine PATHS ${CMAKE_CURRENT_LIST_DIR}/bin /usr/lib/wine)
if(QUILLSET_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${QUILLSET_WINE})
endif()
