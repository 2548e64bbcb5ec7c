#!/usr/bin/env bash
# The editor played from text. A transcript tests/editor/NAME.play holds acts, in lines that begin with `> `, and otherwise
# what must come on the screen; the session has the tuning NAME.tun and the drawing NAME.cf2, where they exist. BRINDLE is the
# command, with brindle-play beside it; PLAYER, if it is set, plays in its place, with the same on the screen.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
play=$(realpath "${PLAYER:-$(dirname "$BRINDLE")/brindle-play}")
cd "$SOURCE_DIR/tests/editor" || exit 1
export XDG_RUNTIME_DIR="$work" TZ=UTC

# ---- Transcripts ----

for transcript in *.play; do
    name=${transcript%.play}
    arguments=()
    [ -f "$name.cf2" ] && arguments+=(--drawing "$name.cf2")
    [ -f "$name.tun" ] && arguments+=("$name.tun")
    sed -n 's/^> //p' "$transcript" >"$work/acts"
    grep -v '^> ' "$transcript" >"$work/expected"
    "$play" "${arguments[@]}" <"$work/acts" 2>"$work/errors" | tr -d '\r' >"$work/screen" || fail "$name: exit status $?"
    [ -s "$work/errors" ] && fail "$name: $(cat "$work/errors")"
    diff -u --label "$name: expected" --label "$name: on the screen" "$work/expected" "$work/screen" || fail "$name"
done

# ---- Acts that no user could do ----

# Plays acts on the Templates page: the message that must come, then the acts.
refuses() {
    local expected=$1 status=0
    shift
    printf '%s\n' 'sheet mm S' 'page Templates' "$@" | "$play" >"$work/screen" 2>"$work/errors" || status=$?
    [ "$status" -eq 1 ] || fail "exit status $status instead of 1 of: $*"
    [ "$(cat "$work/errors")" = "brindle-play: line $(($# + 2)): $expected" ] || fail "$*: $(cat "$work/errors")"
}

refuses 'there is no control "sNo" in the window' 'click sNo'
refuses 'there is no control "Preview...#2" in the window' 'click Preview...#2'
refuses '"table" is no button' 'click table'
refuses '"&Preview..." takes no text' 'type "&Preview..." x'
refuses '"Clear @AbsIncCode modal information" is hidden' 'double table 0 0' \
    'click "Clear @AbsIncCode modal information"'
refuses '"list" has no such entry' 'double table 0 0' 'click "Insert @Directive..."' 'pick list @Nothing'
refuses 'there is no page "Pages" in the window' 'page Pages'
refuses 'there is no window "NC Code Preview"' 'window "NC Code Preview"'
refuses '"S" waits for another window' 'double table 0 0' 'window S'
refuses 'the window has no Apply, or it is disabled' 'page Speed' 'apply' 'apply'
refuses "the message box waits for 'answer ok'" 'double table 0 0' 'click "Insert @Directive..."' 'pick list 9' 'ok' 'ok'
refuses "there is no act 'answer' here" 'answer ok'
refuses "there is no act 'push' here" 'push table'
refuses "wrong number of arguments for 'type'" 'type table'
refuses 'a quote is not closed' 'click "Preview...'
refuses 'a window is open' 'sheet mm'

status=0
"$play" no_such.tun </dev/null 2>"$work/errors" || status=$?
[ "$status" -eq 1 ] && [ "$(cat "$work/errors")" = "brindle-play: no_such.tun: can't be read" ] ||
    fail "a missing tuning: $status $(cat "$work/errors")"
status=0
"$play" --drawing </dev/null 2>/dev/null || status=$?
[ "$status" -eq 2 ] || fail "wrong usage: $status"

finish
