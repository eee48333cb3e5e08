#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# install_test.sh: the packages, installed into the clean root, bring all that they need. An application is built there
# in both ways, and logs with no further step; so do the tools.
set -euo pipefail
. "$ROOT/scripts/lib/packages.sh"
. "$ROOT/scripts/lib/clean_root.sh"

# What was there before, for the test of the removal.
in_root find / -xdev ! -path '/proc/*' ! -path '/tmp/*' -print | LC_ALL=C sort | as_root tee "$CLEAN_ROOT/../before" >/dev/null
# Where the page on deployment has them.
as_root mkdir -p "$CLEAN_ROOT/packages/build/linux-packages" "$CLEAN_ROOT/home/ann"
as_root cp "$BUILD"/*.deb "$CLEAN_ROOT/packages/build/linux-packages/"
as_root chown 1234:1234 "$CLEAN_ROOT/home/ann"
# What root left there without the packages, and somebody else.
state=$CLEAN_ROOT/var/lib/Orvane/qmrk/logging
as_root install -d -m 0700 "$CLEAN_ROOT/var/lib/Orvane" "$CLEAN_ROOT/var/lib/Orvane/qmrk"
as_root install -d -m 0755 -o 1234 -g 1234 "$state"
echo 'Demo.App;' | as_root tee "$state/qmrk_logging_CA7.init" "$state/qmrk_logging_CA8.init" "$state/qmrk_logging_CA9.init" >/dev/null
as_root install -m 0600 /dev/null "$state/qmrk_logging_CA7.lock"
as_root chown 1234:1234 "$state/qmrk_logging_CA8.init"
as_root mkdir -m 0755 "$state/elsewhere"
as_root mv "$state/qmrk_logging_CA9.init" "$state/elsewhere/list"
as_root ln -s elsewhere/list "$state/qmrk_logging_CA9.init"
in_root bash -ec "cd /packages; $(python3 -B "$ROOT/tests/docs/page_blocks.py" "$ROOT/docs/deployment.md" 'Debian packages' 4/4)"

echo '-- the machine'
folder=/var/lib/Orvane/qmrk/logging
[ "$(in_root stat -c '%a %U %G' $folder)" = '2775 root qmrk' ]
[ "$(in_root stat -c '%a %U %G' $folder/qmrk_logging_CA12.init)" = '664 root qmrk' ]
[ "$(in_root stat -c '%a %U %G' /var/lib/Orvane)" = '755 root root' ]
[ "$(in_root stat -c '%a %U %G' /var/lib/Orvane/qmrk)" = '755 root root' ]
[ "$(in_root stat -c '%a %U %G' $folder/qmrk_logging_CA7.init)" = '664 root qmrk' ]
[ "$(in_root stat -c '%a %u %g' $folder/qmrk_logging_CA8.init)" = '644 1234 1234' ]
[ "$(in_root stat -c '%a %U %G' $folder/elsewhere/list)" = '644 root root' ]
[ "$(in_root dpkg-query -W -f '${Conffiles}' qmrk-log-tools | grep -c 'Orvane Shared/qmrk/logging/cfg/qmrk_logging_.*\.cfg')" = 2 ]

in_root test -e /etc/systemd/system/timers.target.wants/qmrk-lease-sweep.timer
in_root test -s /lib/systemd/system/qmrk-lease-sweep.service
for package in libqmrk-log1:same libqmrk-log-dev:same qmrk-log-tools:foreign; do
  [ "$(dpkg-deb -f "$BUILD/${package%:*}"_*.deb Multi-Arch)" = "${package#*:}" ]
done
# What several architectures have in common names none of them; pages for developers speak of some.
architecture=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
for package in "libqmrk-log1:${architecture%%-*}" "libqmrk-log-dev:$architecture"; do
  rm -rf "$CLEAN_ROOT/../unpacked"
  dpkg-deb -x "$BUILD/${package%:*}"_*.deb "$CLEAN_ROOT/../unpacked"
  if (cd "$CLEAN_ROOT/../unpacked" && find . -type f ! -path "*/$architecture/*" ! -name "*.${architecture%%-*}.*" \
    -exec grep -l "${package#*:}" {} +); then
    echo "of ${package%:*} these name ${package#*:}, and other architectures have the same files"
    exit 1
  fi
done

echo '-- applications'
examples=/usr/share/doc/libqmrk-log-dev/examples
in_root test -x $examples/pkg_config/build.sh
as_user sh -ec "cd && cp -r $examples examples && cd examples
  cmake -S find_package -B built -DCMAKE_BUILD_TYPE=None >cmake.log && cmake --build built --target default_set_up
  g++ -std=c++11 programs/process_stamp.cpp -o process_stamp \$(pkg-config --cflags --libs qmrk_log)"
log=/home/ann/.local/share/Orvane/Quillmark/Logging/common.log
as_user /home/ann/examples/built/default_set_up
in_root grep -E '^\[Demo\.App\.info\] [0-9]{8} [0-9:.]{12} started with 3 workers$' $log
as_user /home/ann/examples/process_stamp
in_root grep -E '^\[Demo\.App\.info\] [0-9]{8} [0-9:.]{12} \[[0-9]+\] started$' $log

echo '-- pages'
python3 -B "$ROOT/tests/rules/check_rule.py" page_links "$CLEAN_ROOT/usr/share/doc/libqmrk-log-dev"

# The places that they name for those who have the packages.
mapfile -t places < <(grep -hoE '/usr/share/doc/[a-z-]+/[a-z]+' "$ROOT"/docs/*.md | sort -u)
[ "${#places[@]}" -ge 2 ]
for place in "${places[@]}"; do
  in_root test -d "$place"
done
in_root test -d /usr/share/doc/qmrk-log-tools/examples/integrations

echo '-- a member of the group, and a class list that was there before'
cfg='/etc/xdg/Orvane Shared/qmrk/logging/cfg'
in_root cp "$cfg/qmrk_logging_CA12.cfg" "$cfg/qmrk_logging_CA7.cfg"
as_root chroot --userspec=1235:1235 --groups=qmrk "$CLEAN_ROOT" env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME=/tmp \
  qmrkctl classes enable Demo.Net --ca CA7 </dev/null || true  # its status tells of applications
in_root grep -x 'Demo.Net;' $folder/qmrk_logging_CA7.init
in_root rm "$cfg/qmrk_logging_CA7.cfg"

echo '-- tools'
as_user qmrkctl --version
as_user LogTest --help >/dev/null
as_user bash -n /usr/share/bash-completion/completions/qmrkctl
in_root sh -c 'grep -q "#compdef qmrkctl" /usr/share/zsh/vendor-completions/_qmrkctl'
in_root test -s /usr/share/fish/vendor_completions.d/qmrkctl.fish
in_root test -s /usr/share/qmrk_log/schemas/signal.json
for page in man1/LogTest.1 man1/qmrkctl.1 man5/qmrk_logging.cfg.5 man7/qmrk_logging.7; do
  in_root sh -c "gunzip -c /usr/share/man/$page.gz | grep -q '^\.TH '"
done
