#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# uninstall_test.sh BUILD: after "uninstall" nothing is left of what was installed, and everything of what was not.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cmake --install "$1" --prefix "$folder/usr" >"$folder/install.log" 2>&1
if [ "$(id -u)" -eq 0 ]; then
  # The loader knows no such folder, and no configuration was installed with the programs.
  grep -q 'Left to do:' "$folder/install.log"
  grep -q "LD_LIBRARY_PATH=$folder/usr/lib" "$folder/install.log"
  grep -q '"sudo cmake --build .* --target uninstall"' "$folder/install.log"
fi
mkdir -p "$folder/usr/share/doc/other"
touch "$folder/usr/bin/other"
mkdir "$folder/programs"
printf '#!/bin/sh\necho called >>"%s"\n' "$folder/ldconfig.log" >"$folder/programs/ldconfig"
chmod +x "$folder/programs/ldconfig"
PATH=$folder/programs:$PATH cmake --build "$1" --target uninstall >"$folder/uninstall.log"
# Root's: nobody else may renew the cache of the loader.
if [ "$(id -u)" -eq 0 ]; then
  [ -s "$folder/ldconfig.log" ]
else
  [ ! -e "$folder/ldconfig.log" ]
fi
left=$(cd "$folder/usr" && find . -type f -o -type l -o -type d -name 'qmrk*')
[ "$left" = ./bin/other ] || { echo "left: $left"; exit 1; }
[ -d "$folder/usr/share/doc/other" ]
if cmake --build "$1" --target uninstall >"$folder/again.log" 2>&1; then
  echo 'a second time did not fail'
  exit 1
fi
grep -q 'Nothing was installed' "$folder/again.log"
