# SPDX-License-Identifier: MIT
# Windows, cross-built on Linux with mingw-w64: of 64 bits, unless mingw-w64-i686.cmake includes this. The compiler's own
# libraries are linked statically, so that a DLL needs nothing beside it but system DLLs and the log manager's. The
# libraries come from scripts/build-windows-dependencies, the programs run under Wine.
if(NOT DEFINED qmrk_processor)
  set(qmrk_processor x86_64)
endif()
set(qmrk_target ${qmrk_processor}-w64-mingw32)
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${qmrk_processor})

# The variant with posix threads: the default one has no std::mutex.
set(CMAKE_C_COMPILER ${qmrk_target}-gcc-posix)
set(CMAKE_CXX_COMPILER ${qmrk_target}-g++-posix)
set(CMAKE_RC_COMPILER ${qmrk_target}-windres)

if(DEFINED ENV{QMRK_WINDOWS_SYSROOT})
  set(qmrk_sysroot $ENV{QMRK_WINDOWS_SYSROOT})
elseif(DEFINED ENV{QMRK_WINDOWS_DEPENDENCIES})
  set(qmrk_sysroot $ENV{QMRK_WINDOWS_DEPENDENCIES}/${qmrk_processor})
elseif(DEFINED ENV{XDG_CACHE_HOME})
  set(qmrk_sysroot $ENV{XDG_CACHE_HOME}/qmrk-windows/${qmrk_processor})
else()
  set(qmrk_sysroot $ENV{HOME}/.cache/qmrk-windows/${qmrk_processor})
endif()

set(CMAKE_FIND_ROOT_PATH ${qmrk_sysroot} /usr/${qmrk_target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Neither the place of the libraries nor the time of the build is in the files: the same sources give the same bytes.
set(CMAKE_CXX_FLAGS_INIT -ffile-prefix-map=${qmrk_sysroot}/=)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../scripts/lib/run-under-wine)
