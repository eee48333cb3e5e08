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

# check_tidy: every source of ours in the compile database of linux-tidy, once, on all cores. Sources stand together in
# units, which is why sources may be included.
check_tidy() {
  local build="$ROOT/build/linux-tidy" units
  (cd "$ROOT" && cmake --preset linux-tidy) >/dev/null || return
  units=$(python3 -B "$ROOT/scripts/lib/tidy_units.py" "$build") && [ -n "$units" ] || return
  xargs -P "$(nproc)" -n 1 clang-tidy-14 -p "$build/tidy" --quiet --checks=-bugprone-suspicious-include <<<"$units"
}
