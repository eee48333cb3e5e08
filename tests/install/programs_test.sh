#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# programs_test.sh STAGE: the installed programs find the installed libraries and tell how they are used.
set -euo pipefail
for program in LogTest qmrkctl; do
  env -u LD_LIBRARY_PATH "$1/bin/$program" --help | grep -i usage >/dev/null
done
