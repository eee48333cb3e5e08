#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# abi_test.sh LIBRARY BASELINE: the library, built with debug information, has the binary interface of the baseline:
# functions, their types, and the layout of what they pass. After a wanted change that programs survive (a function was
# added), renew the baseline with: abi_test.sh LIBRARY BASELINE --renew, and review it. CONTRIBUTING.md says what to do
# after one that they do not survive.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
found=$(mktemp)
trap 'rm -f "$found"' EXIT
abidw --exported-interfaces-only --drop-private-types --drop-undefined-syms \
  --headers-dir "$root/include" --headers-dir "$root/logmanager/include" \
  --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names --no-elf-needed --no-architecture \
  "$1" >"$found"
# Without debug information only the names of the symbols would be compared.
grep -q '<class-decl' "$found" || { echo "$1 has no debug information"; exit 1; }
if [ "${3:-}" = --renew ]; then
  cp "$found" "$2"
  chmod 644 "$2"
fi
abidiff "$2" "$found" && echo 'the same interface'
