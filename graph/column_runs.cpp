#include "graph/column_runs.h"

#include <algorithm>

static const size_t kKept = 4;  // of a run

// The vertex after the run that begins with pFirst.
static const cPoint *EndOfRun(const cPoint *pFirst, const cPoint *pEnd)
{
    return std::find_if(pFirst, pEnd, [=](cPoint At) { return At.m_nX != pFirst->m_nX; });
}

static int IsHigher(cPoint a, cPoint b)
{
    return a.m_nY < b.m_nY;
}

size_t MergeColumns(const cPoint *pVertices, size_t nVertices, cPoint *pMerged)
{
    if (nVertices == 0)
        return 0;
    const cPoint *const pLast  = pVertices + nVertices - 1;
    cPoint             *pStore = pMerged;
    for (const cPoint *pFirst = pVertices; pFirst != pLast;)
    {
        const cPoint *const pAfter = EndOfRun(pFirst, pLast);
        if (pAfter - pFirst <= static_cast<ptrdiff_t>(kKept))
            pStore = std::copy(pFirst, pAfter, pStore);
        else
        {
            const auto [pHighest, pLowest] = std::minmax_element(pFirst, pAfter, IsHigher);
            for (const cPoint *const pKept : {pFirst, pHighest, pLowest, pAfter - 1})
                *pStore++ = *pKept;
        }
        pFirst = pAfter;
    }
    *pStore++ = *pLast;
    return static_cast<size_t>(pStore - pMerged);
}
