#!/usr/bin/env bash
# `brindle post -j`: the same files and messages as one after the other, and what happens when the command is asked to
# stop. BRINDLE is the command, SOURCE_DIR the root of the sources.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
brindle=$(realpath "$BRINDLE")
tuning="$SOURCE_DIR/examples/laser_mm/laser_mm.tun"

# A folder for one case, with drawings of three sizes.
begin() {
    case=$1
    folder=$(mktemp -d "$work/case-XXXXXX")
    cd "$folder" || exit 1
    mkdir nc
    cp "$SOURCE_DIR/examples/drawings/plate.cf2" first.cf2
    cp "$SOURCE_DIR/examples/drawings/folding_box.cf2" second.cf2
    printf 'UR,9,9\nL,0.5,1,0,0,0,1,1,0,0\n' >third.cf2
}

post() { "$brindle" post -t "$tuning" --date D --time T -o nc "$@"; }

# The folder nc holds these files and nothing else: no temporary one.
leaves() {
    [ "$(printf '%s\n' "$@" | sort)" = "$(ls -A nc)" ] || fail "left: $(ls -A nc | tr '\n' ' ')"
}

# Starts the command with further arguments in the background, but with the signals that a terminal would give it, and
# waits until its two threads are there.
start_two() {
    env --default-signal=INT "$brindle" post -t "$tuning" -o nc -j 2 "$@" 2>err &
    command=$!
    await_two
}

await_two() {
    for _ in $(seq 200); do
        [ "$(ls "/proc/$command/task" | wc -l)" -eq 2 ] && [ "$(cat "/proc/$command/comm")" = brindle ] && break
        sleep 0.05
    done
    sleep 0.2 # until both wait for their files
}

# The command ends by itself, with this exit status.
ends_with() {
    local status=0
    for _ in $(seq 200); do
        kill -0 "$command" 2>/dev/null || break
        sleep 0.05
    done
    kill -KILL "$command" 2>/dev/null && fail 'does not end'
    { wait "$command" || status=$?; } 2>/dev/null # without the shell's own word of it
    [ "$status" -eq "$1" ] || fail "exit status $status instead of $1: $(cat err)"
}

# Writes a drawing into a pipe, and reads what comes out of one, where that hangs if nobody is at the other end.
feed() { timeout 10 dd if="$1" of="$2" conv=notrunc status=none || fail "nobody reads $2"; }
drain() { timeout 10 cat "$1" || fail "nobody writes $1"; }

begin 'files and messages of many'
many=()
for number in $(seq 12); do
    cp first.cf2 "plate-$number.cf2"
    cp third.cf2 "small-$number.cf2"
    echo "L,0.5,$((number + 40)),0,0,0,1,1,0,0" >>"small-$number.cf2"
    many+=("plate-$number.cf2" "small-$number.cf2")
done
printf '\nBOOL bUseFileSeg true\nINT nMaxBytes 300\n' | cat "$tuning" - >segments.tun
tuning=$folder/segments.tun
many+=(none.cf2 second.cf2)
post "${many[@]}" 2>messages
[ $? -eq 1 ] || fail 'exit status one after the other'
mv nc in_turn
for count in 0 2 3 100; do
    mkdir nc
    post -j "$count" "${many[@]}" 2>err
    [ $? -eq 1 ] || fail "exit status with $count at a time"
    diff messages err || fail "other messages with $count at a time"
    diff -r in_turn nc || fail "other files with $count at a time"
    rm -r nc
done
[ "$(ls in_turn | wc -l)" -gt 40 ] || fail 'no segments'
[ "$(grep -c 'the tuning has no such tool' messages)" -eq 12 ] || fail "$(cat messages)"
grep -q 'none.cf2: error: no such file' messages || fail "$(cat messages)"
tuning="$SOURCE_DIR/examples/laser_mm/laser_mm.tun"

begin 'all good, from standard input too'
post first.cf2 && post third.cf2 && mv nc in_turn && mkdir nc
post -j2 first.cf2 - second.cf2 <third.cf2 2>err || fail "exit status $?"
[ ! -s err ] || fail "messages: $(cat err)"
leaves first.nc second.nc stdin.nc
cmp in_turn/first.nc nc/first.nc || fail 'other NC text'

begin 'asked to stop while drawings are read'
for signal in INT TERM HUP; do
    mkfifo one.cf2 two.cf2
    start_two one.cf2 two.cf2 third.cf2
    kill "-$signal" "$command"
    ends_with $((128 + $(kill -l "$signal")))
    [ ! -s err ] || fail "$signal: messages: $(cat err)"
    leaves ''
    rm one.cf2 two.cf2
done

begin 'asked to stop while files are written: they become whole, and no further drawing is begun'
mkfifo nc/first.nc nc/second.nc
start_two first.cf2 second.cf2 third.cf2
kill -TERM "$command"
sleep 0.2
drain nc/first.nc >read
drain nc/second.nc >/dev/null
ends_with 143
rm nc/first.nc nc/second.nc
leaves ''
post first.cf2
sed 2d nc/first.nc | cmp - <(sed 2d read) || fail 'half-written'

begin 'asked to stop twice: nothing is waited for'
mkfifo nc/first.nc nc/second.nc
start_two first.cf2 second.cf2 third.cf2
kill -INT "$command"
sleep 0.2
kill -0 "$command" || fail 'did not finish what it had begun'
kill -INT "$command"
ends_with 130
leaves first.nc second.nc

begin 'a signal that is ignored stays so'
mkfifo one.cf2 two.cf2
(trap '' HUP && exec "$brindle" post -t "$tuning" -o nc -j 2 one.cf2 two.cf2 third.cf2) &
command=$!
await_two
kill -HUP "$command"
feed first.cf2 one.cf2
feed first.cf2 two.cf2
touch err
ends_with 0
leaves one.nc two.nc third.nc

begin 'no further thread to be had'
limited=(bash -c 'ulimit -u 1 && exec "$0" "$@"' "$brindle")
[ "$(id -u)" -ne 0 ] || limited=(setpriv --reuid 65534 --clear-groups "${limited[@]}") # nothing limits root
chmod 777 nc "$work" "$folder"
if "${limited[@]}" --version >/dev/null 2>&1; then
    "${limited[@]}" post -t - -o nc -j 2 first.cf2 third.cf2 <"$tuning" 2>err || fail "exit status $?: $(cat err)"
    leaves first.nc third.nc
else
    echo 'no other user can run the command: threads are not limited'
fi

begin 'progress is for terminals'
if can_have_terminal; then
    script -qec "'$brindle' post -t '$tuning' -o nc -j 2 first.cf2 second.cf2 third.cf2" /dev/null </dev/null >terminal
    grep -q '2 of 3 drawings done' terminal || fail "on a terminal: $(cat -v terminal)"
fi

begin 'wrong usage'
for count in -1 1025 x ''; do
    post -j "$count" first.cf2 third.cf2 2>err
    [ $? -eq 2 ] || fail "exit status of -j '$count': $?"
done
leaves ''

finish
