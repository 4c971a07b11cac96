#!/bin/bash
# Runs a GoogleTest program: run_suite.sh [emulator] program arguments...
# Fails when the program does, when it ran no test, and when it ended before its last test did (a call of exit in a
# test, or in the code under test, would otherwise pass for success). Fails also when Wine found the heap damaged, which
# it says (where WINEDEBUG asks for it) but does not end the program for.
set -euo pipefail

output=$(mktemp)
trap 'rm -f "$output"' EXIT

# Whether the program got as far as GoogleTest's first line.
started() { grep -Eqa '^(Running main|Note: Google Test|\[=)' "$output"; }

# Started anew, three times at most, is what tested nothing: a program that found Wine's desktop missing (75, see
# tests/support/own_desktop.h), and one that ended before GoogleTest said a word (a Wine process now and then dies while
# it starts). What breaks every start still fails.
for attempt in 1 2 3; do
    status=0
    "$@" >"$output" 2>&1 || status=$?
    cat "$output"
    if ((status == 0)) || { ((status != 75)) && started; }; then break; fi
    echo "run_suite: start $attempt tested nothing, status $status"
done
if grep -Eqa ':err:heap:' "$output"; then
    echo "run_suite: the heap was damaged"
    exit 1
fi
if ((status != 0)); then
    exit "$status"
fi

if ! grep -Eqa '^\[==========\] [1-9][0-9]* tests? from [0-9]+ test suites? ran\.' "$output"; then
    echo "run_suite: no test was run to its end"
    exit 1
fi
