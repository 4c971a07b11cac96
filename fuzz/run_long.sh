#!/bin/bash
# Runs all fuzz targets, one after the other: fuzz/run_long.sh MINUTES [TARGET...]
#   MINUTES  in all, shared out evenly
#   TARGET   such as lut_csv; without one, all
# What a run finds stays in build/host-fuzz/long/<target> for the next one. Ends with a table, and with status 1 when a
# target failed: the input is then in build/host-fuzz/long, the target's output beside it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [[ ! ${1:-} =~ ^[1-9][0-9]*$ ]]; then
    sed -n '2,6s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
minutes=$1
shift
targets=("$@")
if ((${#targets[@]} == 0)); then
    for seeds in fuzz/corpus/*/; do
        targets+=("$(basename "$seeds")")
    done
fi

build=build/host-fuzz
if [[ ! -f $build/CMakeCache.txt ]]; then
    cmake --preset host-fuzz
fi
cmake --build --preset host-fuzz

# stat LOG NAME: a number of the fuzzer's final statistics.
stat() {
    sed -n "s/^stat::$2: *//p" "$1" | tail -n 1
}

seconds=$((minutes * 60 / ${#targets[@]}))
rows=()
status=0
for target in "${targets[@]}"; do
    found=$build/long/$target
    log=$build/long/$target.log
    mkdir -p "$found"
    printf '%s: %s s\n' "$target" "$seconds"
    result=ok
    if ! "$build/bin/fuzz_$target" -max_total_time="$seconds" -max_len=4096 -timeout=10 -print_final_stats=1 \
        -artifact_prefix="$build/long/$target-" "$found" "fuzz/corpus/$target" >"$log" 2>&1; then
        result=FAILED
        status=1
        tail -n 30 "$log"
    fi
    edges=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)
    rows+=("$(printf '%-18s %12s %8s %8s %10s  %s' "$target" "$(stat "$log" number_of_executed_units)" \
        "$(stat "$log" average_exec_per_sec)" "${edges#cov: }" "$(stat "$log" new_units_added)" "$result")")
done

printf '\n%-18s %12s %8s %8s %10s\n' target runs runs/s edges "new units"
printf '%s\n' "${rows[@]}"
exit "$status"
