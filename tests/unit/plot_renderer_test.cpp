#include "graph/plot_renderer.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/recording_canvas.h"

namespace
{

typedef std::vector<cPoint> cPoints;

}  // namespace

static const uint32_t kAxis = MakeColour(1, 2, 3);
static const uint32_t kText = MakeColour(4, 5, 6);
static const uint32_t kRed  = MakeColour(255, 0, 0);

namespace
{

struct cRendererRig
{
    // x and y from 0 to 10 with 6 ticks each, title "T", axis label "h", no
    // legend; the plot is (32, 21) to (620, 447).
    explicit cRendererRig(const std::vector<eAnswer> &Answers = {})
        : m_Boxes(Answers), m_Plot(&m_Boxes)
    {
        cVantorPlotSettings Settings;
        snprintf(Settings.m_szTitle, sizeof Settings.m_szTitle, "T");
        snprintf(Settings.m_szHorzLabel, sizeof Settings.m_szHorzLabel, "h");
        Settings.m_fMaxVertTick = 10.0F;
        Settings.m_crAxis       = kAxis;
        Settings.m_crText       = kText;
        Settings.m_bLegend      = 0;
        m_Plot.ApplySettings(Settings);
    }

    void Add(std::vector<float> X, std::vector<float> Y, uint32_t nType = gtPlot,
             uint32_t nStyle = 0, uint32_t nWidth = 1)
    {
        cVantorLineFormat Format;
        Format.m_nGraphType = nType;
        Format.m_nStyle     = nStyle;
        Format.m_nWidth     = nWidth;
        Format.m_crColor    = kRed;
        REQUIRE(m_Plot.AddDataSet(static_cast<uint32_t>(Y.size()), X.empty() ? nullptr : X.data(),
                                  Y.data(), &Format) == 1);
    }

    cPlotLayout LayOut(ePlotTarget nKind = ptImage, const cRect &Rect = {0, 0, 640, 480})
    {
        return LayOutPlot(m_Plot, {nKind, Rect}, m_Canvas);
    }

    int Draw(ePlotTarget nKind = ptImage)
    {
        m_Canvas.m_Calls.clear();
        return DrawPlot(LayOut(nKind), m_Plot, &m_Canvas);
    }

    void DrawAdded()
    {
        m_Canvas.m_Calls.clear();
        DrawAddedPoint(LayOut(), *m_Plot.DataSet(1), &m_Canvas);
    }

    void CheckLabel(const char *szText, cPoint At, eAlign nAlign)
    {
        const cRecordingCanvas::cCall *const pLabel = m_Canvas.LabelOf(szText);
        CAPTURE(szText);
        REQUIRE(pLabel);
        CHECK(pLabel->m_Points == cPoints{At});
        CHECK(pLabel->m_nAlign == nAlign);
        CHECK(pLabel->m_Pen.m_crColor == kText);
    }

    cRecordingBoxes  m_Boxes;
    cVantorPlot      m_Plot;
    cRecordingCanvas m_Canvas;
};

}  // namespace

static int IsPen(const cPlotPen &Pen, uint32_t nStyle, uint32_t nWidth, uint32_t crColour)
{
    return Pen.m_nStyle == nStyle && Pen.m_nWidth == nWidth && Pen.m_crColor == crColour;
}

TEST_CASE("each axis goes out in one call, ticks first")
{
    cRendererRig Rig;

    REQUIRE(Rig.Draw() == 1);

    const auto Axes = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    REQUIRE(Axes.size() == 2);
    CHECK(Axes[0]->m_Counts == std::vector<int>(7, 2));
    CHECK(IsPen(Axes[0]->m_Pen, 0, 1, kAxis));
    CHECK(Axes[0]->m_Points == cPoints{{30, 21},
                                       {35, 21},
                                       {30, 106},
                                       {35, 106},
                                       {30, 191},
                                       {35, 191},
                                       {30, 277},
                                       {35, 277},
                                       {30, 362},
                                       {35, 362},
                                       {30, 447},
                                       {35, 447},
                                       {32, 21},
                                       {32, 448}});
    CHECK(Axes[1]->m_Counts == std::vector<int>(7, 2));
    CHECK(IsPen(Axes[1]->m_Pen, 0, 1, kAxis));
    CHECK(Axes[1]->m_Points == cPoints{{32, 445},
                                       {32, 450},
                                       {150, 445},
                                       {150, 450},
                                       {267, 445},
                                       {267, 450},
                                       {385, 445},
                                       {385, 450},
                                       {502, 445},
                                       {502, 450},
                                       {620, 445},
                                       {620, 450},
                                       {32, 447},
                                       {621, 447}});
}

