#!/usr/bin/env bash
# The Python module and its examples. BRINDLE_LIB is the library, BRINDLE the command, SOURCE_DIR the root of the
# sources.
set -euo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_DATA_HOME="$work/store" PYTHONPATH="$SOURCE_DIR/python" PYTHONDONTWRITEBYTECODE=1
export BRINDLE_LIBRARY="$BRINDLE_LIB"

if readelf -d "$BRINDLE_LIB" | grep -q 'libasan'; then
    # The runtime of the sanitizers must come first, and Python itself leaves memory behind.
    export LD_PRELOAD="$(cc -print-file-name=libasan.so):$(cc -print-file-name=libubsan.so)"
    export ASAN_OPTIONS="${ASAN_OPTIONS:-}:detect_leaks=0"
fi
cd "$work"
python3 -m unittest -q test_brindle
