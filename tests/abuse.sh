#!/usr/bin/env bash
# What happens to the command on a bad day: killed while it writes, too little memory, a full disk, a closed standard
# output. BRINDLE is the command.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
brindle=$(realpath "$BRINDLE")
mounted=
trap '[ -z "$mounted" ] || umount "$mounted"; rm -rf "$work"' EXIT
export LC_ALL=C
cd "$work" || exit 1

cat >job.tun <<'END'
TEXT sAx1Addr X
TEXT sAx2Addr Y
INT MM_AX1_nNDec 3
INT MM_AX2_nNDec 3
TEXT sCenAx1Addr I
TEXT sCenAx2Addr J
INT  nNumOfTools 1
BOOL bUseSubs false
MULTI FileStart_tTmpl NNUL %<@CADFile>
MULTI T1_ToolOn_tTmpl NNUL M3
MULTI T1_ToolOff_tTmpl NNUL M5
MULTI Move_tTmpl NNUL G0<@StartPtWords>
MULTI Line_tTmpl NNUL G1<@EndPtWords>F900(a!#SP#!long!#SP#!remark!#SP#!so!#SP#!that!#SP#!there!#SP#!is!#SP#!more!#SP#!to!#SP#!write!#SP#!than!#SP#!to!#SP#!work!#SP#!out)
MULTI Arc_tTmpl NNUL G2<@EndPtWords><@CenPtWords>
MULTI FileEnd_tTmpl NNUL M30
END
printf 'MAIN,SMALL\nUR,100,50\nL,0.5,1,0,0,0,25.4,0,0,0\nEND\n' >small.cf2
printf 'MSG TEXT Note\nDATASETDEF Card\n' >data.tun
for name in old new; do
    { printf 'MAIN,%s\nUR,100,50\n' $name; seq -f 'L,0.5,1,0,0,0,%g.25,7,0,0' 20000; echo END; } >$name.cf2
    "$brindle" post -t job.tun -o $name.nc $name.cf2 || exit 1
done
cmp -s old.nc new.nc && fail 'both texts are the same: they show nothing'

# A sanitized command is slow, and needs all memory.
readelf -d "$brindle" | grep -q libasan && sanitized=yes || sanitized=
[ "$sanitized" ] && kills=40 || kills=200

# ---- Killed while it writes ----

# Kills it again and again: half of the times at a moment somewhere in a run, else as soon as anything is written. What
# is there then is the old or the new file.
mkdir killed
from=${EPOCHREALTIME/./}
"$brindle" post -t job.tun -o killed/out.nc old.cf2
took=$((${EPOCHREALTIME/./} - from))

await_write() {
    while kill -0 "$1" 2>/dev/null; do
        local files=(killed/.out.nc.*)
        if [ -e "${files[0]}" ] || [ killed/out.nc -nt start ]; then return; fi
    done
}

name=old torn=0 ended=0 cut_off=0
for ((i = 0; i < kills; i++)); do
    [ $name = old ] && name=new || name=old
    rm -f killed/.out.nc.*
    touch start
    "$brindle" post -t job.tun -o killed/out.nc $name.cf2 2>/dev/null &
    if [ $((i % 4)) -lt 2 ]; then
        await_write $!
    else
        sleep "$(printf '0.%06d' $((RANDOM % 1000 * took / 1000 % 1000000)))"
    fi
    kill -9 $! 2>/dev/null
    wait $! 2>/dev/null && ended=$((ended + 1))
    cmp -s killed/out.nc old.nc || cmp -s killed/out.nc new.nc || torn=$((torn + 1))
    left=$(find killed -type f ! -name out.nc ! -name '.out.nc.*-*.tmp')
    [ -z "$left" ] || fail "a killed run left $left"
    [ -z "$(ls -A killed | grep -v '^out.nc$')" ] || cut_off=$((cut_off + 1))
done
[ $torn -eq 0 ] || fail "$torn torn files"
[ $cut_off -gt 0 ] || fail 'no run was killed while it wrote'
echo "$((kills - ended)) runs killed, $cut_off of them while they wrote"

# ---- Too little memory ----

# A job gives its whole text, or a message and nothing.
if [ ! "$sanitized" ]; then
    { printf 'MAIN,LARGE\nUR,100,50\n'; seq -f 'L,0.5,1,0,0,0,%g.25,7,0,0' 100000; echo END; } >large.cf2
    "$brindle" post -t job.tun -o large.nc large.cf2
    poor=0
    for kilobytes in {16000..80000..8000}; do
        if (ulimit -v "$kilobytes" && exec "$brindle" post -t job.tun -o poor.nc large.cf2 2>err); then
            cmp poor.nc large.nc || fail "$kilobytes kB give another text"
        else
            poor=$((poor + 1))
            [ -s err ] || fail "$kilobytes kB: no message"
            [ ! -e poor.nc ] || fail "$kilobytes kB: a file is left"
        fi
        rm -f poor.nc
    done
    [ $poor -gt 0 ] || fail 'memory was never too little'
fi

# ---- A full disk ----

mkdir full
if mount -t tmpfs -o size=1m none full 2>/dev/null; then
    mounted=$work/full
    "$brindle" post -t job.tun -o full/out.nc small.cf2 || fail 'a small file does not fit'
    cp full/out.nc small.nc
    "$brindle" post -t job.tun -o full/out.nc new.cf2 2>err
    [ $? -eq 1 ] || fail 'exit status on a full disk'
    [ "$(cat err)" = "full/out.nc: error: can't be written: No space left on device" ] || fail "full disk: $(cat err)"
    cmp -s full/out.nc small.nc || fail 'the file from before is gone'
    [ "$(ls -A full)" = out.nc ] || fail "left on the full disk: $(ls -A full)"
else
    echo 'mounting is not allowed: no full disk is tried'
fi

# Status 1 and a message when standard output takes nothing.
takes_nothing() {
    [ "$1" -eq 1 ] || fail "exit status $1 $2"
    [[ $(<err) = "standard output: error: can't be written: "* ]] || fail "$2: $(<err)"
}
while read -r arguments; do
    # shellcheck disable=SC2086
    "$brindle" $arguments >/dev/full 2>err </dev/null
    takes_nothing $? "on a full device: $arguments"
    # shellcheck disable=SC2086
    "$brindle" $arguments >&- 2>err </dev/null
    takes_nothing $? "with standard output closed: $arguments"
done <<'END'
post -t job.tun -o - small.cf2
keys nNumOfTools
directives @Date
dump job.tun
data data.tun
--version
post --help
END
# What is not to go there does not need it, and the files that are opened instead get nothing else.
"$brindle" post -t job.tun -o closed.nc --trace closed.trace small.cf2 >&- || fail 'standard output is not needed'
"$brindle" post -t job.tun -o - --trace other.trace small.cf2 >&- 2>err && fail 'standard output is closed'
[ ! -e other.trace ] || fail 'a trace is left of a job that failed'
"$brindle" post -t job.tun -o open.nc --trace open.trace small.cf2
cmp closed.nc open.nc && cmp closed.trace open.trace || fail 'other files with standard output closed'

finish
