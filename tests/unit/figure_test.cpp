#include "figure/figure.h"

#include <doctest/doctest.h>

#include "figure/dashes.h"

TEST_CASE("lines get the palette's colours, then these with dashes")
{
    cFigure      Figure;
    const size_t nColours = DefaultPalette().m_Inks.size();
    for (size_t nLine = 0; nLine < nColours; nLine++)
    {
        const cLineLook First  = LookOfLine(Figure, nLine);
        const cLineLook Second = LookOfLine(Figure, nLine + nColours);
        CHECK(First.m_Stroke.m_crColour == DefaultPalette().m_Inks[nLine].m_crLight);
        CHECK(First.m_Marker.m_crColour == First.m_Stroke.m_crColour);
        CHECK(First.m_Stroke.m_Dashes.empty());
        CHECK(First.m_Marker.m_nShape == kCircle);
        CHECK(Second.m_Stroke.m_crColour == First.m_Stroke.m_crColour);
        CHECK(Second.m_Stroke.m_Dashes.data() == DashesOfStyle(1).data());
        CHECK(Second.m_Marker.m_nShape != kCircle);
    }
    Figure.m_pPalette = FindPalette("grey");
    CHECK(LookOfLine(Figure, 0).m_Stroke.m_crColour == 0);
}

TEST_CASE("what is chosen for one line goes before what is chosen for all")
{
    cFigure Figure;
    Figure.m_Look.m_dWidth         = 3.0;
    Figure.m_Look.m_nType          = gtStairStep;
    Figure.m_LineLooks[1].m_dWidth = 0.5;
    Figure.m_LineLooks[1].m_nStyle = 2;

    CHECK(LookOfLine(Figure, 0).m_Stroke.m_dWidth == 3.0);
    CHECK(LookOfLine(Figure, 0).m_Stroke.m_Dashes.empty());
    CHECK(LookOfLine(Figure, 1).m_Stroke.m_dWidth == 0.5);
    CHECK(LookOfLine(Figure, 1).m_Stroke.m_Dashes.data() == DashesOfStyle(2).data());
    CHECK(LookOfLine(Figure, 1).m_nType == gtStairStep);
}

TEST_CASE("markers are chosen for all data lines or for one")
{
    cFigure Figure;
    CHECK(HasScatter(Figure) == 0);
    Figure.m_LineLooks[3].m_nType = gtScatter;
    CHECK(HasScatter(Figure) == 1);
    Figure.m_LineLooks[3].m_nType = gtPlot;
    CHECK(HasScatter(Figure) == 0);
    Figure.m_Look.m_nType = gtScatter;
    CHECK(HasScatter(Figure) == 1);
}
