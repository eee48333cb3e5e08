#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# central_log_test.sh: in the clean root, the commands of docs/integrations.md for rsyslog make first the central machine,
# then one that logs; a line arrives, and the command for once a month removes old state files.
#
# Three things are not literal: both machines are the clean root, which is called central.example.com; the port is a free
# one, since other tests may run here; and, for want of systemd, a script starts the daemon by the line of its unit.
set -euo pipefail
. "$ROOT/scripts/lib/packages.sh"
set_up=$(python3 -B "$ROOT/tests/docs/page_blocks.py" "$ROOT/docs/integrations.md" 'rsyslog' 1/2)
monthly=$(python3 -B "$ROOT/tests/docs/page_blocks.py" "$ROOT/docs/integrations.md" 'rsyslog' 2/2)
port=$(python3 -c 'import socket; s = socket.socket(); s.bind(("", 0)); print(s.getsockname()[1])')

as_root mkdir -p "$CLEAN_ROOT/clone/integrations"
as_root cp -r "$ROOT/integrations/rsyslog" "$CLEAN_ROOT/clone/integrations/"
as_root sed -i "s/2514/$port/" "$CLEAN_ROOT"/clone/integrations/rsyslog/*.conf
echo "127.0.0.1 localhost central.example.com $(uname -n)" | as_root tee -a "$CLEAN_ROOT/etc/hosts" >/dev/null
as_root tee "$CLEAN_ROOT/usr/local/sbin/systemctl" >/dev/null <<'SCRIPT'
#!/bin/sh
[ "$*" = 'restart rsyslog' ] || { echo "systemctl $*?"; exit 1; }
if read -r pid </run/daemon.pid && kill "$pid"; then
  while kill -0 "$pid" 2>/dev/null; do sleep 0.1; done
fi 2>/dev/null
$(sed -n 's/^ExecStart=//p' /lib/systemd/system/rsyslog.service) </dev/null >>/var/log/daemon.messages 2>&1 &
echo $! >/run/daemon.pid
SCRIPT
as_root chmod 755 "$CLEAN_ROOT/usr/local/sbin/systemctl"

read -r -d '' script <<'SCRIPT' || true
set -euo pipefail
cd /clone
# until_there LINE FILE: waits for it.
until_there() {
  for _ in $(seq 1200); do
    if grep -s -q -x "$1" "$2"; then return; fi
    sleep 0.1
  done
  echo "$1 is not in $2"
  cat /var/log/daemon.messages
  exit 1
}
bash -ec "${1//sender/receiver}"
[ ! -s /var/log/daemon.messages ] || { cat /var/log/daemon.messages; exit 1; }
bash -ec "$1"
logs=/home/ann/.local/share/Orvane/Quillmark/Logging
mkdir -p $logs
echo 'a line' >>$logs/common.log
until_there 'a line' "/var/log/qmrk/$(uname -n)/ann/common.log"

touch -d '40 days ago' /var/spool/rsyslog/imfile-state:old
touch -d '20 days ago' /var/spool/rsyslog/imfile-state:young
bash -ec "$2"
cd /var/spool/rsyslog
[ ! -e imfile-state:old ] && [ -e imfile-state:young ]
SCRIPT
# shellcheck disable=SC2016  # for the inner shell
inside='mount -t proc proc "$0/proc" && mount --bind /dev/null "$0/proc/kmsg" && exec chroot "$0" "$@"'
as_root unshare --mount --pid --fork --kill-child sh -c "$inside" "$CLEAN_ROOT" \
  env -i PATH=/usr/local/sbin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
  bash -c "$script" bash "$set_up" "$monthly" </dev/null
