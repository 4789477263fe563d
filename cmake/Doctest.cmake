# The target "doctest", where Debian's package doctest-dev is installed. Without
# it everything but the tests can be built.
#
# doctest is one header. A copy of it in the build folder serves the cross
# compiler too, which must not see the other headers of the machine.

find_path(DOCTEST_INCLUDE_DIR doctest/doctest.h
    PATHS /usr/include
    NO_CMAKE_FIND_ROOT_PATH)

if(NOT DOCTEST_INCLUDE_DIR)
    message(STATUS "doctest is not installed: the tests are left out")
    return()
endif()

configure_file(
    ${DOCTEST_INCLUDE_DIR}/doctest/doctest.h
    ${PROJECT_BINARY_DIR}/doctest/doctest/doctest.h
    COPYONLY)

# What the header only declares is compiled here, once for all test programs.
set(implementation ${PROJECT_BINARY_DIR}/doctest/doctest.cpp)
file(CONFIGURE OUTPUT ${implementation} CONTENT
    "#define DOCTEST_CONFIG_IMPLEMENT\n#include <doctest/doctest.h>\n" @ONLY)
add_library(doctest STATIC EXCLUDE_FROM_ALL ${implementation})
target_compile_options(doctest PRIVATE -O0 -g1 -U_FORTIFY_SOURCE)
target_include_directories(doctest SYSTEM PUBLIC ${PROJECT_BINARY_DIR}/doctest)
