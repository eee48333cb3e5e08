#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# upgrade_test.sh: after an upgrade, a configuration file that was edited is as edited, one that was not is the new one,
# and the class lists are untouched.
set -euo pipefail
. "$ROOT/scripts/lib/packages.sh"
. "$ROOT/scripts/lib/clean_root.sh"
cfg='etc/xdg/Orvane Shared/qmrk/logging/cfg'
state=var/lib/Orvane/qmrk/logging
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A later package, in which both files are changed.
dpkg-deb -R "$BUILD"/qmrk-log-tools_*.deb "$work/tools"
sed -i 's/^Version: .*/&.1/' "$work/tools/DEBIAN/control"
for ca in GE CA12; do
  echo '# changed by the package' >>"$work/tools/$cfg/qmrk_logging_$ca.cfg"
done
dpkg-deb --root-owner-group -b "$work/tools" "$work/later.deb" >/dev/null
as_root cp "$work/later.deb" "$CLEAN_ROOT/packages/later.deb"

printf '# edited here\n' | as_root tee -a "$CLEAN_ROOT/$cfg/qmrk_logging_CA12.cfg" >/dev/null
edited=$(sha256sum <"$CLEAN_ROOT/$cfg/qmrk_logging_CA12.cfg")
printf 'Demo.Net;\n' | as_root tee "$CLEAN_ROOT/$state/qmrk_logging_CA12.init" >/dev/null
# Taken from the group by the administrator.
in_root chown root:root "/$state/qmrk_logging_CA7.init"
in_root chmod 644 "/$state/qmrk_logging_CA7.init"
in_root dpkg -i --force-confdef /packages/later.deb
in_root dpkg-query -W -f '${Version}\n' qmrk-log-tools | grep '\.1$'

[ "$(sha256sum <"$CLEAN_ROOT/$cfg/qmrk_logging_CA12.cfg")" = "$edited" ]
[ -e "$CLEAN_ROOT/$cfg/qmrk_logging_CA12.cfg.dpkg-dist" ]
grep 'changed by the package' "$CLEAN_ROOT/$cfg/qmrk_logging_GE.cfg"
grep -x 'Demo.Net;' "$CLEAN_ROOT/$state/qmrk_logging_CA12.init"
[ "$(in_root stat -c '%a %U %G' "/$state/qmrk_logging_CA7.init")" = '644 root root' ]

# A class list that was removed stays away.
as_root rm "$CLEAN_ROOT/$state/qmrk_logging_CA12.init"
in_root dpkg -i --force-confdef /packages/later.deb
[ ! -e "$CLEAN_ROOT/$state/qmrk_logging_CA12.init" ]
