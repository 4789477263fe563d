// plot_ticks.h - the positions of an axis's ticks and their labels.
// Pure: no plot state, no window, no locale.

#ifndef GRAPH_PLOT_TICKS_H
#define GRAPH_PLOT_TICKS_H

#include <cstdint>

const int kValueText = 16;  // "-1.23457e-38" and a blank

// An axis of nTicks ticks from fFirst to fLast, evenly spaced. The first of the
// vertical ones is the maximum.
class cTickValues
{
public:
    cTickValues(float fFirst, float fLast, uint32_t nTicks);

    // The value at tick nTick, from 0. What is less than a millionth of the
    // distance between two ticks is 0, which is what it would be without
    // rounding: 0.3 - 3 * 0.1 is 5.6e-17.
    double Value(uint32_t nTick) const;

private:
    double m_dFirst;
    double m_dStep;  // 0 with fewer than 2 ticks
};

// The distance in pixels of tick nTick from the first of nTicks ticks, when the
// last one is nPixels away. 0 with fewer than 2 ticks.
int TickPixel(uint32_t nTick, uint32_t nTicks, int nPixels);

// Six significant digits as "%.6g" gives them, with a point in every locale:
// 0.25, 1e+06, -1.5e-05. Always returns 1.
int FormatValue(double dValue, char (&szText)[kValueText]);

// dValue rounded to the nearest integer, halves away from zero. Within
// +-1e9.
inline int RoundToPixel(double dValue)
{
    return static_cast<int>(dValue < 0.0 ? dValue - 0.5 : dValue + 0.5);
}

#endif
