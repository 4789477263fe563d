#include "graph/retry_arrays.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "toolkit/retry_alloc.h"

std::unique_ptr<float[]> AllocateFloats(cMessageBoxes *pBoxes, uint32_t nCount)
{
    return AllocateWithRetry(
        pBoxes, [nCount] { return std::unique_ptr<float[]>(new (std::nothrow) float[nCount]); });
}

std::unique_ptr<float[]> CopyFloats(cMessageBoxes *pBoxes, const float *pValues, uint32_t nCount,
                                    uint32_t nCapacity)
{
    std::unique_ptr<float[]> pCopy = AllocateFloats(pBoxes, nCapacity);
    if (pCopy)
        std::copy_n(pValues, nCount, pCopy.get());
    return pCopy;
}

std::unique_ptr<char[]> CopyText(cMessageBoxes *pBoxes, const char *szText)
{
    const size_t nSize = strlen(szText) + 1;
    auto         pCopy = AllocateWithRetry(
                pBoxes, [nSize] { return std::unique_ptr<char[]>(new (std::nothrow) char[nSize]); });
    if (pCopy)
        memcpy(pCopy.get(), szText, nSize);
    return pCopy;
}
