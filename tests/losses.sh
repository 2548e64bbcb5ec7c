#!/usr/bin/env bash
# Jobs that lose something, as the user of `brindle post` meets them: exit statuses, what is written, and which lines the
# messages name. What is found, and what is not, has its tests in tests/unit/losses_test.cpp. BRINDLE is the command.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
brindle=$(realpath "$BRINDLE")
cd "$work" || exit 1

cat >job.tun <<'END'
INT  nNumOfTools 1
BOOL bUseSubs false
TEXT sAx1Addr X
TEXT sAx2Addr Y
INT MM_AX1_nNDec 3
INT MM_AX2_nNDec 3
TEXT sCenAx1Addr I
TEXT sCenAx2Addr J
MULTI T1_ToolOn_tTmpl NNUL M3
MULTI T1_ToolOff_tTmpl NNUL M5
MULTI Move_tTmpl NNUL G0<@StartPtWords>
MULTI Line_tTmpl NNUL G1<@EndPtWords>F500
MULTI Arc_tTmpl NNUL G1<@EndPtWords>F500(<@CenPtWords>)
MULTI FileEnd_tTmpl NNUL M30
END
line='L,0.5,1,0,0,0,30,40,0,0'
foreign='L,0.5,7,0,0,0,0,10,0,0' # of a tool that the tuning lacks
printf 'UR,50,50\n%s\n' $line >good.cf2
printf 'UR,50,50\n%s\n%s\n' $line $foreign >lossy.cf2
printf 'UR,50,50\n%s\nSCL,2,2\n' $line >scaled.cf2
printf 'UR,50,50\nC,PART,5,5,0,0,0\nC,PART,9,9,0,0,0\nSUB,PART\n%s\n%s\n' $line $foreign >called.cf2

# Posts into the folder nc, anew: the expected exit status, then arguments. `err` has what standard error got.
run() {
    local expected=$1 status=0
    shift
    case="post $*"
    rm -rf nc
    mkdir nc
    "$brindle" post -o nc "$@" 2>err </dev/null || status=$?
    [ "$status" -eq "$expected" ] || fail "exit status $status instead of $expected: $(cat err)"
}
# The folder nc has these files and no others.
leaves() {
    [ "$(printf '%s\n' "$@" | sort)" = "$(ls -A nc)" ] || fail "left: $(ls -A nc | tr '\n' ' ')"
}
# Standard error says nothing, or has a line that begins and goes on so.
silent() { [ ! -s err ] || fail "says: $(cat err)"; }
mentions() { grep -q "^$1.*$2" err || fail "no '$1 ... $2' in: $(cat err)"; }

# ---- One drawing ----

run 0 -t job.tun good.cf2
silent
leaves good.nc
cp nc/good.nc .

run 3 -t job.tun lossy.cf2
mentions 'lossy.cf2:3:1: error: loss: ' 'tool 7, 10.000 mm'
mentions 'lossy.cf2: note: ' 'drawn: 2 records, 60.000 mm; cut: 50.000 mm; lost: 1 record, 10.000 mm'
leaves lossy.nc
cmp -s nc/lossy.nc good.nc || fail 'the NC text is not what is written of what can be cut'

run 3 -t job.tun scaled.cf2
mentions 'scaled.cf2:3:1: error: loss: ' 'SCL'

# The record in its sub-program, and the call that reached it.
run 3 -t job.tun called.cf2
mentions 'called.cf2:6:1: error: loss: ' 'in the call of line 2, 2 times'

# ---- Several drawings: 1 before 3 before 0 ----

for jobs in 1 2; do
    run 0 -t job.tun -j $jobs good.cf2 <(cat good.cf2)
    run 3 -t job.tun -j $jobs good.cf2 lossy.cf2 called.cf2
    leaves good.nc lossy.nc called.nc
    run 3 -t job.tun -j $jobs lossy.cf2 good.cf2
    leaves good.nc lossy.nc
    run 1 -t job.tun -j $jobs lossy.cf2 none.cf2 good.cf2
    mentions 'none.cf2: ' 'no such file'
    leaves good.nc lossy.nc
    run 1 -t job.tun -j $jobs none.cf2 good.cf2
    leaves good.nc
done

# ---- What is meant ----

run 0 -t job.tun --allow not-cut,unknown-tool lossy.cf2
silent
cmp -s nc/lossy.nc good.nc || fail 'other NC text'
run 0 -t job.tun --allow not-cut --allow unknown-tool lossy.cf2
silent
run 0 -t job.tun --allow scale scaled.cf2
silent
run 3 -t job.tun --allow unknown-tool,stray-cut lossy.cf2
mentions 'lossy.cf2:3:1: error: loss: ' 'tool 7'
run 1 -t job.tun --allow no-drawing err
run 2 -t job.tun --allow not-cut,nonesuch lossy.cf2
mentions '' "'nonesuch' is the name of no rule"
leaves ''

run 0 -t job.tun --skip-tool 7 lossy.cf2
silent
run 3 -t job.tun --skip-tool 6 lossy.cf2
sed 's/^INT  nNumOfTools 1/INT  nNumOfTools 7/' job.tun >unused.tun
run 3 -t unused.tun lossy.cf2
echo 'BOOL T7_bToolUnused true' >>unused.tun
run 0 -t unused.tun lossy.cf2

# ---- Nothing with a warning ----

run 0 -t job.tun --strict good.cf2
silent
leaves good.nc
for drawing in lossy scaled called; do
    run 1 -t job.tun --strict $drawing.cf2
    mentions "$drawing.cf2: " 'no NC file written'
    leaves ''
done
printf 'UR,50,50\n%s\nNOTE\n' $line >note.cf2
run 0 -t job.tun note.cf2
mentions 'note.cf2:3:1: warning: ' NOTE
run 1 -t job.tun --strict note.cf2
leaves ''
run 0 -t job.tun --strict --allow unknown-record note.cf2
run 1 -t job.tun --strict good.cf2 note.cf2
leaves good.nc

# ---- Names in comments ----

cp good.cf2 'good (2).cf2'
{
    cat job.tun
    echo 'MSG TEXT Customer'
    echo 'DATASETDEF Oak'
    echo 'DSD Oak TEXT RTD(1) SMITH(2)'
    echo 'MULTI FileStart_tTmpl NNUL (<@CADFile>) NNUL (<RTD(1)>)'
} >named.tun
run 0 -t named.tun 'good (2).cf2'
mentions 'named.tun:18:[0-9]*: warning: @CADFile' 'into a comment'
mentions 'named.tun:18:[0-9]*: warning: RTD(1)' 'into a comment'
run 1 -t named.tun --strict good.cf2
leaves ''
run 0 -t named.tun --strict --set 'RTD(1)=SMITH' good.cf2
silent

# ---- Tolerance ----

# The chord in the place of a quarter circle is 2.929 mm off.
printf 'UR,50,50\nA,0.5,1,0,10,0,0,10,0,0,-10,0,0\n' >arc.cf2
run 3 -t job.tun arc.cf2
mentions 'arc.cf2:2:1: error: loss: ' '2.929 mm'
run 3 -t job.tun --tolerance 2.8 arc.cf2
run 0 -t job.tun --tolerance 3 arc.cf2
silent
run 2 -t job.tun --tolerance -1 arc.cf2
run 2 -t job.tun --tolerance wide arc.cf2

finish
