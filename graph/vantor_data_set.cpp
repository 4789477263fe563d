#include "graph/vantor_data_set.h"

#include <cfloat>
#include <cstdio>

// The values are those of the platform's pens.
// clang-format off
const cVantorStyle kLineStyles[kStyles] =
{
    { 0, "solid"        },
    { 1, "dash"         },
    { 2, "dot"          },
    { 3, "dash-dot"     },
    { 4, "dash-dot-dot" },
};
// clang-format on

// clang-format off
const cVantorStyle kMarkerStyles[kStyles] =
{
    { 0, "triangle"  },
    { 1, "square"    },
    { 2, "diamond"   },
    { 3, "vert line" },
    { 4, "horz line" },
};
// clang-format on

float cVantorDataSet::X(uint32_t nIndex) const
{
    return m_pX ? m_pX[nIndex] : static_cast<float>(nIndex);
}

void cVantorDataSet::Append(float fX, float fY)
{
    if (m_pX)
        m_pX[m_nPoints] = fX;
    m_pY[m_nPoints] = fY;
    WidenExtent(X(m_nPoints), &m_fXMin, &m_fXMax);
    WidenExtent(fY, &m_fYMin, &m_fYMax);
    m_nPoints++;
}

int cVantorDataSet::Widens(float fX, float fY) const
{
    const float fShownX = m_pX ? fX : static_cast<float>(m_nPoints);
    return fShownX < m_fXMin || fShownX > m_fXMax || fY < m_fYMin || fY > m_fYMax;
}

void cVantorDataSet::FindExtents()
{
    m_fXMin = m_fYMin = kExtentMinStart;
    m_fXMax = m_fYMax = kExtentMaxStart;
    for (uint32_t nPoint = 0; nPoint < m_nPoints; nPoint++)
    {
        WidenExtent(X(nPoint), &m_fXMin, &m_fXMax);
        WidenExtent(m_pY[nPoint], &m_fYMin, &m_fYMax);
    }
}

double LastSpacing(const cVantorDataSet &Set)
{
    if (!Set.m_pX)
        return 1.0;
    const float *const pLast = Set.m_pX.get() + Set.m_nPoints - 1;
    return static_cast<double>(pLast[0]) - static_cast<double>(pLast[-1]);
}

float NarrowToFloat(double dValue)
{
    // Compared before the conversion, which has no result out there.
    if (dValue > static_cast<double>(FLT_MAX))
        return FLT_MAX;
    if (dValue < static_cast<double>(-FLT_MAX))
        return -FLT_MAX;
    return static_cast<float>(dValue);
}

int FormatDefaultLabel(uint32_t nLine, char (&szLabel)[kDefaultLabel])
{
    snprintf(szLabel, sizeof szLabel, "data line # %u", static_cast<unsigned>(nLine));
    return 1;
}
