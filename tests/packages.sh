#!/usr/bin/env bash
# What is installed works: as a folder to build hosts with, and as a Debian package. BRINDLE_LIB is the library in its
# build folder, SOURCE_DIR the root of the sources.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"
build=$(realpath "$(dirname "$BRINDLE_LIB")/..")

if readelf -d "$BRINDLE_LIB" | grep -q 'lib\(a\|ub\)san'; then
    echo 'a build under the sanitizers is not for packages' && exit 0
fi

# The version is one everywhere.
version=$(sed -nE 's/.*kVersion(Major|Minor|Patch) = ([0-9]+);/\2/p' "$SOURCE_DIR/src/platform/version.h" | paste -sd .)
grep -qF "## [$version]" "$SOURCE_DIR/CHANGELOG.md" || fail "CHANGELOG.md does not know $version"
soname=$(readelf -d "$BRINDLE_LIB" | sed -n 's/.*(SONAME).*\[\(.*\)\].*/\1/p')
[ "$soname" = "libBrindleDrv.so.${version%%.*}" ] || fail "soname $soname"
[ -e "$build/lib/libBrindleDrv.so" ] || fail 'no libBrindleDrv.so in the build folder'

# ---- Installed below a prefix that is chosen late ----

prefix=$work/installed/opt/brindle
DESTDIR=$work/installed cmake --install "$build" --prefix /opt/brindle >"$work/log" 2>&1 ||
    { echo "FAILED: install: $(tail -n 5 "$work/log")" && exit 1; }
libdir=$(dirname "$(find "$prefix" -name libBrindleDrv.so)")
for file in bin/brindle include/brindle/brindle.h share/man/man1/brindle.1 share/zsh/site-functions/_brindle \
    share/bash-completion/completions/brindle share/brindle/python/brindle.py share/doc/brindle/CHANGELOG.md \
    share/doc/brindle/examples/host_c/main.c; do
    [ -f "$prefix/$file" ] || fail "not installed: $file"
done
[ -f "$libdir/brindle/libBrindleEditor.so" ] || [ ! -e "$build/lib/brindle/libBrindleEditor.so" ] ||
    fail 'not installed: the plugin'
if grep -rlF -e "$build" -e "$SOURCE_DIR" "$libdir/cmake" "$libdir/pkgconfig"; then
    fail 'paths of the build folder are installed'
fi

# ---- Hosts are built from a copy of the example ----

plate=$SOURCE_DIR/examples/drawings/plate.cf2
laser=$SOURCE_DIR/examples/laser_mm/laser_mm.tun
without_date() { sed 2d "$1"; }

# Runs a host; further arguments set its environment.
try_host() {
    local host=$1
    shift
    env "$@" "$host" "$laser" "$plate" "$host.nc" || fail "$host: exit status $?"
    cmp <(without_date "$SOURCE_DIR/examples/laser_mm/plate.nc") <(without_date "$host.nc") || fail "$host: other NC text"
}

mkdir "$work/found" "$work/configured"
cp "$prefix/share/doc/brindle/examples/host_c/main.c" "$work/found"
cp "$prefix/share/doc/brindle/examples/host_c/main.c" "$work/configured"

cat >"$work/found/CMakeLists.txt" <<END
cmake_minimum_required(VERSION 3.25)
project(Host LANGUAGES C)
find_package(Brindle ${version%.*} REQUIRED)
add_executable(host main.c)
target_link_libraries(host PRIVATE Brindle::BrindleDrv)
END
{ cmake -S "$work/found" -B "$work/found/build" -DCMAKE_PREFIX_PATH="$prefix" && cmake --build "$work/found/build"; } \
    >"$work/log" 2>&1 || fail "find_package: $(tail -n 20 "$work/log")"
try_host "$work/found/build/host"
sed -i "s/find_package(Brindle .* REQUIRED)/find_package(Brindle $((${version%%.*} + 1)) REQUIRED)/" \
    "$work/found/CMakeLists.txt"
cmake -S "$work/found" -B "$work/newer" -DCMAKE_PREFIX_PATH="$prefix" >"$work/log" 2>&1 && fail 'a newer version is found'

export PKG_CONFIG_PATH=$libdir/pkgconfig
[ "$(pkg-config --modversion brindle)" = "$version" ] || fail 'pkg-config: other version'
read -ra flags < <(pkg-config --cflags --libs brindle)
cc -std=c11 "$work/configured/main.c" "${flags[@]}" -o "$work/configured/host" || fail "pkg-config: ${flags[*]}"
try_host "$work/configured/host" LD_LIBRARY_PATH="$libdir"

# ---- Debian package ----

