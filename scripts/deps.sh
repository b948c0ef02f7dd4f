#!/usr/bin/env bash
# Makes sure the Debian packages named as arguments are installed.
# As root it installs the missing ones with apt-get; otherwise it prints the apt-get line to run
# and fails. Safe to run any number of times.
set -euo pipefail

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
echo "installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
if ! apt-get install -y -q --no-install-recommends "${missing[@]}"; then
    apt-get update -q
    apt-get install -y -q --no-install-recommends "${missing[@]}"
fi
