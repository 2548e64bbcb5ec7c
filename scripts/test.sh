#!/usr/bin/env bash
# All tests: the layout of the sources, the unit tests under the sanitizers, and the whole suite on the release build,
# which comes last so that its summary closes the output. Later steps run even if an earlier one failed.
set -uo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
jobs=${JOBS:-$(nproc)}

# The same tests are listed one by one further down, so here only those that failed are shown.
sanitized_unit_tests() {
    ctest --preset san --label-regex '^unit$' --parallel "$jobs" |
        grep -vE '^ +Start +[0-9]+: |^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed '
}

failed=()
step() {
    local name=$1
    shift
    printf '== %s\n' "$name"
    "$@" || failed+=("$name")
}

step "layout of the sources" scripts/format.sh --check
step "unit tests under the address and undefined behaviour sanitizers" sanitized_unit_tests
step "all tests of the release build" ctest --preset release --parallel "$jobs"

[ ${#failed[@]} -eq 0 ] && exit 0
printf 'FAILED: %s\n' "${failed[@]}"
exit 1
