#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# script_usage_test.sh ROOT: each script says with --help how it is used, and does nothing but that for an option that it does
# not have.
set -uo pipefail
root=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
found=0
wrong=0

# expect OPTION STATUS SPEAKS SILENT: runs the script, which must end with the status, and tell its use in one stream only.
expect() {
  timeout 60 "$script" "$1" >"$work/out" 2>"$work/err" </dev/null
  local status=$?
  if [ "$status" -ne "$2" ] || [ -s "$work/$4" ] || ! grep -q "usage: .*$name" "$work/$3"; then
    echo "$name $1 ends with $status instead of $2, or does not tell its use (only) there: std$3."
    head -n 5 "$work/out" "$work/err"
    wrong=1
  fi
}

for script in "$root"/scripts/*; do
  [ -f "$script" ] || continue
  name=scripts/$(basename "$script")
  expect --help 0 out err
  expect --no-such-option 2 err out
  found=$((found + 1))
done
echo "$found scripts"
[ "$found" -gt 0 ] && [ "$wrong" -eq 0 ]
