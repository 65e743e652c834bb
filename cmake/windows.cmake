# Cross-compiles for Windows with mingw-w64, 64 bit or, with PACTORA_WINDOWS_CPU=i686,
# 32 bit. Everything the compiler brings is linked in: what is built needs the
# system's own DLLs alone.
set(CMAKE_SYSTEM_NAME Windows)
if(NOT PACTORA_WINDOWS_CPU)
  set(PACTORA_WINDOWS_CPU x86_64)
endif()
set(CMAKE_SYSTEM_PROCESSOR ${PACTORA_WINDOWS_CPU})
# CMake reads this file again for its own trial builds.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES PACTORA_WINDOWS_CPU)

set(tool ${PACTORA_WINDOWS_CPU}-w64-mingw32)
find_program(PACTORA_MINGW ${tool}-g++-posix)
find_program(PACTORA_WIDL ${tool}-widl)
if(NOT PACTORA_MINGW OR NOT PACTORA_WIDL)
  message(FATAL_ERROR "The compiler for Windows is not on this machine: ${tool}-g++-posix and ${tool}-widl "
    "are needed. On Debian they come with g++-mingw-w64 and mingw-w64-tools.")
endif()
set(CMAKE_CXX_COMPILER ${PACTORA_MINGW})
set(CMAKE_C_COMPILER ${tool}-gcc-posix)  # the test library asks for it
set(CMAKE_RC_COMPILER ${tool}-windres)
set(CMAKE_AR ${tool}-gcc-ar-posix)
set(CMAKE_RANLIB ${tool}-gcc-ranlib-posix)

set(CMAKE_FIND_ROOT_PATH /usr/${tool})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 7 and later.
set(CMAKE_CXX_FLAGS_INIT "-D_WIN32_WINNT=0x0601 -DUNICODE -D_UNICODE -DNOMINMAX -DWIN32_LEAN_AND_MEAN -ffunction-sections -fdata-sections")
if(PACTORA_WINDOWS_CPU STREQUAL i686)
  # The old coprocessor's longer numbers would move cents.
  string(APPEND CMAKE_CXX_FLAGS_INIT " -msse2 -mfpmath=sse -mstackrealign")
endif()
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/run-wine)
