# The Debian packages of the native build (sourced by the other scripts).
ZT_BUILD_PACKAGES=(cmake make g++ pkg-config libgtest-dev libgmock-dev libpugixml-dev libxxhash-dev
                   libtinyobjloader-dev)

# The extra packages of each build lane (scripts/run-lanes.sh). Packages named `name:i386` come
# from the i386 architecture, which scripts/run-lanes.sh enables first.
ZT_LANE_CLANG_PACKAGES=(clang)
ZT_LANE_SANITIZE_PACKAGES=()
ZT_LANE_LINUX32_PACKAGES=(g++-multilib)
ZT_LANE_WINDOWS_PACKAGES=(g++-mingw-w64-i686-posix wine wine32:i386)
# The Windows lane falls back to 64-bit Windows when Wine's 32-bit part cannot be installed.
ZT_LANE_WINDOWS64_PACKAGES=(g++-mingw-w64-x86-64-posix wine wine64)
# What scripts/build-deps.sh builds the target dependencies from: GoogleTest's sources
# (/usr/src/googletest), the Debian source packages of pugixml and tinyobjloader (apt-get source)
# and xxHash's header.
ZT_DEPS_SOURCE_PACKAGES=(dpkg-dev googletest libxxhash-dev)

# The benchmarks (bench/compare): Google Benchmark, and the peer libraries they are compared with.
ZT_BENCH_PACKAGES=(libbenchmark-dev)
ZT_BENCH_PEER_PACKAGES=(libeigen3-dev libglm-dev libimath-dev)
