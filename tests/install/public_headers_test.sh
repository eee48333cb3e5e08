#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# public_headers_test.sh COMPILER ROOT: every public header compiles alone, and twice, without a warning, as C++11 and as
# C++20; all of them together do as what lies between.
set -euo pipefail
compiler=$1
root=$2
flags=(-I"$root/include" -I"$root/logmanager/include" -Wall -Wextra -pedantic -Werror)

headers=("$root"/include/*.h "$root"/logmanager/include/boost/logging/*.hpp)

# compile STANDARD: what is read from standard input.
compile() {
  "$compiler" -std="$1" "${flags[@]}" -fsyntax-only -x c++ -
}

all=
for header in "${headers[@]}"; do
  name=$(basename "$header")
  [ "${name##*.}" = h ] || name=boost/logging/$name
  include="#include <$name>"$'\n'
  all+=$include
  for standard in c++11 c++20; do
    compile $standard <<<"$include$include"
  done
  echo "$name compiles"
done
for standard in c++14 c++17; do
  compile $standard <<<"$all$all"
done
