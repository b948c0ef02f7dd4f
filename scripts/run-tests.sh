#!/usr/bin/env bash
# Builds everything (Release, warnings as errors) and runs the whole test suite, then installs the
# package into a fresh prefix and builds and runs a client of it (examples/consumer).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
bash scripts/deps.sh "${ZT_BUILD_PACKAGES[@]}"

jobs=$(nproc)
cmake --preset default
cmake --build --preset default -j"$jobs"
ctest --preset default -j"$jobs"

prefix=build/default/_install
rm -rf "$prefix" build/consumer
cmake --install build/default --prefix "$prefix" >/dev/null
cmake -S examples/consumer -B build/consumer -DCMAKE_PREFIX_PATH="$PWD/$prefix" >/dev/null
cmake --build build/consumer -j"$jobs" >/dev/null
LD_LIBRARY_PATH="$PWD/$prefix/lib:${LD_LIBRARY_PATH:-}" build/consumer/consumer
PKG_CONFIG_PATH="$PWD/$prefix/lib/pkgconfig" pkg-config --exists ztlinear
echo "installed package: find_package and pkg-config OK"
