# SPDX-License-Identifier: MIT
# The folders of the family in a Wine prefix, as paths of this side. Read by scripts that have set "run", the command that
# runs a Windows program.
# shellcheck shell=bash

# shell_folder VARIABLE: the folder that the system names so.
shell_folder() {
  local prefix=${QMRK_WINE_PREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/qmrk-windows/wine}
  "$run" cmd /c "echo %$1%" 2>/dev/null | tr -d '\r' | head -n 1 | sed "s|^C:|$prefix/drive_c|; s|\\\\|/|g"
}

# lay_out EXAMPLES: the configuration of the examples, no logs, and "common_log" for the path of the common log.
# shellcheck disable=SC2034
lay_out() {
  common_files=$(shell_folder CommonProgramFiles)
  program_data=$(shell_folder ProgramData)
  app_data=$(shell_folder APPDATA)
  : "${common_files:?}" "${program_data:?}" "${app_data:?}"
  common_log=$app_data/Orvane/Quillmark/Logging/common.log
  clean
  mkdir -p "$common_files/Orvane Shared/qmrk/logging/cfg" "$program_data/Orvane/qmrk/logging"
  cp "$1"/*.cfg "$common_files/Orvane Shared/qmrk/logging/cfg/"
  cp "$1"/*.init "$program_data/Orvane/qmrk/logging/"
}

# clean: removes all folders of the family.
clean() {
  [ -z "${common_files:-}" ] || rm -rf "$common_files/Orvane Shared" "$program_data/Orvane" "$app_data/Orvane"
}

# expect FILE PATTERN COUNT: so many lines of the file are of the pattern, up to the CR at their end.
expect() {
  [ "$(tr -d '\r' <"$1" | grep -Ec "^$2\$")" = "$3" ] && return
  echo "$1 does not have $3 lines $2:"
  cat "$1"
  exit 1
}
