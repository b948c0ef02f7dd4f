# The Debian packages of the native build (sourced by the other scripts).
ZT_BUILD_PACKAGES=(cmake make g++ pkg-config libgtest-dev libgmock-dev libpugixml-dev libxxhash-dev
                   libtinyobjloader-dev)
# The benchmarks (bench/compare): Google Benchmark, and the peer libraries they are compared with.
ZT_BENCH_PACKAGES=(libbenchmark-dev)
ZT_BENCH_PEER_PACKAGES=(libeigen3-dev libglm-dev libimath-dev)
