#!/usr/bin/env bash
# Builds the whole project and runs the whole test suite on several lanes, one after the other:
#   scripts/run-lanes.sh [LANE...]        (default: default clang sanitize linux32 windows)
#
#   default   native x86-64, GCC, Release: scripts/run-tests.sh (the README's test command)
#   clang     native x86-64, Clang, Release
#   sanitize  native x86-64, GCC, Debug with AddressSanitizer and UndefinedBehaviorSanitizer; any
#             report fails the test program
#   linux32   32-bit x86 Linux (-m32 -msse2 -mfpmath=sse): `long` has 32 bits
#   windows   32-bit Windows (MinGW-w64 i686) run under Wine: `long` 32 bits, `wchar_t` 16. Where
#             Wine's 32-bit part cannot be installed it runs 64-bit Windows (x86_64, wine64) and
#             says so (ZT_WINDOWS64=1 asks for that on purpose).
#
# Each lane installs the Debian packages it needs (as root; otherwise it prints the apt-get line),
# builds its dependencies when it needs its own (scripts/build-deps.sh, cached under build/deps),
# configures, builds and tests its CMake preset under build/<preset>, and prints one line:
#   lane windows: 3 programs, 228 tests passed (41 s; 32-bit Windows under Wine; long 32 bits, ...)
# A lane's build and test output goes to build/lanes/<lane>.log and is shown when it fails. Every
# lane runs even when an earlier one failed; the exit code is non-zero when any lane failed. Safe to
# run any number of times: a second run reuses the builds and the cached dependencies.
set -uo pipefail
cd "$(dirname "$0")/.."
root=$PWD
source scripts/packages.sh

