#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# package_test.sh BUILD SOURCE: makes the archive of the Windows build and runs its LogTest under Wine from an empty
# folder, on which nothing but the archive and the system's own DLLs are found.
set -euo pipefail
build=$1
source=$2

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
(cd "$build" && cpack -G ZIP -B "$folder/packages" >"$folder/cpack.log") || { cat "$folder/cpack.log"; exit 1; }
unzip -q "$folder"/packages/*.zip -d "$folder/unpacked"
tree=$(echo "$folder"/unpacked/*)

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
run="$source/scripts/lib/run-under-wine"
"$run" "$tree/bin/qmrkctl.exe" --help | grep -q signal || { echo 'qmrkctl does not run'; exit 1; }

# What the shell folders are, as the system says, with the names that this side gives them.
shell_folder() { "$run" cmd /c "echo %$1%" 2>/dev/null | tr -d '\r' | head -n 1 | sed "s|^C:|$prefix/drive_c|; s|\\\\|/|g"; }
prefix=${QMRK_WINE_PREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/qmrk-windows/wine}
common_files=$(shell_folder CommonProgramFiles)
program_data=$(shell_folder ProgramData)
app_data=$(shell_folder APPDATA)
clean() { rm -rf "$common_files/Orvane Shared" "$program_data/Orvane" "$app_data/Orvane"; }
trap 'clean; rm -rf "$folder"' EXIT
clean
mkdir -p "$common_files/Orvane Shared/qmrk/logging/cfg" "$program_data/Orvane/qmrk/logging"
cp "$tree"/share/doc/qmrk_log/examples/*.cfg "$common_files/Orvane Shared/qmrk/logging/cfg/"
cp "$tree"/share/doc/qmrk_log/examples/*.init "$program_data/Orvane/qmrk/logging/"
"$run" "$tree/bin/LogTest.exe" --classes 'Demo.App.info;' --lines 3
[ "$(grep -c '^\[Demo.App.info\] .* of 3.$' "$app_data/Orvane/Quillmark/Logging/common.log")" = 3 ] || {
  echo 'the common log is not as expected:'
  cat "$app_data/Orvane/Quillmark/Logging/common.log"
  exit 1
}
