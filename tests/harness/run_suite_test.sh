#!/bin/bash
# What run_suite.sh makes of programs that die, at the start and later: run_suite_test.sh path/to/run_suite.sh
set -euo pipefail

runner=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

# check name expected-status expected-starts body-of-the-program
# The body finds the number of its start in $start.
check() {
    local name=$1 status=0 starts
    # shellcheck disable=SC2016  # expanded by the program, not here
    printf '#!/bin/bash\nstart=$(($(cat "%s/starts") + 1))\necho "$start" >"%s/starts"\n%s\n' \
        "$folder" "$folder" "$4" >"$folder/program"
    chmod +x "$folder/program"
    echo 0 >"$folder/starts"
    "$runner" "$folder/program" >"$folder/output" 2>&1 || status=$?
    starts=$(<"$folder/starts")
    if ((status != $2 || starts != $3)); then
        echo "$name: status $status, expected $2; starts $starts, expected $3"
        cat "$folder/output"
        failures=$((failures + 1))
    fi
}

passed='echo "[==========] 1 test from 1 test suite ran. (0 ms total)"'
check "passes" 0 1 "$passed"
check "fails" 1 1 "$passed; exit 1"
check "crashes within a test" 139 1 'echo "[==========] Running 1 test"; exit 139'
check "ends early as if it had passed" 1 1 'echo "[==========] Running 1 test"'
check "ran no test" 1 1 'echo "[==========] 0 tests from 0 test suites ran. (0 ms total)"'
check "prints nothing and passes" 1 1 ':'
check "dies silently at the first start" 0 2 "if ((start == 1)); then exit 139; fi; $passed"
check "dies silently at every start" 139 3 'exit 139'
check "misses its desktop twice" 0 3 "echo '[==========] Running'; if ((start < 3)); then exit 75; fi; $passed"
check "misses its desktop always" 75 3 'exit 75'
check "damages the heap" 1 1 "echo '0024:err:heap:validate'; $passed"

exit $((failures > 0))
