#!/usr/bin/env bash
# Runs clang-tidy (.clang-tidy) over the sources of the library and of the command, or over those whose path matches
# the patterns given. Needs a configured release build, for its compile commands.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

ours="^$PWD/(src|host)/"
[ $# -gt 0 ] || set -- "$ours"
# Counts of what was found, and left out, in the headers of others are no news.
run-clang-tidy -quiet -p build/release -header-filter="$ours" -j "${JOBS:-$(nproc)}" "$@" \
    2> >(grep -vE '^[0-9]+ warnings? generated' >&2)
