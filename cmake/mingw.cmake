# What the Windows toolchains have in common.
set(CMAKE_SYSTEM_NAME Windows)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${LISTWRIGHT_MINGW})

# The compilers with the threads of C++.
set(CMAKE_C_COMPILER ${LISTWRIGHT_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${LISTWRIGHT_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${LISTWRIGHT_MINGW}-windres)
set(LISTWRIGHT_WIDL ${LISTWRIGHT_MINGW}-widl)

set(CMAKE_FIND_ROOT_PATH /usr/${LISTWRIGHT_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The compiler's libraries go into each file, so that it needs nothing but what Windows has.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)
