#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# same_bytes_test.sh WORK: the packages, made again later from a copy of the sources in another folder, in another time
# zone, are the same to the byte; so are the libraries and programs before they are
# stripped.
set -euo pipefail
copy=$1/copy/in_a_folder_whose_name_has_another_length
mkdir -p "$copy"
(cd "$ROOT" && git ls-files -z | tar --null --files-from=- -cf - ) | tar -C "$copy" -xf -
cd "$copy"
export TZ=Asia/Tokyo
cmake --preset linux-packages
cmake --build --preset linux-packages
(cd build/linux-packages && cpack)

differ=0
for file in include/libqmrk_log.so logmanager/libqmrk_boost_logging.so tools/LogTest tools/qmrkctl/qmrkctl \
  qmrk_log.spdx.json; do
  cmp "$BUILD/$file" "build/linux-packages/$file" || differ=1
done
# contents PACKAGE: the rights and sums of all its files.
contents() {
  dpkg-deb -R "$1" unpacked
  (cd unpacked && find . -printf '%M %p\n' | sort && find . -type f -exec sha256sum {} + | sort -k 2)
  rm -rf unpacked
}
for package in "$BUILD"/*.deb; do
  again=build/linux-packages/$(basename "$package")
  cmp "$package" "$again" && continue
  differ=1
  contents "$package" >first.txt
  contents "$again" >again.txt
  diff first.txt again.txt || true
done
exit $differ
