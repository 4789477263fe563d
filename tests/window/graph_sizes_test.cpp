// The graph's window in all sizes.

#include "tests/window/graph_window.h"

#include <algorithm>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/input.h"
#include "tests/window/plot_reader.h"
#include "tests/window/waiting.h"

namespace
{

struct cTicksOfSize
{
    int      m_nSize;  // of the plot's window, pixels
    unsigned m_nTicks;
};

const int kWithTitle = 40;  // pixels, of a plot in which something is seen

// A line through the middle of the plot, so that its ends lie on no axis.
const char *const kBend = "ExplicitX\n0 , 0\n1 , 2\n2 , 1\n4 , 4\n";

POINT SizeOf(HWND hWnd)
{
    RECT Client = {};
    GetClientRect(hWnd, &Client);
    return {Client.right, Client.bottom};
}

// Gives the plot's window this size. The menu may need another line then, so
// that it takes another try.
void SizePlot(const cGraphWindow &Graph, int nWidth, int nHeight)
{
    for (int nTry = 0; nTry < 5; nTry++)
    {
        const POINT Now   = SizeOf(Graph.Plot());
        RECT        Frame = {};
        GetWindowRect(Graph.Window(), &Frame);
        SetWindowPos(Graph.Window(), nullptr, 0, 0, Frame.right - Frame.left + nWidth - Now.x,
                     Frame.bottom - Frame.top + nHeight - Now.y, SWP_NOZORDER);
    }
    const POINT Now = SizeOf(Graph.Plot());
    REQUIRE(Now.x == nWidth);
    REQUIRE(Now.y == nHeight);
}

// What the plot shows at this moment, without the legend below it.
cPicture LookAboveLegend(const cGraphWindow &Graph)
{
    RECT Plot   = {};
    RECT Legend = {};
    GetWindowRect(Graph.Plot(), &Plot);
    GetWindowRect(Graph.Legend(), &Legend);
    return cPicture::OfScreen({Plot.left, Plot.top, Plot.right, std::max(Plot.top, Legend.top)});
}

// Whether automatic range and picture have so many ticks in this size. 0 ticks
// are not looked at.
void CheckTicks(cCalculator *pCalculator, cGraphWindow *pGraph, const cTicksOfSize &Width,
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

}  // namespace

TEST_CASE("just below and at each threshold of its size the plot has the ticks that it should")
{
    static const cTicksOfSize s_Widths[]        = {{199, 2}, {200, 3}, {299, 3}, {300, 4},
                                                   {449, 4}, {450, 5}, {549, 5}, {550, 6},
                                                   {649, 6}, {650, 7}, {799, 7}, {800, 8}};
    static const cTicksOfSize s_Heights[]       = {{149, 2}, {150, 3}, {249, 3}, {250, 4}, {299, 4},
                                                   {300, 5}, {399, 5}, {400, 6}, {499, 6}, {500, 11}};
    static const cTicksOfSize s_WithoutLegend[] = {{99, 2},  {100, 3}, {199, 3}, {200, 4},
                                                   {249, 4}, {250, 5}, {349, 5}, {350, 6},
                                                   {499, 6}, {500, 11}};
    cCalculator               Calculator;
    cGraphWindow              Graph(&Calculator);
    Graph.Open("bend.txt", kBend);

    for (size_t i = 0; i < std::size(s_Widths); i++)
        CheckTicks(&Calculator, &Graph, s_Widths[i],
                   i < std::size(s_Heights) ? s_Heights[i] : cTicksOfSize{480, 0});
    Graph.Choose(gmView, IDM_LEGEND);
    for (const cTicksOfSize &Height : s_WithoutLegend)
        CheckTicks(&Calculator, &Graph, {420, 0}, Height);
    Graph.Photograph().Save("graph-eleven-ticks");

    // A resize alone does not change them.
    SizePlot(Graph, 420, 120);
    CHECK(cSeenRange(&Calculator, &Graph).m_nVertTicks == 11);
}

TEST_CASE(
    "while the window is dragged from the smallest to the whole screen the plot is never empty")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("bend.txt", kBend);
    SetWindowPos(Graph.Window(), HWND_TOP, 0, 0, 1, 1, 0);
    Graph.PhotographPlot();
    RECT Smallest = {};
    GetWindowRect(Graph.Window(), &Smallest);

    const POINT At    = FramePoint(Graph.Window(), HTBOTTOMRIGHT);
    const int   nLast = 20;
    MoveMouse(At);
    Calculator.Settle();
    PressMouse();
    Calculator.Settle();
    int nEmpty = 0;
    for (int i = 1; i <= nLast; i++)
    {
        const POINT To = {At.x + (1275 - At.x) * i / nLast, At.y + (1015 - At.y) * i / nLast};
        MoveMouse(To);
        for (int nLook = 0; nLook < 4; nLook++)
        {
            const cPicture Seen = LookAboveLegend(Graph);
            nEmpty += Seen.Height() >= kWithTitle && CountInk(Seen) == 0;
        }
        Calculator.Settle();
    }
    CHECK(nEmpty == 0);
    RECT Largest = {};
    GetWindowRect(Graph.Window(), &Largest);
    CHECK(Largest.right - Smallest.right > 1000);
    CHECK(Largest.bottom - Smallest.bottom > 800);
    ReleaseMouse();
    Calculator.Settle();
    Graph.Photograph().Save("graph-dragged");

    // Painted as it would have been in this size from the beginning.
    const cPicture Dragged = Graph.PhotographPlot();
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Dragged, Graph.PhotographPlot()) > 0);
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Dragged, Graph.PhotographPlot()) == 0);
    CHECK(cSeenPlot(Dragged).m_nVertTicks > 2);
}
