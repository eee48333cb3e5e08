#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# imports_test.sh FILE...: the files need no DLL but each other's and those of every Windows: in particular none of the
# compiler's run-time. The set-up library needs the log manager's: there is one manager in a process.
set -euo pipefail

system='advapi32.dll kernel32.dll msvcrt.dll shell32.dll version.dll'
own='qmrk_log.dll boost_log-vc80-mt-1_33.dll'
status=0
for file in "$@"; do
  imports=$(x86_64-w64-mingw32-objdump -p "$file" | sed -n 's/^[[:space:]]*DLL Name: //p')
  [ -n "$imports" ] || { echo "$file has no imports"; exit 1; }
  for import in $imports; do
    if [[ " $system $own " != *" ${import,,} "* ]]; then
      echo "$(basename "$file") needs $import"
      status=1
    fi
  done
  if [[ $(basename "$file") == qmrk_log.dll && " ${imports//$'\n'/ } " != *' boost_log-vc80-mt-1_33.dll '* ]]; then
    echo 'qmrk_log.dll does not need the log manager'
    status=1
  fi
  echo "$(basename "$file"):" $imports
done
exit $status
