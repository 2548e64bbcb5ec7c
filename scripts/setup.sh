#!/usr/bin/env bash
# Installs the Debian packages that are missing for `make run`, `make test` or `make ci`, each of which needs those of
# the one before, too. Does nothing, and asks for no network, if all are there.
# usage: setup.sh run|test|ci
set -euo pipefail

packages=(
    make cmake ninja-build g++ pkg-config
    libcli11-dev    # command line of the host
    libmuparser-dev # arithmetic of run-time data expressions
    libcairo2-dev   # drawings of tool paths
)
for_tests=(
    qt6-base-dev # windows of the tuning editor
    libgtest-dev
    nlohmann-json3-dev # generated jobs
    libbenchmark-dev   # benchmarks, which are configured with the tests
    python3
    locales           # a locale with a decimal comma
    fonts-dejavu-core # letters in windows without a screen
    xz-utils dpkg-dev file man-db # packages
)
for_ci=(
    clang libclang-rt-14-dev # fuzzers
    clang-format clang-tidy
)
case ${1:-} in
    run) ;;
    test) packages+=("${for_tests[@]}") ;;
    ci) packages+=("${for_tests[@]}" "${for_ci[@]}") ;;
    *) echo 'usage: setup.sh run|test|ci' >&2 && exit 2 ;;
esac

if ! command -v dpkg-query >/dev/null; then
    echo "setup: not a Debian system; the build needs what these packages hold: ${packages[*]}" >&2
    exit 0
fi

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "setup: these packages are missing, and only root can install them: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "setup: installing ${missing[*]}"
"${as_root[@]}" apt-get update
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"
