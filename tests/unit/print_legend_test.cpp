#include "graph/print_legend.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/recording_boxes.h"
#include "tests/unit/recording_canvas.h"

namespace
{

typedef std::vector<cPoint> cPoints;

struct cLegendRig
{
    cLegendRig() : m_Plot(&m_Boxes) { m_Plot.AutoRange(); }

    void Add(const char *szLabel, float fYMin, float fYMax, uint32_t nStyle = 0)
    {
        const float       Y[] = {fYMin, fYMax};
        cVantorLineFormat Format;
        Format.m_pszLabel = szLabel;
        Format.m_crColor  = MakeColour(0, 0, 255);
        Format.m_nWidth   = 2;
        Format.m_nStyle   = nStyle;
        REQUIRE(m_Plot.AddDataSet(2, nullptr, Y, &Format) == 1);
    }

    void Draw(const cRect &Rect = {0, 0, 640, 480}, int bTurned = 0)
    {
        m_Canvas.m_Calls.clear();
        DrawPrintLegend(LayOutPlot(m_Plot, {ptImage, Rect, {1, 0}, bTurned}, m_Canvas), m_Plot,
                        &m_Canvas);
    }

    int LeftOf(const char *szText)
    {
        const cRecordingCanvas::cCall *const pLabel = m_Canvas.LabelOf(szText);
        CAPTURE(szText);
        REQUIRE(pLabel);
        CHECK(pLabel->m_nAlign == alLeft);
        return pLabel->m_Points[0].m_nX;
    }

    cRecordingBoxes  m_Boxes;
    cVantorPlot      m_Plot;
    cRecordingCanvas m_Canvas;
};

}  // namespace

TEST_CASE("the legend is a frame with headings, a rule, and a row for each set")
{
    cLegendRig Rig;
    Rig.Add("alpha", -1.5F, 20.0F, 3);
    Rig.Add("be", 0.25F, 1000.0F);

    Rig.Draw();

    const auto Frames = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    REQUIRE(Frames.size() == 1);
    CHECK(Frames[0]->m_Counts == std::vector<int>{5, 2});
    CHECK(Frames[0]->m_Points ==
          cPoints{{0, 438}, {639, 438}, {639, 479}, {0, 479}, {0, 438}, {0, 452}, {640, 452}});
    CHECK(Frames[0]->m_Pen.m_crColor == kBlack);
    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caPushClip)[0]->m_Rect == cRect{0, 438, 640, 480});
    CHECK(Rig.m_Canvas.m_nClips == 0);
    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caBox).empty());

    const int nLabel = 90;           // 1.25 * 0.75 * 96
    const int nMin   = nLabel + 50;  // 1.25 * "alpha"
    const int nMax   = nMin + 40;    // 1.25 * "-1.5"
    CHECK(Rig.m_Canvas.LabelOf(" line")->m_Points == cPoints{{0, 438}});
    CHECK(Rig.m_Canvas.LabelOf("label")->m_Points == cPoints{{nLabel, 438}});
    CHECK(Rig.m_Canvas.LabelOf("min")->m_Points == cPoints{{nMin, 438}});
    CHECK(Rig.m_Canvas.LabelOf("max")->m_Points == cPoints{{nMax, 438}});
    CHECK(Rig.m_Canvas.LabelOf("alpha")->m_Points == cPoints{{nLabel, 452}});
    CHECK(Rig.m_Canvas.LabelOf("-1.5")->m_Points == cPoints{{nMin, 452}});
    CHECK(Rig.m_Canvas.LabelOf("20")->m_Points == cPoints{{nMax, 452}});
    CHECK(Rig.m_Canvas.LabelOf("be")->m_Points == cPoints{{nLabel, 466}});
    CHECK(Rig.m_Canvas.LabelOf("1000")->m_Points == cPoints{{nMax, 466}});
}

