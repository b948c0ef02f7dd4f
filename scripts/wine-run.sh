#!/usr/bin/env bash
# Runs a Windows program under Wine for CTest (the MinGW toolchains' CMAKE_CROSSCOMPILING_EMULATOR):
#   scripts/wine-run.sh win32|win64 DLL_DIRS PROGRAM [ARGS...]
# DLL_DIRS (colon-separated Unix folders) hold the MinGW runtime DLLs; they go on Wine's search
# path. The Wine prefix lives under build/ (one per architecture, created on first use) and
# Wine's own diagnostics are off, so the output is the program's own. The exit code is the
# program's.
set -euo pipefail

arch=${1:?usage: wine-run.sh win32|win64 DLL_DIRS PROGRAM [ARGS...]}
dll_dirs=$2
shift 2

root=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX=${ZT_WINEPREFIX_ROOT:-$root/build/wine}/$arch
export WINEARCH=$arch
export WINEDEBUG=-all
# No Mono or Gecko installers, no desktop windows.
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
unset DISPLAY

if [ "$arch" = win32 ]; then
    wine=wine
else
    wine=$(command -v wine64 || true)
    if [ -z "$wine" ]; then
        for candidate in /usr/lib/wine/wine64 /usr/lib/x86_64-linux-gnu/wine/wine64; do
            [ -x "$candidate" ] && wine=$candidate && break
        done
    fi
    wine=${wine:-wine}
fi

# Wine's search path takes Windows paths: Z: is the Unix root.
winepath=""
IFS=: read -r -a dirs <<<"$dll_dirs"
for dir in "${dirs[@]}"; do
    [ -n "$dir" ] && winepath="${winepath:+$winepath;}Z:${dir//\//\\}"
done
export WINEPATH="$winepath"

# Create the prefix once; several tests may start at the same time.
mkdir -p "$(dirname "$WINEPREFIX")"
(
    flock 9
    if [ ! -f "$WINEPREFIX/.zt-ready" ]; then
        "$wine" wineboot --init >/dev/null 2>&1 || true
        wineserver -w 2>/dev/null || true
        touch "$WINEPREFIX/.zt-ready"
    fi
) 9>"$WINEPREFIX.lock"

exec "$wine" "$@"
