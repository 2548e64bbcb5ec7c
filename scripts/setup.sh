#!/usr/bin/env bash
# Installs the Debian packages that building and testing need. Does nothing, and asks for no network, if all are there.
set -euo pipefail

packages=(
    make cmake ninja-build g++ python3
    libcli11-dev     # command line of the host
    libmuparser-dev  # arithmetic of run-time data expressions
    libcairo2-dev    # drawings of tool paths
    qt6-base-dev     # windows of the tuning editor
    pkg-config
    libgtest-dev        # tests
    nlohmann-json3-dev  # generated jobs of the tests
    libbenchmark-dev    # benchmarks
    locales             # a locale with a decimal comma, for the tests
    fonts-dejavu-core   # letters in windows without a screen
    xz-utils dpkg-dev file man-db # packages
    clang libclang-rt-14-dev # fuzzers
    clang-format clang-tidy
)

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
