# SPDX-License-Identifier: MIT
# Checks of the sources by clang-format and clang-tidy.
# shellcheck shell=bash

cxx_files() {
  git -C "$ROOT" ls-files -- '*.cpp' '*.h' '*.hpp' | sed "s|^|$ROOT/|"
}

check_format() {
  cxx_files | xargs clang-format-14 --dry-run -Werror --style=file
}

# check_tidy: every source of ours in the compile database of linux-tidy, where the sources of a test program stand
# together in one, as those of the libraries do, which is why sources may be included; on all cores.
check_tidy() {
  local build="$ROOT/build/linux-tidy"
  (cd "$ROOT" && cmake --preset linux-tidy) >/dev/null || return
  sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$build/compile_commands.json" | sort -u | grep -v "/build/[^/]*/[^/]*$" |
    xargs -P "$(nproc)" -n 1 clang-tidy-14 -p "$build" --quiet --checks=-bugprone-suspicious-include
}
