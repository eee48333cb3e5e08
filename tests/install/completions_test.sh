#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# completions_test.sh STAGE: zsh and fish find the completions of the installed tree, as if it lay in /usr/local.
set -euo pipefail
stage=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# In the folders where zsh itself looks. -u: also in those of other users, which is nothing that this test is about.
# shellcheck disable=SC2016  # for zsh
found=$(HOME=$folder zsh -fc '
  fpath=(${fpath/#\/usr\/local\//$1/})
  autoload -Uz compinit && compinit -u -d "$2/dump" && print -r -- "$_comps[qmrkctl]"' zsh "$stage" "$folder")
[ "$found" = _qmrkctl ] || { echo "zsh completes qmrkctl by \"$found\""; exit 1; }

# As qmrkctl(1) says for fish.
HOME=$folder XDG_DATA_DIRS=$stage/share:/usr/share PATH=$stage/bin:$PATH \
  fish -c 'complete -C "qmrkctl doc"' >"$folder/fish"
grep '^doctor' "$folder/fish"
