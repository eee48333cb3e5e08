# SPDX-License-Identifier: MIT
# 64-bit Windows, cross-built on Linux with mingw-w64. The compiler's own libraries are linked statically, so that a DLL
# needs nothing beside it but system DLLs and the log manager's. The libraries come from
# scripts/build-windows-dependencies, the programs run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The variant with posix threads: the default one has no std::mutex.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(DEFINED ENV{QMRK_WINDOWS_SYSROOT})
  set(qmrk_sysroot $ENV{QMRK_WINDOWS_SYSROOT})
elseif(DEFINED ENV{QMRK_WINDOWS_DEPENDENCIES})
  set(qmrk_sysroot $ENV{QMRK_WINDOWS_DEPENDENCIES}/sysroot)
elseif(DEFINED ENV{XDG_CACHE_HOME})
  set(qmrk_sysroot $ENV{XDG_CACHE_HOME}/qmrk-windows/sysroot)
else()
  set(qmrk_sysroot $ENV{HOME}/.cache/qmrk-windows/sysroot)
endif()

set(CMAKE_FIND_ROOT_PATH ${qmrk_sysroot} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The time of the build is not in the files: the same sources give the same bytes.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../scripts/lib/run-under-wine)
