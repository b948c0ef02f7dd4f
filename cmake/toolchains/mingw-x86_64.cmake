# 64-bit Windows (x86_64): `long` has 32 bits and `wchar_t` 16, pointers 64. The fallback of the
# Windows lane where Wine's 32-bit part cannot be installed; run under wine64.
set(ZT_MINGW_TRIPLE x86_64-w64-mingw32)
set(ZT_MINGW_PROCESSOR x86_64)
set(ZT_DEPS_TARGET mingw-x86_64)
set(ZT_WINE_ARCH win64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
