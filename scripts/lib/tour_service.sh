# SPDX-License-Identifier: MIT
# The stations of the tour for those who look after installations: finding a fault, switching classes and seeing the answers.
# shellcheck shell=bash disable=SC2154  # the names of the sandbox come from sandbox.sh

station_fault() {
  station 'A fault, and who finds it'
  sed -i 's/^LOG_STATE=/LOG_STAT=/' "$CFG_FOLDER/qmrk_logging_CA12.cfg"
  say 'A slip of the finger: the .cfg now has LOG_STAT=TRUE instead of LOG_STATE=TRUE. Nothing is logged any more:'
  forget_logs
  log_test --classes 'Demo.App.info;' --lines 1 || true
  say 'One command says what is wrong, where, what comes of it, and what to do:'
  run "${QMRKCTL[@]}" doctor || true
  say 'Another one follows a line of one class on its way:'
  run "${QMRKCTL[@]}" why Demo.App.info || true
  reset_examples
}

# begin_listener NAME: starts LogTest as that application, listening for some seconds.
begin_listener() {
  printf "  \$ LogTest --app %s --classes 'Demo.App.info;Demo.Net.info;' --listen 6 &\n" "$1"
  "${LOG_TEST[@]}" --app "$1" --classes 'Demo.App.info;Demo.Net.info;' --listen 6 >"$SANDBOX/$1.txt" 2>&1 &
  LISTENERS+=($!)
}

station_steering() {
  station 'A class switched in two processes, with their answers'
  LISTENERS=()
  enable_classes 'Demo.App;'
  forget_logs
  say 'Two applications run and listen. The .init lists Demo.App only.'
  begin_listener Shop
  begin_listener Stock
  wait_until 'lines of both applications' log_has 8 Demo.App.info
  run "${QMRKCTL[@]}" apps
  say 'Demo.Net is switched on. Each application answers when it has applied the new list:'
  run "${QMRKCTL[@]}" classes enable Demo.Net --reason 'the tour'
  say 'And off again:'
  run "${QMRKCTL[@]}" classes disable Demo.Net
  run "${QMRKCTL[@]}" history
  wait "${LISTENERS[@]}"
  reset_examples
}
