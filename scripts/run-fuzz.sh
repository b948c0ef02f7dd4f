#!/usr/bin/env bash
# Builds the libFuzzer targets (Clang, AddressSanitizer and UndefinedBehaviorSanitizer, also in the
# libraries) and runs each one for a bounded time, starting from its seed corpus in fuzz/corpus.
#
#   scripts/run-fuzz.sh                      # every target, FUZZ_SECONDS (default 40) each
#   scripts/run-fuzz.sh zt_fuzz_linear       # only the named targets
#   FUZZ_SECONDS=14400 FUZZ_JOBS=2 scripts/run-fuzz.sh   # a long run: 4 hours a target, 2 workers
#
# New inputs found are kept in build/fuzz/work/<target> (they survive between runs and speed up
# the next one); a crash, sanitizer report, hang (FUZZ_TIMEOUT, default 10 s for one input) or
# failed check stops with a non-zero status and leaves the input in build/fuzz/artifacts/.
# Replay one with: build/fuzz/bin/<target> <file>.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
bash scripts/deps.sh cmake make clang-14 libclang-rt-14-dev libpugixml-dev libxxhash-dev

seconds=${FUZZ_SECONDS:-40}
timeout=${FUZZ_TIMEOUT:-10}
jobs=${FUZZ_JOBS:-1}
build=build/fuzz

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++-14 \
    -DZT_BUILD_FUZZ=ON -DZT_BUILD_TESTS=OFF -DZT_BUILD_TOOLS=OFF -DZT_WERROR=ON >/dev/null
cmake --build "$build" -j"$(nproc)"

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for dir in fuzz/corpus/*/; do targets+=("zt_fuzz_$(basename "$dir")"); done
fi

export ASAN_OPTIONS=${ASAN_OPTIONS:-abort_on_error=1:detect_leaks=1:strict_string_checks=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-halt_on_error=1:print_stacktrace=1}
mkdir -p "$build/artifacts"
passed=0
failed=0
for target in "${targets[@]}"; do
    name=${target#zt_fuzz_}
    work="$build/work/$name"
    mkdir -p "$work"
    echo "== $target: ${seconds}s"
    extra=()
    [ "$jobs" -gt 1 ] && extra=(-jobs="$jobs" -workers="$jobs")
    [ -f "fuzz/$name.dict" ] && extra+=(-dict="fuzz/$name.dict")
    if "$build/bin/$target" -max_total_time="$seconds" -timeout="$timeout" -rss_limit_mb=2048 \
        -max_len=4096 -print_final_stats=1 -artifact_prefix="$build/artifacts/$name-" \
        "${extra[@]}" "$work" "fuzz/corpus/$name" >"$build/$name.log" 2>&1; then
        grep -E "^stat::number_of_executed_units|^Done" "$build/$name.log" || true
        passed=$((passed + 1))
    else
        tail -n 60 "$build/$name.log"
        echo "$target FAILED; input in $build/artifacts/"
        failed=$((failed + 1))
    fi
done
echo "fuzz: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
