#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# reference_test.sh ROOT: Doxygen, with the settings of docs/Doxyfile, accepts the public headers, and its first page leads
# to each of them. It refuses a function or a macro without a comment, a comment that leaves out a parameter, and one that
# names a parameter which is not there.
set -euo pipefail
root=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# documented SETTING...: whether Doxygen accepts what it reads by these further settings.
documented() {
  (cd "$root" && { cat docs/Doxyfile && printf '%s\n' "OUTPUT_DIRECTORY = $folder/out" "$@"; } | doxygen -) \
    >"$folder/warnings" 2>&1
}

if ! documented ''; then
  cat "$folder/warnings"
  exit 1
fi
for header in "$root"/include/*.h "$root"/logmanager/include/boost/logging/*.hpp; do
  if ! grep -q "<a class=\"el\"[^>]*>\(boost/logging/\)\?$(basename "$header")</a>" "$folder/out/html/index.html"; then
    echo "docs/reference.md does not lead to $(basename "$header")."
    exit 1
  fi
done

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
documented "INPUT = $header" "USE_MDFILE_AS_MAINPAGE =" || { cat "$folder/warnings"; echo 'A sound header is refused.'; exit 1; }
for change in "${planted[@]}"; do
  printf '%s\n' "$sound" | sed "$change" >"$header"
  if documented "INPUT = $header" "USE_MDFILE_AS_MAINPAGE ="; then
    cat "$header"
    echo 'Doxygen accepts this header.'
    exit 1
  fi
done
