// The graph's window while a program draws.

#include "tests/window/graph_window.h"

#include <memory>
#include <utility>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/plot_reader.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

// Draws until it is halted: some 100 points a second on a fast computer, so that the
// tests end long before the set has its 12800 points.
static const char kDrawing[] = "LBL 1\r\n1\r\nSTO+ 2\r\nRCL 2\r\nsin\r\nRCL 2\r\nSumG\r\n"
                               "600000\r\nSTO 0\r\nLBL 2\r\nDSZ\r\nGTO 2\r\nGTO 1\r\n";

// Waits until the plot has changed nPictures times; 0 if it stops changing.
static int Follows(const cGraphWindow &Graph, int nPictures)
{
    cPicture Former = Graph.LookAtPlot();
    for (int i = 0; i < nPictures; i++)
        if (!WaitFor([&] {
                cPicture  Now    = Graph.LookAtPlot();
                const int bOther = !(Now == Former);
                Former           = std::move(Now);
                return bOther;
            }))
            return 0;
    return 1;
}

static void DragCorner(const cCalculator &Calculator, const cGraphWindow &Graph, int dx, int dy)
{
    const POINT From = FramePoint(Graph.Window(), HTBOTTOMRIGHT);
    MoveMouse(From);
    PressMouse();
    for (const int nPart : {4, 2, 1})
    {
        MoveMouse({From.x + dx / nPart, From.y + dy / nPart});
        Calculator.Settle();
    }
    ReleaseMouse();
    Calculator.Settle();
}

namespace
{

// A program draws. Tests that share it let it go on.
struct cDrawingRig
{
    cDrawingRig()
    {
        OpenListing(&m_Calculator, kDrawing);
        m_pGraph = std::make_unique<cGraphWindow>(&m_Calculator);
        m_Calculator.HitKey(kKeyRunStop);
        REQUIRE(IsProgramRunning(m_Calculator));
        REQUIRE(Follows(*m_pGraph, 5));
    }

    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() &&
               IsProgramRunning(m_Calculator) && IsWindowVisible(m_pGraph->Window());
    }

    cCalculator                   m_Calculator;
    std::unique_ptr<cGraphWindow> m_pGraph;
};

}  // namespace

TEST_CASE("the graph follows a program that draws")
{
    const cDrawingRig &Rig = Shared<cDrawingRig>();
    CHECK(Follows(*Rig.m_pGraph, 30));
}

TEST_CASE("while a program draws, commands that would change the graph are refused")
{
    cDrawingRig &Rig = Shared<cDrawingRig>();
    for (const unsigned nId : {IDM_GRAPH_NEW, IDM_DELETE_LINE, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET,
                               IDM_REFORMAT_PLOT, IDM_AUTO_RANGE})
    {
        CAPTURE(nId);
        PostMessageA(Rig.m_pGraph->Window(), WM_COMMAND, nId, 0);
        CHECK(Rig.m_Calculator.Answers(kRefusedInRun, "OK"));
        CHECK(Follows(*Rig.m_pGraph, 2));
    }
}

TEST_CASE("while a program draws, commands that do not change the data work")
{
    cDrawingRig  &Rig   = Shared<cDrawingRig>();
    cGraphWindow &Graph = *Rig.m_pGraph;
    Graph.Choose(gmView, IDM_GRID);
    CHECK(Graph.IsTicked(IDM_GRID));
    Graph.Choose(gmView, IDM_GRAPH_STATUS_BAR);
    CHECK_FALSE(Graph.IsTicked(IDM_GRAPH_STATUS_BAR));
    Graph.Choose(gmHelp, IDM_GRAPH_ABOUT);
    CHECK(Graph.Caption() == "About cVantor...");
    Rig.m_Calculator.Click("OK");
    Graph.Choose(gmFile, IDM_GRAPH_SAVE_AS);
    REQUIRE(Rig.m_Calculator.Dialog());
    HitKey(VK_ESCAPE);
    CHECK(Rig.m_Calculator.HasNoDialog());
    CHECK(Follows(Graph, 5));

    Graph.Choose(gmView, IDM_GRID);
    Graph.Choose(gmView, IDM_GRAPH_STATUS_BAR);
}

