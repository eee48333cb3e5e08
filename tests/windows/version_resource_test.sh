#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# version_resource_test.sh VERSION FILE...: each file bears a version resource with this file and product version.
set -euo pipefail

version=$1
shift
for file in "$@"; do
  # The fixed block begins with the signature FEEF04BD and a structure version; the two versions follow.
  found=$(od -An -v -tx1 -w1 "$file" | tr -d ' \n' | grep -o 'bd04effe00000100.\{32\}' | head -n 1) || true
  [ -n "$found" ] || { echo "$file bears no version"; exit 1; }
  number() { printf '%d' "0x${found:$(($1 + 2)):2}${found:$1:2}"; }
  for begin in 16 32; do
    seen="$(number $((begin + 4))).$(number "$begin").$(number $((begin + 12))).$(number $((begin + 8)))"
    [ "$seen" = "$version" ] || { echo "$file has version $seen"; exit 1; }
  done
  echo "$(basename "$file"): $version"
done
