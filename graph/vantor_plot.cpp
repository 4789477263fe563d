#include "graph/vantor_plot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <new>
#include <utility>

#include "graph/retry_arrays.h"
#include "toolkit/retry_alloc.h"

cVantorPlot::cVantorPlot(cMessageBoxes *pBoxes)
    : m_pBoxes(pBoxes), m_bUserRange(0), m_nLegendRows(kLegendRows), m_nCount(0), m_pHead(nullptr),
      m_pTail(nullptr), m_pFound(nullptr), m_nFound(0)
{
}

cVantorPlot::~cVantorPlot()
{
    ClearAll();
}

const cVantorDataSet *cVantorPlot::DataSet(uint32_t nLine) const
{
    return FindDataSet(nLine);
}

int cVantorPlot::AddPoint(uint32_t nLine, float fX, float fY)
{
    if (nLine == 0 || nLine > m_nCount + uint64_t{1} || std::isnan(fX) || std::isnan(fY))
        return 0;
    fX = NarrowToFloat(static_cast<double>(fX));
    fY = NarrowToFloat(static_cast<double>(fY));
    if (nLine > m_nCount)
        return BeginDataSet(fX, fY);

    cVantorDataSet *pSet = FindDataSet(nLine);
    if (pSet->m_nPoints == pSet->m_nCapacity && !MakeRoom(pSet))
        return 0;
    pSet->Append(fX, fY);
    return 1;
}

int cVantorPlot::AddDataSet(uint32_t nPoints, const float *pX, const float *pY,
                            const cVantorLineFormat *pFormat)
{
    if (nPoints == 0 || pY == nullptr)
        return 0;
    const cVantorLineFormat         Default;
    const cVantorLineFormat        &Format = pFormat != nullptr ? *pFormat : Default;
    std::unique_ptr<cVantorDataSet> pSet   = NewDataSet(Format.m_pszLabel);
    if (!pSet || !StorePoints(pSet.get(), nPoints, pX, pY))
        return 0;
    pSet->m_nAllocHint = kHintWhole;
    pSet->m_nGraphType = Format.m_nGraphType;
    pSet->m_crColor    = Format.m_crColor;
    pSet->m_nWidth     = std::clamp(Format.m_nWidth, uint32_t{1}, kMostLineWidth);
    pSet->m_nStyle     = Format.m_nStyle < kStyles ? Format.m_nStyle : 0;
    Link(std::move(pSet));
    return 1;
}

int cVantorPlot::DeleteDataSet(uint32_t nLine)
{
    if (nLine == 0 || nLine > m_nCount)
        return 0;
    cVantorDataSet  *pFormer = nLine > 1 ? FindDataSet(nLine - 1) : nullptr;
    cVantorDataSet *&pLink   = pFormer != nullptr ? pFormer->m_pNext : m_pHead;
    cVantorDataSet  *pSet    = pLink;
    pLink                    = pSet->m_pNext;
    if (pSet == m_pTail)
        m_pTail = pFormer;
    delete pSet;
    m_nCount--;
    m_pFound = pFormer;
    m_nFound = nLine - 1;
    return 1;
}

int cVantorPlot::ReplaceDataSetPoints(uint32_t nLine, uint32_t nPoints, const float *pX,
                                      const float *pY)
{
    cVantorDataSet *pSet = FindDataSet(nLine);
    if (pSet == nullptr || nPoints == 0 || pY == nullptr)
        return 0;
    return StorePoints(pSet, nPoints, pX, pY);
}

int cVantorPlot::ClearAll()
{
    while (m_pHead != nullptr)
        delete std::exchange(m_pHead, m_pHead->m_pNext);
    m_pTail  = nullptr;
    m_nCount = 0;
    m_pFound = nullptr;
    m_nFound = 0;
    SetTitle("");
    SetHorzLabel("");
    m_nLegendRows = kLegendRows;
    return 1;
}

void cVantorPlot::ApplySettings(const cVantorPlotSettings &Settings)
{
    m_Settings   = Settings;
    m_bUserRange = 1;
}

void cVantorPlot::SetTitle(const char *szTitle)
{
    snprintf(m_Settings.m_szTitle, sizeof m_Settings.m_szTitle, "%s", szTitle);
}