TEST_CASE("while a program draws, the graph's window is sized")
{
    const cDrawingRig  &Rig    = Shared<cDrawingRig>();
    const cGraphWindow &Graph  = *Rig.m_pGraph;
    const SIZE          Before = SizeOf(Graph.Window());
    DragCorner(Rig.m_Calculator, Graph, -200, -120);
    CHECK(SizeOf(Graph.Window()).cx == Before.cx - 200);
    CHECK(SizeOf(Graph.Window()).cy == Before.cy - 120);
    CHECK(Follows(Graph, 5));
    DragCorner(Rig.m_Calculator, Graph, 200, 120);
}

TEST_CASE("while a program draws, points are read out, and the graph goes on")
{
    const cDrawingRig  &Rig    = Shared<cDrawingRig>();
    const cGraphWindow &Graph  = *Rig.m_pGraph;
    const POINT         Middle = Graph.MiddleOfPlot();
    MoveMouse(Middle);
    PressMouse();
    CHECK(Eventually(0, [&] { return Graph.SelectedRow(); }) == 0);
    Graph.LookAtPlot().Save("graph-readout-drawing");
    for (int i = 0; i < 20; i++)
    {
        MoveMouse({Middle.x + 4 * i, Middle.y});
        Rig.m_Calculator.Settle();
    }
    CHECK(Follows(Graph, 5));
    ReleaseMouse();
    CHECK(Follows(Graph, 5));
}

TEST_CASE("a graph that is closed while a program draws is shown again by the next point")
{
    const cDrawingRig  &Rig   = Shared<cDrawingRig>();
    const cGraphWindow &Graph = *Rig.m_pGraph;
    PostMessageA(Graph.Window(), WM_CLOSE, 0, 0);
    Rig.m_Calculator.Settle();
    CHECK(WaitFor([&] { return IsWindowVisible(Graph.Window()); }));
    CHECK(Follows(Graph, 5));
    CHECK(IsProgramRunning(Rig.m_Calculator));
}

TEST_CASE("a graph that was drawn point by point looks like one that is drawn at once")
{
    cDrawingRig   Rig;
    cGraphWindow &Graph = *Rig.m_pGraph;
    Rig.m_Calculator.HitKey(kKeyRunStop);
    CHECK(HasHalted(Rig.m_Calculator));
    CHECK((Rig.m_Calculator.MenuState(IDM_GRAPH) & MF_CHECKED) != 0);
    const cPicture Halted = Graph.PhotographPlot();
    Halted.Save("graph-halted");
    Graph.Choose(gmView, IDM_GRID);
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Halted, Graph.PhotographPlot()) == 0);
}

TEST_CASE("a program that clears the graph and draws again does so visibly")
{
    const int   nWanted = 9;  // pictures with a curve
    cCalculator Calculator;
    OpenListing(&Calculator,
                "LBL 0\r\nClearG\r\n0\r\nSTO 0\r\n1\r\nSetG\r\nLBL 1\r\n1\r\nSTO+ 0\r\n"
                "RCL 0\r\nsin\r\nRCL 0\r\nSumG\r\nRCL 0\r\n300\r\nx<=y\r\nGTO 0\r\n"
                "GTO 1\r\n");
    cGraphWindow Graph(&Calculator);
    Graph.Choose(gmFile, IDM_GRAPH_NEW);
    const cPicture Empty = Graph.PhotographPlot();
    Calculator.HitKey(kKeyRunStop);
    REQUIRE(IsProgramRunning(Calculator));

    // Most looks at arbitrary moments find a curve.
    int nDrawn = 0;
    int nLooks = 0;
    WaitFor([&] {
        nDrawn += !(Graph.LookAtPlot() == Empty);
        return ++nLooks == 40;
    });
    CHECK(nDrawn >= nWanted);
    Calculator.HitKey(kKeyRunStop);
    CHECK(HasHalted(Calculator));
}
