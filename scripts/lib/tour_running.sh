# SPDX-License-Identifier: MIT
# The stations of the tour about what else applications do: logs of their own, listening, stamps and versions.
# shellcheck shell=bash disable=SC2154  # the names of the sandbox come from sandbox.sh

station_application_log() {
  local file
  station 'A log file of an application'
  set_key SPEC_LOG_FILE_LIMIT 100
  set_key SPEC_NR_OF_LOG_FILES 3
  forget_logs
  say 'Besides the common log an application can have a file of its own. SPEC_LOG_ROTATION=TRUE limits its size; here' \
    'SPEC_LOG_FILE_LIMIT=100 and SPEC_NR_OF_LOG_FILES=3, so that ten lines are enough to see it:'
  log_test --app Shop --classes 'Demo.App;' --lines 10
  for file in "$LOG_FOLDER/Application logs"/*; do
    printf '  %s\n' "${file#"$LOG_FOLDER/"}"
    show "$file"
  done
  say 'A file that had reached its limit, here after every third line, became "Shop_log.txt.1", and what was ".1"' \
    'became ".2". With lines 1 to 3 the oldest file is gone, since three files are kept.'
  reset_examples
}

# wait_until WHAT COMMAND...: repeats COMMAND until it succeeds, for at most 30 seconds.
wait_until() {
  local what=$1 end=$((SECONDS + 30))
  shift
  until "$@"; do
    [ "$SECONDS" -lt "$end" ] || { printf 'scripts/demo: waited in vain for %s\n' "$what" >&2; exit 1; }
    sleep 0.05
  done
}

# log_has COUNT PATTERN: whether that many lines of the common log match.
log_has() {
  [ -e "$LOG_FOLDER/common.log" ] && [ "$(grep -c -- "$2" "$LOG_FOLDER/common.log")" -ge "$1" ]
}

station_running_process() {
  local output="$SANDBOX/listening.txt" listening
  station 'A class switched on in a running process'
  enable_classes 'Demo.App;'
  forget_logs
  say 'LogTest runs for five seconds, logs a line into each class every 100 ms, and listens. The .init lists Demo.App' \
    'only.'
  printf '  $ LogTest --classes %s --listen 5 &\n' "'Demo.App.info;Demo.Net.info;'"
  "${LOG_TEST[@]}" --classes 'Demo.App.info;Demo.Net.info;' --listen 5 >"$output" 2>&1 &
  listening=$!
  wait_until 'lines of LogTest' log_has 4 Demo.App.info
  printf '  common.log, the first lines\n'
  show "$LOG_FOLDER/common.log" | head -n 4
  say 'Meanwhile the .init gets a second class, and another process sets the event for which LogTest listens:'
  enable_classes 'Demo.App;Demo.Net;'
  show "$INIT_FOLDER/qmrk_logging_CA12.init"
  run "${QMRKCTL[@]}" signal
  wait_until 'lines of the new class' log_has 3 Demo.Net.info
  printf '  common.log, from the first line of the new class on\n'
  show "$LOG_FOLDER/common.log" | sed -n '/Demo\.Net\.info/,$p' | head -n 4
  wait "$listening"
  say 'What LogTest has reported meanwhile:'
  show "$output"
  reset_examples
}

station_stamps() {
  station 'Stamps'
  logged 'With --stamps LogTest puts the process, the thread and the place in its source in front of each line:' \
    --classes 'Demo.App.info;' --lines 1 --stamps
}

station_versions() {
  station 'Versions'
  say 'The versions are read from the files of the library and of LogTest. First the block that printVersionInfo' \
    'prints, then what the functions for single versions return:'
  log_test --version
}
