#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# purge_test.sh: removing the packages keeps what the administrator wrote; purging them leaves neither a file nor a
# folder nor a group.
set -euo pipefail
. "$ROOT/scripts/lib/packages.sh"
. "$ROOT/scripts/lib/clean_root.sh"
cfg='etc/xdg/Orvane Shared/qmrk/logging/cfg'
state=var/lib/Orvane/qmrk/logging
packages=(libqmrk-log1 libqmrk-log-dev qmrk-log-tools)
printf 'Demo.Net;\n' | as_root tee "$CLEAN_ROOT/$state/qmrk_logging_GE.init" >/dev/null

in_root apt-get remove -y -q "${packages[@]}"
grep 'edited here' "$CLEAN_ROOT/$cfg/qmrk_logging_CA12.cfg"
[ -e "$CLEAN_ROOT/$state/qmrk_logging_GE.init" ]
[ ! -e "$CLEAN_ROOT/usr/bin/qmrkctl" ]
if in_root ldconfig -p | grep qmrk; then
  echo 'the loader still knows the libraries'
  exit 1
fi

in_root dpkg --purge "${packages[@]}"
in_root apt-get autoremove -y -q --purge
as_root rm -r "$CLEAN_ROOT/packages" "$CLEAN_ROOT/home/ann"
if in_root getent group qmrk || in_root dpkg-query -W -f '${Package} ${Status}\n' "${packages[@]}"; then
  echo 'a group or a package is left'
  exit 1
fi
# Other than what apt and dpkg write whatever was installed.
in_root find / -xdev ! -path '/proc/*' ! -path '/tmp/*' -print | LC_ALL=C sort |
  LC_ALL=C comm -13 "$CLEAN_ROOT/../before" - | grep -vE '^/(var/(lib/(apt|dpkg)|cache|log)(/|$)|etc/[a-z]+-$|home/)' >"$CLEAN_ROOT/../left" || true
[ ! -s "$CLEAN_ROOT/../left" ] || { cat "$CLEAN_ROOT/../left"; exit 1; }
