# SPDX-License-Identifier: MIT
# A clean Debian 12 in a folder, with a compiler and nothing of this project.
# shellcheck shell=bash

# make_clean_root FOLDER: unpacks it there. It is made once, and kept in the cache folder of the user, together with the
# packages on which ours depend or which the pages install, so that later runs need no network. There apt-get asks nothing.
make_clean_root() {
  local cache="${XDG_CACHE_HOME:-$HOME/.cache}/qmrk-packages" kept
  kept=$cache/bookworm-$(cat "$ROOT/scripts/lib/clean_root.sh" "$ROOT/scripts/lib/packages.sh" | sha256sum | cut -c1-12).tar
  if [ ! -e "$kept" ]; then
    mkdir -p "$cache"
    fill_clean_root "$1" && as_root tar -C "$1" -cf "$kept.new" . && mv "$kept.new" "$kept"
    return
  fi
  as_root tar -C "$1" -xf "$kept"
}

fill_clean_root() {
  local site
  site=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' | head -n 1)
  as_root debootstrap --variant=minbase --include=g++,make,cmake,pkg-config,sudo bookworm "$1" \
    "${site:-http://deb.debian.org/debian/}" || return
  as_root chroot "$1" apt-get clean &&
    as_root chroot "$1" apt-get install -y -q --download-only --no-install-recommends \
      libboost1.74-dev libboost-filesystem1.74.0 libboost-thread1.74.0 rsyslog rsyslog-relp "${PACKAGES_BUILD[@]}" &&
    printf 'APT::Get::Assume-Yes "true";\nAPT::Install-Recommends "false";\n' |
    as_root tee "$1/etc/apt/apt.conf.d/90answers" >/dev/null
}

# in_root COMMAND...: as root in the folder CLEAN_ROOT. Neither asks anything nor sees the settings of the user.
in_root() {
  as_root env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 HOME=/root \
    chroot "$CLEAN_ROOT" "$@" </dev/null
}

# as_user COMMAND...: as an ordinary user there, with a home of its own.
as_user() {
  as_root chroot --userspec=1234:1234 "$CLEAN_ROOT" \
    env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 HOME=/home/ann "$@" </dev/null
}
