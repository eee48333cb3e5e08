# SPDX-License-Identifier: MIT
# Builds for Windows and runs the result under Wine, in a new prefix.
# shellcheck shell=bash

. "$ROOT/scripts/lib/packages.sh"
. "$ROOT/scripts/lib/build.sh"

# Starts every Windows program.
WINE_RUN="$ROOT/scripts/lib/run-under-wine"

# install_windows_dependencies: installs packages, and builds the libraries that are needed (once).
install_windows_dependencies() {
  install_packages "${PACKAGES_BUILD[@]}" "${PACKAGES_WINDOWS[@]}" && "$ROOT/scripts/build-windows-dependencies"
}

# build_windows [TARGET...]: the same, and builds the targets.
build_windows() {
  install_windows_dependencies && build_preset windows-release "$@"
}

# begin_wine: creates a prefix, which end_wine removes. Its server keeps running meanwhile, since starting it takes seconds.
begin_wine() {
  QMRK_WINE_PREFIX=$(mktemp -d "${TMPDIR:-/tmp}/qmrk-wine.XXXXXX")
  export QMRK_WINE_PREFIX
  trap end_wine EXIT
  "$WINE_RUN" --keep-server && "$WINE_RUN" wineboot --init
}

end_wine() {
  [ -n "${QMRK_WINE_PREFIX:-}" ] || return 0
  WINEPREFIX=$QMRK_WINE_PREFIX wineserver --kill --wait 2>/dev/null
  rm -rf "$QMRK_WINE_PREFIX"
  unset QMRK_WINE_PREFIX
}

# windows_path PATH: prints the name that a file of this system has for a Windows program.
windows_path() {
  printf 'Z:%s' "${1//\//\\}"
}
