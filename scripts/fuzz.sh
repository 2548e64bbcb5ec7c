#!/usr/bin/env bash
# Runs each fuzzer of build/fuzz, or those that are named, for some seconds from a copy of its corpus. Stops at the
# first finding: the input that shows it is kept in build/fuzz/findings, with what was printed.
# usage: fuzz.sh SECONDS [NAME...]       (FUZZ_BUILD: another build folder)
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
seconds=${1:?"usage: fuzz.sh SECONDS [NAME...]"}
shift
build=$(realpath "${FUZZ_BUILD:-build/fuzz}")
findings=$build/findings
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1 UBSAN_OPTIONS=print_stacktrace=1
# What libraries of the system keep to the end of the process is no finding.
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0

names=("$@")
if [ ${#names[@]} -eq 0 ]; then
    for source in fuzz/fuzz_*.cpp; do
        name=$(basename "$source" .cpp)
        names+=("${name#fuzz_}")
    done
fi

# Commands print much; what they print is shown when the finding is run again.
run_fuzzer() {
    local name=$1
    local -a limits=(-max_total_time="$seconds" -timeout=300 -report_slow_units=30 -rss_limit_mb=4096 -max_len=4000)
    cp -r "fuzz/corpus/$name" "$work/"
    "$build/bin/fuzz_$name" "${limits[@]}" -close_fd_mask=3 -print_final_stats=1 \
        -artifact_prefix="$findings/$name-" "$work/$name" >"$findings/$name.log" 2>&1
}

mkdir -p "$findings"
for name in "${names[@]}"; do
    if ! run_fuzzer "$name"; then
        echo "fuzz_$name: a finding"
        tail -n 60 "$findings/$name.log"
        for input in "$findings/$name"-*; do [ -e "$input" ] && "$build/bin/fuzz_$name" "$input"; done
        exit 1
    fi
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$findings/$name.log")
    echo "fuzz_$name: $runs inputs in $seconds s, nothing found"
done
