# What compiler and linker put between a fault in the code and whoever would use it: a check of the
# stack before each return, of the sizes that libc's functions are called with, addresses that
# differ in each run, and tables of the linker that cannot be written once the program has started.
# The test hardening holds the programs to it.

# Programs are linked as position independent ones, where the compiler does not do so by itself.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# teskel_harden(target): the sanitizers look closer than this, and get in its way.
function(teskel_harden target)
    if(TESKEL_SANITIZE)
        return()
    endif()
    target_compile_options(${target} PRIVATE -fstack-protector-strong
        # What level 2 checks, and sizes that are known only when the program runs: the reader has no
        # others. Needs an optimised build.
        $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3>)
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
endfunction()
