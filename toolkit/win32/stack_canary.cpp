// The canary that guards the frames of functions with arrays, and the end of a program
// that finds it changed. The compiler brings a library for both, but that one takes its
// random number from a cryptographic provider: loading it, and half of the platform
// with it, costs the console program more time than all the rest of its start.

#include "toolkit/win32/win32.h"

#include <cstdint>

// RtlGenRandom, by the only name that it is exported under.
extern "C" BOOLEAN WINAPI SystemFunction036(PVOID pBuffer, ULONG nBytes);

// The names are the compiler's.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C"
{
    extern uintptr_t  __stack_chk_guard;
    [[noreturn]] void __stack_chk_fail();

    // A canary for systems without random numbers: its bytes end every kind of text.
    uintptr_t __stack_chk_guard = 0xFF0A0D00;

    [[noreturn]] void __stack_chk_fail()
    {
        static const char s_szText[] = "*** stack smashing detected ***: terminated\r\n";

        DWORD nWritten = 0;
        WriteFile(GetStdHandle(STD_ERROR_HANDLE), s_szText, sizeof s_szText - 1, &nWritten,
                  nullptr);
        TerminateProcess(GetCurrentProcess(), STATUS_STACK_BUFFER_OVERRUN);
        __builtin_unreachable();
    }
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)

// Before any other object of the program is made. The frame in which the canary changes
// has none.
__attribute__((constructor(101), no_stack_protector)) static void ChooseCanary()
{
    uintptr_t nRandom;
    if (SystemFunction036(&nRandom, sizeof nRandom))
        __stack_chk_guard = nRandom;
}
