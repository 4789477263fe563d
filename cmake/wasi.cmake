# WebAssembly with WASI, its system interface, by Debian's own Clang 16 and libraries.

set(CMAKE_SYSTEM_NAME WASI)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/wasi)  # Platform/WASI.cmake

set(CMAKE_CXX_COMPILER clang++-16)
set(CMAKE_CXX_COMPILER_TARGET wasm32-wasi)
set(CMAKE_AR llvm-ar-16)
set(CMAKE_RANLIB llvm-ranlib-16)

# Debian's library cannot unwind the stack: catch blocks are left out, and what throws
# ends the program (toolkit/wasi/exceptions.cpp).
add_compile_options(-fignore-exceptions -D_WASI_EMULATED_SIGNAL -nostdlibinc
    "SHELL:-isystem /usr/include/wasm32-wasi/c++/v1"
    "SHELL:-isystem /usr/include/wasm32-wasi")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-L/usr/lib/wasm32-wasi -lwasi-emulated-signal")

set(CMAKE_FIND_ROOT_PATH /usr/lib/wasm32-wasi)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs run in Node.js.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wasi-run)
