#include "tests/unit/failing_memory.h"

#include <cstddef>
#include <new>

static int s_nSucceed = 0;
static int s_nFail    = 0;

static int MustFail()
{
    if (s_nFail == 0)
        return 0;
    if (s_nSucceed > 0)
    {
        s_nSucceed--;
        return 0;
    }
    s_nFail--;
    return 1;
}

cFailingMemory::cFailingMemory(int nSucceed, int nFail)
{
    s_nSucceed = nSucceed;
    s_nFail    = nFail;
}

cFailingMemory::~cFailingMemory()
{
    s_nFail = 0;
}

int cFailingMemory::FailuresLeft() const
{
    return s_nFail;
}

// These two take the place of the library's in the whole test program.
void *operator new(size_t nSize, const std::nothrow_t &) noexcept
{
    if (MustFail())
        return nullptr;
    try
    {
        return ::operator new(nSize);
    }
    catch (const std::bad_alloc &)
    {
        return nullptr;
    }
}

void *operator new[](size_t nSize, const std::nothrow_t &) noexcept
{
    if (MustFail())
        return nullptr;
    try
    {
        return ::operator new[](nSize);
    }
    catch (const std::bad_alloc &)
    {
        return nullptr;
    }
}
