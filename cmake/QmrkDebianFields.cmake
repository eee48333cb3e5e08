# SPDX-License-Identifier: MIT
# Run by cpack after it has packed: adds a field that it has no variable for before version 3.31. Packages of libraries can be
# installed for several architectures at once, since all that differs is in a folder of the architecture; the tools serve
# programs of any.
set(kind_libqmrk-log1 same)
set(kind_libqmrk-log-dev same)
set(kind_qmrk-log-tools foreign)
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  string(REGEX REPLACE "^.*/([^/_]+)_[^/]*$" "\\1" name ${package})
  set(tree ${package}.tree)
  file(REMOVE_RECURSE ${tree})
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${tree}/DEBIAN/control control)
  string(REGEX REPLACE "(Architecture: [^\n]*\n)" "\\1Multi-Arch: ${kind_${name}}\n" control "${control}")
  file(WRITE ${tree}/DEBIAN/control "${control}")
  execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build ${tree} ${package}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${tree})
endforeach()
