#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# windows_exports_test.sh DLL LIST: the DLL exports, by name, exactly what the reviewed list names. After a wanted change
# of the interface, renew the list with: windows_exports_test.sh DLL LIST --renew, and review it.
set -euo pipefail
exported=$(mktemp)
trap 'rm -f "$exported"' EXIT

x86_64-w64-mingw32-objdump -p "$1" |
  sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/ s/^[[:space:]]*\[[ 0-9]*\]\(.*[[:space:]]\)\{0,1\}\([^[:space:]]*\)$/\2/p' |
  c++filt --no-strip-underscore |
  sed -e 's/std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >/std::string/g' \
    -e 's/\[abi:cxx11\]//' | LC_ALL=C sort -u >"$exported"
[ -s "$exported" ] || { echo "$1 exports nothing"; exit 1; }
if [ "${3:-}" = --renew ]; then
  cp "$exported" "$2"
  chmod 644 "$2"
fi
diff --unified "$2" "$exported" && echo "$(wc -l <"$exported") symbols, as listed"
