# SPDX-License-Identifier: MIT
# Fetches from Debian what shall not be installed in the system: sources, or packages of another architecture.
# shellcheck shell=bash

# own_apt FOLDER TYPE ARCHITECTURE: sets OWN_APT to an apt-get whose sources (TYPE "deb" or "deb-src"), lists and cache are in
# the folder, so that it needs no root and does not change the system. It checks signatures as usual.
own_apt() {
  local folder=$1 site
  site=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Codename: bookworm' | head -n 1)
  mkdir -p "$folder/parts" "$folder/lists/partial" "$folder/cache/archives/partial"
  : >"$folder/status"
  cat >"$folder/parts/debian.sources" <<EOF
Types: $2
URIs: ${site:-http://deb.debian.org/debian/}
Suites: bookworm
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
EOF
  OWN_APT=(apt-get -q -o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$folder/parts"
    -o "Dir::State::Lists=$folder/lists" -o "Dir::State::status=$folder/status" -o "Dir::Cache=$folder/cache"
    -o "APT::Architecture=$3" -o "APT::Architectures=$3" -o APT::Sandbox::User= -o Acquire::Retries=3)
  "${OWN_APT[@]}" update
}
