#include "graph/points_text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include "graph/float_scan.h"
#include "graph/plot_ticks.h"
#include "graph/retry_arrays.h"
#include "toolkit/blanks.h"
#include "toolkit/retry_alloc.h"

static const size_t kPointText = 2 * kValueText + 4;  // " , " and the line's end

namespace
{

struct cXy
{
    float m_fX;
    float m_fY;
};

}  // namespace

// As ReadFloat has it.
static int IsSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// White space before a number may be the end of the line: such a number is one of
// the next line. Returns null then, and where there is no number. Looks no further than
// the line: blank lines below it may be many.
static const char *ReadWithin(const char *pText, const char *pEnd, float *pValue)
{
    pText = std::find_if_not(pText, pEnd, IsSpace);
    return pText < pEnd ? ReadFloat(pText, pValue) : nullptr;
}

static int ReadY(const char *pText, const char *pEnd, cXy *pPoint)
{
    const char *pAfter = ReadWithin(pText, pEnd, &pPoint->m_fY);
    return pAfter && SkipBlanks(pAfter) == pEnd;
}

static int ReadXy(const char *pText, const char *pEnd, cXy *pPoint)
{
    const char *pAfter = ReadWithin(pText, pEnd, &pPoint->m_fX);
    if (!pAfter)
        return 0;
    pAfter = SkipBlanks(pAfter);
    return *pAfter == ',' && ReadWithin(pAfter + 1, pEnd, &pPoint->m_fY);
}

// Calls Take(Point) for each line that counts.
template <class cTake> static void ForEachPoint(const char *szText, int bWithX, cTake Take)
{
    for (const char *pLine = szText; *pLine != '\0';)
    {
        const char *pNewline = pLine + strcspn(pLine, "\n");
        const char *pEnd     = pNewline > pLine && pNewline[-1] == '\r' ? pNewline - 1 : pNewline;
        cXy         Point    = {};
        if (bWithX ? ReadXy(pLine, pEnd, &Point) : ReadY(pLine, pEnd, &Point))
            Take(Point);
        pLine = *pNewline == '\n' ? pNewline + 1 : pNewline;
    }
}

int ReadPoints(const char *szText, int bWithX, cMessageBoxes *pBoxes, cEnteredPoints *pPoints)
{
    cEnteredPoints Read;
    ForEachPoint(szText, bWithX, [&Read](const cXy &) { Read.m_nPoints++; });
    if (bWithX)
    {
        Read.m_pX = AllocateFloats(pBoxes, Read.m_nPoints);
        if (!Read.m_pX)
            return 0;
    }
    Read.m_pY = AllocateFloats(pBoxes, Read.m_nPoints);
    if (!Read.m_pY)
        return 0;
    uint32_t nStored = 0;
    ForEachPoint(szText, bWithX, [&Read, &nStored](const cXy &Point) {
        if (Read.m_pX)
            Read.m_pX[nStored] = Point.m_fX;
        Read.m_pY[nStored++] = Point.m_fY;
    });
    *pPoints = std::move(Read);
    return 1;
}

std::unique_ptr<char[]> WritePoints(const cVantorDataSet &Set, cMessageBoxes *pBoxes)
{
    const size_t nSize   = kPointText * Set.m_nPoints + 1;
    auto         pszText = AllocateWithRetry(
                pBoxes, [nSize] { return std::unique_ptr<char[]>(new (std::nothrow) char[nSize]); });
    if (!pszText)
        return nullptr;
    size_t nLength = 0;
    pszText[0]     = '\0';
    for (uint32_t i = 0; i < Set.m_nPoints; i++)
    {
        char szX[kValueText] = "";
        char szY[kValueText];
        FormatValue(static_cast<double>(Set.m_pY[i]), szY);
        if (Set.m_pX)
            FormatValue(static_cast<double>(Set.m_pX[i]), szX);
        nLength += static_cast<size_t>(snprintf(pszText.get() + nLength, nSize - nLength,
                                                "%s%s%s\r\n", szX, Set.m_pX ? " , " : "", szY));
    }
    return pszText;
}
