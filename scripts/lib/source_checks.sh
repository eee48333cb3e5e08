# SPDX-License-Identifier: MIT
# Checks of the sources by clang-format and clang-tidy.
# shellcheck shell=bash

cxx_files() {
  git -C "$ROOT" ls-files -- '*.cpp' '*.h' '*.hpp' | sed "s|^|$ROOT/|"
}

check_format() {
  cxx_files | xargs clang-format-14 --dry-run -Werror --style=file
}

# check_tidy: every source of ours in the compile database of linux-release, two at a time on two cores.
check_tidy() {
  local database="$ROOT/build/linux-release/compile_commands.json"
  [ -f "$database" ] || { echo "$database is missing"; return 1; }
  sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$database" | sort -u | grep -v "^$ROOT/build/" |
    xargs -P "$(nproc)" -n 1 clang-tidy-14 -p "$ROOT/build/linux-release" --quiet
}
