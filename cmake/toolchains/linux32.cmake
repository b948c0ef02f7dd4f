# 32-bit x86 Linux on an x86-64 Debian host (gcc-multilib): `long` and pointers have 32 bits, as
# in the 32-bit Windows host process. Arithmetic uses SSE2, not the x87 stack, so double results
# match the 64-bit builds bit for bit.
#
# GoogleTest and pugixml come from build/deps/linux32 (scripts/build-deps.sh linux32); xxhash.h
# is found there too.
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_FLAGS_INIT "-m32 -msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-m32 -msse2 -mfpmath=sse")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-m32")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
set(FIND_LIBRARY_USE_LIB64_PATHS OFF)

if(DEFINED ENV{ZT_DEPS_DIR})
    set(ZT_DEPS_PREFIX "$ENV{ZT_DEPS_DIR}/linux32")
else()
    get_filename_component(ZT_DEPS_PREFIX "${CMAKE_CURRENT_LIST_DIR}/../../build/deps/linux32"
                           ABSOLUTE)
endif()
# Third-party headers (xxhash.h, which the library inlines) count as system headers, as they do
# from /usr/include in the native builds: their own warnings are not the project's.
set(CMAKE_C_STANDARD_INCLUDE_DIRECTORIES "${ZT_DEPS_PREFIX}/include")
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES "${ZT_DEPS_PREFIX}/include")

# Searched before the host's own (64-bit) packages.
list(PREPEND CMAKE_PREFIX_PATH "${ZT_DEPS_PREFIX}")
