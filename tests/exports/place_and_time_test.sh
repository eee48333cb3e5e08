#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# place_and_time_test.sh FOLDER FILE...: the libraries and programs name neither the folder of the sources, as which the
# folder of the build counts that lies in it, nor that of the libraries for Windows, nor the time at which they were linked.
set -euo pipefail
folder=$1
libraries=${QMRK_WINDOWS_DEPENDENCIES:-${XDG_CACHE_HOME:-$HOME/.cache}/qmrk-windows}
shift
bare=$(mktemp)
trap 'rm -f "$bare"' EXIT
for file in "$@"; do
  case $file in
    *.dll | *.exe) x86_64-w64-mingw32-strip --strip-debug -o "$bare" "$file" ;;
    *) strip --strip-debug -o "$bare" "$file" ;;
  esac
  for place in "$folder" "$libraries"; do
    if grep -a -F -q "$place/" "$bare"; then
      echo "$file names $place"
      exit 1
    fi
  done
  case $file in
    *.dll | *.exe)
      # Not -q: grep would leave early, and objdump fail on the closed pipe.
      x86_64-w64-mingw32-objdump -p "$file" | grep -E '^Time/Date\s+Thu Jan +1 00:00:00 1970' >/dev/null ||
        { echo "$file has the time at which it was linked"; exit 1; }
      ;;
  esac
done
