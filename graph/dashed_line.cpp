#include "graph/dashed_line.h"

#include <algorithm>
#include <cstdlib>

static int Sign(int nValue)
{
    return (nValue > 0) - (nValue < 0);
}

// Divides by nDivisor, which is above 0, rounding down.
static int64_t Floor(int64_t nValue, int64_t nDivisor)
{
    return nValue / nDivisor - (nValue % nDivisor < 0);
}

static int64_t Ceiling(int64_t nValue, int64_t nDivisor)
{
    return -Floor(-nValue, nDivisor);
}

namespace
{

// The steps from the first pixel of a segment that are in a range, the last one not
// included.
struct cStepRange
{
    int64_t m_nFirst;
    int64_t m_nAfter;
};

// A segment of two different points. Step i has one pixel, i pixels from the first one
// in the main direction, to the right or down, say, and Aside(i) in the other.
class cThinSegment
{
public:
    cThinSegment(cPoint From, cPoint To);

    int Steps() const { return m_nSteps; }

    void Cover(uint32_t nStrokes, int nPhase, cPixelMask *pMask) const;

private:
    // Aside(i) is Scaled(i) / (2 * m_nSteps), rounded down.
    int64_t Scaled(int64_t nStep) const { return 2 * nStep * m_nAside + m_nSteps - m_bTieStays; }

    cStepRange StepsIn(const cRect &Area) const;
    cStepRange MainStepsIn(const cRect &Area) const;
    cStepRange AsideStepsIn(const cRect &Area) const;

    cPoint  m_From;
    int     m_bLevel;     // the main direction is that of x
    int     m_nSteps;     // in the main direction, at least 1
    int64_t m_nAside;     // steps in the other direction, at most as many
    cPoint  m_Main;       // one step
    cPoint  m_Other;      // one step
    int     m_bTieStays;  // of two pixels as near, the left or the upper one is taken
};

}  // namespace

cThinSegment::cThinSegment(cPoint From, cPoint To) : m_From(From)
{
    const int    nX  = To.m_nX - From.m_nX;
    const int    nY  = To.m_nY - From.m_nY;
    const cPoint InX = {Sign(nX), 0};
    const cPoint InY = {0, Sign(nY)};
    m_bLevel         = std::abs(nX) >= std::abs(nY);
    m_nSteps         = m_bLevel ? std::abs(nX) : std::abs(nY);
    m_nAside         = m_bLevel ? std::abs(nY) : std::abs(nX);
    m_Main           = m_bLevel ? InX : InY;
    m_Other          = m_bLevel ? InY : InX;
    m_bTieStays      = m_Other.m_nX + m_Other.m_nY > 0;
}

// In the main direction, the distance from the first pixel to each edge.
cStepRange cThinSegment::MainStepsIn(const cRect &Area) const
{
    const int nAt    = m_bLevel ? m_From.m_nX : m_From.m_nY;
    const int nLeast = (m_bLevel ? Area.m_nLeft : Area.m_nTop) - nAt;
    const int nMost  = (m_bLevel ? Area.m_nRight : Area.m_nBottom) - 1 - nAt;
    if (m_bLevel ? m_Main.m_nX > 0 : m_Main.m_nY > 0)
        return {nLeast, nMost + 1};
    return {-nMost, -nLeast + 1};
}

// The steps with a pixel within these distances from the first one in the other
// direction.
cStepRange cThinSegment::AsideStepsIn(const cRect &Area) const
{
    const int nAt       = m_bLevel ? m_From.m_nY : m_From.m_nX;
    const int nLeast    = (m_bLevel ? Area.m_nTop : Area.m_nLeft) - nAt;
    const int nMost     = (m_bLevel ? Area.m_nBottom : Area.m_nRight) - 1 - nAt;
    const int bForwards = (m_bLevel ? m_Other.m_nY : m_Other.m_nX) > 0;
    const int nFrom     = bForwards ? nLeast : -nMost;
    const int nTo       = bForwards ? nMost : -nLeast;
    if (m_nAside == 0)
        return {0, nLeast <= 0 && nMost >= 0 ? m_nSteps : 0};
    const int64_t nWhole = 2 * static_cast<int64_t>(m_nSteps);
    return {Ceiling(nFrom * nWhole - Scaled(0), 2 * m_nAside),
            Ceiling((nTo + 1) * nWhole - Scaled(0), 2 * m_nAside)};
}

cStepRange cThinSegment::StepsIn(const cRect &Area) const
{
    const cStepRange Main  = MainStepsIn(Area);
    const cStepRange Aside = AsideStepsIn(Area);
    return {std::max({int64_t(0), Main.m_nFirst, Aside.m_nFirst}),
            std::min({int64_t(m_nSteps), Main.m_nAfter, Aside.m_nAfter})};
}

void cThinSegment::Cover(uint32_t nStrokes, int nPhase, cPixelMask *pMask) const
{
    const cStepRange Steps = StepsIn(pMask->Area());
    if (Steps.m_nFirst >= Steps.m_nAfter)
        return;
    const int nFirst = static_cast<int>(Steps.m_nFirst);
    const int nWhole = 2 * m_nSteps;
    const int nPart  = static_cast<int>(2 * m_nAside);
    const int nAside = static_cast<int>(Scaled(nFirst) / nWhole);
    int       nRest  = static_cast<int>(Scaled(nFirst) % nWhole);
    int       nX     = m_From.m_nX + nFirst * m_Main.m_nX + nAside * m_Other.m_nX;
    int       nY     = m_From.m_nY + nFirst * m_Main.m_nY + nAside * m_Other.m_nY;
    nPhase           = (nPhase + nFirst) % kDashPeriod;
    for (int64_t nLeft = Steps.m_nAfter - Steps.m_nFirst; nLeft > 0; nLeft--)
    {
        pMask->CoverIf(nStrokes >> nPhase & 1, nX, nY);
        nPhase = nPhase + 1 < kDashPeriod ? nPhase + 1 : 0;
        nRest += nPart;
        // All bits of it are 1 if the line goes aside: no branch, which would be
        // guessed wrongly in every other case.
        const int nGoes = -(nRest >= nWhole);
        nRest -= nWhole & nGoes;
        nX += m_Main.m_nX + (m_Other.m_nX & nGoes);
        nY += m_Main.m_nY + (m_Other.m_nY & nGoes);
    }
}

void CoverDashedLine(const cPoint *pPoints, size_t nPoints, uint32_t nStrokes, cPixelMask *pMask)
{
    int nPhase = 0;
    for (size_t i = 0; i + 1 < nPoints; i++)
    {
        if (pPoints[i] == pPoints[i + 1])
            continue;
        const cThinSegment Segment(pPoints[i], pPoints[i + 1]);
        Segment.Cover(nStrokes, nPhase, pMask);
        nPhase = (nPhase + Segment.Steps()) % kDashPeriod;
    }
}
