#include "graph/turned_canvas.h"

#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/recording_canvas.h"

namespace
{

// A sheet of 100 pixels across.
struct cSheetRig
{
    using cCalls = std::vector<cRecordingCanvas::cCall>;

    const cCalls &Calls() const { return m_Sheet.m_Calls; }

    cRecordingCanvas m_Sheet;
    cTurnedCanvas    m_Canvas{&m_Sheet, 100};
};

}  // namespace

TEST_CASE("the upper left corner of a turned sheet is the upper right one of the paper")
{
    cSheetRig    Rig;
    const cPoint Line[] = {{0, 0}, {50, 0}, {50, 20}};

    Rig.m_Canvas.Polyline(Line, 3, {2, 1, 0x0000FF});

    REQUIRE(Rig.Calls().size() == 1);
    CHECK(Rig.Calls()[0].m_Points == std::vector<cPoint>{{99, 0}, {99, 50}, {79, 50}});
    CHECK(Rig.Calls()[0].m_Pen.m_nStyle == 2);
    CHECK(Rig.Calls()[0].m_Pen.m_crColor == 0x0000FF);
}

TEST_CASE("lines of one call are turned one by one")
{
    cSheetRig      Rig;
    const cPoint   Points[]  = {{0, 0}, {1, 0}, {2, 0}, {7, 3}, {7, 9}};
    const uint32_t nCounts[] = {3, 2};

    Rig.m_Canvas.Polylines(Points, nCounts, 2, {0, 1, 0});

    REQUIRE(Rig.Calls().size() == 2);
    CHECK(Rig.Calls()[0].m_Points == std::vector<cPoint>{{99, 0}, {99, 1}, {99, 2}});
    CHECK(Rig.Calls()[1].m_Points == std::vector<cPoint>{{96, 7}, {90, 7}});
}

TEST_CASE("a long line goes out in pieces that meet")
{
    for (const size_t nPoints : {size_t{1023}, size_t{1024}, size_t{1025}, size_t{5000}})
    {
        CAPTURE(nPoints);
        cSheetRig           Rig;
        std::vector<cPoint> Line(nPoints);
        for (size_t i = 0; i < nPoints; i++)
            Line[i] = {static_cast<int>(i), 10};

        Rig.m_Canvas.Polyline(Line.data(), Line.size(), {0, 1, 0});

        int nNext = 0;
        for (const auto &Call : Rig.Calls())
        {
            REQUIRE(Call.m_Points.size() >= 2);
            CHECK(Call.m_Points.front() == cPoint{89, nNext});
            nNext = Call.m_Points.back().m_nY;
            CHECK(Call.m_Points.size() == static_cast<size_t>(nNext - Call.m_Points[0].m_nY + 1));
        }
        CHECK(nNext == static_cast<int>(nPoints) - 1);
        CHECK(Rig.Calls().size() == (nPoints - 2) / 1023 + 1);
    }
}

TEST_CASE("polygons keep their corners and their colour")
{
    cSheetRig     Rig;
    const cPoint  Points[]  = {{0, 0}, {5, 0}, {5, 5}, {20, 20}, {30, 20}, {30, 30}, {20, 30}};
    const int32_t nCounts[] = {3, 4};

    Rig.m_Canvas.Polygons(Points, nCounts, 2, 0x00FF00);

    REQUIRE(Rig.Calls().size() == 2);
    CHECK(Rig.Calls()[0].m_Points == std::vector<cPoint>{{99, 0}, {99, 5}, {94, 5}});
    CHECK(Rig.Calls()[1].m_Points == std::vector<cPoint>{{79, 20}, {79, 30}, {69, 30}, {69, 20}});
    CHECK(Rig.Calls()[1].m_Counts == std::vector<int>{4});
    CHECK(Rig.Calls()[1].m_Pen.m_crColor == 0x00FF00);
}

TEST_CASE("a label of a turned sheet begins at the right edge of its row")
{
    cSheetRig Rig;

    Rig.m_Canvas.Label({30, 5}, alCenter, "0.5", 0x123456);

    REQUIRE(Rig.Calls().size() == 1);
    CHECK(Rig.Calls()[0].m_Points == std::vector<cPoint>{{95, 30}});
    CHECK(Rig.Calls()[0].m_nAlign == alCenter);
    CHECK(Rig.Calls()[0].m_Text == "0.5");
    CHECK(Rig.m_Canvas.TextWidth("0.5") == 24);
    CHECK(Rig.m_Canvas.TextHeight() == 14);
}

TEST_CASE("boxes and clips of a turned sheet keep their pixels")
{
    cSheetRig Rig;

    Rig.m_Canvas.FillBox({0, 0, 30, 10}, 0xFFFFFF);
    Rig.m_Canvas.PushClip({5, 20, 6, 100});
    Rig.m_Canvas.PopClip();

    REQUIRE(Rig.Calls().size() == 3);
    CHECK(Rig.Calls()[0].m_Rect == cRect{90, 0, 100, 30});
    CHECK(Rig.Calls()[1].m_Rect == cRect{0, 5, 80, 6});
    CHECK(Rig.Calls()[2].m_nCall == cRecordingCanvas::caPopClip);
}
