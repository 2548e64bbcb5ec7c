#!/usr/bin/env bash
# The forms of findings: text as editors read it, JSON and SARIF, and what --quiet, --allow, --strict and --fix do to
# them. BRINDLE is the command, SOURCE_DIR the root of the sources.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
brindle=$(realpath "$BRINDLE")
cd "$work" || exit 1

# Runs the command: expected exit status, then arguments. Its output is in the files out and err.
run() {
    local expected=$1 status=0
    shift
    case="$*"
    "$brindle" "$@" >out 2>err </dev/null || status=$?
    [ "$status" -eq "$expected" ] || fail "exit status $status instead of $expected: $(cat err)"
}
# A value that Python finds in the JSON text of `out`, called `all`.
has() { [ "$(python3 -c "import json; all = json.load(open('out')); print($1)")" = "$2" ] || fail "$1: $(cat out)"; }
mentions() { grep -qF -- "$1" err || fail "no '$1' in: $(cat err)"; }
silent() { [ ! -s err ] || fail "says: $(cat err)"; }

cat >job.tun <<'END'
INT nNumOfTools 1
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
MULTI Line_tTmpl NNUL (ä)G1<@EndPtWords>F500
MULTI Arc_tTmpl NNUL G1<@EndPtWords>F500(<@CenPtWords>)
END
printf 'UR,50,50\nL,0.5,1,0,0,0,30,40,0,0\n' >good.cf2
sed '$p;$s/,1,0,/,7,0,/' good.cf2 >lossy.cf2
sed 's/(ä)/(ä)<@Nonesuch>/' job.tun >typo.tun
sed '1s/^/BOOL bUseSpac true\n/' job.tun >key.tun

# ---- Formats ----

run 0 check --format json job.tun good.cf2
has all '[]'
silent
run 3 check --format json job.tun lossy.cf2
has '[(f["file"], f["line"], f["column"], f["severity"], f["rule"]) for f in all]' \
    "[('lossy.cf2', 3, None, 'loss', 'not-cut')]"
run 3 post --format json -t typo.tun -o nc.nc good.cf2
has '[f["rule"] for f in all]' "['unresolved-value']"
has '[(r["file"], r["line"], r["column"], r["end_column"]) for r in all[0]["related"]]' "[('typo.tun', 12, 27, 36)]"
run 1 check --format json none.tun job.tun
has '[(f["file"], f["rule"], f["severity"]) for f in all]' "[('none.tun', None, 'error')]"
for jobs in 1 2; do
    run 3 post --format json -j $jobs -t key.tun -o "$work" good.cf2 lossy.cf2
    has '[(f["file"], f["rule"]) for f in all]' "[('key.tun', 'unknown-key'), ('lossy.cf2', 'not-cut')]"
done
run 2 post --format json -t job.tun -o - good.cf2
mentions 'writes to standard output'
"$brindle" check --format sarif - good.cf2 <key.tun | grep -q '"uri": "standard%20input"' || fail 'standard input'
run 0 check --format sarif "$work/key.tun"
grep -q '"uri": "key.tun"' out || fail "not relative: $(cat out)"

python3 -B "$SOURCE_DIR/tests/formats.py" "$brindle" "$SOURCE_DIR/examples" || fail 'formats of generated tunings'
rm -f -- *[0-9].tun
for tuning in "$SOURCE_DIR"/examples/*/*.tun; do
    run 0 check --format json "$tuning"
    has all '[]'
done

# ---- Editors ----

"$brindle" check typo.tun lossy.cf2 2>messages
grep -E '^(.*):([0-9]+):([0-9]+):[[:space:]]+(warning|error|info|note):[[:space:]]+(.*)$' messages >matched
[ "$(grep -c 'loss: ' matched)" -eq 2 ] && grep -q 'typo.tun:12:27: note: ' matched || fail "$(cat messages)"
if command -v vim >/dev/null; then
    cat >read.vim <<'END'
cgetfile messages
let found = filter(getqflist(), 'v:val.valid')
call writefile(map(found, 'bufname(v:val.bufnr) . ":" . v:val.lnum . ":" . v:val.col . ":" . v:val.text'), 'list')
qall!
END
    vim -N -u NONE -i NONE -es -S read.vim </dev/null
    grep -q '^lossy.cf2:3:1: error: loss: ' list && grep -q '^typo.tun:12:27: note: ' list || fail "Vim: $(cat list)"
else
    echo 'vim is not installed: its reading of messages is not tried'
fi

# ---- Which findings ----

rm -f -- *.nc

run 3 post --quiet -t key.tun -o nc.nc lossy.cf2
[ "$(wc -l <err)" -eq 1 ] || fail "not quiet: $(cat err)"
mentions 'lossy.cf2:3:1: error: loss: '
run 0 check --quiet key.tun
silent
run 0 post --allow unknown-key -t key.tun -o nc.nc good.cf2
silent
rm -f nc.nc
run 1 post --strict -t key.tun -o nc.nc good.cf2
[ ! -e nc.nc ] || fail 'an NC file in spite of a warning'
run 0 post --strict --allow unknown-key -t key.tun -o nc.nc good.cf2
run 1 check --strict job.tun lossy.cf2
run 3 check good.cf2 job.tun lossy.cf2
run 2 check job.tun key.tun good.cf2
run 2 check --nonesuch job.tun
run 2 check - -
run 0 check good.cf2
run 3 check --dataset '' --tolerance 0.5 --skip-tool 6 job.tun lossy.cf2
run 0 check --skip-tool 7 job.tun lossy.cf2
[ ! -e good.nc ] || fail 'check writes'

# ---- Mending ----

printf '\xEF\xBB\xBFbool nothing at all\r\nBOOL buseSpace true\r\nTEXT sNWordAdr N\nTEXT sAx1Addr X\r\nTEXT sAx1Addr X\nBOOL bTrimZeros no\nREAL rMinMoveMM 10mm\nTEXT sMetricCode G2\nTEXT sMetricCode G3\nTEXT sAx2Addr Y\nTEXT sAx2Addr Y' >bad.tun
cp bad.tun dry.tun
run 1 check --fix=dry dry.tun
cmp -s bad.tun dry.tun || fail 'dry, but changed'
cp out shown
run 1 check --fix bad.tun
diff <(sed s/dry/bad/ shown) out || fail 'shown otherwise'
printf '\xEF\xBB\xBFbool nothing at all\r\nBOOL bUseSpace true\r\nTEXT sNWordAddr N\nTEXT sAx1Addr X\r\nBOOL bTrimZeros false\nREAL rMinMoveMM 10\nTEXT sMetricCode G2\nTEXT sMetricCode G3\nTEXT sAx2Addr Y\n' |
    cmp bad.tun - || fail "mended: $(cat -v bad.tun)"
cp bad.tun once.tun
run 1 check --fix bad.tun
cmp -s bad.tun once.tun && [ ! -s out ] || fail 'mended twice'
run 2 check --fix -
# A doubled line and a value read as what it says: the NC text stays.
sed 's/^TEXT sAx1Addr.*/&\n&/; s/false/no/' job.tun >double.tun
run 0 check --fix double.tun
cmp job.tun double.tun || fail 'not as before'

finish