TEST_CASE("grid lines take the place of ticks, each way by itself")
{
    cRendererRig Rig;
    Rig.m_Plot.SetGrid(1, 0);
    REQUIRE(Rig.Draw() == 1);
    auto Axes = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    CHECK(Axes[0]->m_Points[2] == cPoint{32, 106});
    CHECK(Axes[0]->m_Points[3] == cPoint{620, 106});
    CHECK(Axes[1]->m_Points[2] == cPoint{150, 445});
    CHECK(Axes[1]->m_Points[3] == cPoint{150, 450});

    Rig.m_Plot.SetGrid(0, 1);
    REQUIRE(Rig.Draw() == 1);
    Axes = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    CHECK(Axes[0]->m_Points[2] == cPoint{30, 106});
    CHECK(Axes[1]->m_Points[2] == cPoint{150, 21});
    CHECK(Axes[1]->m_Points[3] == cPoint{150, 447});
}

TEST_CASE("labels are at their ticks, title and axis label in the middle")
{
    cRendererRig Rig;

    REQUIRE(Rig.Draw() == 1);

    Rig.CheckLabel("10 ", {32, 21 - 7}, alRight);
    Rig.CheckLabel("8 ", {32, 106 - 7}, alRight);
    Rig.CheckLabel("0 ", {32, 447 - 7}, alRight);
    Rig.CheckLabel("0", {32, 447 + 2 + 3}, alCenter);
    Rig.CheckLabel("2", {150, 452}, alCenter);
    Rig.CheckLabel("10", {620, 452}, alCenter);
    Rig.CheckLabel("T", {320, 0}, alCenter);
    Rig.CheckLabel("h", {326, 452 + 14}, alCenter);
    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLabel).size() == 14);
}

TEST_CASE("without title and axis label none is drawn")
{
    cRendererRig Rig;
    Rig.m_Plot.SetTitle("");
    Rig.m_Plot.SetHorzLabel("");

    REQUIRE(Rig.Draw() == 1);

    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLabel).size() == 12);
}

TEST_CASE("a title that is too long begins at the left edge")
{
    cRendererRig      Rig;
    const std::string Title(81, 't');
    Rig.m_Plot.SetTitle(Title.c_str());

    REQUIRE(Rig.Draw() == 1);

    Rig.CheckLabel(Title.c_str(), {0, 0}, alLeft);
}

TEST_CASE("one tick is at the top and at the left, with none the axis is alone")
{
    cRendererRig        Rig;
    cVantorPlotSettings Settings = Rig.m_Plot.Settings();
    Settings.m_nHorzTicks        = 1;
    Settings.m_nVertTicks        = 1;
    Rig.m_Plot.ApplySettings(Settings);
    REQUIRE(Rig.Draw() == 1);
    auto Axes = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    CHECK(Axes[0]->m_Points == cPoints{{30, 21}, {35, 21}, {32, 21}, {32, 448}});
    CHECK(Axes[1]->m_Points == cPoints{{32, 445}, {32, 450}, {32, 447}, {621, 447}});
    Rig.CheckLabel("10 ", {32, 14}, alRight);
    Rig.CheckLabel("0", {32, 452}, alCenter);

    Settings.m_nHorzTicks = 0;
    Settings.m_nVertTicks = 0;
    Rig.m_Plot.ApplySettings(Settings);
    REQUIRE(Rig.Draw() == 1);
    Axes = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    CHECK(Axes[0]->m_Counts == std::vector<int>{2});
    CHECK(Axes[1]->m_Counts == std::vector<int>{2});
    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLabel).size() == 2);
}

