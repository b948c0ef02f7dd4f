# Shared part of the MinGW-w64 toolchains: Windows cross builds with Debian's posix-thread-model
# compilers (std::mutex needs them), run under Wine.
#
# Expects ZT_MINGW_TRIPLE (i686-w64-mingw32 or x86_64-w64-mingw32), ZT_MINGW_PROCESSOR and
# ZT_DEPS_TARGET (the prefix under build/deps built by scripts/build-deps.sh). The test programs
# run through scripts/wine-run.sh, which finds the MinGW runtime DLLs (libstdc++, libgcc,
# winpthread) where the compiler keeps them.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${ZT_MINGW_PROCESSOR})

set(CMAKE_C_COMPILER ${ZT_MINGW_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZT_MINGW_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${ZT_MINGW_TRIPLE}-windres)

if(DEFINED ENV{ZT_DEPS_DIR})
    set(ZT_DEPS_PREFIX "$ENV{ZT_DEPS_DIR}/${ZT_DEPS_TARGET}")
else()
    get_filename_component(ZT_DEPS_PREFIX
                           "${CMAKE_CURRENT_LIST_DIR}/../../build/deps/${ZT_DEPS_TARGET}" ABSOLUTE)
endif()

# Third-party headers (xxhash.h, which the library inlines) count as system headers, as they do
# from /usr/include in the native builds: their own warnings are not the project's.
set(CMAKE_C_STANDARD_INCLUDE_DIRECTORIES "${ZT_DEPS_PREFIX}/include")
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES "${ZT_DEPS_PREFIX}/include")

# Libraries, headers and packages only from the target's sysroot and the built dependencies;
# programs (code generators) from the host.
set(CMAKE_FIND_ROOT_PATH "${ZT_DEPS_PREFIX}" /usr/${ZT_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The folders of the MinGW runtime DLLs, for Wine's search path.
set(ZT_MINGW_DLL_DIRS "")
foreach(dll libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
                    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${path}" AND EXISTS "${path}")
        get_filename_component(dir "${path}" DIRECTORY)
        get_filename_component(dir "${dir}" REALPATH)
        list(APPEND ZT_MINGW_DLL_DIRS "${dir}")
    endif()
endforeach()
list(REMOVE_DUPLICATES ZT_MINGW_DLL_DIRS)
string(REPLACE ";" ":" ZT_MINGW_DLL_PATH "${ZT_MINGW_DLL_DIRS}")

get_filename_component(ZT_WINE_RUN "${CMAKE_CURRENT_LIST_DIR}/../../scripts/wine-run.sh" ABSOLUTE)
set(CMAKE_CROSSCOMPILING_EMULATOR "${ZT_WINE_RUN};${ZT_WINE_ARCH};${ZT_MINGW_DLL_PATH}")
