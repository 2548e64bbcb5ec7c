#!/usr/bin/env bash
# What `make ci` runs: the checks of the sources' layout and includes; the whole suite under the address, undefined
# behaviour and leak sanitizers; each fuzzer for some seconds; and the whole suite on the release build, which comes last
# so that its summary closes the output. Builds what it needs. Later steps run even if an earlier one failed.
# FUZZ_SECONDS: how long each fuzzer runs (20).
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
jobs=${JOBS:-$(nproc)}

build() {
    cmake --preset "$1" >/dev/null || return 1
    cmake --build --preset "$1" --parallel "$jobs" | grep -vE '^\[[0-9]+/[0-9]+\] [A-Z][a-z]+ing |: no work to do'
    return "${PIPESTATUS[0]}"
}

# The same tests are listed one by one further down, so here only those that failed are shown. The preset leaves
# out the packages: nobody packs a sanitized library.
sanitized_tests() {
    build san || return 1
    ctest --preset san --parallel "$jobs" |
        grep -vE '^ +Start +[0-9]+: |^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed '
    return "${PIPESTATUS[0]}"
}

fuzzers() {
    if ! command -v clang++ >/dev/null; then
        echo 'no clang: the fuzzers run over their corpora only'
        return
    fi
    build fuzz && scripts/fuzz.sh "${FUZZ_SECONDS:-20}"
}

release_tests() {
    build release && ctest --preset release --parallel "$jobs"
}

failed=()
step() {
    local name=$1
    shift
    printf '== %s\n' "$name"
    "$@" || failed+=("$name")
}

step "layout of the sources" scripts/format.sh --check
step "includes without circles" scripts/cycles.py
step "all tests under the address, undefined behaviour and leak sanitizers" sanitized_tests
step "fuzzers" fuzzers
step "all tests of the release build" release_tests

[ ${#failed[@]} -eq 0 ] && exit 0
printf 'FAILED: %s\n' "${failed[@]}"
exit 1
