#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# install.sh BUILD STAGE: installs a build into a folder, and moves that folder to STAGE, so that nothing which names
# the first place works by chance.
set -euo pipefail
rm -rf "$2" "$2.first"
cmake --install "$1" --prefix "$2.first"
mv "$2.first" "$2"

stage=$2
test -e "$stage/include/qmrk_log/quillmark_logging.h"
test -e "$stage/include/qmrk_log/quillmark_logging_names.h"
test -e "$stage/include/qmrk_log/boost/logging/logging.hpp"
test -e "$stage/share/doc/qmrk_log/LICENSE"
test -n "$(find "$stage/share/doc/qmrk_log/examples" -name '*.init')"
# As a program: its comment says to run it.
test -x "$stage/share/doc/qmrk_log/examples/pkg_config/build.sh"
test -s "$stage/share/man/man1/qmrkctl.1.gz"
for library in libqmrk_log libqmrk_boost_logging; do
  link=$(find "$stage" -name "$library.so")
  test "$(readlink "$link")" = "$library.so.1"
  # Not -q: grep would leave early, and objdump fail on the closed pipe.
  objdump -p "$link" | grep "SONAME *$library.so.1\$" >/dev/null
done
