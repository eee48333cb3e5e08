#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# reference_test.sh ROOT: Doxygen, with the settings of docs/Doxyfile, accepts the public headers, and refuses a function
# or a macro without a comment, a comment that leaves out a parameter, and one that names a parameter which is not there.
set -euo pipefail
root=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# documented INPUT...: whether Doxygen accepts what it reads there.
documented() {
  (cd "$root" && { cat docs/Doxyfile && printf '%s\n' "INPUT = $*" "OUTPUT_DIRECTORY = $folder/out"; } | doxygen -) \
    >"$folder/warnings" 2>&1
}

if ! documented include logmanager/include/boost/logging; then
  cat "$folder/warnings"
  exit 1
fi

sound='/// @file
/// A header.

/// Adds. @param _a first @param _b second @return the sum
int add(int _a, int _b);
/// One.
#define ONE 1'
planted=(
  's|^/// Adds.*||'
  's|@param _b second||'
  's|@param _b|@param _c|'
  's|^/// One\.||'
)
mkdir "$folder/planted"
header=$folder/planted/header.h
printf '%s\n' "$sound" >"$header"
documented "$header" || { cat "$folder/warnings"; echo 'A sound header is refused.'; exit 1; }
for change in "${planted[@]}"; do
  printf '%s\n' "$sound" | sed "$change" >"$header"
  if documented "$header"; then
    cat "$header"
    echo 'Doxygen accepts this header.'
    exit 1
  fi
done
