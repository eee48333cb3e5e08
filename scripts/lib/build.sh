# SPDX-License-Identifier: MIT
# Configures and builds.
# shellcheck shell=bash

# build_preset PRESET [TARGET...]
build_preset() {
  local preset=$1 arguments=()
  shift
  if [ $# -gt 0 ]; then
    arguments=(--target "$@")
  fi
  (cd "$ROOT" && cmake --preset "$preset" && cmake --build --preset "$preset" "${arguments[@]}")
}

# build_ahead STEP COMMAND...: begins a build of a later step, if that is to run. Tests wait a lot; the build takes the
# processor only where they leave it.
build_ahead() {
  local step=$1
  [[ " ${steps[*]} " == *" $step "* ]] || return 0
  shift
  (
    renice -n 19 -p "$BASHPID"
    "$@"
  ) >"$LOGS/$step-ahead.log" 2>&1 &
  AHEAD_PROCESS=$!
  AHEAD_STEP=$step
}

# finish_ahead STEP: waits for it. What failed in it fails again in the step itself, and is shown there.
finish_ahead() {
  [ "$1" = "${AHEAD_STEP:-}" ] || return 0
  wait "$AHEAD_PROCESS" || true
  AHEAD_STEP=
}

# build_programs: LogTest and qmrkctl of the release.
build_programs() {
  build_preset linux-release LogTest qmrkctl
}

# build_instruction_benchmarks: what is counted, with the libraries of the release and without peers.
build_instruction_benchmarks() {
  (cd "$ROOT" && cmake --preset linux-tests -DQMRK_BUILD_BENCH=ON -DQMRK_BENCH_PEERS=OFF &&
    cmake --build --preset linux-tests --target instruction_benchmarks)
}
