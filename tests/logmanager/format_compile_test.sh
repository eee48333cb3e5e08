#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# format_compile_test.sh COMPILER ROOT: statements whose format fits their arguments compile without a warning;
# each whose format does not fit is refused.
set -euo pipefail
compiler=$1
root=$2
good=('QMRK_LOGF(_log, "none");' 'QMRK_LOGF(_log, "{} {:>4}", 1, "text");' 'QMRK_LOGF(_log, "{:x}", 255);'
  'QMRK_LOGF(_log, "{:>{}}", 1, 4);')
bad=('QMRK_LOGF(_log, "{} {}", 1);' 'QMRK_LOGF(_log, "{:x}", "text");' 'QMRK_LOGF(_log, "{", 1);'
  'QMRK_LOGF(_log, "{name}", 1);' 'QMRK_LOGF(_log, "{:>{}}", 1);')

# compile STANDARD STATEMENT...
compile() {
  local standard=$1
  shift
  "$compiler" -std="$standard" -I"$root/logmanager/include" -Wall -Wextra -pedantic -Werror -fsyntax-only -x c++ - <<<"
#include <boost/logging/format.hpp>
void logAll(const boost::logging::logger& _log); void logAll(const boost::logging::logger& _log) {
$(printf '%s\n' "$@")
}" 2>&1
}

for standard in c++14 c++17 c++20; do
  compile $standard "${good[@]}"
  for statement in "${bad[@]}"; do
    if compile $standard "$statement" >/dev/null; then
      echo "as $standard, $statement compiles"
      exit 1
    fi
  done
  echo "$standard: formats are checked"
done
