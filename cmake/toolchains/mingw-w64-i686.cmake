# SPDX-License-Identifier: MIT
# Windows of 32 bits, for programs that cannot load a 64-bit DLL.
set(qmrk_processor i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
