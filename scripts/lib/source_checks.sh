# SPDX-License-Identifier: MIT
# Checks of the sources by clang-format, Doxygen and clang-tidy.
# shellcheck shell=bash

cxx_files() {
  git -C "$ROOT" ls-files -- '*.cpp' '*.h' '*.hpp' | sed "s|^|$ROOT/|"
}

check_format() {
  cxx_files | xargs clang-format-14 --dry-run -Werror --style=file
}

# check_reference: every declaration of the public headers has a comment, and the comment fits it. The pages go to
# build/reference/html.
check_reference() {
  mkdir -p "$ROOT/build" && (cd "$ROOT" && doxygen docs/Doxyfile)
}

# check_tidy: every source of ours in the compile database of linux-tidy, where the sources of a test program stand
# together in one, as those of the libraries do, which is why sources may be included; on all cores. A source of the
# libraries of which a fuzz target has an object of its own is not checked a second time.
check_tidy() {
  local build="$ROOT/build/linux-tidy" sources
  (cd "$ROOT" && cmake --preset linux-tidy) >/dev/null || return
  sources=$(sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$build/compile_commands.json" | sort -u |
    grep -v "/build/[^/]*/[^/]*$")
  grep -vxFf <(grep '/Unity/' <<<"$sources" | xargs sed -n 's/^#include "\(.*\)"$/\1/p') <<<"$sources" |
    xargs -P "$(nproc)" -n 1 clang-tidy-14 -p "$build" --quiet --checks=-bugprone-suspicious-include
}
