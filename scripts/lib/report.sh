# SPDX-License-Identifier: MIT
# Runs steps, keeps their output in build/logs, counts passes and failures, and ends with one line of totals.
# shellcheck shell=bash

LOGS="$ROOT/build/logs"
PASSED=0
FAILED=0
SKIPPED=0
FAILURES=()
REPORTS=
mkdir -p "$LOGS"

heading() {
  printf '\n== %s  [%d:%02d]\n' "$1" $((SECONDS / 60)) $((SECONDS % 60))
}

# count_failure NAME: counts one failure, and keeps its name for the end.
count_failure() {
  FAILED=$((FAILED + 1))
  FAILURES+=("$1")
}

# show_report TEXT: prints what a reader needs of a failure, here and once more at the end.
show_report() {
  printf '%s\n' "$1"
  REPORTS+=$'\n'$1$'\n'
}

# show_failure LOG: shows the part of a failed step's output that a reader needs.
show_failure() {
  show_report "$(printf '   FAILED, the end of %s:\n' "${1#"$ROOT/"}" && tail -n 60 "$1" | sed 's/^/   | /')"
}

# need STEP COMMAND...: runs something that later steps depend on. Counts only if it fails.
need() {
  local step=$1 log
  shift
  log="$LOGS/${step//[^A-Za-z0-9_-]/-}.log"
  if "$@" >"$log" 2>&1; then
    return 0
  fi
  count_failure "$step"
  show_failure "$log"
  return 1
}

# check STEP COMMAND...: runs a check, which counts as one.
check() {
  if need "$@"; then
    PASSED=$((PASSED + 1))
    printf '   %s: passed\n' "$1"
  else
    printf '   %s: FAILED\n' "$1"
    return 1
  fi
}

# attribute NAME FILE: prints the number that the first element of a JUnit file has under that name.
attribute() {
  sed -n "s/.*[[:space:]]$1=\"\([0-9]*\)\".*/\1/p" "$2" | head -n 1
}

# run_tests PRESET [CTEST-ARGUMENT...]: runs the tests of a preset, each of which counts.
run_tests() {
  local preset=$1 log="$LOGS/$1-tests.log" results="$LOGS/$1.xml" total failed skipped report name fixed=()
  shift
  rm -f "$results"
  # The thread sanitizer of g++ 12 cannot place its shadow memory if addresses vary by more than 28 bits.
  if [ "$preset" = linux-tsan ] && [ "$(cat /proc/sys/vm/mmap_rnd_bits 2>/dev/null || echo 28)" -gt 28 ]; then
    fixed=(setarch "$(uname -m)" -R)
  fi
  (cd "$ROOT" && "${fixed[@]}" ctest --preset "$preset" --no-tests=error --output-junit "$results" "$@") >"$log" 2>&1 || true
  total=$(attribute tests "$results" 2>/dev/null)
  if [ -z "$total" ] || [ "$total" -eq 0 ]; then
    count_failure "$preset"
    show_failure "$log"
    return 1
  fi
  failed=$(attribute failures "$results")
  skipped=$(($(attribute skipped "$results") + $(attribute disabled "$results")))
  PASSED=$((PASSED + total - failed - skipped))
  FAILED=$((FAILED + failed))
  SKIPPED=$((SKIPPED + skipped))
  printf '   %s: %d tests, %d failed, %d skipped\n' "$preset" "$total" "$failed" "$skipped"
  if [ "$failed" -gt 0 ]; then
    report=$(python3 -B "$ROOT/scripts/lib/failed_tests.py" "$results")
    show_report "$(sed 's/^/   | /' <<<"$report")"
    while read -r name; do
      FAILURES+=("$preset: $name")
    done < <(sed -n 's/^FAILED after [0-9.]* s: //p' <<<"$report")
    return 1
  fi
}

# run_suite STEP COMMAND...: runs a script that ends with its own line of totals, and adds those.
run_suite() {
  local step=$1 log="$LOGS/$1.log" line status=0 failed name
  shift
  "$@" 2>&1 </dev/null | tee "$log" | sed 's/^/   /'
  status=${PIPESTATUS[0]}
  line=$(grep -E '^[0-9]+ passed, [0-9]+ failed(, [0-9]+ skipped)?$' "$log" | tail -n 1)
  failed=$(sed -n 's/.* \([0-9]*\) failed.*/\1/p' <<<"$line")
  # A suite that broke off before its line of totals, or whose status contradicts it, has itself failed.
  if [ -z "$line" ] || { [ "$status" -ne 0 ] && [ "$failed" -eq 0 ]; }; then
    count_failure "$step"
    printf '   %s: FAILED with status %d\n' "$step" "$status"
    [ -n "$line" ] || return 1
  fi
  PASSED=$((PASSED + ${line%% *}))
  FAILED=$((FAILED + failed))
  while read -r name; do
    FAILURES+=("$name")
  done < <(sed -n 's/^failed: //p' "$log")
  SKIPPED=$((SKIPPED + $(sed -n 's/.*, \([0-9]*\) skipped$/\1/p; s/.*failed$/0/p' <<<"$line")))
  [ "$failed" -eq 0 ]
}

# closing_line: prints the totals as the last line, and before them what failed, since a reader may see only the end of
# the output. Fails if anything failed or nothing ran.
closing_line() {
  if [ "${#FAILURES[@]}" -gt 0 ]; then
    printf '%s\n' "$REPORTS"
    printf 'failed: %s\n' "${FAILURES[@]}"
  fi
  printf '\nAfter %d minutes and %d seconds:\n' $((SECONDS / 60)) $((SECONDS % 60))
  if [ "$SKIPPED" -gt 0 ]; then
    printf '%d passed, %d failed, %d skipped\n' "$PASSED" "$FAILED" "$SKIPPED"
  else
    printf '%d passed, %d failed\n' "$PASSED" "$FAILED"
  fi
  [ "$FAILED" -eq 0 ] && [ "$PASSED" -gt 0 ]
}
