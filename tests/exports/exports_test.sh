#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# exports_test.sh LIBRARY LIST: the dynamic symbols of the library, or the names that the DLL exports, are those of the
# reviewed list. After a wanted change of the interface, renew the list with: exports_test.sh LIBRARY LIST --renew, and
# review it.
set -euo pipefail
exported=$(mktemp)
trap 'rm -f "$exported"' EXIT

names() {
  case $1 in
    *.dll)
      x86_64-w64-mingw32-objdump -p "$1" |
        sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/ s/^[[:space:]]*\[[ 0-9]*\]\(.*[[:space:]]\)\{0,1\}\([^[:space:]]*\)$/\2/p' |
        c++filt --no-strip-underscore
      ;;
    # An absolute symbol is the name of a version; tests/exports/abi_test.sh compares in which version each symbol is.
    *) nm --dynamic --defined-only --demangle --without-symbol-versions "$1" | sed '/^[0-9a-f]* A /d' | cut -d' ' -f3- ;;
  esac
}

names "$1" |
  sed -e 's/std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >/std::string/g' \
    -e 's/\[abi:cxx11\]//' | LC_ALL=C sort -u >"$exported"
[ -s "$exported" ] || { echo "$1 exports nothing"; exit 1; }
if [ "${3:-}" = --renew ]; then
  cp "$exported" "$2"
  chmod 644 "$2"
fi
diff --unified "$2" "$exported" && echo "$(wc -l <"$exported") symbols, as listed"
