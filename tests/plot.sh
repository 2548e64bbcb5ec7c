#!/usr/bin/env bash
# `brindle plot` as a whole: its pictures, where they go, what it says, and its exit status. BRINDLE is the command.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
brindle=$(realpath "$BRINDLE")
examples=$(realpath "$SOURCE_DIR/examples")

# A folder for one case, with a tuning and a drawing: a move, two cuts of tool 1 that meet, a move, one of tool 2.
begin() {
    case=$1
    folder=$(mktemp -d "$work/case-XXXXXX")
    cd "$folder" || exit 1
    printf 'INT nNumOfTools 2\nBOOL bOutUnitsAuto true\n' >plain.tun
    printf 'MULTI %s_tTmpl NNUL <@%sPtWords>\n' Move Start Line End Arc End >>plain.tun
    printf 'MAIN,BOX\nUR,100,50\nL,0.5,1,0,10,0,50,0,0,0\nA,0.5,1,0,50,0,60,10,50,10,-10,0,0\n' >box.cf2
    printf 'L,0.5,2,0,10,40,60,40,0,0\nEND\n' >>box.cf2
}

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

# The current folder has the usual files and these, nothing else: no half file, no temporary one.
leaves() {
    local names
    names=$(printf '%s\n' plain.tun box.cf2 "$@" | sort)
    [ "$names" = "$(ls -A | sort)" ] || fail "folder holds: $(ls -A | tr '\n' ' ')"
}

# What an SVG file holds: its size, then each look of a line, by colour, dashes, and the kinds of its pieces (M begins
# one, L is a line, C an arc), with how often it is drawn. Fails if the file is no XML.
cat >"$work/look.py" <<'END'
import collections, re, sys, xml.etree.ElementTree as tree
root = tree.parse(sys.argv[1]).getroot()
print(root.get('width'), root.get('height'))
found = collections.Counter()
for path in root.iter('{http://www.w3.org/2000/svg}path'):
    style = dict(part.split(':', 1) for part in path.get('style', '').split(';') if ':' in part)
    style.update(path.attrib)
    if style.get('stroke', 'none') == 'none':
        continue
    dashes = style.get('stroke-dasharray', 'none')
    colour = style['stroke']
    if '%' in colour:
        colour = '#%02x%02x%02x' % tuple(round(float(part) * 2.55) for part in re.findall(r'([\d.]+)%', colour))
    found[colour + (' ' if dashes == 'none' else ' dashed ') + re.sub('C+', 'C', re.sub('[^MLC]', '', path.get('d')))] += 1
for look in sorted(found):
    print(found[look], look)
END
look() { python3 "$work/look.py" "$1" || fail "$1 is no SVG"; }

# ---- Pictures ----

begin 'an SVG picture'
run 0 plot plain.tun box.cf2
says
look box.svg >"$folder.looks"
# In the legend and in the scene: the tools and the moves. What meets is one line.
for expected in '1200(px)? 900(px)?' '1 #0072b2 ML' '1 #0072b2 MLC' '2 #d55e00 ML' '3 #[0-9a-f]* dashed ML'; do
    grep -qE "^$expected\$" "$folder.looks" || fail "no $expected in: $(cat "$folder.looks")"
done
leaves box.svg

begin 'a PNG picture'
run 0 plot plain.tun box.cf2 -o box.PNG --size 320x200 --dark
says
python3 - box.PNG <<'END' || fail 'the PNG file'
import struct, sys
data = open(sys.argv[1], 'rb').read()
assert data[:8] == b'\x89PNG\r\n\x1a\n', data[:8]
assert struct.unpack('>II', data[16:24]) == (320, 200)
assert data.endswith(b'IEND\xaeB`\x82')
END
leaves box.PNG

begin 'where the picture goes'
run 0 plot plain.tun box.cf2 -o -
cp "$folder.out" expected
mkdir there
run 0 plot plain.tun box.cf2 -o there
cmp -s expected there/box.svg || fail 'a folder'
"$brindle" plot plain.tun - <box.cf2 >"$folder.out" 2>"$folder.err" || fail "exit status $?"
grep -q '<svg' "$folder.out" || fail 'a drawing from standard input'
echo older >out.svg
run 0 plot plain.tun box.cf2 -o out.svg
cmp -s expected out.svg || fail 'a file that was there'
leaves expected there out.svg

