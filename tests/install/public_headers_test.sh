#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# public_headers_test.sh COMPILER ROOT: every public header compiles alone, and twice, without a warning, as C++11 and
# later.
set -euo pipefail
compiler=$1
root=$2
flags=(-I"$root/include" -I"$root/logmanager/include" -Wall -Wextra -pedantic -Werror)

headers=("$root"/include/*.h "$root"/logmanager/include/boost/logging/*.hpp)
for header in "${headers[@]}"; do
  name=$(basename "$header")
  [ "${name##*.}" = h ] || name=boost/logging/$name
  for standard in c++11 c++14 c++17 c++20; do
    "$compiler" -std=$standard "${flags[@]}" -fsyntax-only -x c++ - <<<"#include <$name>
#include <$name>"
  done
  echo "$name compiles"
done
