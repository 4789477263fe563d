// Loaded into a program before all others: one allocation of the C library fails, or all
// from one to another.
//
//     LD_PRELOAD=libfailing-memory.so FAILING_ALLOCATION=25 FAILING_LAST=30 PROGRAM
//
// How many there were is written to the file FAILING_COUNT.

#include <cerrno>
#include <cstdio>
#include <cstdlib>

extern "C"
{
    void *__libc_malloc(size_t nSize);
    void *__libc_calloc(size_t nCount, size_t nSize);
    void *__libc_realloc(void *pOld, size_t nSize);
}

static long s_nAllocations;
static long s_nFirst = -1;
static long s_nLast  = -1;

static long SettingOf(const char *szName, long nOtherwise)
{
    const char *const szSetting = getenv(szName);
    return szSetting ? atol(szSetting) : nOtherwise;
}

__attribute__((constructor)) static void Begin()
{
    s_nFirst       = SettingOf("FAILING_ALLOCATION", -1);
    s_nLast        = SettingOf("FAILING_LAST", s_nFirst);
    s_nAllocations = 0;
}

__attribute__((destructor)) static void End()
{
    const char *const szName = getenv("FAILING_COUNT");
    const long        nTotal = s_nAllocations;
    FILE *const       pFile  = szName ? fopen(szName, "w") : nullptr;
    if (!pFile)
        return;
    fprintf(pFile, "%ld\n", nTotal);
    fclose(pFile);
}

static int MustFail()
{
    s_nAllocations++;
    const int bFails = s_nFirst > 0 && s_nAllocations >= s_nFirst && s_nAllocations <= s_nLast;
    if (bFails)
        errno = ENOMEM;
    return bFails;
}

extern "C"
{
    void *malloc(size_t nSize)
    {
        return MustFail() ? nullptr : __libc_malloc(nSize);
    }

    void *calloc(size_t nCount, size_t nSize)
    {
        return MustFail() ? nullptr : __libc_calloc(nCount, nSize);
    }

    void *realloc(void *pOld, size_t nSize)
    {
        return MustFail() ? nullptr : __libc_realloc(pOld, nSize);
    }
}
