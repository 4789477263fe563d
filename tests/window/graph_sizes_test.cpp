// The graph's window in different sizes.

#include "tests/window/graph_window.h"

#include <algorithm>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/plot_reader.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

namespace
{

struct cTicksOfSize
{
    int      m_nSize;  // of the plot's window, pixels
    unsigned m_nTicks;
};

}  // namespace

static const int kWithTitle = 40;  // height, in pixels, that shows at least the title

// A line through the middle of the plot, so that its ends lie on no axis.
static const char *const kUnnamedBend = "ExplicitX\n0 , 0\n1 , 2\n2 , 1\n4 , 4\n";

// Gives the plot's window this size. A narrower menu bar may need another row,
// which takes another try.
static void SizePlot(const cGraphWindow &Graph, int nWidth, int nHeight)
{
    for (int nTry = 0; nTry < 5; nTry++)
    {
        const RECT Now   = ClientOf(Graph.Plot());
        const SIZE Frame = SizeOf(Graph.Window());
        SetWindowPos(Graph.Window(), nullptr, 0, 0, Frame.cx + nWidth - Now.right,
                     Frame.cy + nHeight - Now.bottom, SWP_NOZORDER);
    }
    REQUIRE(ClientOf(Graph.Plot()).right == nWidth);
    REQUIRE(ClientOf(Graph.Plot()).bottom == nHeight);
}

// The plot at this moment, without the legend below it.
static cPicture LookAboveLegend(const cGraphWindow &Graph)
{
    const RECT Plot   = RectOf(Graph.Plot());
    const RECT Legend = RectOf(Graph.Legend());
    return cPicture::OfScreen({Plot.left, Plot.top, Plot.right, std::max(Plot.top, Legend.top)});
}

// In this size the automatic range and the picture have the expected ticks. An axis
// with 0 ticks is not checked.
static void CheckTicks(cCalculator *pCalculator, cGraphWindow *pGraph, const cTicksOfSize &Width,
                       const cTicksOfSize &Height)
{
    CAPTURE(Width.m_nSize);
    CAPTURE(Height.m_nSize);
    SizePlot(*pGraph, Width.m_nSize, Height.m_nSize);
    SendMessageA(pGraph->Window(), WM_COMMAND, IDM_AUTO_RANGE, 0);
    const cSeenRange Range(pCalculator, pGraph);
    const cSeenPlot  Plot(pGraph->PhotographPlot());
    if (Width.m_nTicks != 0)
    {
        CHECK(Range.m_nHorzTicks == Width.m_nTicks);
        CHECK(Plot.m_nHorzTicks == static_cast<int>(Width.m_nTicks));
    }
    if (Height.m_nTicks != 0)
    {
        CHECK(Range.m_nVertTicks == Height.m_nTicks);
        CHECK(Plot.m_nVertTicks == static_cast<int>(Height.m_nTicks));
    }
}

TEST_CASE("the plot has the ticks of its size, just below each threshold and at it")
{
    static const cTicksOfSize s_Widths[]  = {{199, 2}, {200, 3}, {299, 3}, {300, 4},
                                             {449, 4}, {450, 5}, {549, 5}, {550, 6},
                                             {649, 6}, {650, 7}, {799, 7}, {800, 8}};
    static const cTicksOfSize s_Heights[] = {{149, 2}, {150, 3}, {249, 3}, {250, 4}, {299, 4},
                                             {300, 5}, {399, 5}, {400, 6}, {499, 6}, {500, 11}};
    cCalculator               Calculator;
    cGraphWindow              Graph(&Calculator);
    Graph.Open("bend.txt", kUnnamedBend);
    for (size_t i = 0; i < std::size(s_Widths); i++)
        CheckTicks(&Calculator, &Graph, s_Widths[i],
                   i < std::size(s_Heights) ? s_Heights[i] : cTicksOfSize{480, 0});
}

TEST_CASE("without the legend lower windows have more ticks, which a resize does not change")
{
    static const cTicksOfSize s_Heights[] = {{99, 2},  {100, 3}, {199, 3}, {200, 4}, {249, 4},
                                             {250, 5}, {349, 5}, {350, 6}, {499, 6}, {500, 11}};
    cCalculator               Calculator;
    cGraphWindow              Graph(&Calculator);
    Graph.Open("bend.txt", kUnnamedBend);
    Graph.Choose(gmView, IDM_LEGEND);
    for (const cTicksOfSize &Height : s_Heights)
        CheckTicks(&Calculator, &Graph, {420, 0}, Height);
    Graph.Photograph().Save("graph-eleven-ticks");

    SizePlot(Graph, 420, 120);
    CHECK(cSeenRange(&Calculator, &Graph).m_nVertTicks == 11);
}

// Drags the corner of the window to the opposite corner of the screen. Returns how
// often the plot was seen without a single pixel of ink.
static int DragToFullScreen(const cCalculator &Calculator, const cGraphWindow &Graph)
{
    const int   nSteps = 20;
    const POINT At     = FramePoint(Graph.Window(), HTBOTTOMRIGHT);
    int         nEmpty = 0;
    MoveMouse(At);
    Calculator.Settle();
    PressMouse();
    Calculator.Settle();
    for (int i = 1; i <= nSteps; i++)
    {
        MoveMouse({At.x + (1275 - At.x) * i / nSteps, At.y + (1015 - At.y) * i / nSteps});
        for (int nLook = 0; nLook < 4; nLook++)
        {
            const cPicture Seen = LookAboveLegend(Graph);
            nEmpty += Seen.Height() >= kWithTitle && CountInk(Seen) == 0;
        }
        Calculator.Settle();
    }
    ReleaseMouse();
    Calculator.Settle();
    return nEmpty;
}

TEST_CASE("the plot is never empty while the window is dragged from its least size to the screen's")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("bend.txt", kUnnamedBend);
    SetWindowPos(Graph.Window(), HWND_TOP, 0, 0, 1, 1, 0);
    Graph.PhotographPlot();
    const RECT Smallest = RectOf(Graph.Window());

    CHECK(DragToFullScreen(Calculator, Graph) == 0);

    CHECK(RectOf(Graph.Window()).right - Smallest.right > 1000);
    CHECK(RectOf(Graph.Window()).bottom - Smallest.bottom > 800);
    Graph.Photograph().Save("graph-dragged");

    // A complete repaint shows the same.
    const cPicture Dragged = Graph.PhotographPlot();
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Dragged, Graph.PhotographPlot()) > 0);
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Dragged, Graph.PhotographPlot()) == 0);
    CHECK(cSeenPlot(Dragged).m_nVertTicks > 2);
}
