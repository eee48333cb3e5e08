# SPDX-License-Identifier: MIT
# The stations of the tour that scripts/demo takes in a sandbox.
# shellcheck shell=bash disable=SC2154  # the names of the sandbox come from sandbox.sh

station() {
  STATION=$((${STATION:-0} + 1))
  printf '\n\033[1m%d. %s\033[0m\n' "$STATION" "$1"
}

say() {
  printf '%s\n' "$*" | fold -s -w 100
}

# show FILE: its lines, indented; of a configuration only what is read.
show() {
  sed 's/\r$//' "$1" | sed -e '/^#/d' -e '/^$/d' -e 's/^/    /'
}

# run COMMAND...: shows the command as a user would type it, and what it prints.
run() {
  printf '  $ %s' "$(basename "$1")"
  printf ' %q' "${@:2}"
  printf '\n'
  "$@" 2>&1 | sed -e 's/\r$//' -e 's/^/    /'
}

log_test() {
  run "${LOG_TEST[@]}" "$@"
}

# ends_of COUNT COMMAND...: the first and the last lines of what a command prints.
ends_of() {
  local printed
  printed=$("${@:2}")
  head -n "$1" <<<"$printed"
  printf '    ... %d lines more ...\n' $(($(wc -l <<<"$printed") - 2 * $1))
  tail -n "$1" <<<"$printed"
}

common_log() {
  show "$LOG_FOLDER/common.log"
}

# logged TITLE LOGTEST-ARGUMENT...: what a run leaves in a new common log.
logged() {
  local title=$1
  shift
  forget_logs
  say "$title"
  log_test "$@"
  if [ -e "$LOG_FOLDER/common.log" ]; then
    common_log
  else
    echo '    (no common log)'
  fi
}

station_files() {
  station 'The configuration'
  say "The files of examples/, in $SANDBOX (on Linux the base folders can be moved by QMRK_COMMON_PROGRAM_FILES," \
    'QMRK_COMMON_APPDATA and QMRK_APPDATA). The generic one redirects to the customer adaptation CA12:'
  for file in "$CFG_FOLDER/qmrk_logging_GE.cfg" "$CFG_FOLDER/qmrk_logging_CA12.cfg" "$INIT_FOLDER/qmrk_logging_CA12.init"; do
    printf '  %s\n' "${file#"$SANDBOX/"}"
    show "$file"
  done
}

station_first_run() {
  station 'A first run'
  logged 'LogTest asks for the default logs and writes two lines into each of four classes:' \
    --classes "$CLASSES" --lines 2
  say 'Demo.App.error and Demo.App.info are on because the .init lists Demo.App, which stands above them, and' \
    'they are here because the filter lists it too. Demo.Net.info is off: the .init lists Demo.Net.error only. Demo.Disk.info' \
    'stands in neither list.'
}

station_settings() {
  station 'What each setting does'
  set_key MILLISECOND_RESOLUTION FALSE
  logged 'MILLISECOND_RESOLUTION=FALSE: stamps in whole seconds.' --classes 'Demo.App.info;' --lines 1
  reset_examples
  set_key COMMON_LOG_FILE_FILTER 'Demo.Net;'
  logged 'COMMON_LOG_FILE_FILTER=Demo.Net; : only that class is attached to the common log.' --classes "$CLASSES" --lines 1
  reset_examples
  set_key COMMON_LOG_FILE_FILTER 'Demo.Net;Demo.App'
  logged 'COMMON_LOG_FILE_FILTER=Demo.Net;Demo.App without the last ";": what stands behind the last one is dropped.' \
    --classes "$CLASSES" --lines 1
  reset_examples
  set_key LOG_STATE FALSE
  logged 'LOG_STATE=FALSE: the set-up fails, and LogTest says so.' --lines 1 || true
  reset_examples
  set_key QMRK_TRACE TRUE
  say 'QMRK_TRACE=TRUE: the library tells its own steps on the console. The first and the last of them:'
  ends_of 5 log_test --lines 1
  reset_examples
}

station_class_list() {
  station 'Another class list'
  enable_classes '*.error;Demo.Disk;'
  say 'The .init now reads "*.error;Demo.Disk;": errors of every class, and all of Demo.Disk.'
  logged 'The same run as before:' --classes "$CLASSES" --lines 2
  say 'Demo.Disk is on, but the filter does not attach it to the common log.'
  reset_examples
}

station_missing_ca() {
  station 'A customer adaptation that is not installed'
  logged 'CA7 has no configuration: the library falls back to the generic one and records it in qmrk.info.' \
    --ca CA7 --classes 'Demo.App.info;' --lines 1
  show "$LOG_FOLDER/qmrk.info"
}

take_the_tour() {
  CLASSES='Demo.App.error;Demo.App.info;Demo.Net.info;Demo.Disk.info;'
  station_files
  station_first_run
  station_settings
  station_class_list
  station_missing_ca
  say '' "Everything of the tour is in $SANDBOX. The formats and their traps: docs/file-formats.md."
}
