# Compile options shared by every target of the project.
#
# Floating-point results are fixed down to the order of operations: no contraction into fused
# multiply-adds and no fast-math; 32-bit x86 uses SSE2 arithmetic instead of the x87 stack.

function(zt_target_defaults target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /fp:precise)
        if(ZT_WERROR)
            target_compile_options(${target} PRIVATE /WX)
        endif()
        return()
    endif()
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -ffp-contract=off
                                             -fno-fast-math)
    if(ZT_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_SYSTEM_PROCESSOR MATCHES "i.86|x86|X86|AMD64|x86_64")
        target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse)
    endif()
    if(MINGW)
        # MinGW's own printf family, so that numbers print the same as on Linux.
        target_compile_definitions(${target} PRIVATE __USE_MINGW_ANSI_STDIO=1)
    endif()
endfunction()
