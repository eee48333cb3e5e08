# SPDX-License-Identifier: MIT
# How a script answers --help, and arguments that it does not have. Its help is the comment at its beginning.
# shellcheck shell=bash

print_help() {
  sed -n '3,/^[^#]/{/^#/s/^# //p}' "$0"
}

# answer_or_refuse ARGUMENT: ends the script, with success if the argument asks for help.
answer_or_refuse() {
  case $1 in
    -h | --help) print_help; exit 0 ;;
    *) print_help >&2; exit 2 ;;
  esac
}

# take_only PATTERN [ARGUMENT...]: goes on if the script has no argument, or one that matches the pattern.
take_only() {
  local pattern=$1
  shift
  # shellcheck disable=SC2053 # a pattern
  if [ $# -gt 1 ]; then
    answer_or_refuse "$2"
  elif [ $# -eq 1 ] && [[ $1 != $pattern ]]; then
    answer_or_refuse "$1"
  fi
}