TEST_CASE("30 ticks are drawn as 26 and shown as 26 afterwards")
{
    cRendererRig        Rig;
    cVantorPlotSettings Settings = Rig.m_Plot.Settings();
    Settings.m_nHorzTicks        = 30;
    Settings.m_nVertTicks        = 4000000000U;
    Rig.m_Plot.ApplySettings(Settings);

    REQUIRE(Rig.Draw() == 1);

    const auto Axes = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    CHECK(Axes[0]->m_Counts.size() == 27);
    CHECK(Axes[1]->m_Counts.size() == 27);
    CHECK(Rig.m_Plot.Settings().m_nHorzTicks == 26);
    CHECK(Rig.m_Plot.Settings().m_nVertTicks == 26);
}

TEST_CASE("ticks on paper are longer")
{
    cRendererRig Rig;
    Rig.m_Canvas.m_nInchX = 600;

    REQUIRE(Rig.Draw(ptPrinter) == 1);

    const auto Axes = Rig.m_Canvas.Calls(cRecordingCanvas::caLines);
    CHECK(Axes[0]->m_Points[0] == cPoint{32 - 30, 21});
    CHECK(Axes[0]->m_Points[1] == cPoint{32 + 31, 21});
}

TEST_CASE("each data line is one call with its pen, within the plot rectangle")
{
    cRendererRig Rig;
    Rig.Add({0.0F, 10.0F}, {0.0F, 10.0F}, gtPlot, 2, 3);
    Rig.Add({0.0F, 10.0F}, {10.0F, 0.0F}, gtStairStep, 4, 1);
    Rig.Add({5.0F, 6.0F}, {5.0F, 6.0F}, gtScatter, 1, 2);

    REQUIRE(Rig.Draw() == 1);

    const auto &Calls   = Rig.m_Canvas.m_Calls;
    const auto  Lines   = Rig.m_Canvas.Calls(cRecordingCanvas::caLine);
    const auto  Clips   = Rig.m_Canvas.Calls(cRecordingCanvas::caPushClip);
    const auto  Scatter = Rig.m_Canvas.Calls(cRecordingCanvas::caPolygons);
    REQUIRE(Lines.size() == 2);
    CHECK(IsPen(Lines[0]->m_Pen, 2, 3, kRed));
    CHECK(Lines[0]->m_Points == cPoints{{32, 447}, {619, 21}});
    CHECK(IsPen(Lines[1]->m_Pen, 4, 1, kRed));
    CHECK(Lines[1]->m_Points == cPoints{{32, 21}, {619, 21}, {619, 447}});
    REQUIRE(Scatter.size() == 1);
    CHECK(Scatter[0]->m_Counts == std::vector<int>{4, 4});
    CHECK(Scatter[0]->m_Points.size() == 8);
    CHECK(Scatter[0]->m_Pen.m_crColor == kRed);
    REQUIRE(Clips.size() == 1);
    CHECK(Clips[0]->m_Rect == cRect{32, 21, 620, 447});
    CHECK(Calls[Calls.size() - 5].m_nCall == cRecordingCanvas::caPushClip);
    CHECK(Calls.back().m_nCall == cRecordingCanvas::caPopClip);
}

TEST_CASE("a set of one point is a marker of its style number whatever its type")
{
    for (const uint32_t nType : {gtPlot, gtStairStep, gtScatter, gtStoop})
    {
        CAPTURE(nType);
        cRendererRig Rig;
        Rig.Add({5.0F}, {5.0F}, nType, 2);

        REQUIRE(Rig.Draw() == 1);

        CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLine).empty());
        const auto Markers = Rig.m_Canvas.Calls(cRecordingCanvas::caPolygons);
        REQUIRE(Markers.size() == 1);
        CHECK(Markers[0]->m_Points == cPoints{{324, 234}, {326, 232}, {328, 234}, {326, 236}});
    }
}

