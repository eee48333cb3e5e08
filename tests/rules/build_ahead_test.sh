#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# build_ahead_test.sh ROOT: a build that is started ahead has the lowest priority, with all that it starts, and the usual one
# as soon as its step waits for it: other jobs of the machine would else keep it from ending.
set -euo pipefail
root=$1
LOGS=$(mktemp -d)
trap 'rm -rf "$LOGS"' EXIT
. "$root/scripts/lib/build.sh"

# A build whose compiler runs until the step waits for it, and which then starts another one.
build() {
  bash -c 'ps -o ni= -p $$ >"$0/ahead"; for _ in {1..600}; do [ "$(ps -o ni= -p $$)" -ne 0 ] || break; sleep 0.1; done' "$LOGS"
  bash -c 'ps -o ni= -p $$ >"$0/waited-for"' "$LOGS"
}

# expect WHEN PRIORITY
expect() {
  if [ "$(tr -d ' ' <"$LOGS/$1")" != "$2" ]; then
    echo "A compiler of a build $1 has the priority $(cat "$LOGS/$1") instead of $2."
    exit 1
  fi
}

steps=(first second)
build_ahead second build
until [ -s "$LOGS/ahead" ]; do
  sleep 0.1
done
finish_ahead first
finish_ahead second
expect ahead 19
expect waited-for 0
