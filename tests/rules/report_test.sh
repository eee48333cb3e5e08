#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# report_test.sh ROOT: a run of tests ends with what failed and its totals, where a reader sees them who is shown only the end.
set -euo pipefail
export LC_ALL=C
root=$1
ROOT=$(mktemp -d)
trap 'rm -rf "$ROOT"' EXIT
mkdir -p "$ROOT/scripts/lib"
cp "$root/scripts/lib/report.sh" "$root/scripts/lib/failed_tests.py" "$ROOT/scripts/lib"

# A program of tests, with the option of ctest that names the file of its results.
ctest() {
  while [ "$1" != --output-junit ]; do
    shift
  done
  cat >"$2" <<'TEXT'
<testsuite name="tests"
	tests="3"
	failures="1"
	disabled="0"
	skipped="0">
  <testcase name="Two.Works" time="0.1" status="run"/>
  <testcase name="Two.Fails" time="0.5" status="fail"><failure message=""/><system-out>1 is not 2</system-out></testcase>
  <testcase name="Two.WorksToo" time="0.1" status="run"/>
</testsuite>
TEXT
  return 8
}

suite() {
  printf '%s\n' 'failed: a test of a suite' '4 passed, 1 failed, 2 skipped'
  return 1
}

breaksDown() {
  echo 'no line of totals'
}

succeeds() {
  echo 'all is well'
}

run() {
  . "$ROOT/scripts/lib/report.sh"
  check good succeeds || true
  check bad ls "$ROOT/missing" || true
  run_tests preset || true
  run_suite suite suite || true
  run_suite halfway breaksDown || true
  closing_line
}

if run >"$ROOT/out"; then
  echo 'The run has failures, and its exit code does not say so.'
  exit 1
fi
diff <(sed '1,/halfway: FAILED/d; s/After .*:/After a while:/' "$ROOT/out") - <<TEXT

   FAILED, the end of build/logs/bad.log:
   | ls: cannot access '$ROOT/missing': No such file or directory

   | FAILED after 0.5 s: Two.Fails
   | 
   | Two.Fails wrote:
   |   1 is not 2

failed: bad
failed: preset: Two.Fails
failed: a test of a suite
failed: halfway

After a while:
7 passed, 4 failed, 2 skipped
TEXT
