#!/usr/bin/env bash
# Builds the test and XML dependencies for a target that Debian's own -dev packages do not serve:
#   scripts/build-deps.sh linux32|mingw-i686|mingw-x86_64
# Each target gets a prefix build/deps/<target> (include/, lib/, lib/cmake/) holding
#   - GoogleTest, built from the sources of Debian's googletest package (/usr/src/googletest);
#   - pugixml and tinyobjloader (both variants), built from Debian's source packages (apt-get
#     source, with a deb-src entry added);
#   - xxhash.h, copied from Debian's libxxhash-dev (the library uses it header-only).
# The result is cached: a stamp records the source versions, the compiler and this script, and a
# target is rebuilt only when one of them changes. Safe to run any number of times.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

target=${1:?usage: scripts/build-deps.sh linux32|mingw-i686|mingw-x86_64}
case "$target" in
    linux32) toolchain=cmake/toolchains/linux32.cmake; cxx="g++ -m32" ;;
    mingw-i686) toolchain=cmake/toolchains/mingw-i686.cmake; cxx=i686-w64-mingw32-g++-posix ;;
    mingw-x86_64) toolchain=cmake/toolchains/mingw-x86_64.cmake; cxx=x86_64-w64-mingw32-g++-posix ;;
    *) echo "error: unknown target '$target'" >&2; exit 2 ;;
esac

source scripts/packages.sh
bash scripts/apt-install.sh "${ZT_BUILD_PACKAGES[@]}" "${ZT_DEPS_SOURCE_PACKAGES[@]}"

deps=${ZT_DEPS_DIR:-$root/build/deps}
prefix=$deps/$target
work=$deps/_build/$target
srcdir=$deps/_src
jobs=$(nproc)

pkg_version() { dpkg-query -W -f='${Version}' "$1"; }
gtest_version=$(pkg_version googletest)
xxhash_version=$(pkg_version libxxhash-dev)

add_deb_src() {
    local sources=/etc/apt/sources.list.d/ztlinear-deb-src.sources
    [ -f "$sources" ] && return 0
    if [ "$(id -u)" -ne 0 ]; then
        echo "error: Debian's source packages need a deb-src entry; run as root" >&2
        exit 1
    fi
    echo "adding Debian's deb-src entry: $sources"
    cat >"$sources" <<'EOT'
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
EOT
}

# A Debian source package, fetched once into build/deps/_src/<package> (patched by dpkg-source);
# its version goes to build/deps/_src/<package>.version.
fetch_source() {
    local pkg=$1
    if [ -f "$srcdir/$pkg/CMakeLists.txt" ] && [ -f "$srcdir/$pkg.version" ]; then
        return
    fi
    add_deb_src
    if [ -z "$(apt-cache showsrc "$pkg" 2>/dev/null)" ]; then
        # A failed index elsewhere (another architecture's) does not matter here.
        apt-get update -q >/dev/null 2>&1 || true
    fi
    rm -rf "$srcdir/fetch" && mkdir -p "$srcdir/fetch"
    (cd "$srcdir/fetch" && apt-get source -q "$pkg" 2>&1 | grep -v '^W: Download is performed unsandboxed' || true)
    local dir dsc
    dir=$(find "$srcdir/fetch" -mindepth 1 -maxdepth 1 -type d -name "$pkg-*" | head -n1)
    if [ -z "$dir" ] || [ ! -f "$dir/CMakeLists.txt" ]; then
        echo "error: apt-get source $pkg gave no source tree" >&2
        exit 1
    fi
    dsc=$(find "$srcdir/fetch" -maxdepth 1 -name "${pkg}_*.dsc" | head -n1)
    rm -rf "${srcdir:?}/$pkg"
    mv "$dir" "$srcdir/$pkg"
    basename "$dsc" .dsc | sed "s/^${pkg}_//" >"$srcdir/$pkg.version"
    rm -rf "$srcdir/fetch"
}

mkdir -p "$srcdir"
fetch_source pugixml
fetch_source tinyobjloader
pugixml_version=$(cat "$srcdir/pugixml.version")
tinyobjloader_version=$(cat "$srcdir/tinyobjloader.version")

compiler_version=$($cxx --version | head -n1)
script_hash=$(cat "$0" cmake/toolchains/*.cmake | sha256sum | cut -c1-16)
stamp="googletest=$gtest_version pugixml=$pugixml_version tinyobjloader=$tinyobjloader_version xxhash=$xxhash_version cxx=$compiler_version script=$script_hash"
if [ -f "$prefix/.stamp" ] && [ "$(cat "$prefix/.stamp")" = "$stamp" ]; then
    echo "deps $target: cached ($prefix)"
    exit 0
fi

echo "deps $target: building GoogleTest $gtest_version, pugixml $pugixml_version, tinyobjloader $tinyobjloader_version"
start=$SECONDS
rm -rf "$prefix" "$work"
mkdir -p "$prefix/include" "$work"

common=(-G "Unix Makefiles" -DCMAKE_TOOLCHAIN_FILE="$root/$toolchain" -DCMAKE_BUILD_TYPE=Release
        -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF
        -DCMAKE_POSITION_INDEPENDENT_CODE=ON)

cmake -S /usr/src/googletest -B "$work/googletest" "${common[@]}" -DBUILD_GMOCK=OFF \
    -DINSTALL_GTEST=ON >"$work/googletest.log" 2>&1 || { cat "$work/googletest.log"; exit 1; }
cmake --build "$work/googletest" -j"$jobs" >>"$work/googletest.log" 2>&1 \
    || { cat "$work/googletest.log"; exit 1; }
cmake --install "$work/googletest" >>"$work/googletest.log" 2>&1

cmake -S "$srcdir/pugixml" -B "$work/pugixml" "${common[@]}" -DPUGIXML_BUILD_TESTS=OFF \
    >"$work/pugixml.log" 2>&1 || { cat "$work/pugixml.log"; exit 1; }
cmake --build "$work/pugixml" -j"$jobs" >>"$work/pugixml.log" 2>&1 \
    || { cat "$work/pugixml.log"; exit 1; }
cmake --install "$work/pugixml" >>"$work/pugixml.log" 2>&1

cmake -S "$srcdir/tinyobjloader" -B "$work/tinyobjloader" "${common[@]}" \
    >"$work/tinyobjloader.log" 2>&1 || { cat "$work/tinyobjloader.log"; exit 1; }
cmake --build "$work/tinyobjloader" -j"$jobs" >>"$work/tinyobjloader.log" 2>&1 \
    || { cat "$work/tinyobjloader.log"; exit 1; }
cmake --install "$work/tinyobjloader" >>"$work/tinyobjloader.log" 2>&1

cp /usr/include/xxhash.h "$prefix/include/"

echo "$stamp" >"$prefix/.stamp"
echo "deps $target: built in $((SECONDS - start)) s ($prefix)"
