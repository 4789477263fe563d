#include "figure/axis_range.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

// Relative to its values a range is never narrower: between two ticks there must
// be some doubles.
static const double kLeastRange = 1e-13;

// Nor is half of it narrower than this: the pixels of one unit would be infinite.
static const double kLeastHalf = 1e-300;

// Part of a single value that is visible on both sides of it.
static const double kAroundValue = 0.1;

// Pixels.
static const double kTolerance = 1e-6;

int cRangeWish::Shows(double dValue) const
{
    double dLeast = m_dFrom.value_or(-DBL_MAX);
    double dMost  = m_dTo.value_or(DBL_MAX);
    if (m_dFrom && m_dTo && dLeast > dMost)
        std::swap(dLeast, dMost);
    return dValue >= dLeast && dValue <= dMost;
}

static double Limited(double dValue)
{
    return std::clamp(dValue, -DBL_MAX, DBL_MAX);
}

// Halves of both, so that no difference overflows.
static void PadLinear(double dMargin, double *pdMin, double *pdMax)
{
    const double dMost = std::max(std::fabs(*pdMin), std::fabs(*pdMax));
    if (*pdMax / 2 - *pdMin / 2 <= std::max(kLeastRange * dMost, kLeastHalf))
    {
        const double dAround = dMost > 0.0 ? std::max(kAroundValue * dMost, 2 * kLeastHalf) : 1.0;
        *pdMin               = Limited(*pdMin - dAround);
        *pdMax               = Limited(*pdMax + dAround);
        return;
    }
    const double dPad = (*pdMax / 2 - *pdMin / 2) * dMargin * 2;
    *pdMin            = Limited(*pdMin - dPad);
    *pdMax            = Limited(*pdMax + dPad);
}

static void PadLog(double dMargin, double *pdMin, double *pdMax)
{
    const double dMin = std::log10(*pdMin);
    const double dMax = std::log10(*pdMax);
    const double dPad = dMax - dMin > kLeastRange ? (dMax - dMin) * dMargin : 0.5;
    *pdMin            = std::max(std::pow(10.0, dMin - dPad), DBL_MIN);
    *pdMax            = Limited(std::pow(10.0, dMax + dPad));
}

// The bounds that the user has set are among the values, so that the margin suits
// what is visible.
static cValueExtent WithBounds(const cRangeWish &Wish, cValueExtent Data)
{
    if (Wish.m_dFrom)
        Data.Widen(*Wish.m_dFrom);
    if (Wish.m_dTo)
        Data.Widen(*Wish.m_dTo);
    if (!Data.IsEmpty())
        return Data;
    return Wish.m_bLog ? cValueExtent{1.0, 10.0} : cValueExtent{0.0, 1.0};
}

static int IsNothing(double dFrom, double dTo, int bLog)
{
    return dFrom == dTo || (!bLog && std::fabs(dTo / 2 - dFrom / 2) <= kLeastHalf);
}

cAxisRange ChooseRange(const cRangeWish &Wish, const cValueExtent &Data, double dMargin)
{
    const cValueExtent Values  = WithBounds(Wish, Data);
    const int          bMargin = !Data.IsEmpty() || Values.m_dMin >= Values.m_dMax;
    double             dMin    = Values.m_dMin;
    double             dMax    = Values.m_dMax;
    (Wish.m_bLog ? PadLog : PadLinear)(bMargin ? dMargin : 0.0, &dMin, &dMax);

    cAxisRange Range = {Wish.m_dFrom.value_or(dMin), Wish.m_dTo.value_or(dMax), Wish.m_bLog};
    // A range of nothing shows what is around it.
    if (Wish.m_dFrom && Wish.m_dTo && IsNothing(*Wish.m_dFrom, *Wish.m_dTo, Wish.m_bLog))
        Range = {dMin, dMax, Wish.m_bLog};
    return Range;
}

cAxisScale::cAxisScale(const cAxisRange &Range, double dFromPixel, double dToPixel)
    : m_bLog(Range.m_bLog), m_dHalf(Half(Range.m_dFrom)), m_dPixel(dFromPixel),
      m_dScale((dToPixel - dFromPixel) / (Half(Range.m_dTo) - m_dHalf)),
      m_dLeastPixel(std::min(dFromPixel, dToPixel) - kTolerance),
      m_dMostPixel(std::max(dFromPixel, dToPixel) + kTolerance)
{
}

int cAxisScale::Contains(double dValue) const
{
    const double dPixel = Position(dValue);
    return dPixel >= m_dLeastPixel && dPixel <= m_dMostPixel;
}

double cAxisScale::Half(double dValue) const
{
    return m_bLog ? std::log10(dValue) : dValue / 2;
}
