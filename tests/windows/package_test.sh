#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# package_test.sh BUILD SOURCE TREE: makes the archive of the Windows build, unpacks it as TREE and runs its LogTest under
# Wine from an empty folder, on which nothing but the archive and the system's own DLLs are found.
set -euo pipefail
build=$1
source=$2
tree=$3
run="$source/scripts/lib/run-under-wine"
. "$source/tests/windows/shell_folders.sh"

folder=$(mktemp -d)
trap 'clean; rm -rf "$folder"' EXIT
(cd "$build" && cpack -G ZIP -B "$folder/packages" >"$folder/cpack.log") || { cat "$folder/cpack.log"; exit 1; }
unzip -q "$folder"/packages/*.zip -d "$folder/unpacked"
rm -rf "$tree"
mv "$folder"/unpacked/* "$tree"

for file in bin/qmrk_log.dll bin/boost_log-vc80-mt-1_33.dll bin/LogTest.exe bin/qmrkctl.exe lib/libqmrk_log.dll.a \
  lib/libboost_log-vc80-mt-1_33.dll.a include/qmrk_log/quillmark_logging.h include/qmrk_log/boost/logging/logging.hpp \
  lib/cmake/qmrk_log/qmrk_log-config.cmake share/doc/qmrk_log/LICENSE share/doc/qmrk_log/licences/boost.txt \
  share/doc/qmrk_log/licences/cli11.txt share/doc/qmrk_log/licences/gcc.txt share/doc/qmrk_log/licences/mingw-w64.txt \
  share/doc/qmrk_log/licences/nlohmann-json.txt share/doc/qmrk_log/licences/zlib.txt \
  share/doc/qmrk_log/examples/qmrk_logging_CA12.cfg; do
  [ -s "$tree/$file" ] || { echo "the archive has no $file"; (cd "$tree" && find . -type f); exit 1; }
done
"$source/tests/windows/imports_test.sh" "$tree"/bin/*

mkdir "$folder/empty"
cd "$folder/empty"
export -n GTEST_OUTPUT
"$run" "$tree/bin/qmrkctl.exe" --help | grep signal >/dev/null || { echo 'qmrkctl does not run'; exit 1; }
lay_out "$tree/share/doc/qmrk_log/examples"
"$run" "$tree/bin/LogTest.exe" --classes 'Demo.App.info;' --lines 3
expect "$common_log" '\[Demo\.App\.info\] .* of 3' 3
