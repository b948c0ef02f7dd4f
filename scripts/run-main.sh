#!/usr/bin/env bash
# Builds the library and ztpick (Release) and runs ztpick on its built-in scene: it prints the
# pick of the pixel in the middle of the view and draws it into build/ztpick.svg. Arguments go
# to ztpick (ztpick --help lists them; OBJ files given replace the built-in scene).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
bash scripts/deps.sh "${ZT_BUILD_PACKAGES[@]}"
cmake --preset default >/dev/null
cmake --build --preset default --target ztpick -j"$(nproc)"
exec build/default/bin/ztpick --svg build/ztpick.svg "$@"
