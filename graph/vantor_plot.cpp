#include "graph/vantor_plot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <new>
#include <utility>

#include "graph/retry_arrays.h"
#include "toolkit/retry_alloc.h"

static void StoreLook(const cVantorLineFormat &Format, cVantorDataSet *pSet)
{
    pSet->m_nGraphType = Format.m_nGraphType;
    pSet->m_crColor    = Format.m_crColor;
    pSet->m_nWidth     = std::clamp(Format.m_nWidth, uint32_t{1}, kMostLineWidth);
    pSet->m_nStyle     = Format.m_nStyle < kStyles ? Format.m_nStyle : 0;
}

cVantorPlot::cVantorPlot(cMessageBoxes *pBoxes)
    : m_pBoxes(pBoxes), m_bUserRange(0), m_bRangeStale(0), m_nClientWidth(kPlotWidth),
      m_nClientHeight(kPlotHeight), m_nLegendRows(kLegendRows), m_nCount(0), m_pHead(nullptr),
      m_pTail(nullptr), m_pFound(nullptr), m_nFound(0)
{
}

cVantorPlot::~cVantorPlot()
{
    DeleteAll();
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
    AppendPoint(pSet, nLine, fX, fY);
    return 1;
}

int cVantorPlot::AddDataSet(uint32_t nPoints, const float *pX, const float *pY,
                            const cVantorLineFormat *pFormat)
{
    if (nPoints == 0 || !pY)
        return 0;
    const cVantorLineFormat         Default;
    const cVantorLineFormat        &Format = pFormat ? *pFormat : Default;
    std::unique_ptr<cVantorDataSet> pSet   = NewDataSet(Format.m_pszLabel);
    if (!pSet || !StorePoints(pSet.get(), nPoints, pX, pY))
        return 0;
    pSet->m_nAllocHint = kHintWhole;
    StoreLook(Format, pSet.get());
    Link(std::move(pSet));
    FollowData();
    OnPlotChanged();
    return 1;
}

int cVantorPlot::DeleteDataSet(uint32_t nLine)
{
    cVantorDataSet *pFormer = nLine > 1 ? FindDataSet(nLine - 1) : nullptr;
    if (nLine == 0 || (nLine > 1 && !pFormer))
        return 0;
    cVantorDataSet *&pLink = pFormer ? pFormer->m_pNext : m_pHead;
    cVantorDataSet  *pSet  = pLink;
    if (!pSet)
        return 0;
    OnLabelRemoved(nLine);
    pLink = pSet->m_pNext;
    if (pSet == m_pTail)
        m_pTail = pFormer;
    delete pSet;
    m_nCount--;
    m_pFound = pFormer;
    m_nFound = nLine - 1;
    FollowData();
    OnPlotChanged();
    return 1;
}

int cVantorPlot::ReplaceDataSetPoints(uint32_t nLine, uint32_t nPoints, const float *pX,
                                      const float *pY)
{
    cVantorDataSet *pSet = FindDataSet(nLine);
    if (!pSet || nPoints == 0 || !pY || !StorePoints(pSet, nPoints, pX, pY))
        return 0;
    FollowData();
    OnPlotChanged();
    return 1;
}

int cVantorPlot::FormatDataSet(uint32_t nLine, const cVantorLineFormat &Format, float fMultiplier,
                               float fOffset)
{
    cVantorDataSet *pSet = FindDataSet(nLine);
    if (!pSet)
        return 0;
    if (Format.m_pszLabel)
    {
        std::unique_ptr<char[]> pszLabel = CopyText(m_pBoxes, Format.m_pszLabel);
        if (!pszLabel)
            return 0;
        pSet->m_pszLabel = std::move(pszLabel);
        OnLabelChanged(nLine);
    }
    StoreLook(Format, pSet);
    pSet->m_fMultiplier = fMultiplier;
    pSet->m_fOffset     = fOffset;
    FollowData();
    OnPlotChanged();
    return 1;
}

int cVantorPlot::ClearAll()
{
    for (uint32_t nLine = m_nCount; nLine > 0; nLine--)
        OnLabelRemoved(nLine);
    DeleteAll();
    m_Settings.m_szTitle[0]     = '\0';
    m_Settings.m_szHorzLabel[0] = '\0';
    m_nLegendRows               = kLegendRows;
    FollowData();
    OnPlotChanged();
    return 1;
}

cPlotRange cVantorPlot::Range() const
{
    return {m_Settings.m_nHorzTicks,   m_Settings.m_nVertTicks,   m_Settings.m_fMinHorzTick,
            m_Settings.m_fMaxHorzTick, m_Settings.m_fMinVertTick, m_Settings.m_fMaxVertTick};
}

