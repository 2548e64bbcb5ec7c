#!/bin/sh
# Makes the pictures of the editor's windows in docs/pictures: scripts/screenshots.sh [BUILD_FOLDER]
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$root/build/release}" && pwd)
pictures=$root/docs/pictures
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# A screen of its own, so that the pictures are the same everywhere.
cat >"$scratch/screen.json" <<END
{"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1400, "height": 1000,
              "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
END
mkdir -p "$pictures"
cd "$root/examples"
HOME=$scratch XDG_DATA_HOME=$scratch XDG_RUNTIME_DIR=$scratch LC_ALL=C.UTF-8 QT_LOGGING_RULES='*=false' \
    QT_QPA_PLATFORM="offscreen:configfile=$scratch/screen.json" \
    "$build/bin/brindle-screenshots" "$pictures" 2>&1 | { grep -v '^This plugin does not support' || true; }
