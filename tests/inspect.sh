#!/usr/bin/env bash
# The commands that look into tunings and tables: dump, keys, directives, and check of several files.
# usage: BRINDLE=COMMAND SOURCE_DIR=REPOSITORY inspect.sh
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
export LC_ALL=C
BRINDLE=$(realpath "$BRINDLE")

# expect NAME STATUS OUTPUT ARGUMENT...: the command's exit status and all that it prints, errors included.
expect() {
    local name=$1 status=$2 wanted=$3 output
    shift 3
    output=$("$BRINDLE" "$@" 2>&1 </dev/null)
    [ $? = "$status" ] || fail "$name: exit status is not $status"
    [ "$output" = "$wanted" ] || fail "$name: $(diff <(echo "$wanted") <(echo "$output"))"
}

cd "$SOURCE_DIR/tests" || exit 1

expect 'dump' 0 "$(cat data/dump.txt)" dump data/dump.tun
expect 'dump of one template' 0 $'template T2_ToolOn_tTmpl\n  line 1\n    text       "M2"' \
    dump data/dump.tun --template T2_ToolOn_tTmpl
expect 'dump of one template, by its event' 0 "$("$BRINDLE" dump data/dump.tun --template Line_tTmpl)" \
    dump data/dump.tun --template Line_
expect 'dump of a template that is not there' 1 "data/dump.tun: error: no template 'Arc_tTmpl'" \
    dump data/dump.tun --template Arc_tTmpl
expect 'dump of no tuning' 1 'bad/bytes.tun:7:1: error: the line holds a NUL byte: this is no tuning' dump bad/bytes.tun
expect 'dump of a missing file' 1 'data/missing.tun: error: no such file' dump data/missing.tun

expect 'one key' 0 "T3_nPhysicalTool
  meaning  Number of the master tool if bToolSubordinate is true; without this key or at 0 it is the tool itself.
  group    Tools
  type     INT
  default  -
  editor   -
  scope    per tool
  line     INT T3_nPhysicalTool 0" keys T3_nPhysicalTool
[ "$("$BRINDLE" keys sRTCode | grep '^  line')" = $'  line     TEXT sRTCode !#EMPTY#!\n  line     TEXT T1_sRTCode !#EMPTY#!' ] ||
    fail 'a key that is there alone and per tool'
expect 'keys by a part in any case' 0 "$("$BRINDLE" keys facettol)" keys FacetTol
expect 'no key' 1 "brindle: no key is or holds 'bUseSubz', nor does its meaning (did you mean bUseSubs?)" keys bUseSubz
[ "$("$BRINDLE" keys | grep -c 'SmFacet_')" -ge 3 ] || fail 'the list of all keys lacks some'
expect 'a key without the prefix of its tool' 0 "$("$BRINDLE" keys T1_ToolOn_tTmpl)" keys ToolOn_tTmpl
expect 'a key with a prefix too much' 1 "brindle: no key is or holds 'T1_Line_tTmpl', nor does its meaning (did you mean Line_tTmpl?)" \
    keys T1_Line_tTmpl
while read -r name; do
    "$BRINDLE" keys "$name" >/dev/null || fail "$name is listed, but not found"
done < <("$BRINDLE" keys | sed -n '/^Lines of/,$p' | grep -o '^  [A-Z]*')
"$BRINDLE" keys Fly | grep -q '^  Fly_PreCheck_ ' || fail 'an event is not found by a part of its name'

"$BRINDLE" keys first NUMBER counted | grep -q '^  nNWordInitVal ' || fail 'a key is not found by words of its meaning'
for width in 80 100; do
    COLUMNS=$width "$BRINDLE" keys | awk -v width=$width 'length > width { bad = 1 } END { exit bad }' ||
        fail "keys do not fit $width columns"
done
diff <("$BRINDLE" keys | tr -s ' \n' '\n' | sort) <(COLUMNS=70 "$BRINDLE" keys | tr -s ' \n' '\n' | sort) >/dev/null ||
    fail 'wrapped, the list of keys says something else'

expect 'directive without @' 0 "$("$BRINDLE" directives @CutWidth)" directives CutWidth
"$BRINDLE" directives CutWidth | grep -q '^  prints    D2.000$' || fail 'the entry of a directive lacks its example'
expect 'no directive' 1 "brindle: no directive '@endptword' (did you mean @EndPtWords?)" directives endptword
while read -r name; do
    "$BRINDLE" directives "$name" >/dev/null || fail "$name has no entry"
done < <("$BRINDLE" directives | grep -o '^    [^ ]*')
expect 'a keyword' 0 $'SETTO(v)\n  keyword  set to a value\n  of       @SetToolDir @NBlockOn' directives setto
expect 'a run-time word' 0 "$("$BRINDLE" directives '<RTD(r,c)>')" directives 'RTD(1,2)'
[ "$("$BRINDLE" directives | grep -c '^    @')" = 58 ] || fail 'not all directives are listed'
"$BRINDLE" directives CutWidth --markdown >/dev/null 2>&1
[ $? = 2 ] || fail 'one entry as a page is wrong usage'

expect 'a rule' 0 'modal-data
  warning  A number without an address is left out where it repeats the last one, which leaves a gap.
  way out  Set the option of the repeats false (bAxisDataModal, bArcDataModal), or write NONMODAL.

  wrong, added to the plotter
    BOOL bAxisDataModal true
  right, added to the plotter
    BOOL bAxisDataModal false' rules modal-data
BRINDLE=$BRINDLE python3 -B "$SOURCE_DIR/scripts/modal_picture.py" | cmp -s - "$SOURCE_DIR/docs/pictures/modal_words.svg" ||
    fail 'docs/pictures/modal_words.svg is not what scripts/modal_picture.py draws'
expect 'no rule' 1 "brindle: no rule 'not-cutt' (did you mean not-cut?)" rules not-cutt
while read -r name; do
    "$BRINDLE" rules "$name" >/dev/null || fail "$name has no entry"
done < <("$BRINDLE" rules | grep -o '^    [^ ]*')

expect 'check of several files' 1 'bad/missing.tun: error: no such file
bad/strict.tun:5:6: warning: unknown key '"'sNwordAddr'"' (did you mean sNWordAddr?) [unknown-key]
    TEXT sNwordAddr N
         ^^^^^^^^^^
1 error, 1 warning' check bad/plain.tun bad/missing.tun bad/strict.tun
[ "$("$BRINDLE" check - <bad/strict.tun 2>&1 | head -n 1)" = \
    "standard input:5:6: warning: unknown key 'sNwordAddr' (did you mean sNWordAddr?) [unknown-key]" ] ||
    fail 'check does not read standard input'

finish
