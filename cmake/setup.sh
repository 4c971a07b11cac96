#!/bin/bash
# Installs what building and testing need, and only what is missing (Debian 12 or a later relative of it).
# cmake/setup.sh --bench, --coverage, --lint: what "./bench", "./coverage" and "./lint" need besides.
set -euo pipefail

packages=(
    # build
    cmake
    ninja-build
    g++
    g++-mingw-w64-x86-64-posix
    binutils-mingw-w64-x86-64
    mingw-w64-tools
    python3
    libcli11-dev
    nlohmann-json3-dev
    # package
    nsis
    # run: 64-bit Wine, its dialog fonts, an X server without a screen
    wine
    wine64
    fonts-wine
    xvfb
    # test (git lists the documents)
    git
    googletest
    python3-pefile
    clang-format
    # fuzz
    clang
    libclang-rt-dev
)
case ${1:-} in
    --bench)
        packages+=(
            libbenchmark-dev
            # other readers of such files
            libfccp-dev
            libcsv-dev
            # other converters of pictures
            libyuv-dev
            libswscale-dev
            libopencv-core-dev
            libopencv-imgproc-dev
        )
        ;;
    --coverage) packages+=(gcovr) ;;
    # lld links what clang compiles for Windows
    --lint) packages+=(clang-tidy cppcheck lld) ;;
esac

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    echo "setup: this system has no apt; install the like of: ${packages[*]}" >&2
    exit 1
fi

missing=()
for package in "${packages[@]}"; do
    # shellcheck disable=SC2016  # the format is dpkg-query's
    state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    if [[ $state != installed ]]; then
        missing+=("$package")
    fi
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

echo "setup: installing ${missing[*]}"
as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null || ! sudo -v; then
        echo "setup: neither root nor sudo; ask an administrator for: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y)
"${apt[@]}" update
"${apt[@]}" install --no-install-recommends "${missing[@]}"
