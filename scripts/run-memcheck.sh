#!/usr/bin/env bash
# Runs every test program of the default build under valgrind's memcheck: any invalid access,
# use of an uninitialised value in a decision, or definite or indirect leak fails the run. (Memory
# that the registries keep on purpose until the process ends is "still reachable", not a leak.)
#
#   scripts/run-memcheck.sh             # reuses build/default (builds it when needed)
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
bash scripts/deps.sh "${ZT_BUILD_PACKAGES[@]}" valgrind

cmake --preset default >/dev/null
cmake --build --preset default -j"$(nproc)"

passed=0
failed=0
for path in build/default/bin/*_tests; do
    program=$(basename "$path")
    log=build/default/memcheck-$program.log
    echo "== valgrind $program"
    if valgrind --tool=memcheck --error-exitcode=99 --leak-check=full \
        --show-leak-kinds=definite,indirect --errors-for-leak-kinds=definite,indirect \
        --track-origins=yes --log-file="$log" \
        "build/default/bin/$program" --gtest_brief=1 >"$log.out" 2>&1; then
        grep -E "ERROR SUMMARY|definitely lost|indirectly lost" "$log" || true
        passed=$((passed + 1))
    else
        tail -n 40 "$log.out"
        cat "$log"
        failed=$((failed + 1))
    fi
done
echo "memcheck: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
