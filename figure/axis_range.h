// axis_range.h - what an axis of a figure shows, and where a value is on it.
// Pure: no canvas, no text.

#ifndef FIGURE_AXIS_RANGE_H
#define FIGURE_AXIS_RANGE_H

#include <limits>
#include <optional>

// The least and the greatest of some values, found one by one.
struct cValueExtent
{
    int  IsEmpty() const { return m_dMin > m_dMax; }
    void Widen(double dValue)
    {
        m_dMin = dValue < m_dMin ? dValue : m_dMin;
        m_dMax = dValue > m_dMax ? dValue : m_dMax;
    }

    double m_dMin = std::numeric_limits<double>::infinity();
    double m_dMax = -std::numeric_limits<double>::infinity();
};

// What the user wants to see; without a bound it follows the data. A range may run
// backwards.
struct cRangeWish
{
    std::optional<double> m_dFrom;
    std::optional<double> m_dTo;
    int                   m_bLog = 0;  // then bounds are above 0

    // Of values that are finite: whether a logarithmic axis has a place for it, and
    // whether it is within the bounds.
    int HasPlaceFor(double dValue) const { return !m_bLog || dValue > 0.0; }
    int Shows(double dValue) const;
};

// Finite, and different. Both are above 0 on a logarithmic axis.
struct cAxisRange
{
    double m_dFrom;
    double m_dTo;
    int    m_bLog;
};

// A bound that the user has not set is dMargin of the range away from the data, so
// that no curve touches the frame: 0 to 10 and 0.05 become -0.5 to 10.5. A single
// value is in the middle; without data the range is 0 to 1, or 1 to 10.
cAxisRange ChooseRange(const cRangeWish &Wish, const cValueExtent &Data, double dMargin);

// Maps values to pixels. Halves are used, because the distance between two finite
// doubles may be infinite.
class cAxisScale
{
public:
    cAxisScale() = default;

    // dFromPixel is the pixel of the range's beginning, dToPixel that of its end.
    cAxisScale(const cAxisRange &Range, double dFromPixel, double dToPixel);

    // The value must have a place on the axis.
    double Position(double dValue) const { return m_dPixel + (Half(dValue) - m_dHalf) * m_dScale; }

    // 1 if the value is within the range or as near to it as rounding can tell.
    int Contains(double dValue) const;

private:
    double Half(double dValue) const;

    int    m_bLog        = 0;
    double m_dHalf       = 0.0;
    double m_dPixel      = 0.0;
    double m_dScale      = 0.0;
    double m_dLeastPixel = 0.0;
    double m_dMostPixel  = 0.0;
};

#endif