if command -v dpkg-deb >/dev/null; then
    cpack --config "$build/CPackConfig.cmake" -B "$work/package" >"$work/log" 2>&1 ||
        { echo "FAILED: cpack: $(tail -n 20 "$work/log")" && exit 1; }
    package=$(echo "$work"/package/*.deb)
    [ "$(dpkg-deb -f "$package" Package Version | paste -sd ' ')" = "Package: brindle Version: $version" ] ||
        fail "package: $(dpkg-deb -f "$package")"
    for library in libc6 libstdc++6 libmuparser; do
        dpkg-deb -f "$package" Depends | grep -qF "$library" || fail "depends: $(dpkg-deb -f "$package" Depends)"
    done
    mkdir "$work/clean" && cd "$work/clean" || exit 1
    dpkg-deb -x "$package" .
    brindle=$work/clean/usr/bin/brindle
    "$brindle" post -t "$laser" -o plate.nc "$plate" || fail "brindle of the package: exit status $?"
    cmp <(without_date "$SOURCE_DIR/examples/laser_mm/plate.nc") <(without_date plate.nc) || fail 'package: other NC text'
    if command -v python3 >/dev/null; then
        PYTHONPATH=usr/share/brindle/python LD_LIBRARY_PATH=$(dirname "$(find "$PWD/usr" -name 'libBrindleDrv.so.1')") \
            python3 -B usr/share/doc/brindle/examples/python/shapes_to_nc.py "$laser" card.nc || fail 'Python module'
        grep -q '^N.* M30' card.nc || fail 'Python module: NC text'
    fi
else
    echo 'dpkg-deb is not installed: no Debian package is made'
    brindle=$prefix/bin/brindle
fi

# ---- Man page: the options that the command's help names, and no other ----

man_page=$prefix/share/man/man1/brindle.1
commands=$("$brindle" --help | sed -nE '/^Commands:/,/^$/s/^  ([a-z]+) .*/\1/p')
[ "$(wc -w <<<"$commands")" -ge 6 ] || fail "commands: $commands"
for command in $commands; do
    section=$(awk -v command="$command" '/^\.S[hs]/ { inside = $0 == ".Ss " command } inside' "$man_page")
    told=$(grep '^\.It Fl ' <<<"$section" | grep -oE -- ' -[a-z-]+' | tr -d ' ' | sort)
    known=$("$brindle" "$command" --help | grep -oE '^  (    |-., )--[a-z-]+' | sed 's/.*--/-/' |
        grep -vx -e -help -e -version | sort)
    [[ -n $section && $told == "$known" ]] ||
        fail "man page, $command: $(diff <(echo "$told") <(echo "$known"))"
done
if command -v man >/dev/null; then
    warnings=$(MANPAGER=cat man -l --warnings "$man_page" 2>&1 >"$work/page")
    [ -z "$warnings" ] || fail "man page: $warnings"
    grep -q -- '--encoding utf8|latin1' "$work/page" || fail 'man page: not rendered'
fi

# ---- Completion ----

# What is offered for the last word.
offered() {
    # shellcheck disable=SC2016
    bash -c '. "$0"; COMP_WORDS=(brindle "$@"); COMP_CWORD=$#
        _brindle brindle "${COMP_WORDS[-1]}" "${COMP_WORDS[-2]}" && printf "%s\n" "${COMPREPLY[@]}"' \
        "$prefix/share/bash-completion/completions/brindle" "$@" | LC_ALL=C sort | paste -sd ' '
}

PATH="$(dirname "$brindle"):$PATH"
mkdir -p "$work/files/nc" && cd "$work/files" || exit 1
touch a.tun 'b c.tun' a.cf2 B.CF2 a.nc
for command in $commands; do
    [ "$(offered "${command:0:3}")" = "$command" ] || fail "completion of ${command:0:3}: $(offered "${command:0:3}")"
done
while IFS='|' read -r words expected; do
    read -ra words <<<"$words"
    [ "${words[-1]}" != . ] || words[-1]=''
    [ "$(offered "${words[@]}")" = "$expected" ] || fail "completion of ${words[*]}: $(offered "${words[@]}")"
done <<'END'
post --tu|--tune-pick --tuning --tuning-name
post -t .|a.tun b c.tun nc
post --tuning a|a.tun
post -t a.tun .|B.CF2 a.cf2 nc
post -t a.tun B|B.CF2
post -o a|a.cf2 a.nc a.tun
post --encoding .|latin1 utf8
post --encoding = u|utf8
post --date .|
check .|B.CF2 a.cf2 a.tun b c.tun nc
check --st|--strict
dump --t|--template --tuning
dump -t .|a.tun b c.tun nc
plot B|B.CF2
help pl|plot
END

if command -v zsh >/dev/null; then
    zsh -n "$prefix/share/zsh/site-functions/_brindle" || fail 'completion for zsh: syntax'
fi

finish
