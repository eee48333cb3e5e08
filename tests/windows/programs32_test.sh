#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# programs32_test.sh BUILD32 BUILD64 SOURCE: a 32-bit LogTest does its main job and listens, under Wine beside 64-bit programs:
# it reads the configuration of 32-bit programs, shares the common log with a 64-bit LogTest, and follows a 64-bit qmrkctl.
set -euo pipefail
build32=$1
build64=$2
source=$3
run="$source/scripts/lib/run-under-wine32"
. "$source/tests/windows/shell_folders.sh"
folder=$(mktemp -d)
trap 'clean; [ -z "${of_64:-}" ] || rm -rf "$of_64"; rm -rf "$folder"' EXIT
cd "$folder"

echo '-- the folder of 32-bit programs'
lay_out "$source/examples"
[[ $common_files == *'/Program Files (x86)/Common Files' ]] || { echo "it is $common_files"; exit 1; }
"$run" "$build32/bin/LogTest.exe" --classes 'Demo.App.info;' --lines 3
stamp='[0-9]{8} [0-9:]{8}\.[0-9]{3}'
expect "$common_log" "\[Demo\.App\.info\] $stamp line [123] of 3" 3

echo '-- one common log for both'
of_64="${common_files/ (x86)/}/Orvane Shared"
rm -rf "$of_64"
cp -r "$common_files/Orvane Shared" "$of_64"
"$run" "$build64/bin/LogTest.exe" --classes 'Demo.App.info;' --lines 2
expect "$common_log" "\[Demo\.App\.info\] $stamp line [123] of [23]" 5

echo '-- a listener'
"$run" "$build32/bin/LogTest.exe" --classes 'Demo.Net.details;' --listen 600 >listener &
listener=$!
until grep -q 'Demo.Net.details is off' listener; do sleep 0.1; kill -0 "$listener"; done
printf 'Demo.Net.details;\r\n' >"$program_data/Orvane/qmrk/logging/qmrk_logging_CA12.init"
"$run" "$build64/bin/qmrkctl.exe" signal | tee signal
grep -q LogTest signal
until grep -q 'Demo.Net.details is on' listener; do sleep 0.1; kill -0 "$listener"; done
"$run" taskkill /f /im LogTest.exe
wait "$listener" || true
grep -aq '^\[Demo\.Net\.details\]' "$common_log"
