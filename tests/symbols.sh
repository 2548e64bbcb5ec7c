# The library shows its exports and nothing else, and needs nothing but the runtimes of C and C++.
set -eu
lib=$BRINDLE_LIB

expected=$(grep -o '\(GBrn_[A-Za-z0-9]*\|Sys[A-Z][A-Za-z]*\)(' "$SOURCE_DIR/include/brindle/brindle.h" | tr -d '(' | sort)
count=$(grep -c '^GBrn_' <<<"$expected")
if [ "$count" != 46 ] || [ "$(wc -l <<<"$expected")" != 48 ]; then
    echo "the header declares $count exports, not 46:" && echo "$expected" && exit 1
fi

shown=$(nm -D --defined-only "$lib" | awk '{ print $NF }' | sort)
if ! difference=$(diff <(echo "$expected") <(echo "$shown")); then
    echo "declared (<) and shown (>) differ:" && echo "$difference" && exit 1
fi

if grep -q Headless "$lib"; then
    echo "the toolkit of the tests is in the library" && exit 1
fi

needed=$(readelf -d "$lib" | sed -n 's/.*(NEEDED).*\[\(.*\)\].*/\1/p')
if grep -q '^lib\(a\|ub\)san' <<<"$needed"; then
    echo "a sanitizer build needs its runtimes too: $needed" && exit 0
fi
if other=$(grep -v '^\(lib\(stdc++\|gcc_s\|m\|c\|pthread\)\.so\|ld-linux\)' <<<"$needed"); then
    echo "needs more than the runtimes: $other" && exit 1
fi
