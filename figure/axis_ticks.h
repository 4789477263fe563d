// axis_ticks.h - ticks at round values, and their labels in as few digits as tell
// them apart.
// Pure: no canvas, no locale.

#ifndef FIGURE_AXIS_TICKS_H
#define FIGURE_AXIS_TICKS_H

#include <cstdint>
#include <vector>

#include "figure/axis_range.h"
#include "figure/figure_canvas.h"

struct cAxisTick
{
    double      m_dValue;
    cFigureText m_Label;  // empty: a shorter tick without a number
};

struct cAxisTicks
{
    std::vector<cAxisTick> m_Ticks;  // from the least value to the greatest

    // What all labels are to be multiplied by, and then to be added to: "x10^6",
    // "x10^-12 + 1". Empty if they are the values.
    cFigureText m_Factor;
};

// The ticks within the range. Their distance is 1, 2 or 5 times a power of ten, such
// that there are about nWanted of them, 2 to 26. A logarithmic axis has them at
// powers of ten, and where that gives too few at 2 and 5 times these; shorter ticks
// without labels are between them.
cAxisTicks FindTicks(const cAxisRange &Range, uint32_t nWanted);

// 1, 2 or 5 times a power of ten (the significand and the exponent of a step of ticks).
struct cRoundStep
{
    int m_nDigit;
    int m_nExponent;
};

// The step that divides dHalf, half the length of a range, into about nWanted / 2
// parts: 5 and 10 give 1.
cRoundStep ChooseStep(double dHalf, uint32_t nWanted);

// nDigits * 10^nExponent, rounded correctly for exponents from -22 to 22.
double DecimalValue(int64_t nDigits, int nExponent);

// The same as a text, with a true minus: "0.250" for 250 and -3.
std::string DecimalText(int64_t nDigits, int nExponent);

#endif
