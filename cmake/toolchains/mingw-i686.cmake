# 32-bit Windows (i686), the host's own platform: `long` has 32 bits and `wchar_t` 16. Built with
# MinGW-w64 and run under 32-bit Wine (wine32:i386). SSE2 arithmetic as on every other lane.
set(ZT_MINGW_TRIPLE i686-w64-mingw32)
set(ZT_MINGW_PROCESSOR i686)
set(ZT_DEPS_TARGET mingw-i686)
set(ZT_WINE_ARCH win32)
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
