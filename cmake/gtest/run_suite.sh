#!/bin/bash
# Runs a GoogleTest program: run_suite.sh [emulator] program arguments...
# Fails when the program does, when it ran no test, and when it ended before its last test did (a call of exit in a
# test, or in the code under test, would otherwise pass for success). Fails also when Wine found the heap damaged, which
# it says (where WINEDEBUG asks for it) but does not end the program for.
set -euo pipefail

output=$(mktemp)
trap 'rm -f "$output"' EXIT

# 75: the program found, before it tested anything, that Wine's desktop did not come up; see tests/support/own_desktop.h.
for _ in 1 2 3; do
    status=0
    "$@" >"$output" 2>&1 || status=$?
    cat "$output"
    if ((status != 75)); then break; fi
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
