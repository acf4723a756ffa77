# Windows programs by Debian's g++-mingw-w64-x86-64-posix, and under its wine where that is installed.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Programs that need no library beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

find_program(wine NAMES wine64 wine PATHS /usr/lib/wine)
if(wine)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${wine})
endif()

# Libraries that are headers or sources stand among those of Linux; cmake/mingw finds them alone.
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/mingw)
