#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# consumer_test.sh WAY ROOT STAGE COMPILER: a project outside the tree finds the library in one of the three ways
# (find_package, pkg_config, add_subdirectory), links it, and logs a line through it.
set -euo pipefail
way=$1
root=$2
stage=$3
compiler=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$root/tests/consumer/." "$folder/"
libraries=$(dirname "$(find "$stage" -name libqmrk_log.so)")

case $way in
  pkg_config)
    # The flags are words to be split.
    # shellcheck disable=SC2046
    "$compiler" -std=c++11 -Wall -Wextra -pedantic -Werror "$folder/consumer.cpp" -o "$folder/consumer" \
      $(PKG_CONFIG_PATH="$libraries/pkgconfig" pkg-config --cflags --libs qmrk_log) -Wl,-rpath,"$libraries"
    ;;
  find_package | add_subdirectory)
    # Not optimised, and several sources together: what matters is that it builds and runs.
    cmake -S "$folder" -B "$folder/build" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DWAY="$way" \
      -DQMRK_ROOT="$root" -DCMAKE_PREFIX_PATH="$stage" -DCMAKE_BUILD_TYPE=None -DQMRK_UNITY_OBJECTS=ON
    cmake --build "$folder/build"
    cp "$folder/build/consumer" "$folder/consumer"
    ;;
esac

sandbox=$folder/sandbox
cfg="$sandbox/programs/Orvane Shared/qmrk/logging/cfg"
init="$sandbox/data/Orvane/qmrk/logging"
mkdir -p "$cfg" "$init" "$sandbox/home"
printf 'REDIRECT_CA_NR=CA12\n' >"$cfg/qmrk_logging_GE.cfg"
printf 'LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Consumer;\n' >"$cfg/qmrk_logging_CA12.cfg"
printf 'Consumer;' >"$init/qmrk_logging_CA12.init"
env -u DEFAULT_CA_NR QMRK_APPDATA="$sandbox/home" QMRK_COMMON_PROGRAM_FILES="$sandbox/programs" \
  QMRK_COMMON_APPDATA="$sandbox/data" "$folder/consumer"
cat "$sandbox/home/Orvane/Quillmark/Logging/common.log"
grep -Eq '^\[Consumer\.info\] [0-9]{8} [0-9:]{8} a line of the consumer$' \
  "$sandbox/home/Orvane/Quillmark/Logging/common.log"
