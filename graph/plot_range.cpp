#include "graph/plot_range.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>

#include "graph/extent.h"
#include "graph/vantor_data_set.h"
#include "toolkit/floating_chars.h"

static const double kOutwards = 1.0005;  // for the bound farther from zero
static const double kInwards  = 0.9995;

// Of the third digit's unit; shifting the digits errs by far less.
static const double kCloseToMiddle = 1e-9;
static const double kLog10Of2      = 0.30102999566398120;
static const int    kMostTens      = 18;  // makes exponents positive before they are cut

static const int kRoundedText = 16;  // "-3.40e+38" and more

static const cPlotRange kEmptyRange = {6, 6, 0.0F, 10.0F, 0.0F, 10.0F};

// A decimal shift by an exact power of ten, -22 to 22 places: rounded once.
static double Shift(double dValue, int nPlaces)
{
    static const double s_Tens[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                    1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                    1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    return nPlaces >= 0 ? dValue * s_Tens[nPlaces] : dValue / s_Tens[-nPlaces];
}

// As ThreeDigits for a positive number of moderate size that is not close to the
// middle between two results; 0 for all others. Shifting the digits back rounds
// once, so the result is the double nearest to them.
static int RoundQuickly(double dValue, double *pdRounded)
{
    if (!(dValue >= 1e-18 && dValue < 1e18))
        return 0;
    int nTwos;
    std::frexp(dValue, &nTwos);
    int    nPlaces = 2 + kMostTens - static_cast<int>((nTwos - 1) * kLog10Of2 + kMostTens);
    double dDigits = Shift(dValue, nPlaces);
    if (dDigits >= 1000.0)
        dDigits = Shift(dValue, --nPlaces);
    const double dHalfUp  = dDigits + 0.5;
    const double dRounded = static_cast<int>(dHalfUp);
    *pdRounded            = Shift(dRounded, -nPlaces);
    return std::fabs(std::fabs(dDigits - dRounded) - 0.5) > kCloseToMiddle;
}

static double RoundByText(double dValue)
{
    char       szText[kRoundedText];
    const auto Written =
        std::to_chars(szText, szText + sizeof szText, dValue, std::chars_format::scientific, 2);
    double dRounded = dValue;
    FloatingFromChars(szText, Written.ptr, dRounded);
    return dRounded;
}

// The value that "%.2e" shows. A program that draws needs four of them for most of
// its points.
static double ThreeDigits(double dValue)
{
    if (dValue == 0.0)
        return dValue;
    double dRounded;
    if (RoundQuickly(std::fabs(dValue), &dRounded))
        return std::copysign(dRounded, dValue);
    return RoundByText(dValue);
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
static void StoreBounds(float fMin, float fMax, float *pMin, float *pMax)
{
    *pMin = fMin;
    *pMax = fMax;
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

float cRangeFinder::cBound::Round(double dValue, double (*pRound)(double))
{
    const auto nBits = std::bit_cast<uint64_t>(dValue);
    if (!m_bFound || m_nBits != nBits)
    {
        m_bFound   = 1;
        m_nBits    = nBits;
        m_fRounded = NarrowToFloat(pRound(dValue));
    }
    return m_fRounded;
}

cPlotRange cRangeFinder::Find(const cVantorDataSet *pFirst, int nWidth, int nHeight, int bLegend)
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
    StoreBounds(m_XMin.Round(dXMin, RoundDown), m_XMax.Round(dXMax, RoundUp), &Range.m_fXMin,
                &Range.m_fXMax);
    StoreBounds(m_YMin.Round(dYMin, RoundDown), m_YMax.Round(dYMax, RoundUp), &Range.m_fYMin,
                &Range.m_fYMax);
    return Range;
}
