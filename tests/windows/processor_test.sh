#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# processor_test.sh ARCHITECTURE FILE...: the files are for this processor, as objdump names it.
set -euo pipefail
wanted=$1
shift
for file in "$@"; do
  found=$(x86_64-w64-mingw32-objdump -f "$file" | sed -n 's/^architecture: \([^,]*\),.*/\1/p')
  [ "$found" = "$wanted" ] || { echo "$file is for ${found:-nothing that is known}"; exit 1; }
done
