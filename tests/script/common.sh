# What the test scripts begin with: a folder for their files that goes in the end, a store for run-time data of their
# own, and a count of failures. To be sourced first.
set -uo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_DATA_HOME="$work/store"
case=
failures=0

# Says what is wrong, and in which case where there is one; the script goes on.
fail() {
    echo "FAILED: ${case:+$case: }$*"
    failures=$((failures + 1))
}

# Whether a program can be given a terminal here. If not, says that the case is skipped.
can_have_terminal() {
    script -qec true /dev/null </dev/null >/dev/null 2>&1 && return
    echo "skipped, for want of a terminal: $case"
    return 1
}

# The last command of a script.
finish() {
    [ "$failures" -eq 0 ] || echo "$failures failures"
    exit "$((failures > 0))"
}
