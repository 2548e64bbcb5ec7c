#!/usr/bin/env python3
"""Draws docs/pictures/modal_words.svg: the NC text of a few records, with the words that are left out as repeats.

usage: BRINDLE=COMMAND scripts/modal_picture.py >docs/pictures/modal_words.svg
The same job is made twice, with the words modal and not: what only the second text has is left out in the first.
"""
import os
import subprocess
import tempfile
from html import escape

TUNING = """\
INT nNumOfTools 1
BOOL bUseSubs false
BOOL bUseSpace true
BOOL bTrimZeros true
BOOL bTrimDPoint true
TEXT sAx1Addr X
TEXT sAx2Addr Y
TEXT sCenAx1Addr I
TEXT sCenAx2Addr J
INT MM_AX1_nNDec 2
INT MM_AX2_nNDec 2
TEXT sRTCode G0
TEXT sLTCode G1
TEXT sCWCode G2
TEXT sCCWCode G3
BOOL Speed_b1 true
BOOL Speed_bAsValue true
INT Speed_nNDec 4545
TEXT Speed_sParam1Addr F
TEXT T1_Speed_P1_sV1 1200
MULTI T1_ToolOn_tTmpl NNUL M3
MULTI T1_ToolOff_tTmpl NNUL M5
MULTI Move_tTmpl NNUL <@InterpCode><@StartPtWords>
MULTI Line_tTmpl NNUL <@InterpCode><@EndPtWords><@SpeedWords>
MULTI Arc_tTmpl NNUL <@InterpCode><@EndPtWords><@ArcDataWords><@SpeedWords>
"""
DRAWING = """\
MAIN,CARD
UR,60,40
L,1,1,0,0,0,50,0,0,0
A,1,1,0,50,0,60,10,50,10,-10,0,0
L,1,1,0,60,10,60,40,0,0
L,1,1,0,60,40,0,40,0,0
"""
MODAL = ["bICodesModal", "bAxisDataModal", "bArcDataModal", "Speed_bModal"]
# Why words are left out, by their letter; G where it is the same code.
REASONS = {"G": "same motion", "X": "same X", "Y": "same Y", "I": "offset 0", "J": "offset 0", "F": "same speed"}
NOTES = {"G0": "move to the first record", "M3": "tool on: text of the tuning", "M5": "tool off"}
WRITTEN, LEFT_OUT, NOTE = "#1a1a1a", "#b0b0b0", "#5a6b7b"
ROW, TOP, WORD, NOTE_AT = 26, 34, 62, 400


def nc_lines(tuning):
    with tempfile.TemporaryDirectory() as folder:
        paths = [os.path.join(folder, name) for name in ("a.tun", "a.cf2")]
        for path, text in zip(paths, (tuning, DRAWING)):
            with open(path, "w", encoding="utf-8") as file:
                file.write(text)
        command = [os.environ.get("BRINDLE", "brindle"), "post", "-t", paths[0], "-o", "-", paths[1]]
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout.split("\n")[:-1]


def text(x, y, color, content, extra=""):
    return f'<text x="{x}" y="{y}" fill="{color}"{extra}>{escape(content)}</text>'


def row(y, full, written):
    rest = written.split()
    parts, reasons = [], []
    for column, word in enumerate(full.split()):
        is_there = word in rest
        parts.append(text(20 + WORD * column, y, WRITTEN if is_there else LEFT_OUT, word,
                          "" if is_there else ' text-decoration="line-through"'))
        if not is_there and REASONS[word[0]] not in reasons:
            reasons.append(REASONS[word[0]])
    note = NOTES.get(full.split()[0], "")
    reason = "left out: " + ", ".join(reasons) if reasons else note
    return "\n".join(parts + [text(NOTE_AT, y, NOTE, reason, ' font-family="sans-serif" font-size="13"')])


def main():
    written = nc_lines(TUNING)
    full = nc_lines(TUNING + "".join(f"BOOL {key} false\n" for key in MODAL))
    height = TOP + ROW * (len(full) - 1) + 20
    print(f'<svg xmlns="http://www.w3.org/2000/svg" width="720" height="{height}" font-family="monospace" font-size="16">')
    print(f'<rect width="720" height="{height}" fill="#fafafa"/>')
    for i, (one, other) in enumerate(zip(full, written, strict=True)):
        print(row(TOP + ROW * i, one, other))
    print("</svg>")


if __name__ == "__main__":
    main()
