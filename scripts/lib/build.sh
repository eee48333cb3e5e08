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

# build_programs: LogTest and qmrkctl of the release.
build_programs() {
  build_preset linux-release LogTest qmrkctl
}

# build_instruction_benchmarks: what is counted, with the libraries of the release and without peers.
build_instruction_benchmarks() {
  (cd "$ROOT" && cmake --preset linux-tests -DQMRK_BUILD_BENCH=ON -DQMRK_BENCH_PEERS=OFF &&
    cmake --build --preset linux-tests --target instruction_benchmarks)
}
