#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# program_of_windows_test.sh RUN: a program that Windows brings is run by its name, and by no other program in between.
set -euo pipefail
run=$1

output=$(WINEDEBUG=+module "$run" cmd /c 'echo ready' 2>&1 | tr -d '\r')
grep -x ready <<<"$output" >/dev/null || { echo 'cmd has not run'; exit 1; }
grep -iF 'system32\\cmd.exe' <<<"$output" >/dev/null || { echo 'the programs are not told'; exit 1; }
if grep -iF 'start.exe' <<<"$output"; then exit 1; fi
