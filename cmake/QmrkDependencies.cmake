# SPDX-License-Identifier: MIT
# Looks for what is needed, and says which package of Debian has what is missing.

# qmrk_find(DEBIAN-PACKAGES ARGUMENTS-OF-FIND_PACKAGE...): a macro, so that what is found counts where it is called.
macro(qmrk_find _debian _name)
  find_package(${_name} ${ARGN} QUIET)
  if(NOT ${_name}_FOUND)
    message(FATAL_ERROR "${_name} was not found. On Debian: apt-get install ${_debian}\n"
      "scripts/demo and scripts/test install everything that is missing.")
  endif()
endmacro()
