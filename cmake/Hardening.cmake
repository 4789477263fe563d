# What makes an error in the programs hard to exploit. Not in builds with sanitizers,
# which find the errors themselves, nor in WebAssembly, whose machine keeps code and
# return addresses out of reach. tests/hardening/ reads the programs built.

if(VORSTEK_SANITIZE OR CMAKE_SYSTEM_NAME STREQUAL "WASI")
    return()
endif()

# A canary in each frame that holds an array; checked indices of containers.
add_compile_options(-fstack-protector-strong)
add_compile_definitions(_GLIBCXX_ASSERTIONS)

if(WIN32)
    # The linker takes the canary's library, a static one, only when told to.
    add_link_options(
        -fstack-protector-strong
        -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
    return()
endif()

# Buffer functions that know how large the buffer is, in optimised code only. Some
# compilers set it already.
if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug" AND NOT CMAKE_BUILD_TYPE STREQUAL "")
    add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

# Code at an address that differs from run to run; tables of addresses that are
# read-only once the program has started.
add_compile_options(-fPIE)
add_link_options(-pie -Wl,-z,relro,-z,now,-z,noexecstack)

# A large frame cannot jump over the guard page below the stack.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fstack-clash-protection HAS_STACK_CLASH_PROTECTION)
if(HAS_STACK_CLASH_PROTECTION)
    add_compile_options(-fstack-clash-protection)
endif()

# Indirect jumps reach marked places only, where the processor checks it (x86).
check_cxx_compiler_flag(-fcf-protection HAS_CONTROL_FLOW_PROTECTION)
if(HAS_CONTROL_FLOW_PROTECTION)
    add_compile_options(-fcf-protection)
endif()
