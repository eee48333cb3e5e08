#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# same_bytes_test.sh SOURCE PRESET: a Windows build without the tests, and another one, later, from a copy of the sources in
# another folder, in another time zone, are the same to the byte: DLLs, programs, the archive and the installer.
set -euo pipefail
source=$(realpath "$1")
preset=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
unset CMAKE_CXX_COMPILER_LAUNCHER

# build FOLDER: copies the sources there and makes all of them.
build() {
  mkdir -p "$1"
  (cd "$source" && git ls-files -z | tar --null --files-from=- -cf -) | tar -C "$1" -xf -
  cd "$1"
  cmake --preset "$preset" -DQMRK_BUILD_TESTS=OFF
  cmake --build --preset "$preset"
  cmake --build --preset "$preset" --target windows-msi
  (cd "build/$preset" && cpack -G ZIP -B .)
}

build "$folder/here" >"$folder/log" 2>&1 || { tail -n 30 "$folder/log"; exit 1; }
elsewhere=$folder/in_a_folder_whose_name_has_another_length
TZ=Asia/Tokyo build "$elsewhere" >"$folder/log" 2>&1 || { tail -n 30 "$folder/log"; exit 1; }

compared=0 differ=0
cd "$folder/here/build/$preset"
for file in bin/*.dll bin/*.exe ./*.zip ./*.msi; do
  compared=$((compared + 1))
  cmp "$file" "$elsewhere/build/$preset/$file" || differ=1
done
printf '%d files compared\n' "$compared"
# Two libraries, two programs, the archive and the installer.
[ "$compared" -eq 6 ] && [ "$differ" -eq 0 ]
