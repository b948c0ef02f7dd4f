#!/usr/bin/env bash
# Builds the whole test suite with ThreadSanitizer (GCC, -fsanitize=thread, libraries included)
# and runs it; any race report fails the run. The concurrency test (tests/ZtLConcurrencyTest.cpp)
# is the one aimed at it: threads starting and stopping components, posting errors, reading the
# tolerances and using the option registry at once.
#
#   scripts/run-tsan.sh                 # the whole suite
#   scripts/run-tsan.sh 'ZtLConcurrency*'   # a gtest filter
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
bash scripts/deps.sh "${ZT_BUILD_PACKAGES[@]}" libtsan2

build=build/tsan
flags="-fsanitize=thread -g -O1"
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZT_WERROR=ON -DZT_BUILD_TOOLS=OFF \
    -DZT_TEST_PER_CASE=OFF -DCMAKE_CXX_FLAGS="$flags" \
    -DCMAKE_EXE_LINKER_FLAGS=-fsanitize=thread -DCMAKE_SHARED_LINKER_FLAGS=-fsanitize=thread \
    >/dev/null
cmake --build "$build" -j"$(nproc)"

export TSAN_OPTIONS=${TSAN_OPTIONS:-halt_on_error=1:abort_on_error=1:second_deadlock_stack=1}
if [ $# -gt 0 ]; then
    export GTEST_FILTER="$1"
fi
ctest --test-dir "$build" --output-on-failure