begin 'texts and names that are no UTF-8'
printf 'BOOL bUseText true\nBOOL bDefaultTool true\nMULTI Text_tTmpl NNUL <@TextDataWord>\n' >>plain.tun
printf 'T,0,0,0,10,10,0.5,5,0\nb\xE9ton\n' >>box.cf2
cp box.cf2 $'b\xE9ton.cf2'
run 0 plot plain.tun $'b\xE9ton.cf2' -o out.svg
look out.svg >"$folder.looks"
grep -qE '#0072b2 M[MLC]{12}' "$folder.looks" || fail "no letters in: $(cat "$folder.looks")"
rm $'b\xE9ton.cf2'
leaves out.svg

begin 'all examples'
for tuning in "$examples"/*/*.tun; do
    for drawing in "$examples"/drawings/*.cf2; do
        run 0 plot "$tuning" "$drawing" -o "$(basename "$tuning")-$(basename "$drawing").svg"
    done
done
python3 -c 'import sys, xml.dom.minidom as dom; [dom.parse(name) for name in sys.argv[1:]]' ./*.svg || fail 'no SVG'
# Calls of a machine that turns and mirrors cut what the same job cuts with its calls expanded.
nested=$examples/drawings/nested_sheet.cf2
calls=$examples/subs_mirror/subs_mirror.tun
{ cat "$calls"; printf 'BOOL bUseSubs false\n'; } >expanded.tun
run 0 plot "$calls" "$nested" -o calls.svg
run 0 plot expanded.tun "$nested" -o expanded.svg
for picture in calls expanded; do look $picture.svg | grep -v dashed | grep '#0072b2\|#d55e00' >$picture; done
[ "$(wc -l <calls)" -ge 5 ] || fail "calls: $(cat calls)"
cmp -s calls expanded || fail "calls: $(diff calls expanded)"

begin 'a locale with a decimal comma'
comma=(env LOCPATH="$work" LC_ALL=de_DE.UTF-8)
localedef -i de_DE -f UTF-8 "$work/de_DE.UTF-8" 2>/dev/null
if [ "$("${comma[@]}" locale decimal_point 2>/dev/null)" = , ]; then
    run 0 plot plain.tun box.cf2 -o usual.svg
    "${comma[@]}" "$brindle" plot plain.tun box.cf2 -o comma.svg 2>"$folder.err" || fail "exit status $?"
    cmp usual.svg comma.svg || fail 'the pictures differ'
else
    echo 'locales are not installed: one with a decimal comma is not tried'
fi

# ---- What is wrong ----

begin 'bad input'
printf 'Dear Sir,\n' >letter.cf2
printf 'BOOL bUseSubs true\nTEXT s\0x y\n' >nul.tun
run 1 plot plain.tun letter.cf2
says 'letter.cf2:1:1: error: holds no record of a CFF2 drawing [no-drawing]'
run 1 plot plain.tun none.cf2
says 'none.cf2: error: no such file'
run 1 plot none.tun box.cf2
says 'none.tun: error: no such file'
run 1 plot nul.tun box.cf2
says 'nul.tun:2:1: error: the line holds a NUL byte: this is no tuning'
printf '\0\n' >>letter.cf2
run 1 plot plain.tun letter.cf2
says 'letter.cf2:2:1: error: the line holds a NUL byte: this is no CFF2 drawing [nul-byte]'
leaves letter.cf2 nul.tun

begin 'warnings'
printf 'L,0.5\nL,0.5,9,0,0,0,1,1,0,0\n' >>box.cf2
run 0 plot plain.tun box.cf2
says 'box.cf2:7:1: warning: L record with 2 of 10 words: dropped [short-record]' \
    'box.cf2:8:1: warning: tool 9 is not in the tuning: 1 record ignored [unknown-tool]'
printf 'UR,1,1\n' >box.cf2
run 0 plot plain.tun box.cf2
says 'box.cf2: warning: the tool goes nowhere'
leaves box.svg

begin 'output that cannot be written'
run 1 plot plain.tun box.cf2 -o none/box.svg
says 'brindle: none: no such folder'
"$brindle" plot plain.tun box.cf2 -o - >/dev/full 2>"$folder.err"
[ $? -eq 1 ] || fail 'exit status on a full device'
leaves

begin 'wrong usage'
while read -r arguments; do
    # shellcheck disable=SC2086
    run 2 $arguments
    grep -q '^[^ ]*: ' "$folder.err" || fail "$arguments: $(cat "$folder.err")"
done <<'END'
plot
plot plain.tun
plot plain.tun box.cf2 -o box.pdf
plot plain.tun box.cf2 -o plain.tun
plot plain.tun box.cf2 --size 300
plot plain.tun box.cf2 --size 99x300
plot plain.tun box.cf2 --size 300x20000
plot plain.tun box.cf2 --size 300.5x200
plot plain.tun box.cf2 another.cf2
plot - -
END
leaves

finish
