// operator_new.cpp - memory without exceptions. The library's operators return null where
// they should throw, and the program would go on with that.

#include <cstdlib>
#include <new>

// A size of 0 is not a failure.
static void *Allocate(size_t nSize)
{
    return malloc(nSize ? nSize : 1);
}

void *operator new(size_t nSize)
{
    if (void *const pMemory = Allocate(nSize))
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
