#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# format_compile_test.sh COMPILER ROOT: statements whose format fits their arguments compile without a warning; of those
# whose format does not fit, the compiler finds each.
set -euo pipefail
compiler=$1
root=$2
good=('QMRK_LOGF(_log, "none");' 'QMRK_LOGF(_log, "{} {:>4}", 1, "text");' 'QMRK_LOGF(_log, "{:x}", 255);')
bad=('QMRK_LOGF(_log, "{} {}", 1);' 'QMRK_LOGF(_log, "{:x}", "text");' 'QMRK_LOGF(_log, "{", 1);'
  'QMRK_LOGF(_log, "{name}", 1);')

# compile STANDARD STATEMENT...: the statements stand in the lines from 4 on.
compile() {
  local standard=$1
  shift
  "$compiler" -std="$standard" -I"$root/logmanager/include" -Wall -Wextra -pedantic -Werror -fsyntax-only -x c++ - <<<"
#include <boost/logging/format.hpp>
void logAll(const boost::logging::logger& _log); void logAll(const boost::logging::logger& _log) {
$(printf '%s\n' "$@")
}" 2>&1
}

for standard in c++14 c++20; do
  compile $standard "${good[@]}"
  if errors=$(compile $standard "${bad[@]}"); then
    echo "as $standard nothing is found"
    exit 1
  fi
  for i in "${!bad[@]}"; do
    if ! grep -q "^<stdin>:$((i + 4)):" <<<"$errors"; then
      printf 'as %s, %s is not found:\n%s\n' $standard "${bad[i]}" "$errors"
      exit 1
    fi
  done
  echo "$standard: formats are checked"
done
