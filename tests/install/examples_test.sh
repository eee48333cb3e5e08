#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# examples_test.sh WAY ROOT STAGE COMPILER: the examples, copied out of the tree, are built in one of their three ways
# (find_package, pkg_config, add_subdirectory), as C++11 without a warning, and do what their comments say.
set -euo pipefail
way=$1
root=$2
stage=$3
compiler=$4
folder=$(mktemp -d)
trap 'jobs -p | xargs -r kill 2>/dev/null || true; rm -rf "$folder"' EXIT
cp -r "$root/examples" "$folder/examples"
examples=$folder/examples
built=$folder/built
mkdir "$built"
libraries=$(dirname "$(find "$stage" -name libqmrk_log.so)")
warnings='-Wall -Wextra -pedantic -Werror'

case $way in
  pkg_config)
    (cd "$built" && PKG_CONFIG_PATH="$libraries/pkgconfig" LDFLAGS="-Wl,-rpath,$libraries" CXXFLAGS="$warnings" \
      CXX="$compiler" "$examples/pkg_config/build.sh")
    ;;
  find_package | add_subdirectory)
    # Not optimised, and several sources together: what matters is that it builds and runs.
    cmake -S "$examples/$way" -B "$built" -G Ninja -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_STANDARD=11 \
      -DCMAKE_CXX_FLAGS="$warnings" -DCMAKE_PREFIX_PATH="$stage" -DQMRK_LOG_SOURCES="$root" \
      -DCMAKE_BUILD_TYPE=None -DQMRK_UNITY_OBJECTS=ON
    cmake --build "$built"
    ;;
esac

# lay_out: a new sandbox with the example configuration.
lay_out() {
  sandbox=$folder/sandbox
  rm -rf "$sandbox"
  cfg="$sandbox/Orvane Shared/qmrk/logging/cfg"
  init=$sandbox/Orvane/qmrk/logging
  logs=$sandbox/Orvane/Quillmark/Logging
  mkdir -p "$cfg" "$init"
  cp "$examples"/*.cfg "$cfg/"
  cp "$examples"/*.init "$init/"
  export QMRK_COMMON_PROGRAM_FILES=$sandbox QMRK_COMMON_APPDATA=$sandbox QMRK_APPDATA=$sandbox
  unset DEFAULT_CA_NR
}

# expect FILE PATTERN: the file has a line of the pattern.
expect() {
  grep -Eq "^$2\$" "$1" && return
  echo "$1 has no line $2:"
  tail -n 3 "$1"
  exit 1
}
stamp='[0-9]{8} [0-9:]{8}\.[0-9]{3}'

lay_out
"$built/default_set_up"
expect "$logs/common.log" "\[Demo\.App\.info\] $stamp started with 3 workers"
[ "$way" != add_subdirectory ] || exit 0

"$built/process_stamp"
expect "$logs/common.log" "\[Demo\.App\.info\] $stamp \[[0-9]+\] started"

"$built/custom_appender" 2>"$folder/screen"
expect "$folder/screen" "\[Demo\.App\.error\] $stamp disk 3 failed"
expect "$logs/common.log" "\[Demo\.App\.error\] $stamp disk 3 failed"
[ "$(wc -l <"$folder/screen")" = 1 ]

"$built/rotating_file"
expect "$logs/Application logs/rotating_file_log.txt" "\[Demo\.App\.measured\] $stamp measurement 19999: 21\.5 degrees"
expect "$logs/Application logs/rotating_file_log.txt.1" ".*: 21\.5 degrees"

(cd "$sandbox" && "$built/log_manager_only")
expect "$sandbox/app.log" "disk 3 failed"

[ "$("$built/switching_classes")" = 'this is written' ]

"$built/lost_messages" 2>"$folder/screen"
expect "$folder/screen" '\.: 1 lost, the last by error [0-9]+'

# The listener starts with CA12, while "GE" leads to another CA, whose class list has nothing for it.
lay_out
sed 's/CA12/CA7/' "$examples/qmrk_logging_CA12.cfg" >"$cfg/qmrk_logging_CA7.cfg"
sed -i 's/CA12/CA7/' "$cfg/qmrk_logging_GE.cfg"
echo 'Demo.App;' >"$init/qmrk_logging_CA7.init"
"$built/listener" >"$folder/screen" &
listener=$!
until grep -q waiting "$folder/screen"; do sleep 0.05; done
echo 'Demo.Net.details;' >"$init/qmrk_logging_CA12.init"
# Again and again: a setting while another one is being carried out is absorbed, and other tests set the event too.
while kill -0 "$listener" 2>/dev/null; do
  "$stage/bin/qmrkctl" signal >/dev/null || true
  sleep 0.1
done
wait "$listener"
expect "$logs/common.log" "\[Demo\.Net\.details\] $stamp switched on while the application ran"
