#!/usr/bin/env bash
# Lays out the sources by .clang-format. With --check it changes nothing and fails if a file is not laid out so.
# Releases of clang-format differ in what they do with the same settings, so only the one release counts.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

wanted=14
mode=(-i)
[ "${1:-}" = --check ] && mode=(--dry-run --Werror)

tool=$(command -v "clang-format-$wanted" || command -v clang-format || true)
if [ -z "$tool" ] || ! "$tool" --version | grep -q "version $wanted\."; then
    echo "format: clang-format $wanted is not installed, nothing done" >&2
    [ "${1:-}" = --check ] && exit 0
    exit 1
fi

folders=()
for folder in include src host editor_qt testing tests bench fuzz examples; do
    [ -d "$folder" ] && folders+=("$folder")
done
find "${folders[@]}" -type f \( -name '*.h' -o -name '*.c' -o -name '*.cpp' \) -print0 |
    xargs -0 --no-run-if-empty "$tool" --style=file "${mode[@]}"
