#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# same_bytes_test.sh SOURCE BUILD: the DLLs of a Windows build, built again later from a copy of the sources in another
# folder, in another time zone and without a cache of the compiler, are the same to the byte. Takes as long as a build, so
# scripts/test does not run it; the place and the time of a build are looked for in every run.
set -euo pipefail
source=$(realpath "$1")
build=$(realpath "$2")
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
copy=$folder/in_a_folder_whose_name_has_another_length
mkdir "$copy"
(cd "$source" && git ls-files -z | tar --null --files-from=- -cf -) | tar -C "$copy" -xf -
cd "$copy"
export TZ=Asia/Tokyo
unset CMAKE_CXX_COMPILER_LAUNCHER
preset=$(basename "$build")
cmake --preset "$preset" -DQMRK_BUILD_TESTS=OFF >"$folder/log"
cmake --build --preset "$preset" --target qmrk_log log_manager >>"$folder/log" || { tail -n 30 "$folder/log"; exit 1; }
differ=0
for file in qmrk_log.dll boost_log-vc80-mt-1_33.dll; do
  cmp "$build/bin/$file" "build/$preset/bin/$file" || differ=1
done
exit $differ
