# Toolchain for 32-bit Windows with Debian's mingw-w64 (the variant with posix threads).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_SYSTEM_VERSION 10.0)
set(CMAKE_C_COMPILER i686-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The old floating-point unit keeps more digits than a double: positions would differ from the 64-bit build's.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
# No libraries beside the program.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
