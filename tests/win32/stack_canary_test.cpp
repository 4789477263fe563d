#include "toolkit/win32/win32.h"

#include <cstdint>

#include <doctest/doctest.h>

// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp): the compiler's name
extern "C" uintptr_t __stack_chk_guard;

TEST_CASE("the canary of the stack is not the one that everybody knows")
{
    CHECK(__stack_chk_guard != 0);
    CHECK(__stack_chk_guard != 0xFF0A0D00);
}
