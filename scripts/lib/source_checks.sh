# SPDX-License-Identifier: MIT
# Checks the sources with clang-format, Doxygen and clang-tidy.
# shellcheck shell=bash

cxx_files() {
  git -C "$ROOT" ls-files -- '*.cpp' '*.h' '*.hpp' | sed "s|^|$ROOT/|"
}

check_format() {
  cxx_files | xargs clang-format-14 --dry-run -Werror --style=file
}

# check_reference: every declaration in the public headers has a comment that fits it. The pages go to
# build/reference/html.
check_reference() {
  mkdir -p "$ROOT/build" && (cd "$ROOT" && doxygen docs/Doxyfile)
}

# check_tidy: checks every source of ours in the compile database of linux-tidy once, on all cores. Sources are joined in
# units, so including a source is allowed.
check_tidy() {
  local build="$ROOT/build/linux-tidy" units
  (cd "$ROOT" && cmake --preset linux-tidy) >/dev/null || return
  units=$(python3 -B "$ROOT/scripts/lib/tidy_units.py" "$build") && [ -n "$units" ] || return
  xargs -P "$(nproc)" -n 1 clang-tidy-14 -p "$build/tidy" --quiet --checks=-bugprone-suspicious-include <<<"$units"
}
