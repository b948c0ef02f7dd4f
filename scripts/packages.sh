# The Debian packages of the native build (sourced by the other scripts).
ZT_BUILD_PACKAGES=(cmake make g++ pkg-config libgtest-dev libgmock-dev libpugixml-dev libxxhash-dev)
