#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# consumer_test.sh TREE SOURCE TOOLCHAIN: the examples, in the unpacked archive, find its package by find_package, as
# docs/windows.md says, are built as C++11 without a warning, and run under Wine beside its DLLs.
set -euo pipefail
tree=$1
source=$2
run="$source/scripts/lib/run-under-wine"
. "$source/tests/windows/shell_folders.sh"

folder=$(mktemp -d)
trap 'clean; rm -rf "$folder"' EXIT
# Moved, so that nothing which names the first place works by chance.
cp -r "$tree" "$folder/moved"
examples=$folder/moved/share/doc/qmrk_log/examples
command=$(python3 -B "$source/tests/docs/page_blocks.py" "$source/docs/windows.md" 'The archives' 1/1)
cd "$folder/moved"
bash -ec "${command//<unpacked>/$folder/moved} -G Ninja -DCMAKE_TOOLCHAIN_FILE='$3' -DCMAKE_CXX_STANDARD=11 \
  -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS='-Wall -Wextra -pedantic -Werror'"
cmake --build build --target default_set_up log_manager_only
cp bin/*.dll build/

cd build
lay_out "$examples"
"$run" ./default_set_up.exe
expect "$common_log" '\[Demo\.App\.info\] [0-9]{8} [0-9:]{8}\.[0-9]{3} started with 3 workers' 1
"$run" ./log_manager_only.exe
expect app.log '.*disk 3 failed' 1
