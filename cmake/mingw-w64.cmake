# Cross build for 64-bit Windows with Debian's mingw-w64, posix threads (std::thread needs them).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# GoogleTest, which is built from its sources, asks for a C compiler too.
find_program(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix REQUIRED)
find_program(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix REQUIRED)
find_program(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres REQUIRED)
find_program(CMAKE_CROSSCOMPILING_EMULATOR NAMES wine wine64-stable wine64 REQUIRED)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
