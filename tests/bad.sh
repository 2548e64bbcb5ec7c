#!/usr/bin/env bash
# Bad tunings and drawings, and what the command says of each. Every tests/bad/NAME.expect belongs to NAME.tun or NAME.cf2:
# its first line holds the command and its exit status, the others all that must come on standard error. A drawing is
# post-processed with plain.tun; its NC text is thrown away.
# usage: BRINDLE=COMMAND SOURCE_DIR=REPOSITORY bad.sh
set -u
export LC_ALL=C
BRINDLE=$(realpath "$BRINDLE")

# Prints what is wrong with the case of an .expect file; its input is in the present folder.
run_case() {
    local expect=$1 name head wanted status
    local -a words
    name=$(basename "$expect" .expect)
    head=$(head -n 1 "$expect")
    wanted=${head##* }
    read -r -a words <<<"${head% *}"
    if [ "${words[0]}" = post ]; then
        words+=(-t plain.tun -o - "$name.cf2")
    else
        words+=("$name.tun")
    fi
    "$BRINDLE" "${words[@]}" >"$scratch/out" 2>"$scratch/err" </dev/null
    status=$?
    [ "$status" = "$wanted" ] || echo "exit status $status instead of $wanted"
    diff --text --label expected --label "standard error" -u <(tail -n +2 "$expect") "$scratch/err"
}

# A wrong expectation must fail, or none of the cases says anything.
check_runner() {
    local wrong=$scratch/keys.expect
    sed '1s/0$/1/' keys.expect >"$wrong"
    [ -n "$(run_case "$wrong")" ] || fail "a wrong exit status is not noticed"
    sed '2s/unknown/known/' keys.expect >"$wrong"
    [ -n "$(run_case "$wrong")" ] || fail "a wrong message is not noticed"
    sed '$d' keys.expect >"$wrong"
    [ -n "$(run_case "$wrong")" ] || fail "a message too many is not noticed"
    cp keys.expect "$wrong"
    [ -z "$(run_case "$wrong")" ] || fail "a right expectation is refused"
}

fail() {
    echo "FAIL: $1"
    failed=1
}

failed=0
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$SOURCE_DIR/tests/bad" || exit 1

count=0
for expect in *.expect; do
    count=$((count + 1))
    faults=$(run_case "$expect")
    [ -z "$faults" ] || fail "$expect"$'\n'"$faults"
done
check_runner
for input in *.tun *.cf2; do
    [ -e "$input" ] || continue
    [ "$input" = plain.tun ] || [ -e "${input%.*}.expect" ] || fail "$input has no .expect file"
done
echo "$count cases"
exit "$failed"
