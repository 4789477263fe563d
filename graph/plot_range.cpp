#include "graph/plot_range.h"

#include <algorithm>
#include <charconv>

#include "graph/extent.h"
#include "graph/vantor_data_set.h"

static const double kOutwards = 1.0005;  // for the bound farther from zero
static const double kInwards  = 0.9995;

static const int kRoundedText = 16;  // "-3.40e+38" and more

static const cPlotRange kEmptyRange = {6, 6, 0.0F, 10.0F, 0.0F, 10.0F};

// The value that "%.2e" shows.
static double ThreeDigits(double dValue)
{
    char       szText[kRoundedText];
    const auto Written =
        std::to_chars(szText, szText + sizeof szText, dValue, std::chars_format::scientific, 2);
    double dRounded = dValue;
    std::from_chars(szText, Written.ptr, dRounded);
    return dRounded;
}

namespace
{

// The least size that has more ticks than the row before it.
struct cTickRow
{
    int      m_nBelow;  // pixels
    uint32_t m_nTicks;
};

}  // namespace

template <int nRows>
static uint32_t CountTicks(const cTickRow (&Rows)[nRows], uint32_t nMost, int nSize)
{
    for (const cTickRow &Row : Rows)
        if (nSize < Row.m_nBelow)
            return Row.m_nTicks;
    return nMost;
}

// Where the set's last bar ends; it is as wide as the spacing of the last two
// points.
static double RightEnd(const cVantorDataSet &Set)
{
    const double dXMax = static_cast<double>(Set.m_fXMax);
    if (Set.m_nGraphType == gtStoop && (!Set.m_pX || Set.m_nPoints >= 2))
        return dXMax + LastSpacing(Set);
    return dXMax;
}

// The bounds of an axis.
static void StoreBounds(double dMin, double dMax, float *pMin, float *pMax)
{
    *pMin = NarrowToFloat(RoundDown(dMin));
    *pMax = NarrowToFloat(RoundUp(dMax));
    if (*pMin != *pMax)
        return;
    *pMin = NarrowToFloat(static_cast<double>(*pMin) - 1.0);
    *pMax = NarrowToFloat(static_cast<double>(*pMax) + 1.0);
}

double RoundUp(double dValue)
{
    return ThreeDigits(dValue * (dValue >= 0.0 ? kOutwards : kInwards));
}

double RoundDown(double dValue)
{
    return ThreeDigits(dValue * (dValue >= 0.0 ? kInwards : kOutwards));
}

uint32_t HorzTickCount(int nWidth)
{
    static const cTickRow s_Rows[] = {{200, 2}, {300, 3}, {450, 4}, {550, 5}, {650, 6}, {800, 7}};
    return CountTicks(s_Rows, 8, nWidth);
}

// From 6 to 11 at once, as there is room for labels twice as dense.
uint32_t VertTickCount(int nHeight, int bLegend)
{
    static const cTickRow s_Legend[] = {{150, 2}, {250, 3}, {300, 4}, {400, 5}, {500, 6}};
    static const cTickRow s_Plain[]  = {{100, 2}, {200, 3}, {250, 4}, {350, 5}, {500, 6}};
    return CountTicks(bLegend ? s_Legend : s_Plain, 11, nHeight);
}

cPlotRange FindRange(const cVantorDataSet *pFirst, int nWidth, int nHeight, int bLegend)
{
    if (!pFirst)
        return kEmptyRange;
    double dXMin = static_cast<double>(kExtentMinStart);
    double dXMax = static_cast<double>(kExtentMaxStart);
    double dYMin = dXMin;
    double dYMax = dXMax;
    for (const cVantorDataSet *pSet = pFirst; pSet; pSet = pSet->m_pNext)
    {
        dXMin = std::min(dXMin, static_cast<double>(pSet->m_fXMin));
        dXMax = std::max(dXMax, RightEnd(*pSet));
        // The stored minimum is taken for the minimum, even where a negative
        // multiplier turns the set upside down.
        dYMin = std::min(dYMin, PlottedY(*pSet, pSet->m_fYMin));
        dYMax = std::max(dYMax, PlottedY(*pSet, pSet->m_fYMax));
    }
    cPlotRange Range;
    Range.m_nHorzTicks = HorzTickCount(nWidth);
    Range.m_nVertTicks = VertTickCount(nHeight, bLegend);
    StoreBounds(dXMin, dXMax, &Range.m_fXMin, &Range.m_fXMax);
    StoreBounds(dYMin, dYMax, &Range.m_fYMin, &Range.m_fYMax);
    return Range;
}
