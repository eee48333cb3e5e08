#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# format_compile_test.sh COMPILER ROOT: statements whose format fits their arguments compile without a warning;
# each whose format does not fit is refused.
set -euo pipefail
compiler=$1
root=$2
all_errors=()
[[ $compiler != clang* ]] || all_errors=(-ferror-limit=0)
good=('QMRK_LOGF(_log, "none");' 'QMRK_LOGF(_log, "{} {:>4}", 1, "text");' 'QMRK_LOGF(_log, "{:x}", 255);'
  'QMRK_LOGF(_log, "{:>{}}", 1, 4);')
bad=('QMRK_LOGF(_log, "{} {}", 1);' 'QMRK_LOGF(_log, "{:x}", "text");' 'QMRK_LOGF(_log, "{", 1);'
  'QMRK_LOGF(_log, "{name}", 1);' 'QMRK_LOGF(_log, "{:>{}}", 1);')

# compile STANDARD STATEMENT...: the first statement stands in line 10, each of the others in the next.
compile() {
  local standard=$1
  shift
  "$compiler" -std="$standard" -I"$root/logmanager/include" -Wall -Wextra -pedantic -Werror "${all_errors[@]}" -fsyntax-only -x c++ - <<<"
#include <boost/logging/format.hpp>
void logAll(const boost::logging::logger& _log); void logAll(const boost::logging::logger& _log) {
#line 10
$(printf '%s\n' "$@")
}" 2>&1
}

for standard in c++14 c++17 c++20; do
  compile $standard "${good[@]}"
  # Each line of its own is to be complained of, and not the last one, which fits.
  messages=$(compile $standard "${bad[@]}" "${good[1]}") && { echo "as $standard, all compile"; exit 1; }
  line=10
  for statement in "${bad[@]}"; do
    grep -q "<stdin>:$line:" <<<"$messages" || { echo "as $standard, $statement compiles"; exit 1; }
    line=$((line + 1))
  done
  if grep "<stdin>:$line:" <<<"$messages"; then
    echo "as $standard, ${good[1]} does not compile"
    exit 1
  fi
  echo "$standard: formats are checked"
done