TEST_CASE("a point at (5, 5) alone is drawn as a marker between 4 and 6")
{
    cRendererRig Rig;
    Rig.m_Plot.AutoRange();
    REQUIRE(Rig.m_Plot.AddPoint(1, 5.0F, 5.0F) == 1);

    REQUIRE(Rig.Draw() == 1);

    CHECK(Rig.m_Canvas.LabelOf("4"));
    CHECK(Rig.m_Canvas.LabelOf("6"));
    CHECK(Rig.m_Canvas.LabelOf("4 "));
    CHECK(Rig.m_Canvas.LabelOf("6 "));
    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caPolygons).size() == 1);
    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLine).empty());
}

TEST_CASE("a point far outside the view is drawn 16383 pixels from the plot's edge")
{
    cRendererRig Rig;
    Rig.Add({5.0F, 1e9F}, {5.0F, -3e38F});

    REQUIRE(Rig.Draw() == 1);

    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLine)[0]->m_Points[1] ==
          cPoint{32 + 16383, 21 + 16383});
    CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caPushClip).size() == 1);
}

TEST_CASE("the legend is drawn for picture and printer, not for the screen")
{
    cRendererRig Rig;
    Rig.m_Plot.SetLegend(1);

    REQUIRE(Rig.Draw(ptScreen) == 1);
    CHECK(!Rig.m_Canvas.LabelOf(" line"));
    REQUIRE(Rig.Draw(ptImage) == 1);
    CHECK(Rig.m_Canvas.LabelOf(" line"));
    REQUIRE(Rig.Draw(ptPrinter) == 1);
    CHECK(Rig.m_Canvas.LabelOf(" line"));
    Rig.m_Plot.SetLegend(0);
    REQUIRE(Rig.Draw(ptImage) == 1);
    CHECK(!Rig.m_Canvas.LabelOf(" line"));
}

TEST_CASE("in a plot without room no data are drawn")
{
    cRendererRig Rig;
    Rig.Add({0.0F, 10.0F}, {0.0F, 10.0F});
    for (const cRect &Rect : {cRect{0, 0, 0, 0}, cRect{0, 0, 640, 10}, cRect{0, 0, 9, 480}})
    {
        Rig.m_Canvas.m_Calls.clear();
        CHECK(DrawPlot(Rig.LayOut(ptImage, Rect), Rig.m_Plot, &Rig.m_Canvas) == 1);
        DrawAddedPoint(Rig.LayOut(ptImage, Rect), *Rig.m_Plot.DataSet(1), &Rig.m_Canvas);
        CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLine).empty());
        CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caPushClip).empty());
    }
}

TEST_CASE("an added point is drawn from the point before it, within the plot rectangle")
{
    // clang-format off
    static const struct { uint32_t nType; cPoints Vertices; } s_Rows[] =
    {
        { gtPlot,      { { 326, 234 }, { 619, 21 }              } },
        { gtStairStep, { { 326, 234 }, { 619, 234 }, { 619, 21 } } },
        { gtStoop,     { { 326, 234 }, { 619, 234 }, { 619, 21 } } },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nType);
        cRendererRig Rig;
        Rig.Add({0.0F, 5.0F, 10.0F}, {1.0F, 5.0F, 10.0F}, Row.nType, 1, 2);

        Rig.DrawAdded();

        REQUIRE(Rig.m_Canvas.m_Calls.size() == 3);
        CHECK(Rig.m_Canvas.m_Calls[0].m_Rect == cRect{32, 21, 620, 447});
        CHECK(Rig.m_Canvas.m_Calls[1].m_nCall == cRecordingCanvas::caLine);
        CHECK(Rig.m_Canvas.m_Calls[1].m_Points == Row.Vertices);
        CHECK(IsPen(Rig.m_Canvas.m_Calls[1].m_Pen, 1, 2, kRed));
        CHECK(Rig.m_Canvas.m_nClips == 0);
    }
}

