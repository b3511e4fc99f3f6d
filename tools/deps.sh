#!/bin/sh
# Installs the Debian packages the builds and tests need, when any is missing (run as root).
set -e
packages="cmake make g++ googletest libgtest-dev libgmock-dev libbenchmark-dev
    g++-mingw-w64-x86-64 mingw-w64-tools wine64 xvfb xauth clang libclang-rt-14-dev nsis
    clang-format"
missing=""
for p in $packages; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed" || missing="$missing $p"
done
if [ -n "$missing" ]; then
    echo "Installing:$missing"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -q
    # shellcheck disable=SC2086
    apt-get install -y -q --no-install-recommends $missing
fi
