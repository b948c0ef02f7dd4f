#!/usr/bin/env bash
# Makes sure the Debian packages named as arguments are installed, like scripts/deps.sh, for the
# build lanes: packages may name a foreign architecture (`wine32:i386`, once
# `dpkg --add-architecture i386` is done). A failed index of one mirror does not stop it, and when
# the versions of the two architectures do not match up (a security index missing for one of
# them), it installs the point release's own versions (-t bookworm). Without root it prints the
# apt-get line to run and fails. Safe to run any number of times.
set -uo pipefail

missing=()
for pkg in "$@"; do
    if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$pkg")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
    echo "error: missing Debian packages: ${missing[*]}" >&2
    echo "install them with:  sudo apt-get install -y ${missing[*]}" >&2
    exit 1
fi

log=${ZT_APT_LOG:-/tmp/ztlinear-apt.log}
echo "installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt=(apt-get install -y -q --no-install-recommends)
"${apt[@]}" "${missing[@]}" >>"$log" 2>&1 && exit 0
apt-get update -q >>"$log" 2>&1 || echo "note: apt-get update reported errors (see $log)"
"${apt[@]}" "${missing[@]}" >>"$log" 2>&1 && exit 0
"${apt[@]}" -t bookworm "${missing[@]}" >>"$log" 2>&1 && exit 0
echo "error: could not install: ${missing[*]} (see $log)" >&2
tail -n 15 "$log" >&2
exit 1