TEST_CASE("an added point of a scatter set, and a lone one, is a marker")
{
    cRendererRig Scatter;
    Scatter.Add({0.0F, 5.0F}, {1.0F, 5.0F}, gtScatter, 1);
    Scatter.DrawAdded();
    REQUIRE(Scatter.m_Canvas.m_Calls.size() == 3);
    CHECK(Scatter.m_Canvas.m_Calls[1].m_nCall == cRecordingCanvas::caPolygons);
    CHECK(Scatter.m_Canvas.m_Calls[1].m_Points ==
          cPoints{{324, 232}, {328, 232}, {328, 236}, {324, 236}});

    cRendererRig Lone;
    Lone.Add({5.0F}, {5.0F}, gtPlot);
    Lone.DrawAdded();
    CHECK(Lone.m_Canvas.m_Calls[1].m_Counts == std::vector<int>{3});
}

// What an incremental picture shows is what a whole one shows: the pieces put
// together are the line.
TEST_CASE("points drawn one by one add up to the line")
{
    for (const uint32_t nType : {gtPlot, gtStairStep})
    {
        cRendererRig Rig;
        Rig.Add({0.0F, 3.0F}, {1.0F, 9.0F}, nType);
        cPoints Pieces;
        for (const float fX : {4.0F, 1.5F, 9.0F, 0.25F})
        {
            REQUIRE(Rig.m_Plot.AddPoint(1, fX, 10.0F - fX) == 1);
            Rig.DrawAdded();
            const cPoints &Piece = Rig.m_Canvas.m_Calls[1].m_Points;
            Pieces.insert(Pieces.end(), Piece.begin() + 1, Piece.end());
        }

        REQUIRE(Rig.Draw() == 1);

        const cPoints &Line = Rig.m_Canvas.Calls(cRecordingCanvas::caLine)[0]->m_Points;
        CHECK(cPoints(Line.end() - static_cast<long>(Pieces.size()), Line.end()) == Pieces);
    }
}

TEST_CASE("when memory runs out the user is asked, and a retry draws all the same")
{
    for (const uint32_t nType : {gtPlot, gtScatter})
        for (int nSucceed = 0; nSucceed < (nType == gtScatter ? 2 : 1); nSucceed++)
        {
            cRendererRig Rig({anRetry});
            Rig.Add({0.0F, 5.0F}, {1.0F, 5.0F}, nType);
            {
                const cFailingMemory Failing(nSucceed, 1);
                CHECK(Rig.Draw() == 1);
                CHECK(Failing.FailuresLeft() == 0);
            }
            REQUIRE(Rig.m_Boxes.m_Boxes.size() == 1);
            CHECK(Rig.m_Boxes.m_Boxes[0].m_Text == "ERROR: insufficient memory.\n"
                                                   "Close other running applications\n"
                                                   "and then hit 'Retry'");
            CHECK(Rig.m_Boxes.m_Boxes[0].m_nButtons == bnRetryCancel);
            CHECK(Rig.m_Boxes.m_Boxes[0].m_nIcon == icError);
            CHECK(Rig.m_Boxes.m_QuitCodes.empty());
            CHECK(Rig.m_Canvas.CountVertices() > 28);
        }
}

TEST_CASE("giving up on memory posts quit and leaves no clip")
{
    for (const uint32_t nType : {gtPlot, gtScatter})
    {
        cRendererRig Rig({anCancel});
        Rig.Add({0.0F, 5.0F}, {1.0F, 5.0F}, nType);
        {
            const cFailingMemory Failing(nType == gtScatter ? 1 : 0, 1);
            CHECK(Rig.Draw() == 0);
        }
        CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
        CHECK(Rig.m_Canvas.m_nClips == 0);
        CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caLine).empty());
        CHECK(Rig.m_Canvas.Calls(cRecordingCanvas::caPolygons).empty());
    }
}