void cVantorPlot::ApplySettings(const cVantorPlotSettings &Settings)
{
    m_Settings              = Settings;
    m_Settings.m_nHorzTicks = std::min(Settings.m_nHorzTicks, kMostTicks);
    m_Settings.m_nVertTicks = std::min(Settings.m_nVertTicks, kMostTicks);
    m_bUserRange            = 1;
    OnChecksChanged();
    OnPlotChanged();
}

void cVantorPlot::AutoRange()
{
    m_bUserRange = 0;
    FollowData();
    OnChecksChanged();
    OnPlotChanged();
}

void cVantorPlot::SetClientSize(int nWidth, int nHeight)
{
    m_nClientWidth  = nWidth;
    m_nClientHeight = nHeight;
    m_bRangeStale   = 1;
    OnPlotChanged();
}

void cVantorPlot::SetGrid(int bHorz, int bVert)
{
    m_Settings.m_bHorzGrid = bHorz != 0;
    m_Settings.m_bVertGrid = bVert != 0;
    OnChecksChanged();
    OnPlotChanged();
}

void cVantorPlot::SetLegend(int bLegend)
{
    m_Settings.m_bLegend = bLegend != 0;
    m_bRangeStale        = 1;
    OnChecksChanged();
    OnPlotChanged();
}

void cVantorPlot::SetTitle(const char *szTitle)
{
    snprintf(m_Settings.m_szTitle, sizeof m_Settings.m_szTitle, "%s", szTitle);
    OnPlotChanged();
}

void cVantorPlot::SetHorzLabel(const char *szLabel)
{
    snprintf(m_Settings.m_szHorzLabel, sizeof m_Settings.m_szHorzLabel, "%s", szLabel);
    OnPlotChanged();
}

void cVantorPlot::SetLegendRows(uint32_t nRows)
{
    m_nLegendRows = nRows;
    OnPlotChanged();
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

// Appends a set that contains only the point (fX, fY).
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
    FollowData();
    OnPlotChanged();
    return 1;
}

// The automatic range depends on the extents of the sets, and with bars on
// their last spacing; while these stay, it need not be found again. A point
// that changes neither extents nor range is drawn by itself.
void cVantorPlot::AppendPoint(cVantorDataSet *pSet, uint32_t nLine, float fX, float fY)
{
    const int        bWidens = pSet->Widens(fX, fY);
    const cPlotRange Former  = Range();
    pSet->Append(fX, fY);
    if (bWidens || m_bRangeStale || pSet->m_nGraphType == gtStoop)
        FollowData();
    if (bWidens || !(Range() == Former))
        OnPlotChanged();
    else
        OnPointAdded(nLine);
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
    pSet->m_pszLabel = CopyText(m_pBoxes, pszLabel ? pszLabel : szDefault);
    return pSet->m_pszLabel ? std::move(pSet) : nullptr;
}

// Replaces the points of the set. Its arrays have exactly the new size.
int cVantorPlot::StorePoints(cVantorDataSet *pSet, uint32_t nPoints, const float *pX,
                             const float *pY)
{
    std::unique_ptr<float[]> pNewX;
    if (pX)
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
    cVantorDataSet *&pLink = m_pTail ? m_pTail->m_pNext : m_pHead;
    pLink                  = pSet.release();
    m_pTail                = pLink;
    m_nCount++;
    OnLabelAdded(m_nCount);
}

void cVantorPlot::DeleteAll()
{
    while (m_pHead)
        delete std::exchange(m_pHead, m_pHead->m_pNext);
    m_pTail  = nullptr;
    m_nCount = 0;
    m_pFound = nullptr;
    m_nFound = 0;
}

// Runs the automatic range, unless the user has fixed it.
void cVantorPlot::FollowData()
{
    if (m_bUserRange)
        return;
    const cPlotRange Found    = m_RangeFinder.Find(m_pHead, m_nClientWidth, m_nClientHeight,
                                                   static_cast<int>(m_Settings.m_bLegend));
    m_Settings.m_nHorzTicks   = Found.m_nHorzTicks;
    m_Settings.m_nVertTicks   = Found.m_nVertTicks;
    m_Settings.m_fMinHorzTick = Found.m_fXMin;
    m_Settings.m_fMaxHorzTick = Found.m_fXMax;
    m_Settings.m_fMinVertTick = Found.m_fYMin;
    m_Settings.m_fMaxVertTick = Found.m_fYMax;
    m_bRangeStale             = 0;
}
