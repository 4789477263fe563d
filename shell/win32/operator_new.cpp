// operator_new.cpp - memory of the window program. Whoever takes null for an answer asks
// the user by itself (retry_alloc.h); for all others, such as the texts and lists of the
// standard library, these operators ask.

#include "shell/win32/application.h"

#include <cstdlib>
#include <new>

#include "toolkit/retry_alloc.h"

// A size of 0 is not a failure.
static void *Allocate(size_t nSize)
{
    return malloc(nSize ? nSize : 1);
}

// Before there is an application and after it there is nobody to ask.
static void *AllocateOrAsk(size_t nSize)
{
    static cPlatformBoxes s_Boxes;
    if (!g_pApplication)
        return Allocate(nSize);
    return AllocateWithRetry(&s_Boxes, [nSize] { return Allocate(nSize); });
}

void *operator new(size_t nSize)
{
    if (void *const pMemory = AllocateOrAsk(nSize))
        return pMemory;
    throw std::bad_alloc();
}

void *operator new[](size_t nSize)
{
    return operator new(nSize);
}

void *operator new(size_t nSize, const std::nothrow_t &) noexcept
{
    return Allocate(nSize);
}

void *operator new[](size_t nSize, const std::nothrow_t &) noexcept
{
    return Allocate(nSize);
}

void operator delete(void *pMemory) noexcept
{
    free(pMemory);
}

void operator delete[](void *pMemory) noexcept
{
    free(pMemory);
}

void operator delete(void *pMemory, size_t) noexcept
{
    free(pMemory);
}

void operator delete[](void *pMemory, size_t) noexcept
{
    free(pMemory);
}