void cVantorPlot::SetHorzLabel(const char *szLabel)
{
    snprintf(m_Settings.m_szHorzLabel, sizeof m_Settings.m_szHorzLabel, "%s", szLabel);
}

// Null when there is no such line.
cVantorDataSet *cVantorPlot::FindDataSet(uint32_t nLine) const
{
    if (nLine == 0 || nLine > m_nCount)
        return nullptr;
    if (nLine == m_nCount)
        return m_pTail;
    if (m_nFound == 0 || m_nFound > nLine)
    {
        m_pFound = m_pHead;
        m_nFound = 1;
    }
    for (; m_nFound < nLine; m_nFound++)
        m_pFound = m_pFound->m_pNext;
    return m_pFound;
}

// A set of the one point (fX, fY) behind the others.
int cVantorPlot::BeginDataSet(float fX, float fY)
{
    std::unique_ptr<cVantorDataSet> pSet = NewDataSet(nullptr);
    if (!pSet)
        return 0;
    pSet->m_pX = AllocateFloats(m_pBoxes, kFirstCapacity);
    if (!pSet->m_pX)
        return 0;
    pSet->m_pY = AllocateFloats(m_pBoxes, kFirstCapacity);
    if (!pSet->m_pY)
        return 0;
    pSet->m_nCapacity  = kFirstCapacity;
    pSet->m_nAllocHint = kHintByPoint;
    pSet->Append(fX, fY);
    Link(std::move(pSet));
    return 1;
}

// Doubles the room of a full set. Returns 0 when it may not grow.
int cVantorPlot::MakeRoom(cVantorDataSet *pSet)
{
    if (pSet->m_nCapacity >= kMostGrowth)
        return 0;
    const uint32_t           nCapacity = 2 * pSet->m_nCapacity;
    std::unique_ptr<float[]> pX;
    if (pSet->m_pX)
    {
        pX = CopyFloats(m_pBoxes, pSet->m_pX.get(), pSet->m_nPoints, nCapacity);
        if (!pX)
            return 0;
    }
    std::unique_ptr<float[]> pY =
        CopyFloats(m_pBoxes, pSet->m_pY.get(), pSet->m_nPoints, nCapacity);
    if (!pY)
        return 0;
    pSet->m_pX        = std::move(pX);
    pSet->m_pY        = std::move(pY);
    pSet->m_nCapacity = nCapacity;
    return 1;
}

// A set without points, not yet in the list. A null label is the default one of
// the number that the set will have.
std::unique_ptr<cVantorDataSet> cVantorPlot::NewDataSet(const char *pszLabel)
{
    auto pSet = AllocateWithRetry(m_pBoxes, [] {
        return std::unique_ptr<cVantorDataSet>(new (std::nothrow) cVantorDataSet);
    });
    if (!pSet)
        return nullptr;
    char szDefault[kDefaultLabel];
    FormatDefaultLabel(m_nCount + 1, szDefault);
    pSet->m_pszLabel = CopyText(m_pBoxes, pszLabel != nullptr ? pszLabel : szDefault);
    return pSet->m_pszLabel ? std::move(pSet) : nullptr;
}

// Replaces whatever points the set has. Its arrays hold exactly the new ones.
int cVantorPlot::StorePoints(cVantorDataSet *pSet, uint32_t nPoints, const float *pX,
                             const float *pY)
{
    std::unique_ptr<float[]> pNewX;
    if (pX != nullptr)
    {
        pNewX = CopyFloats(m_pBoxes, pX, nPoints, nPoints);
        if (!pNewX)
            return 0;
    }
    std::unique_ptr<float[]> pNewY = CopyFloats(m_pBoxes, pY, nPoints, nPoints);
    if (!pNewY)
        return 0;
    pSet->m_pX        = std::move(pNewX);
    pSet->m_pY        = std::move(pNewY);
    pSet->m_nPoints   = nPoints;
    pSet->m_nCapacity = nPoints;
    pSet->FindExtents();
    return 1;
}

void cVantorPlot::Link(std::unique_ptr<cVantorDataSet> pSet)
{
    cVantorDataSet *&pLink = m_pTail != nullptr ? m_pTail->m_pNext : m_pHead;
    pLink                  = pSet.release();
    m_pTail                = pLink;
    m_nCount++;
}
