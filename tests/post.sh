#!/usr/bin/env bash
# `brindle post` as a whole: what it writes and where, what it says, and its exit status. BRINDLE is the command.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
brindle=$(realpath "$BRINDLE")
unset TZ

# ---- Files ----

# A folder for one case, with the files that all cases use.
begin() {
    case=$1
    folder=$(mktemp -d "$work/case-XXXXXX")
    cd "$folder" || exit 1
    cat >plain.tun <<'END'
INT  nNumOfTools 1
BOOL bUseSubs false
TEXT sAx1Addr X
TEXT sAx2Addr Y
TEXT sCenAx1Addr I
TEXT sCenAx2Addr J
INT  MM_AX1_nNDec 1
INT  MM_AX2_nNDec 1
INT  IN_AX1_nNDec 3
INT  IN_AX2_nNDec 3
BOOL bOutUnitsAuto true
MULTI FileStart_tTmpl NNUL %
MULTI T1_ToolOn_tTmpl NNUL M3
MULTI T1_ToolOff_tTmpl NNUL M5
MULTI Move_tTmpl NNUL G0<@StartPtWords>
MULTI Line_tTmpl NNUL G1<@EndPtWords>F500
MULTI Arc_tTmpl NNUL G2<@EndPtWords><@CenPtWords>
MULTI FileEnd_tTmpl NNUL M30
END
    printf 'MAIN,BOX\nUR,100,50\nL,0.5,1,0,0,0,25.4,0,0,0\nEND\n' >box.cf2
    printf 'MAIN,LID\nUR,100,50\nL,0.5,1,0,1,2,3,4,0,0\nEND\n' >lid.cf2
}

# The NC text of box.cf2 and plain.tun, and of lid.cf2.
nc() { printf '%%\r\n%s\r\nM3\r\n%sF500\r\nM5\r\nM30\r\n' "$1" "$2"; }
box_nc() { nc G0X0.0Y0.0 G1X25.4; }
lid_nc() { nc G0X1.0Y2.0 G1X3.0Y4.0; }

# ---- Checks ----

# Runs the command: expected exit status, then arguments. Its output is kept in the files out and err beside the folder.
run() {
    local expected=$1 status=0
    shift
    "$brindle" "$@" >"$folder.out" 2>"$folder.err" </dev/null || status=$?
    [ "$status" -eq "$expected" ] || fail "exit status $status instead of $expected of: $* $(cat "$folder.err")"
}

