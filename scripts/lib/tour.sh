# SPDX-License-Identifier: MIT
# The stations of the tour that scripts/demo takes in a sandbox.
# shellcheck shell=bash disable=SC2154  # the names of the sandbox come from sandbox.sh

BOLD=''
PLAIN=''
if [ -t 1 ]; then
  BOLD=$'\033[1m'
  PLAIN=$'\033[0m'
fi

station() {
  STATION=$((${STATION:-0} + 1))
  printf '\n%s%d. %s%s\n' "$BOLD" "$STATION" "$1" "$PLAIN"
}

say() {
  printf '\n'
  printf '%s\n' "$*" | fold -s -w 100
}

# show FILE: prints its lines, indented; of a configuration only those that are read.
show() {
  sed 's/\r$//' "$1" | sed -e '/^#/d' -e '/^$/d' -e 's/^/    /'
}

# run COMMAND...: shows the command as a user would type it, and its output.
run() {
  local word line
  local command=("$@")
  [ "$1" != "${WINE_RUN:-}" ] || command=("${@:2}")
  [ "${command[0]}" != --on-console ] || command=("${command[@]:1}")
  line="  \$ $(basename "${command[0]}")"
  for word in "${command[@]:1}"; do
    [[ $word =~ ^[A-Za-z0-9_./=-]+$ ]] || word="'$word'"
    line+=" $word"
  done
  printf '%s\n' "$line"
  "$@" 2>&1 | sed -e 's/\r$//' -e 's/^/    /'
}

log_test() {
  run "${LOG_TEST[@]}" "$@"
}

# ends_of_trace COUNT COMMAND...: shows the first and last lines of the trace that a command prints.
ends_of_trace() {
  local trace
  trace=$("${@:2}" | grep -E '^ +(==>|<==|---|-!-|<!=|<=>|<!-|<!>) ')
  head -n "$1" <<<"$trace"
  printf '    ... %d lines more ...\n' $(($(wc -l <<<"$trace") - 2 * $1))
  tail -n "$1" <<<"$trace"
}

# logged TITLE LOGTEST-ARGUMENT...: shows what a run writes to a new common log.
logged() {
  local title=$1
  shift
  forget_logs
  say "$title"
  log_test "$@"
  if [ -s "$LOG_FOLDER/common.log" ]; then
    printf '  common.log\n'
    show "$LOG_FOLDER/common.log"
  else
    printf '  There is no common.log.\n'
  fi
}

station_files() {
  station 'The configuration'
  say "The files of examples/, in ${SANDBOX#"$ROOT/"}. The generic one redirects to the customer adaptation CA12." \
    "$SANDBOX_NOTE Their comments, left out here, explain every key."
  for file in "$CFG_FOLDER/qmrk_logging_GE.cfg" "$CFG_FOLDER/qmrk_logging_CA12.cfg" "$INIT_FOLDER/qmrk_logging_CA12.init"; do
    printf '  %s\n' "${file#"$SANDBOX/"}"
    show "$file"
  done
}

station_first_run() {
  station 'A first run'
  logged 'LogTest asks for the default logs and writes two lines into each of four classes:' \
    --classes "$CLASSES" --lines 2
  say 'Demo.App.info is on because the .init lists Demo.App, above it. Of Demo.Net, the .init lists Demo.Net.error only;' \
    'Demo.Disk is not listed at all. What is on reaches the common log where COMMON_LOG_FILE_FILTER selects it, too.'
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
  say 'QMRK_TRACE=TRUE: the library traces its own steps on the console:'
  ends_of_trace 4 run "${LOG_TEST_ON_CONSOLE[@]}" --lines 1
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
  printf '  qmrk.info\n'
  show "$LOG_FOLDER/qmrk.info" | fold -s -w 100
}

take_the_tour() {
  CLASSES='Demo.App.info;Demo.Net.error;Demo.Net.info;Demo.Disk.info;'
  station_files
  station_first_run
  station_settings
  station_class_list
  station_missing_ca
  station_application_log
  station_running_process
  station_stamps
  station_versions
  station_fault
  station_steering
  # The Wine prefix is removed with the tour.
  [ -n "${QMRK_WINE_PREFIX:-}" ] || say "The files of the tour are in ${SANDBOX#"$ROOT/"}."
  say 'The formats and their traps: docs/file-formats.md.'
}
