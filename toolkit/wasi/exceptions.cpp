// exceptions.cpp - what the compiler calls to throw. The library of WASI cannot unwind the
// stack: every exception ends the program at once, by the terminate handler if memory
// ran out, which is the only reason to throw one here. The program reports it there.

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <new>
#include <typeinfo>

// Never freed, and never needed when there is no memory left at all.
alignas(max_align_t) static char s_Exception[256];

extern "C"
{
    void *__cxa_allocate_exception(size_t nSize) noexcept
    {
        return nSize <= sizeof s_Exception ? s_Exception : malloc(nSize);
    }

    [[noreturn]] void __cxa_throw(void *, std::type_info *pType, void (*)(void *))
    {
        if (*pType == typeid(std::bad_alloc))
            std::terminate();
        abort();
    }
}
