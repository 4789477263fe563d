#include "graph/plot_ticks.h"

#include <charconv>
#include <cmath>

static const double kZeroOfStep = 1e-6;

cTickValues::cTickValues(float fFirst, float fLast, uint32_t nTicks)
    : m_dFirst(static_cast<double>(fFirst)), m_dStep(0.0)
{
    if (nTicks > 1)
        m_dStep = (static_cast<double>(fLast) - m_dFirst) / (nTicks - 1);
}

double cTickValues::Value(uint32_t nTick) const
{
    const double dValue = m_dFirst + nTick * m_dStep;
    return std::fabs(dValue) < kZeroOfStep * std::fabs(m_dStep) ? 0.0 : dValue;
}

int TickPixel(uint32_t nTick, uint32_t nTicks, int nPixels)
{
    if (nTicks < 2)
        return 0;
    return RoundToPixel(static_cast<double>(nTick) * nPixels / (nTicks - 1));
}

int FormatValue(double dValue, char (&szText)[kValueText])
{
    const auto Written =
        std::to_chars(szText, szText + sizeof szText - 1, dValue, std::chars_format::general, 6);
    *Written.ptr = '\0';
    return 1;
}
