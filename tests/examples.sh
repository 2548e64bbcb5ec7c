#!/usr/bin/env bash
# The examples: each gives the NC files that are checked in beside its tuning, to the byte, and passes `brindle check`.
# BRINDLE is the command, SOURCE_DIR the root of the sources. With UPDATE=1 the checked-in files are written anew; look
# at what changed before you keep it.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
cd "$SOURCE_DIR"

# Post-processes $2 with the tuning $1 into the file $3 and its trace; further arguments go to the command.
post() {
    local tuning=$1 drawing=$2 nc=$3
    shift 3
    "$BRINDLE" post -t "examples/$tuning/$tuning.tun" -o "$nc" --trace "$nc.trace" --date 2026-11-02 --time 08:30:00 \
        "$@" "examples/drawings/$drawing.cf2" 2>"$nc.messages"
}

# ---- NC files, with nothing to say on standard error ----

golden() {
    local tuning=$1 drawing=$2 expected="examples/$1/$2.nc" nc="$work/$1-$2.nc"
    shift 2
    post "$tuning" "$drawing" "$nc" "$@" || fail "$tuning, $drawing: exit status $?"
    [ ! -s "$nc.messages" ] || fail "$tuning, $drawing: $(head -n 3 "$nc.messages")"
    [ -z "${UPDATE:-}" ] || cp "$nc" "$expected"
    cmp "$expected" "$nc" || { diff "$expected" "$nc" | head -n 10; fail "$tuning, $drawing: differs"; }
}

golden laser_mm folding_box --final 0,0
golden laser_mm plate
golden laser_inc_radius folding_box
golden laser_inc_radius plate --final 0,0
golden plotter_hpgl plate
golden plotter_hpgl engraving
golden knife_tangential knife_sheet
golden subs_mirror nested_sheet
golden engraver_text engraving
golden speed_by_material plate --dataset Birch_18 --expr 'CUSTOMER=MILLER & SONS'

# ---- Each template event writes a block in one of these files ----

events="FileStart FileEnd MainInit MainTerm SubInit SubTerm Move Line Arc Text SubCall SubReset OriTransSet
    OriTransReset MoveToIncludePt Fly_PreCheck Fly_PostCheck ToolSel ToolDesel ToolOn ToolOff"
for event in $events; do
    blocks=$(cat "$work"/*.trace | grep -A1 -E "^<(T[0-9]*_)?${event}_tTmpl>" | grep -c '^  .')
    [ "$blocks" -gt 0 ] || fail "no block of $event"
done

# ---- Tunings are clean, and every example says how it was made ----

for tuning in examples/*/*.tun; do
    findings=$("$BRINDLE" check --strict "$tuning" 2>&1) || fail "$tuning: exit status of check $?"
    [ -z "$findings" ] || fail "$tuning: $findings"
done
for example in examples/*/*.tun examples/drawings/*.cf2; do
    [ -s "${example%.*}.txt" ] || fail "$example: no comment file"
done

# ---- Drawings are what their script makes; the large one runs ----

python3 -B examples/drawings/make_drawings.py -o "$work"
for drawing in examples/drawings/*.cf2; do
    cmp "$drawing" "$work/$(basename "$drawing")" || fail "$drawing: not what make_drawings.py makes"
done
post plotter_hpgl large "$work/large.nc" || fail "large: exit status $?"
# The plotter counts to 32767: arcs around points beyond that go out as chords, all others as arcs.
reachable=$(awk -F, '$1 == "A" && $9 < 819 && $10 < 819 { ++count } END { print count }' examples/drawings/large.cf2)
arcs=$(awk -F'[A,;]' '/^AA/ && $3 < 32768 && $4 < 32768 { ++count } END { print count }' "$work/large.nc")
all_arcs=$(grep -c '^AA' "$work/large.nc")
[ "$arcs" = "$reachable" ] || fail "large: $arcs arcs, not $reachable"
[ "$arcs" = "$all_arcs" ] || fail "large: $all_arcs arcs, $arcs of them within reach"

# ---- The host in C gives what the command gives ----

host_c=$(dirname "$BRINDLE")/host_c
if [ -x "$host_c" ]; then
    "$host_c" examples/laser_mm/laser_mm.tun examples/drawings/plate.cf2 "$work/host_c.nc" || fail "host_c: status $?"
    without_date() { sed '2s/ [0-9-]* [0-9:]*)/)/' "$1"; }
    cmp <(without_date examples/laser_mm/plate.nc) <(without_date "$work/host_c.nc") || fail "host_c: differs"
    [ "$("$host_c" | grep -c '^N.* M5')" = 3 ] || fail "host_c: its own part"
fi

finish
