# SPDX-License-Identifier: MIT
# Lists which Debian packages are needed for what, and installs missing ones.
# shellcheck shell=bash disable=SC2034  # the lists are used by the scripts that read this file

PACKAGES_BUILD=(g++ cmake ninja-build libboost-dev libboost-filesystem-dev libboost-thread-dev libcli11-dev
  nlohmann-json3-dev zlib1g-dev scdoc)
PACKAGES_TEST=(git python3 pkg-config binutils procps libgtest-dev libgmock-dev libbenchmark-dev libfmt-dev valgrind
  clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14 doxygen tmux zsh fish
  python3-jsonschema rsyslog rsyslog-relp lnav logrotate systemd openssl man-db)
PACKAGES_PACKAGING=(git python3 dpkg-dev file binutils lintian debootstrap abigail-tools reuse)
PACKAGES_COVERAGE=(gcovr)
PACKAGES_WINDOWS=(g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 wine wine64 googletest python3 dpkg-dev xz-utils
  zip unzip libz-mingw-w64-dev wixl msitools)
PACKAGES_WINDOWS32=("${PACKAGES_BUILD[@]}" "${PACKAGES_WINDOWS[@]}" g++-mingw-w64-i686-posix binutils-mingw-w64-i686)

# as_root COMMAND...: runs a command as root: directly if the caller is root, else with sudo.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  else
    sudo "$@"
  fi
}

# install_packages NAME...: installs the missing ones of these Debian packages. Needs no network if none is missing.
install_packages() {
  local missing=() name
  for name in "$@"; do
    dpkg-query -W -f='${Status}\n' "$name" 2>/dev/null | grep -q '^install ok installed' || missing+=("$name")
  done
  [ "${#missing[@]}" -gt 0 ] || return 0
  printf 'Installing from Debian: %s\n' "${missing[*]}"
  as_root apt-get -o DPkg::Lock::Timeout=300 update -qq </dev/null &&
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 install -y -qq \
      --no-install-recommends "${missing[@]}" </dev/null >/dev/null
}
