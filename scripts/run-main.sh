#!/usr/bin/env bash
# Builds the library and its tools (Release) and runs ztpick. Arguments go to ztpick.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
bash scripts/deps.sh "${ZT_BUILD_PACKAGES[@]}"
cmake --preset default >/dev/null
cmake --build --preset default --target ztpick -j"$(nproc)"
exec build/default/bin/ztpick "$@"
