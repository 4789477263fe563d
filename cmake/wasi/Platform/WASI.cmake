# What CMake does not know of WASI itself.

set(WASI 1)
set(CMAKE_EXECUTABLE_SUFFIX .wasm)
set_property(GLOBAL PROPERTY TARGET_SUPPORTS_SHARED_LIBS FALSE)