TEST_CASE("a sample goes from 10 pixels to three quarters of an inch with the set's pen")
{
    cLegendRig Rig;
    Rig.Add("alpha", -1.5F, 20.0F, 3);

    Rig.Draw({100, 0, 740, 480});

    const auto Samples = Rig.m_Canvas.Calls(cRecordingCanvas::caLine);
    REQUIRE(Samples.size() == 1);
    CHECK(Samples[0]->m_Points == cPoints{{110, 466 + 7}, {172, 466 + 7}});
    CHECK(Samples[0]->m_Pen.m_nStyle == 3);
    CHECK(Samples[0]->m_Pen.m_nWidth == 2);
    CHECK(Samples[0]->m_Pen.m_crColor == MakeColour(0, 0, 255));
}

TEST_CASE("columns are as wide as the widest of heading and rows")
{
    cLegendRig Rig;
    Rig.Add("a", 0.0F, 1.0F);
    Rig.Draw();
    CHECK(Rig.LeftOf("min") - Rig.LeftOf("label") == 50);  // 1.25 * "label"
    CHECK(Rig.LeftOf("max") - Rig.LeftOf("min") == 30);    // 1.25 * "min"

    Rig.Add("0123456789", -0.125F, 1.0F);
    Rig.Draw();
    CHECK(Rig.LeftOf("min") - Rig.LeftOf("label") == 100);
    CHECK(Rig.LeftOf("max") - Rig.LeftOf("min") == 60);
}

TEST_CASE("the line column is an inch's part, unless its heading is wider")
{
    cLegendRig Rig;
    Rig.Add("a", 0.0F, 1.0F);
    Rig.m_Canvas.m_nInchX = 40;
    Rig.m_Canvas.m_nInchY = 300;

    Rig.Draw();
    CHECK(Rig.LeftOf("label") == 45);  // 1.25 * " line", which is 36 wide

    Rig.Draw({0, 0, 640, 480}, 1);
    CHECK(Rig.LeftOf("label") == 281);  // 1.25 * 0.75 * 300
}

TEST_CASE("min and max are drawn only where all columns fit")
{
    cLegendRig Rig;
    Rig.Add("alpha", -1.5F, 20.0F);
    const int nWhole = 90 + 50 + 40 + 24;  // to the end of "max"

    Rig.Draw({0, 0, nWhole, 480});
    CHECK(Rig.m_Canvas.LabelOf("max"));
    CHECK(Rig.m_Canvas.LabelOf("-1.5"));

    Rig.Draw({0, 0, nWhole - 1, 480});
    CHECK(Rig.m_Canvas.LabelOf("alpha"));
    for (const char *szText : {"min", "max", "-1.5", "20"})
        CHECK(!Rig.m_Canvas.LabelOf(szText));
}

TEST_CASE("min and max are the stored values, whatever the multiplier")
{
    cLegendRig Rig;
    Rig.Add("alpha", -1.5F, 20.0F);
    REQUIRE(Rig.m_Plot.FormatDataSet(1, {}, 100.0F, 7.0F) == 1);

    Rig.Draw();

    CHECK(Rig.m_Canvas.LabelOf("-1.5"));
    CHECK(Rig.m_Canvas.LabelOf("20"));
}

TEST_CASE("rows below the legend's edge are not drawn")
{
    cLegendRig Rig;
    for (int i = 0; i < 40; i++)
        Rig.Add(("set " + std::to_string(i)).c_str(), 0.0F, 1.0F);

    Rig.Draw({0, 0, 640, 100});  // half of it: 50 pixels, 2 rows and a part

    CHECK(Rig.m_Canvas.LabelOf("set 2"));
    CHECK(!Rig.m_Canvas.LabelOf("set 3"));

    Rig.Draw({0, 0, 640, 84});  // 42 pixels: 2 rows exactly
    CHECK(Rig.m_Canvas.LabelOf("set 1"));
    CHECK(!Rig.m_Canvas.LabelOf("set 2"));
}

TEST_CASE("a legend without room is not drawn")
{
    cLegendRig Rig;

    Rig.Draw({0, 0, 0, 480});
    CHECK(Rig.m_Canvas.m_Calls.empty());
    Rig.Draw({0, 0, 640, 1});
    CHECK(Rig.m_Canvas.m_Calls.empty());
}
