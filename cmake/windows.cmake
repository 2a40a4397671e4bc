# Builds for 64-bit Windows on Debian, with the cross compiler of its package g++-mingw-w64-x86-64-posix.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

# Nothing of this machine's own headers and libraries gets in.
set(CMAKE_FIND_ROOT_PATH /usr/${triple} ${TARVEX_WINDOWS_LIBRARIES})
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TARVEX_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# A program that needs no library beside itself but the system's.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
