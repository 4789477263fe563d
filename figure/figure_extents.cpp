#include "figure/figure_extents.h"

#include <cmath>
#include <limits>
#include <utility>

#include "figure/clipped_segment.h"

// Values as straight lines of the figure join them: of a linear axis their halves,
// whose distances are finite.
static double OnPaper(const cRangeWish &Range, double dValue)
{
    return Range.m_bLog ? std::log10(dValue) : dValue / 2;
}

static double FromPaper(const cRangeWish &Range, double dPlace)
{
    return Range.m_bLog ? std::pow(10.0, dPlace) : dPlace * 2;
}

static int HasBounds(const cRangeWish &Range)
{
    return Range.m_dFrom || Range.m_dTo;
}

static void FindSides(const cRangeWish &Range, double *pdLeast, double *pdMost)
{
    const double dInfinite = std::numeric_limits<double>::infinity();
    *pdLeast               = Range.m_dFrom ? OnPaper(Range, *Range.m_dFrom) : -dInfinite;
    *pdMost                = Range.m_dTo ? OnPaper(Range, *Range.m_dTo) : dInfinite;
    if (*pdLeast > *pdMost)
        std::swap(*pdLeast, *pdMost);
}

namespace
{

class cExtentFinder : public cPointSink
{
public:
    cExtentFinder(const cFigure &Figure, cFigureExtents *pExtents)
        : m_Figure(Figure), m_XRange(Figure.m_X.m_Range), m_YRange(Figure.m_Y.m_Range),
          m_bBounds(HasBounds(m_XRange) || HasBounds(m_YRange)), m_pExtents(pExtents)
    {
        FindSides(m_XRange, &m_Shown.m_dLeft, &m_Shown.m_dRight);
        FindSides(m_YRange, &m_Shown.m_dTop, &m_Shown.m_dBottom);
    }

    void Take(size_t nLine, double dX, double dY) override
    {
        AddLinesUpTo(nLine);
        const int bFinite = std::isfinite(dX) && std::isfinite(dY);
        if (!bFinite || !m_XRange.HasPlaceFor(dX) || !m_YRange.HasPlaceFor(dY))
        {
            m_pExtents->m_nWithoutPlace += static_cast<unsigned>(bFinite);
            m_Pens[nLine].m_bFormer = 0;
            return;
        }
        Count(dX, &m_pExtents->m_Lines[nLine]);
        if (m_XRange.Shows(dX) && m_YRange.Shows(dY))
            Widen(dX, dY);
        if (m_bBounds)
            Join({OnPaper(m_XRange, dX), OnPaper(m_YRange, dY)}, &m_Pens[nLine]);
    }

private:
    struct cPen
    {
        uint32_t m_nType;
        int      m_bFormer;
        cSpot    m_Former;
    };

    void AddLinesUpTo(size_t nLine)
    {
        if (nLine >= m_pExtents->m_Lines.size())
            m_pExtents->m_Lines.resize(nLine + 1);
        while (m_Pens.size() <= nLine)
            m_Pens.push_back({LookOfLine(m_Figure, m_Pens.size()).m_nType, 0, {}});
    }

    void Count(double dX, cLineExtent *pLine)
    {
        if (pLine->m_nPoints > 0)
            pLine->m_dSpacing = dX - pLine->m_dLastX;
        pLine->m_dLastX = dX;
        pLine->m_nPoints++;
        m_pExtents->m_nPoints++;
    }

    void Widen(double dX, double dY)
    {
        m_pExtents->m_X.Widen(dX);
        m_pExtents->m_Y.Widen(dY);
    }

    // A line between two points may be visible where none of them is.
    void Join(const cSpot &Spot, cPen *pPen)
    {
        const cSpot Corner = {Spot.m_dX, pPen->m_Former.m_dY};
        if (pPen->m_bFormer && pPen->m_nType == gtPlot)
            WidenForSegment(pPen->m_Former, Spot);
        else if (pPen->m_bFormer && pPen->m_nType != gtScatter)
        {
            WidenForSegment(pPen->m_Former, Corner);
            WidenForSegment(Corner, Spot);
        }
        pPen->m_bFormer = 1;
        pPen->m_Former  = Spot;
    }

    void WidenForSegment(cSpot From, cSpot To)
    {
        if (!ClipSegment(m_Shown, &From, &To))
            return;
        for (const cSpot &Spot : {From, To})
            Widen(FromPaper(m_XRange, Spot.m_dX), FromPaper(m_YRange, Spot.m_dY));
    }

    const cFigure    &m_Figure;
    const cRangeWish &m_XRange;
    const cRangeWish &m_YRange;
    int               m_bBounds;
    cFigureBox        m_Shown = {};  // on paper; sides without a bound are infinite
    cFigureExtents   *m_pExtents;
    std::vector<cPen> m_Pens;
};

}  // namespace

static void WidenForBars(const cFigure &Figure, cFigureExtents *pExtents)
{
    for (size_t nLine = 0; nLine < pExtents->m_Lines.size(); nLine++)
    {
        const cLineExtent &Line = pExtents->m_Lines[nLine];
        const double       dEnd = Line.m_dLastX + Line.m_dSpacing;
        if (Line.m_nPoints == 0 || LookOfLine(Figure, nLine).m_nType != gtStoop)
            continue;
        if (!Figure.m_Y.m_Range.m_bLog)
            pExtents->m_Y.Widen(0.0);
        if (std::isfinite(dEnd) && Figure.m_X.m_Range.HasPlaceFor(dEnd))
            pExtents->m_X.Widen(dEnd);
    }
}

int FindExtents(const cFigure &Figure, cPointSource *pSource, cFigureExtents *pExtents)
{
    cExtentFinder Finder(Figure, pExtents);
    if (!pSource->Read(&Finder))
        return 0;
    pExtents->m_Lines.resize(pSource->Lines());
    if (!pExtents->m_X.IsEmpty())
        WidenForBars(Figure, pExtents);
    return 1;
}
