# Cross-builds the Windows program with Debian's mingw-w64 (64-bit, POSIX thread model
# so that std::thread exists) and runs the built programs under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(QUORLIN_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${QUORLIN_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QUORLIN_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${QUORLIN_MINGW_PREFIX}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${QUORLIN_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Self-contained programs: no libstdc++, libgcc or winpthread DLLs beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

find_program(QUORLIN_WINE wine REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${QUORLIN_WINE})
