#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# clang_tidy_test.sh ROOT: the settings in .clang-tidy report each violation that is planted here, and nothing in sound
# code beside it.
set -uo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/trace"
cp "$1/.clang-tidy" "$folder/"

tidy() {
  clang-tidy-14 --quiet "$1" -- -std=c++20 2>/dev/null
}

failures=0
expect() {
  local check=$1
  cat >"$folder/trace/planted.cpp"
  if ! grep -q "\[${check}[],]" <(tidy "$folder/trace/planted.cpp"); then
    echo "$check does not report:"
    head -n 5 "$folder/trace/planted.cpp"
    failures=$((failures + 1))
  fi
}

expect readability-identifier-naming <<<'int twice(int number) { return number + number; }'
expect readability-identifier-naming <<<'int Twice(int _number) { return _number + _number; }'
expect readability-identifier-naming <<<'class Counter { int count = 0; public: int next() { return ++count; } };'
expect readability-identifier-naming <<<'class counter { public: int next() { return 1; } };'
expect readability-identifier-naming <<<'int twice(int _number) { int Sum = _number + _number; return Sum; }'
expect modernize-use-nullptr <<<'int* none() { return 0; }'
expect google-explicit-constructor <<<'struct Limit { Limit(int _bytes); };'
expect readability-function-size < <(
  echo 'void count(int& _sum) {'
  for _ in $(seq 39); do echo '  ++_sum;'; done
  echo '}')

{
  echo 'class Counter { public: int next() { return ++count_; } private: int count_ = 0; };'
  echo 'void count(int& _sum) {'
  for _ in $(seq 38); do echo '  ++_sum;'; done
  echo '}'
} >"$folder/trace/sound.cpp"
if ! tidy "$folder/trace/sound.cpp"; then
  echo 'sound code is reported'
  failures=$((failures + 1))
fi
exit "$failures"
