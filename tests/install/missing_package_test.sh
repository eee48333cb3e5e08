#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# missing_package_test.sh SOURCE: who lacks a package is told its name, also where it can go on
# without. Without the tests, GoogleTest is not asked for.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# fails_with TEXT ARGUMENT...: configuring with the arguments fails, and says the text.
fails_with() {
  local text=$1
  shift
  if cmake --fresh -S "$source" -B "$folder/build" "$@" >"$folder/log" 2>&1; then
    echo "configured with $*"
    exit 1
  fi
  tr -s '\n ' '  ' <"$folder/log" | grep -e "$text" >/dev/null || { cat "$folder/log"; exit 1; }
}

source=$1
fails_with 'apt-get install libboost-dev libboost-filesystem-dev libboost-thread-dev' \
  -DCMAKE_DISABLE_FIND_PACKAGE_Boost=ON
fails_with 'apt-get install libcli11-dev' -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON
fails_with 'apt-get install nlohmann-json3-dev' -DCMAKE_DISABLE_FIND_PACKAGE_nlohmann_json=ON
fails_with 'apt-get install libgtest-dev libgmock-dev' -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON
cmake --fresh -S "$source" -B "$folder/build" -DQMRK_BUILD_TESTS=OFF -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON \
  -DQMRK_SCDOC=OFF >"$folder/log"
grep 'No man pages: .*apt-get install scdoc' "$folder/log"