# The given lines are all that standard error got.
says() {
    local expected=''
    [ $# -eq 0 ] || expected=$(printf '%s\n' "$@")
    [ "$expected" = "$(cat "$folder.err")" ] || fail "standard error is: $(cat "$folder.err")"
}

# The given lines are all warnings that standard error got.
warns() {
    [ "$(printf '%s\n' "$@")" = "$(grep ': warning: ' "$folder.err")" ] || fail "standard error is: $(cat "$folder.err")"
}

# Standard error has a line with this text.
mentions() { grep -qF -- "$1" "$folder.err" || fail "no '$1' in: $(cat "$folder.err")"; }

# The file has what standard input has.
holds() { cmp -s "$1" - || fail "$1 has: $(cat -v "$1")"; }

# The current folder has the usual files and these, nothing else: no half file, no temporary one.
leaves() {
    local names
    names=$(printf '%s\n' plain.tun box.cf2 lid.cf2 "$@" | sort)
    [ "$names" = "$(ls -A | sort)" ] || fail "folder holds: $(ls -A | tr '\n' ' ')"
}

# ---- Where the text goes ----

begin 'default output'
mkdir ../drawings-$$ && cp box.cf2 ../drawings-$$/
run 0 post -t plain.tun "../drawings-$$/box.cf2"
says
box_nc | holds box.nc
[ ! -s "$folder.out" ] || fail 'something on standard output'
leaves box.nc

begin 'named output, replaced'
echo older >out.nc
run 0 post -t plain.tun -o out.nc box.cf2
box_nc | holds out.nc
leaves out.nc

begin 'standard output'
run 0 post -t plain.tun -o - box.cf2
box_nc | holds "$folder.out"
leaves

begin 'standard input'
"$brindle" post -t plain.tun - <box.cf2 >"$folder.out" 2>"$folder.err" || fail "exit status $?"
box_nc | holds "$folder.out"
"$brindle" post -t - -o - <(cat box.cf2) <plain.tun >"$folder.out" 2>"$folder.err" || fail "exit status $?"
box_nc | holds "$folder.out"
run 1 post -t plain.tun -
says 'standard input:1:1: error: holds no record of a CFF2 drawing [no-drawing]'
leaves

begin 'several drawings'
run 0 post -t plain.tun box.cf2 lid.cf2
says
box_nc | holds box.nc
lid_nc | holds lid.nc
mkdir there
run 0 post -t plain.tun -o there --trace there box.cf2 lid.cf2
lid_nc | holds there/lid.nc
[ "$(ls there | tr '\n' ' ')" = 'box.nc box.trace lid.nc lid.trace ' ] || fail "there: $(ls there)"
leaves box.nc lid.nc there

begin 'a drawing whose name is no UTF-8'
cp box.cf2 $'b\xE9x.cf2'
run 0 post -t plain.tun -o out.nc $'b\xE9x.cf2'
box_nc | holds out.nc

begin 'a drawing with a byte order mark'
sed 's/^MULTI FileStart_.*/MULTI FileStart_tTmpl NNUL (<@CurProgName>)/' plain.tun >name.tun
{ printf '\xEF\xBB\xBF' && cat box.cf2; } >marked.cf2
run 0 post -t name.tun -o out.nc marked.cf2
says
box_nc | sed '1s/.*/(BOX)\r/' | holds out.nc
"$brindle" post -t name.tun - <marked.cf2 2>&1 | cmp -s out.nc - || fail 'standard input'

begin 'trace'
cat >>plain.tun <<'END'
MULTI T1_ToolOff_tTmpl NNUL M5<@Nonesuch>
END
run 3 post -t plain.tun -o out.nc --trace out.trace box.cf2
holds out.trace <<'END'
<FileStart_tTmpl>
  %
<MainInit_tTmpl>
<T1_ToolSel_tTmpl>
<Move_tTmpl>
  G0X0.0Y0.0
<T1_ToolOn_tTmpl>
  M3
<Line_tTmpl>
  G1X25.4F500
<T1_ToolOff_tTmpl>
! Could not evaluate: @Nonesuch
  M5
<T1_ToolDesel_tTmpl>
<MainTerm_tTmpl>
<FileEnd_tTmpl>
  M30
END

begin 'segments'
printf 'BOOL bUseFileSeg true\nINT nMaxBytes 20\n' >>plain.tun
echo 'L,0.5,1,0,1,2,3,4,0,0' >>box.cf2
run 0 post -t plain.tun --allow small-segments -o box.nc box.cf2
says 'box.cf2: note: 3 segments: box-1.nc to box-3.nc'
box_nc | holds box-1.nc
lid_nc | holds box-2.nc
leaves box-1.nc box-2.nc box-3.nc
run 0 post -t plain.tun --allow small-segments -o - box.cf2
says 'box.cf2: note: 3 segments, each a complete NC file, written one after the other'
cat box-[123].nc | holds "$folder.out"
touch box-4.nc box.nc
run 0 post -t plain.tun --allow small-segments box.cf2
mentions 'box-4.nc: warning: is older'
mentions 'box.nc: warning: is older'

begin 'a tuning with errors'
printf 'REAL MM_AX1_rFactor 2,5\n' >>plain.tun
run 1 post -t plain.tun box.cf2
mentions "plain.tun:$(wc -l <plain.tun):21: error: '2,5' is no number that can be read: it counts as 2"
mentions 'plain.tun: note: 1 error: no job is done with this file'
leaves
printf 'ROW TEXT Feed\nCOL TEXT Steel\nDATASETDEF A\nDSD A TXT RTD(1,1) 5\n' >words.rtd
run 1 post -t plain.tun --rtd words.rtd box.cf2
mentions "words.rtd:4:7: error: 'TXT' is none of"
printf 'INT nMaxBytes 3.5\nROW TEXT Feed\nCOL TEXT Steel\nDATASETDEF A\nDSD A TEXT RTD(1,1) 5\n' >words.rtd
sed -i '$d' plain.tun
run 0 post -t plain.tun --rtd words.rtd box.cf2

begin 'more segments than can be fetched'
printf 'BOOL bUseFileSeg true\nINT nMaxBytes 0\n' >>plain.tun
{ printf 'UR,1,1\n'; yes 'L,0.5,1,0,0,0,25.4,0,0,0' | head -n 70000; } >box.cf2
run 1 post -t plain.tun box.cf2
mentions 'segments: too many'
leaves

begin 'dwell markers'
sed -i 's/^MULTI FileStart_.*/MULTI FileStart_tTmpl NNUL <@IODwell[1.5]> NNUL %/' plain.tun
run 0 post -t plain.tun box.cf2
says 'box.cf2: note: 1 dwell marker left out of the NC file'
box_nc | holds box.nc

begin 'encodings'
sed -i 's/^MULTI FileStart_.*/MULTI FileStart_tTmpl NNUL (chr(233)chr(0)<@MaterialFile>)/' plain.tun
run 0 post -t plain.tun --material 'ä€' -o - box.cf2
head -n 1 "$folder.out" >first
printf '(\xC3\xA9\0\xC3\xA4\xE2\x82\xAC)\r\n' | holds first
run 0 post -t plain.tun --material 'ä' --encoding latin1 -o - box.cf2
head -n 1 "$folder.out" >first
printf '(\xE9\0\xE4)\r\n' | holds first
rm first
run 1 post -t plain.tun --material 'ä€' --encoding latin1 box.cf2
says 'box.cf2: error: line 1 of the NC text has the character U+20AC, which Latin-1 lacks: no NC file written'
leaves

# ---- Job data ----

begin 'job data'
cat >>plain.tun <<'END'
MULTI MainInit_tTmpl NNUL <@CADFile>|<@OutputFile>|<@TuneFile>|<@Date>|<@Time>|<@MaterialFile>|<@TuneMenuPick>
MULTI MainTerm_tTmpl NNUL <@BlankX>|<@BlankY>|<@RotaryRadius>
END
words() { sed -n "$1" out.nc | tr -d '\r'; }
run 0 post -t plain.tun -o out.nc --date D --time T --material M --tune-pick P --blank 300x200.5 --rotary-radius 20 \
    --final -5,7.5 box.cf2
[ "$(words 2p)" = 'box.cf2|out.nc|plain.tun|D|T|M|P' ] || fail "job words: $(words 2p)"
grep -q '^300|200.5|20' out.nc || fail "sizes: $(cat out.nc)"
grep -q '^G0X-5.0Y7.5' out.nc || fail "final position: $(cat out.nc)"
run 0 post -t plain.tun -o out.nc --date= --time '' --drawing-name A --output-name B --tuning-name C box.cf2
[ "$(words 2p)" = 'A|B|C||||' ] || fail "job words: $(words 2p)"
run 0 post -t plain.tun -o out.nc box.cf2
[[ $(words 2p) =~ \|[0-9]{4}-[0-9]{2}-[0-9]{2}\|[0-9]{2}:[0-9]{2}:[0-9]{2}\| ]] || fail "date and time: $(words 2p)"

begin 'units: the option wins over the drawing'
printf 'TEXT sInchCode G20\nTEXT sMetricCode G21\nMULTI MainInit_tTmpl NNUL <@UnitsCode>\n' >>plain.tun
sed '1s/$/\nUI,x/' box.cf2 >inches.cf2
while read -r drawing option expected; do
    run 0 post -t plain.tun -o - ${option:+"$option"} "$drawing"
    grep -q "^G1$expected" "$folder.out" || fail "$drawing $option: $(cat -v "$folder.out")"
done <<'END'
box.cf2 --mm X25.4
box.cf2 --inches X1.000
inches.cf2 --inches X25.400
inches.cf2 --mm X645.2
END
run 0 post -t plain.tun -o - inches.cf2
grep -q '^G1X25.400' "$folder.out" || fail "inches.cf2: $(cat -v "$folder.out")"

begin 'a tile expands the calls'
printf 'C,SUB1,10,0,0,0,0\nSUB,SUB1\nL,0.5,1,0,0,0,5,5,0,0\n' >>box.cf2
run 0 post -t plain.tun -o - --tile 1 box.cf2
grep -q '^G1X15.0Y5.0' "$folder.out" || fail "$(cat -v "$folder.out")"

# ---- Messages ----

begin 'messages of the run'
sed -i 's/^MULTI Line_.*/MULTI Line_tTmpl NNUL G1<@Nonesuch>/' plain.tun
for i in $(seq 25); do echo "L,0.5,1,0,$i,0,$i,5,0,0"; done >>box.cf2
run 3 post -t plain.tun box.cf2
mentions "box.cf2:3:1: error: loss: A value could not be evaluated and is left out: '@Nonesuch', 26 times (also line "
mentions "plain.tun:16:26: note: unknown directive '@Nonesuch'"
[ "$(grep -c Nonesuch "$folder.err")" -eq 3 ] || fail "told more than once: $(cat "$folder.err")"

begin 'ratios of fly mode'
cat >>plain.tun <<'END'
BOOL Fly_bSupport true
BOOL T1_Fly_bUse true
REAL Fly_rMM_Threshold 1
END
sed -i 's/^MULTI Line_.*/&<@FlyModeCode>/' plain.tun
printf 'TEXT Fly_sOnCode M80\nTEXT Fly_sOffCode M81\n' >>plain.tun
echo 'A,0.5,1,0,25.4,0,35.4,0,30.4,0,5,0,0' >>box.cf2
run 0 post -t plain.tun box.cf2
says
for option in --fly-ratios --verbose; do
    run 0 post -t plain.tun $option box.cf2
    mentions 'box.cf2: note: maxratio: '
done

begin 'what is wrong with a drawing'
printf 'L,0.5,9,0,0,0,1e400,1,0,0\nL,0.5\n' >>box.cf2
run 3 post -t plain.tun box.cf2
warns "box.cf2:5:1: warning: '1e400' is no number that can be read: it counts as 0 [bad-word]" \
    'box.cf2:6:1: warning: L record with 2 of 10 words: dropped [short-record]'
mentions 'box.cf2:5:1: error: loss: What is drawn is not cut, tool 9, '
box_nc | holds box.nc

begin 'no text at all'
: >empty.tun
run 3 post -t empty.tun -o out.nc lid.cf2
mentions 'lid.cf2: warning: the tuning gives no NC text'
: | holds out.nc

begin 'progress is for terminals'
run 0 post -t plain.tun box.cf2
says
if can_have_terminal; then
    script -qec "'$brindle' post -t plain.tun -o out.nc box.cf2" /dev/null </dev/null >"$folder.terminal" 2>&1
    grep -q 'drawing 1 of 1: box.cf2' "$folder.terminal" || fail "on a terminal: $(cat -v "$folder.terminal")"
fi

# ---- Bad input ----

begin 'bad drawings'
head -c 100000 /dev/urandom >random.cf2
printf 'Dear Sir,\nno drawing.\n' >letter.cf2
: >empty.cf2
mkdir folder.cf2
for drawing in random letter empty folder none; do
    run 1 post -t plain.tun -o out.nc "$drawing.cf2"
    grep -q "^$drawing.cf2:.* error: " "$folder.err" || fail "$drawing: $(cat "$folder.err")"
    [ ! -e out.nc ] || fail "$drawing: a file is left"
done
run 1 post -t plain.tun none.cf2 box.cf2 letter.cf2 lid.cf2
says 'none.cf2: error: no such file' 'letter.cf2:1:1: error: holds no record of a CFF2 drawing [no-drawing]'
box_nc | holds box.nc
lid_nc | holds lid.nc
leaves random.cf2 letter.cf2 empty.cf2 folder.cf2 box.nc lid.nc

begin 'a drawing of one long line'
{ printf 'UR,1,1\nL,0.5,1,0,0,0,'; head -c 10000000 /dev/zero | tr '\0' '9'; printf ',0,0,0\n'; } >long.cf2
run 0 post -t plain.tun -o - long.cf2
mentions "999...' is no number that can be read"
[ "$(wc -c <"$folder.err")" -lt 1000 ] || fail 'the message is long'

begin 'bad tunings'
printf 'BOOL bUseSubs true\nTEXT s\0x y\n' >nul.tun
mkdir folder.tun
for tuning in nul.tun folder.tun none.tun; do run 1 post -t "$tuning" box.cf2; done
leaves nul.tun folder.tun
run 1 post -t nul.tun box.cf2
mentions "nul.tun:2:7: error: a NUL byte: the line can't be read [nul-byte]"

begin 'output that cannot be written'
while read -r arguments; do
    # shellcheck disable=SC2086
    run 1 $arguments
    says 'brindle: none: no such folder'
done <<'END'
post -t plain.tun -o none/out.nc box.cf2
post -t plain.tun -o none/ box.cf2
post -t plain.tun -o none box.cf2 lid.cf2
post -t plain.tun --trace none/trace box.cf2
plot plain.tun box.cf2 -o none/box.svg
END
leaves
mkdir taken.nc trace
"$brindle" post -t plain.tun -o - --trace out.trace box.cf2 >/dev/full 2>"$folder.err"
[ $? -eq 1 ] || fail 'exit status on a full device'
leaves taken.nc trace

begin 'one segment that cannot be written'
printf 'BOOL bUseFileSeg true\nINT nMaxBytes 20\n' >>plain.tun
echo 'L,0.5,1,0,1,2,3,4,0,0' >>box.cf2
mkdir box-2.nc
run 1 post -t plain.tun --allow small-segments box.cf2
says "box-2.nc: error: can't be written: Is a directory"
leaves box-2.nc

begin 'files that are something else'
printf '<?xml version="1.0"?>\n<svg xmlns="http://www.w3.org/2000/svg"/>\n' >a.svg
printf '  0\nSECTION\n  2\nHEADER\n' >a.dxf
printf 'nothing\n' >empty.dxf
iconv -t UTF-16 box.cf2 >wide.cf2
iconv -t UTF-16LE plain.tun >wide.tun
printf '%%PDF-1.7\n' >a.pdf
while IFS='|' read -r tuning drawing expected; do
    run 1 post -t "$tuning" -o - "$drawing"
    says "${expected/: /: error: }"
done <<'END'
box.cf2|box.cf2|box.cf2: is a CFF2 drawing, not a tuning
a.svg|box.cf2|a.svg: is an SVG drawing, not a tuning
wide.tun|box.cf2|wide.tun: is UTF-16 text: save it as UTF-8
plain.tun|plain.tun|plain.tun: is a tuning, not a drawing
plain.tun|a.svg|a.svg: is an SVG drawing: only CFF2 drawings are read
plain.tun|a.dxf|a.dxf: is a DXF drawing: only CFF2 drawings are read
plain.tun|empty.dxf|empty.dxf: is a DXF drawing: only CFF2 drawings are read
plain.tun|a.pdf|a.pdf: is a PDF file: only CFF2 drawings are read
plain.tun|wide.cf2|wide.cf2: is UTF-16 text: save it as UTF-8
END
for command in dump data; do
    run 1 $command box.cf2
    says 'box.cf2: error: is a CFF2 drawing, not a tuning'
done
cp box.cf2 odd.svg
run 0 post -t plain.tun -o - odd.svg
box_nc | holds "$folder.out"

# ---- Usage ----

begin 'wrong usage'
while read -r arguments; do
    # shellcheck disable=SC2086
    run 2 $arguments
    mentions 'brindle: '
done <<'END'

nonesuch
post
post box.cf2
post -t plain.tun
post -t plain.tun --nonesuch box.cf2
post -t plain.tun -o plain.tun box.cf2 lid.cf2
post -t plain.tun -o - box.cf2 lid.cf2
post -t plain.tun box.cf2 box.cf2
post -t plain.tun -o box.cf2 box.cf2
post -t plain.tun -o plain.tun box.cf2
post -t plain.tun -o out.nc --trace out.nc box.cf2
post -t plain.tun --inches --mm box.cf2
post -t plain.tun --blank 300 box.cf2
post -t plain.tun --blank -1x5 box.cf2
post -t plain.tun --final 1x2 box.cf2
post -t plain.tun --tile 40000 box.cf2
post -t plain.tun --rotary-radius wide box.cf2
post -t plain.tun --encoding utf16 box.cf2
post -t plain.tun --set RTD=1 box.cf2
post -t plain.tun --expr NAME box.cf2
post -t - -
END
leaves

begin 'what is said of wrong usage'
while IFS='|' read -r arguments expected; do
    # shellcheck disable=SC2086
    run 2 $arguments
    [ "$(head -n 1 "$folder.err")" = "brindle: $expected" ] || fail "$arguments: $(cat "$folder.err")"
done <<'END'
|a command is missing
pots -t plain.tun|no command 'pots' (did you mean post?)
help keyz|no command 'keyz' (did you mean keys?)
post --tunning plain.tun box.cf2|no option '--tunning' (did you mean --tuning?)
post -t plain.tun --dattaset=Steel box.cf2|no option '--dattaset' (did you mean --dataset?)
post -t plain.tun -Z box.cf2|no option '-Z'
--strict post -t plain.tun box.cf2|'--strict' belongs after the command
post box.cf2|--tuning is missing
post -t plain.tun|DRAWING is missing
post -t plain.tun box.cf2 -o|--output needs a value: PATH
post -t plain.tun -t plain.tun box.cf2|--tuning can be given once only
post -t plain.tun --inches --mm box.cf2|--inches and --mm can't be given together
post -t plain.tun --strict=maybe box.cf2|--strict can't be maybe
post -t plain.tun --jobs 2000 box.cf2|--jobs: '2000' is no whole number from 0 to 1024
post -t plain.tun --jobs 1e2 box.cf2|--jobs: '1e2' is no whole number from 0 to 1024
post -t plain.tun --tolerance=-1 box.cf2|--tolerance: '-1' is no number of at least 0
post -t plain.tun --skip-tool x box.cf2|--skip-tool: 'x' is no whole number from -32768 to 32767
post -t plain.tun --encoding utf16 box.cf2|--encoding: 'utf16' is none of utf8, latin1
data plain.tun --tune-pick X|--tune-pick needs --edit
plot plain.tun box.cf2 lid.cf2|'lid.cf2' is an argument too many
plot -t plain.tun plain.tun box.cf2|--tuning: the tuning is given as an argument already
dump -t plain.tun plain.tun|--tuning: the tuning is given as an argument already
edit -|TUNING must be a file
END

begin 'the tuning by -t, in all commands'
for command in check dump data plot; do
    drawing=
    [ $command != plot ] || drawing='box.cf2 -o -'
    # shellcheck disable=SC2086
    run 0 $command plain.tun $drawing
    cp "$folder.out" "$folder.first"
    # shellcheck disable=SC2086
    run 0 $command $drawing --tuning plain.tun
    holds "$folder.out" <"$folder.first"
done

begin 'help and version'
commands=$("$brindle" help | sed -nE '/^Commands:/,/^$/s/^  ([a-z]+) .*/\1/p')
for command in '' $commands; do
    # shellcheck disable=SC2086
    run 0 $command --version
    grep -q '^brindle [0-9]' "$folder.out" || fail "$command: $(cat "$folder.out")"
    # shellcheck disable=SC2086
    run 0 $command --help
    says
    cp "$folder.out" "$folder.help"
    for wanted in '^Usage: brindle ' '^Example:' '^Exit status: '; do
        grep -q "$wanted" "$folder.help" || fail "help of $command has no $wanted"
    done
    # What the parser knows of its options for itself.
    ! grep -E 'REQUIRED|Needs:|Excludes:|:INT|NONNEGATIVE|:[{]|SUBCOMMAND' "$folder.help" || fail "help of $command"
    [ -z "$(awk 'length > 80' "$folder.help")" ] || fail "help of $command is wide: $(awk 'length > 80' "$folder.help")"
    # shellcheck disable=SC2086
    run 0 help $command
    holds "$folder.out" <"$folder.help"
done
[ "$(wc -w <<<"$commands")" -ge 9 ] || fail "commands: $commands"
COLUMNS=55 "$brindle" plot --help | awk 'length > 55 { bad = 1 } END { exit bad }' || fail 'help does not fit the screen'
run 0 post --help
grep -q 'BLANK_X' "$folder.out" || fail 'no names of job values'
! grep -q -e '--verbose' "$folder.out" || fail 'an old name is shown'

begin 'a reader that goes away'
{ yes 'L,0.5,1,0,0,0,25.4,0,0,0' | head -n 20000; } >>box.cf2
# Nobody reads: the reader has gone before anything is written.
while read -r expected arguments; do
    # shellcheck disable=SC2086
    { sleep 0.2; "$brindle" $arguments 2>"$folder.err"; echo $? >"$folder.status"; } | :
    says
    [ "$(cat "$folder.status")" = "$expected" ] || fail "$arguments: exit status $(cat "$folder.status")"
done <<'END'
0 keys
0 directives
0 post --help
1 post -t plain.tun -o - box.cf2
END

# ---- Run-time data ----

begin 'run-time data'
cat >data.tun <<'END'
UPD 2024_03_01_10_00_00
ROW TEXT Cut
COL TEXT Feed
MSG TEXT Customer!#SP#!name HIDE
DATASETDEF Steel
DATASETDEF Card
DSD Steel R_EXPR RTD(1,1) 100*TOOLS+BLANK_X
DSD Steel T_EXPR RTD(1) Customer
DSD Card TEXT RTD(1,1) 4000
DSD Card TEXT RTD(1) nobody
MULTI FileStart_tTmpl NNUL <@DataSetName>!#SP#!F<RTD(1,1)>!#SP#!<RTD(1)>
END
printf 'INT  nNumOfTools 1\n' >>data.tun
while IFS='|' read -r expected arguments; do
    # shellcheck disable=SC2086
    run 0 post -t data.tun --allow not-cut -o - $arguments box.cf2
    [ "$(tr -d '\r' <"$folder.out")" = "$expected" ] || fail "$arguments: $(cat -v "$folder.out") $(cat "$folder.err")"
done <<'END'
Steel F150 Smith|--expr Customer=Smith --blank 50x50
Steel F7 Smith|--expr Customer=Smith --set RTD(1,1)=7
Card F4000 nobody|--dataset Card
Card F4000 me|--dataset Card --set RTD(1)=me
END
run 1 post -t data.tun box.cf2
mentions "expression 'Customer' of RTD(1) has no value"
mentions "--expr 'Customer=TEXT'"
run 1 post -t data.tun --dataset Wood box.cf2
mentions "data.tun: error: there is no dataset 'Wood'; there are 'Steel', 'Card'"
run 3 post -t data.tun --dataset card -o - box.cf2
mentions "data.tun: note: dataset 'card' is taken as 'Card'"
grep -q '^Card F4000' "$folder.out" || fail "a dataset in another case: $(cat "$folder.out")"
run 0 data data.tun --dataset CARD
mentions "data.tun: note: dataset 'CARD' is taken as 'Card'"
! grep -q 'Dataset Steel' "$folder.out" || fail 'data: a dataset that was not asked for'
# Values that would be read as something else.
while IFS='|' read -r arguments expected; do
    # shellcheck disable=SC2086
    run 1 post -t data.tun -o - $arguments box.cf2
    mentions "brindle: $expected"
    [ ! -s "$folder.out" ] || fail "$arguments: NC text is written"
done <<'END'
--dataset Card --set RTD(9,9)=1|--set 'RTD(9,9)=1': no template uses this word and no dataset has it
--dataset Card --set RTD(1,1)=90,5|--set 'RTD(1,1)=90,5': '90,5' is no number, and RTD(1,1) takes numbers (did you mean 90.5?)
--dataset Card --set RTD(1,1)=fast|--set 'RTD(1,1)=fast': 'fast' is no number, and RTD(1,1) takes numbers
--dataset Card --set RTD(1,1)=1e3|--set 'RTD(1,1)=1e3': '1e3' is no number, and RTD(1,1) takes numbers
--dataset Card --set RTD(1,1)=|--set 'RTD(1,1)=': '' is no number, and RTD(1,1) takes numbers
--expr Customer=S --expr 100*TOOLS+BLANK_X=many|--expr '100*TOOLS+BLANK_X=many': 'many' is no number, and RTD(1,1) takes numbers
--expr Customer=S --expr BLANK_X=1,5|--expr 'BLANK_X=1,5': '1,5' is no number, and expressions take BLANK_X for one (did you mean 1.5?)
--expr Customer=S --expr BLANK=5|--expr 'BLANK=5': no dataset has this expression, nor one that uses its name
END
run 1 post -t data.tun --dataset Card --set $'RTD(1)=a\nM30' box.cf2
mentions 'the value has a control character'
leaves data.tun
run 0 data data.tun
holds "$folder.out" <<'END'
Last change  2024-03-01 10:00:00

Rows
  1  Cut

Columns
  1  Feed

Messages
  1  Customer name  hidden

Dataset Steel
  RTD(1,1)  Cut, Feed      100*TOOLS+BLANK_X  number expression
  RTD(1)    Customer name  Customer           text expression    hidden

Dataset Card
  RTD(1,1)  Cut, Feed      4000
  RTD(1)    Customer name  nobody  hidden

END
grep -E '^(UPD|ROW|COL|MSG|DATASETDEF|DSD)' data.tun >definition
grep -vE '^(UPD|ROW|COL|MSG|DATASETDEF|DSD)' data.tun >items.tun
run 0 data items.tun --rtd definition --dataset Card
grep -q 'nobody' "$folder.out" || fail "data: $(cat "$folder.out")"
! grep -q 'Dataset Steel' "$folder.out" || fail 'data: a dataset that was not asked for'
run 0 post -t items.tun --rtd definition --allow not-cut -o - --expr Customer=Smith box.cf2
[ "$(tr -d '\r' <"$folder.out")" = 'Steel F100 Smith' ] || fail "--rtd: $(cat "$folder.out")"
{ printf '\xEF\xBB\xBF' && grep -v '^UPD' definition; } >marked
run 0 post -t items.tun --rtd marked --allow not-cut -o - --expr Customer=Smith box.cf2
! grep -q RTD "$folder.err" || fail "the definition is not the tuning's: $(cat "$folder.err")"
[ "$(tr -d '\r' <"$folder.out")" = 'Steel F100 Smith' ] || fail "--rtd with a byte order mark: $(cat "$folder.out")"
run 1 post -t items.tun --rtd none box.cf2
mentions 'none: error: no such file'

begin 'speeds of the command line'
sed -i 's/F500/<@SpeedWords>/' plain.tun
cat >>plain.tun <<'END'
TEXT Speed_sParam1Addr F
BOOL Speed_b1 true
BOOL Speed_bAsValue true
BOOL Speed_bAsExpress false
INT  Speed_nNDec 1
TEXT T1_Speed_P1_sV1 <RTD(1)>
MSG TEXT Speed
DATASETDEF A!#SP#!B
DSD A!#SP#!B T_EXPR RTD(1) SPEED
END
while read -r option word; do
    run 1 post -t plain.tun -o - "$option" "$word=90,5" box.cf2
    says "brindle: $option '$word=90,5': '90,5' is no number that can be read: as a speed it counts as 90"
    run 0 post -t plain.tun -o - "$option" "$word=90.5" box.cf2
    grep -q 'F90\.5' "$folder.out" || fail "$option: $(cat "$folder.out")"
done <<'END'
--set RTD(1)
--expr SPEED
END

# ---- Locale ----

begin 'a locale with a decimal comma'
comma=(env LOCPATH="$work" LC_ALL=de_DE.UTF-8)
localedef -i de_DE -f UTF-8 "$work/de_DE.UTF-8" 2>/dev/null
if [ "$("${comma[@]}" locale decimal_point 2>/dev/null)" = , ]; then
    "${comma[@]}" "$brindle" post -t plain.tun -o out.nc --blank 1.5x2 box.cf2 2>"$folder.err" || fail "exit status $?"
    says
    box_nc | holds out.nc
else
    echo 'locales are not installed: one with a decimal comma is not tried'
fi

finish
