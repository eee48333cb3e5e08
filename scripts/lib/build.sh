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

# build_programs: LogTest and qmrkctl of the release. A tree that was not configured before is configured without the
# tests, so that their packages are not needed.
build_programs() {
  local arguments=()
  [ -e "$ROOT/build/linux-release/CMakeCache.txt" ] || arguments=(-DQMRK_BUILD_TESTS=OFF)
  (cd "$ROOT" && cmake --preset linux-release "${arguments[@]}" &&
    cmake --build --preset linux-release --target LogTest qmrkctl)
}

# build_instruction_benchmarks: what is counted, with the libraries of the release and without peers.
build_instruction_benchmarks() {
  (cd "$ROOT" && cmake --preset linux-release -DQMRK_BUILD_BENCH=ON -DQMRK_BENCH_PEERS=OFF &&
    cmake --build --preset linux-release --target instruction_benchmarks)
}
