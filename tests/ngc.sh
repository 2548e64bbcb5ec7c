#!/usr/bin/env bash
# Reads NC files of the RS-274 dialects back with ngc_reader.py, which knows machines and not the generator: every line
# and arc of the drawing is cut once, with its tool, and nothing else is. BRINDLE is the command, SOURCE_DIR the root.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
cd "$SOURCE_DIR"

drawing() { echo "examples/drawings/$1.cf2"; }

# Post-processes drawing $2 with tuning $1 into $3.
post() {
    local tuning=$1 name=$2 nc=$3
    shift 3
    "$BRINDLE" post -t "$tuning" -o "$nc" "$@" "$(drawing "$name")" || fail "post $tuning $name: exit status $?"
}

read_back() { python3 -B tests/ngc_reader.py "$@"; }

# Reads drawing $2 back as example $1 cuts it; arguments after `--` go to the reader, those before it to the command.
check() {
    local example=$1 name=$2 nc="$work/$1-$2.nc" arguments=()
    shift 2
    while [ $# -gt 0 ] && [ "$1" != -- ]; do
        arguments+=("$1")
        shift
    done
    post "examples/$example/$example.tun" "$name" "$nc" ${arguments[@]+"${arguments[@]}"}
    read_back "${@:2}" "$(drawing "$name")" "$nc" || fail "$example, $name"
}

knife=(--on 11,12,13 --off 10 --tangential 1,2 --symmetric 2)
for name in folding_box plate nested_sheet knife_sheet large; do check laser_mm "$name"; done
# No half circle in an inclined place: the radius alone, rounded, says too little about the centre of one.
for name in folding_box plate knife_sheet large; do check laser_inc_radius "$name"; done
check speed_by_material plate --expr CUSTOMER=X
check knife_tangential knife_sheet -- "${knife[@]}"
check knife_tangential folding_box -- "${knife[@]}"
check engraver_text engraving -- --depth
check engraver_text plate -- --depth

# The same laser in inches.
inches="$work/laser_inches.tun"
sed 's/bOutUnitsInches false/bOutUnitsInches true/' examples/laser_mm/laser_mm.tun >"$inches"
printf '%s\n' 'TEXT sInchCode G20' 'INT  IN_AX1_nNDec 5' 'INT  IN_AX2_nNDec 5' >>"$inches"
post "$inches" plate "$work/inches.nc"
grep -q G20 "$work/inches.nc" || fail "no inches"
read_back "$(drawing plate)" "$work/inches.nc" || fail "inches, plate"

# Calls with mirrors and rotations cut what the drawing shows, and what the same job with its calls expanded cuts.
check subs_mirror nested_sheet
post examples/subs_mirror/subs_mirror.tun nested_sheet "$work/expanded.nc" --tile 1
[ "$(grep -c M98 "$work/subs_mirror-nested_sheet.nc")" = 9 ] || fail "calls"
! grep -q M98 "$work/expanded.nc" || fail "a call in a tile"
read_back "$work/expanded.nc" "$work/subs_mirror-nested_sheet.nc" || fail "calls and expanded calls differ"

# The reader sees faults: each of these edits is one.
spoiled() {
    local nc="$work/$1.nc" name=$2 edit=$3
    sed -E "$edit" "$nc" >"$work/spoiled.nc"
    ! cmp -s "$nc" "$work/spoiled.nc" || fail "no edit: $edit"
    ! read_back "${@:4}" "$(drawing "$name")" "$work/spoiled.nc" 2>/dev/null || fail "not seen: $edit"
}

spoiled laser_mm-plate plate '0,/M5/ s/M5//'                 # the beam stays on
spoiled laser_mm-plate plate '0,/M3/ s/M3 S1000//'           # the beam stays off
spoiled laser_mm-plate plate 's/G2 X200\./G3 X200./'         # the other arc
spoiled laser_mm-plate plate 's/X127\. P0/X127.01 P0/'       # a wrong digit
spoiled laser_mm-plate plate '/G2 I-20\./ p'                 # cut twice
spoiled laser_mm-plate plate '/Y110\. P0/ d'                 # a line left out
spoiled laser_mm-plate plate 's/T2 M6/T1 M6/'                # the wrong tool
spoiled laser_mm-plate plate 's/G21/G20/'                    # the wrong units
spoiled laser_mm-plate plate 's/F[0-9]+//'                   # no feed
spoiled laser_mm-plate plate 's/M30//'                       # no end
spoiled laser_inc_radius-plate plate 's/R-2\.5/R2.5/'        # the short arc for the long one
spoiled laser_inc_radius-plate plate 's/G91/G90/'            # absolute
spoiled subs_mirror-nested_sheet nested_sheet 's/R30\./R-30./'
spoiled subs_mirror-nested_sheet nested_sheet 's/G50\.1//'
spoiled knife_tangential-knife_sheet knife_sheet '0,/C-51/ s/C-51/C-50/' "${knife[@]}"
spoiled knife_tangential-knife_sheet knife_sheet 's/(G2.*)C-0/\1C0/' "${knife[@]}" # the long way round
spoiled engraver_text-plate plate '0,/G0 Z2/ s/G0 Z2/G0 Z-1/' --depth

finish
