#!/usr/bin/env bash
# The README tells the truth: its tutorial is followed to the letter, and its links lead somewhere. BRINDLE is the
# command, SOURCE_DIR the root of the sources.
set -uo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_DATA_HOME="$work/store" PATH="$(dirname "$BRINDLE"):$PATH"
status=0

mkdir "$work/tutorial"
(cd "$work/tutorial" && python3 -B "$SOURCE_DIR/tests/readme.py" "$SOURCE_DIR/README.md") || status=1

for link in $(grep -o '](\([^)]*\))' "$SOURCE_DIR/README.md" | tr -d '](),'); do
    [ -e "$SOURCE_DIR/$link" ] || { echo "README links to $link, which is not there"; status=1; }
done

# A README that lies is found out.
sed 's/^N100 G3 I-4\. F2400$/N100 G3 I-4. F2401/' "$SOURCE_DIR/README.md" >"$work/lie.md"
mkdir "$work/lie"
if (cd "$work/lie" && python3 -B "$SOURCE_DIR/tests/readme.py" "$work/lie.md" >"$work/lie.out"); then
    echo "a wrong digit was not seen"
    status=1
fi
[ "$(grep -c '^expected:' "$work/lie.out")" = 1 ] || { echo "more than the wrong digit was seen"; status=1; }

exit $status
