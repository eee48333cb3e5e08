# SPDX-License-Identifier: MIT
# Configures and builds.
# shellcheck shell=bash

# build_preset PRESET [TARGET...]: configures a preset and builds all of it, or the targets.
build_preset() {
  local preset=$1 arguments=()
  shift
  if [ $# -gt 0 ]; then
    arguments=(--target "$@")
  fi
  (cd "$ROOT" && cmake --preset "$preset" && cmake --build --preset "$preset" "${arguments[@]}")
}

# build_ahead STEP COMMAND...: starts the build of a later step in the background, if that step will run. Tests often wait;
# the build uses the processor only then.
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

# hurry PROCESS: gives a process and its descendants the usual priority, which only root may do. The parent comes first, so
# that what it starts from then on has it too.
hurry() {
  local child
  renice -n 0 -p "$1" || true
  for child in $(pgrep -P "$1"); do
    hurry "$child"
  done
} >/dev/null 2>&1

# finish_ahead STEP: waits for that build, which a busy machine would hardly let go on while it has the lowest priority. If
# it failed, it fails again in the step itself, which shows why.
finish_ahead() {
  [ "$1" = "${AHEAD_STEP:-}" ] || return 0
  hurry "$AHEAD_PROCESS"
  wait "$AHEAD_PROCESS" || true
  AHEAD_STEP=
}

# build_programs: builds LogTest and qmrkctl of the release.
build_programs() {
  build_preset linux-release LogTest qmrkctl
}

# build_instruction_benchmarks: builds the benchmarks whose instructions are counted, with the release's libraries and
# without peers.
build_instruction_benchmarks() {
  (cd "$ROOT" && cmake --preset linux-tests -DQMRK_BUILD_BENCH=ON -DQMRK_BENCH_PEERS=OFF &&
    cmake --build --preset linux-tests --target instruction_benchmarks)
}
