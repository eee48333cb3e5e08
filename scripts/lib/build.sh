# SPDX-License-Identifier: MIT
# Configures and builds a preset.
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