lanes=("$@")
[ ${#lanes[@]} -eq 0 ] && lanes=(default clang sanitize linux32 windows)
jobs=$(nproc)
logdir=$root/build/lanes
mkdir -p "$logdir"

summaries=()
total_passed=0
total_failed=0
status=0

say() { echo "== $*"; }

# Installs Debian packages (scripts/apt-install.sh copes with a foreign architecture).
install_packages() { ZT_APT_LOG=$logdir/apt.log bash scripts/apt-install.sh "$@"; }

enable_i386() {
    dpkg --print-foreign-architectures | grep -qx i386 && return 0
    [ "$(id -u)" -eq 0 ] || return 1
    echo "enabling the i386 architecture"
    dpkg --add-architecture i386 && { apt-get update -q >>"$logdir/apt.log" 2>&1 || true; }
}

# Reads the test counts of the last CTest run of a build folder: sets programs, passed, failed.
count_tests() {
    local log=$1/Testing/Temporary/LastTest.log
    programs=0 passed=0 failed=0
    [ -f "$log" ] || return 0
    passed=$(awk '/^\[  PASSED  \] [0-9]+ tests?\./ {n += $4} END {print n + 0}' "$log")
    failed=$(awk '/^\[  FAILED  \] [0-9]+ tests?, listed below/ {n += $4} END {print n + 0}' "$log")
    # The test programs: the distinct executables under the build's bin/ folder that CTest ran.
    programs=$(grep -o '/bin/[^/"]*_tests\(\.exe\)\?"' "$log" | sort -u | wc -l)
    # The widths the platform test reported ("platform: long 32 bits, wchar_t 16 bits, ...").
    widths=$(grep -m1 -o 'platform: long [0-9]* bits, wchar_t [0-9]* bits' "$log" | sed 's/^platform: //')
}

# Records a lane's result line.
finish_lane() {
    local lane=$1 ok=$2 seconds=$3 note=${4:-}
    local line
    if [ "$ok" -eq 0 ] && [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]; then
        line="lane $lane: $programs programs, $passed tests passed ($seconds s${note:+; $note})"
    else
        status=1
        line="lane $lane: FAILED: $programs programs, $passed tests passed, $failed failed ($seconds s${note:+; $note})"
        [ "$failed" -eq 0 ] && total_failed=$((total_failed + 1))
    fi
    total_passed=$((total_passed + passed))
    total_failed=$((total_failed + failed))
    summaries+=("$line")
    echo "$line"
}

# Configures, builds and tests one preset, output into the lane's log.
run_preset() {
    local preset=$1 log=$2
    {
        cmake --preset "$preset" && cmake --build --preset "$preset" -j"$jobs" \
            && ctest --preset "$preset" -j"$jobs"
    } >>"$log" 2>&1
}

lane_default() {
    # The README's test command, as it stands: its output (with CTest's closing line) goes to
    # the console.
    rm -f build/default/Testing/Temporary/LastTest.log
    bash scripts/run-tests.sh
}

lane_preset() {
    local lane=$1 preset=$2 log=$logdir/$1.log
    : >"$log"
    # The counts come from this run only.
    rm -f "build/$preset/Testing/Temporary/LastTest.log"
    if ! run_preset "$preset" "$log"; then
        local tests=build/$preset/Testing/Temporary/LastTest.log
        echo "-- $lane: build or tests failed ($log)"
        if grep -q -E 'error:|undefined reference' "$log"; then
            echo "-- the first errors:"
            grep -m 30 -A 6 -E 'error:|undefined reference' "$log"
        fi
        if [ -f "$tests" ] && grep -q -E '^\[  FAILED  \]|Sanitizer|runtime error' "$tests"; then
            echo "-- the failures:"
            grep -m 60 -B 3 -A 8 -E 'Failure$|^\[  FAILED  \]|ERROR: [A-Za-z]*Sanitizer|runtime error' \
                "$tests" | head -n 300
        fi
        echo "-- the end of the log:"
        tail -n 30 "$log"
        return 1
    fi
}

run_lane() {
    local lane=$1 start=$SECONDS ok=0 note="" builddir
    programs=0 passed=0 failed=0
    say "lane $lane"
    case "$lane" in
        default)
            builddir=build/default
            lane_default || ok=1
            ;;
        clang)
            builddir=build/clang
            { install_packages "${ZT_BUILD_PACKAGES[@]}" "${ZT_LANE_CLANG_PACKAGES[@]}" \
                && lane_preset clang clang; } || ok=1
            ;;
        sanitize)
            builddir=build/sanitize
            { install_packages "${ZT_BUILD_PACKAGES[@]}" "${ZT_LANE_SANITIZE_PACKAGES[@]}" \
                && lane_preset sanitize sanitize; } || ok=1
            ;;
        linux32)
            builddir=build/linux32
            { install_packages "${ZT_BUILD_PACKAGES[@]}" "${ZT_LANE_LINUX32_PACKAGES[@]}" \
                && bash scripts/build-deps.sh linux32 && lane_preset linux32 linux32; } || ok=1
            ;;
        windows)
            local preset=windows target=mingw-i686
            # ZT_WINDOWS64=1 takes the 64-bit way on purpose (to try it).
            if [ "${ZT_WINDOWS64:-0}" = 1 ] \
                || ! { enable_i386 && install_packages "${ZT_LANE_WINDOWS_PACKAGES[@]}"; }; then
                preset=windows64 target=mingw-x86_64
                if [ "${ZT_WINDOWS64:-0}" = 1 ]; then
                    note="64-bit Windows, as ZT_WINDOWS64=1 asks"
                else
                    note="64-bit Windows: wine32:i386 could not be installed"
                    echo "NOTE: Wine's 32-bit part (wine32:i386) could not be installed: the windows lane"
                    echo "NOTE: runs 64-bit Windows instead (x86_64 MinGW-w64, wine64), not the host's 32-bit."
                fi
                install_packages "${ZT_LANE_WINDOWS64_PACKAGES[@]}" || ok=1
            fi
            builddir=build/$preset
            if [ "$ok" -eq 0 ]; then
                { bash scripts/build-deps.sh "$target" && lane_preset windows "$preset"; } || ok=1
            fi
            [ -z "$note" ] && note="32-bit Windows under Wine"
            ;;
        *)
            echo "error: unknown lane '$lane' (default clang sanitize linux32 windows)" >&2
            builddir=build/none
            ok=1
            ;;
    esac
    widths=""
    count_tests "$builddir"
    [ -n "$widths" ] && note="${note:+$note; }$widths"
    finish_lane "$lane" "$ok" "$((SECONDS - start))" "$note"
}

for lane in "${lanes[@]}"; do
    run_lane "$lane"
done

echo
echo "== lanes"
for line in "${summaries[@]}"; do
    echo "$line"
done
# Every test case of every lane (a lane that failed before its tests counts as one failure).
echo "total: $total_passed passed, $total_failed failed"
exit $status
