#!/usr/bin/env bash
# Runs clang-tidy (.clang-tidy) over the sources of the library and of the command, or over those whose path matches
# the patterns given.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

ours="^$PWD/(src|host)/"
[ $# -gt 0 ] || set -- "$ours"
# The compile commands of single files.
cmake --preset release -B build/tidy -DBRINDLE_BY_ROOM=OFF >/dev/null
# Counts of what was found, and left out, in the headers of others are no news.
run-clang-tidy -quiet -p build/tidy -header-filter="$ours" -j "${JOBS:-$(nproc)}" "$@" \
    2> >(grep -vE '^[0-9]+ warnings? generated' >&2)
