// The graph's window while a program draws into it.

#include "tests/window/graph_window.h"

#include <string>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/plot_reader.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kKeyRunStop = 30;

// Draws on and on, slowly enough not to fill the set.
const char kDrawing[] = "LBL 1\r\n1\r\nSTO+ 2\r\nRCL 2\r\nsin\r\nRCL 2\r\nSumG\r\n"
                        "5000\r\nSTO 0\r\nLBL 2\r\nDSZ\r\nGTO 2\r\nGTO 1\r\n";

int IsProgramRunning(const cCalculator &Calculator)
{
    Calculator.Settle();
    return (Calculator.MenuState(IDM_OPEN) & MF_GRAYED) != 0;
}

// Whether the plot comes to show so many other pictures.
int Follows(const cGraphWindow &Graph, int nPictures)
{
    cPicture Former = Graph.LookAtPlot();
    for (int i = 0; i < nPictures; i++)
        if (!WaitFor([&] {
                cPicture   Now    = Graph.LookAtPlot();
                const bool bOther = !(Now == Former);
                Former            = std::move(Now);
                return bOther;
            }))
            return 0;
    return 1;
}

void DragCorner(const cCalculator &Calculator, const cGraphWindow &Graph, int dx, int dy)
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

SIZE SizeOf(HWND hWnd)
{
    RECT Rect = {};
    GetWindowRect(hWnd, &Rect);
    return {Rect.right - Rect.left, Rect.bottom - Rect.top};
}

}  // namespace

TEST_CASE("while a program draws, the window follows it and is worked as far as it may be")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kDrawing);
    cGraphWindow Graph(&Calculator);
    Calculator.HitKey(kKeyRunStop);
    REQUIRE(IsProgramRunning(Calculator));
    CHECK(Follows(Graph, 30));

    // What would change the graph is refused, and nothing else happens.
    for (const unsigned nId : {IDM_GRAPH_NEW, IDM_DELETE_LINE, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET,
                               IDM_REFORMAT_PLOT, IDM_AUTO_RANGE})
    {
        CAPTURE(nId);
        PostMessageA(Graph.Window(), WM_COMMAND, nId, 0);
        CHECK(Calculator.Answers(kRefusedInRun, "OK"));
        CHECK(Follows(Graph, 2));
    }

    // What only looks at it is not; the run rests while a dialog or a menu is
    // open.
    Graph.Choose(gmView, IDM_GRID);
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) != 0);
    Graph.Choose(gmView, IDM_GRAPH_STATUS_BAR);
    CHECK((Graph.MenuState(IDM_GRAPH_STATUS_BAR) & MF_CHECKED) == 0);
    Graph.Choose(gmHelp, IDM_GRAPH_ABOUT);
    CHECK(Graph.Caption() == "About cVantor...");
    Calculator.Click("OK");
    Graph.Choose(gmFile, IDM_GRAPH_SAVE_AS);
    REQUIRE(Calculator.Dialog());
    HitKey(VK_ESCAPE);
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
    CHECK(Follows(Graph, 5));

    // It is sized in the middle of it.
    const SIZE Before = SizeOf(Graph.Window());
    DragCorner(Calculator, Graph, -200, -120);
    CHECK(SizeOf(Graph.Window()).cx == Before.cx - 200);
    CHECK(SizeOf(Graph.Window()).cy == Before.cy - 120);
    CHECK(Follows(Graph, 5));
    DragCorner(Calculator, Graph, 200, 120);

    // A point is read out, and another.
    RECT Client = {};
    GetClientRect(Graph.Plot(), &Client);
    MoveMouse(Graph.OnPlot(Client.right / 2, Client.bottom / 2));
    PressMouse();
    CHECK(Eventually(0, [&] { return Graph.SelectedRow(); }) == 0);
    Graph.LookAtPlot().Save("graph-readout-drawing");
    for (int i = 0; i < 20; i++)
    {
        MoveMouse(Graph.OnPlot(Client.right / 2 + 4 * i, Client.bottom / 2));
        Calculator.Settle();
    }
    CHECK(Follows(Graph, 5));
    ReleaseMouse();
    CHECK(Follows(Graph, 5));

    // Closed, it is shown again by the next point.
    PostMessageA(Graph.Window(), WM_CLOSE, 0, 0);
    Calculator.Settle();
    CHECK(WaitFor([&] { return IsWindowVisible(Graph.Window()); }));
    CHECK(Follows(Graph, 5));
    CHECK(IsProgramRunning(Calculator));

    Calculator.HitKey(kKeyRunStop);
    CHECK(WaitFor([&] { return !IsProgramRunning(Calculator); }));
    CHECK((Calculator.MenuState(IDM_GRAPH) & MF_CHECKED) != 0);

    // What was drawn point by point is what is drawn as a whole.
    const cPicture Halted = Graph.PhotographPlot();
    Halted.Save("graph-halted");
    Graph.Choose(gmView, IDM_GRID);
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Halted, Graph.PhotographPlot()) == 0);
}

TEST_CASE("a program that clears and draws again and again is seen drawing")
{
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

    int nDrawn = 0;
    for (int i = 0; i < 40; i++)
    {
        nDrawn += !(Graph.LookAtPlot() == Empty);
        Sleep(kLookAgain);
    }
    CHECK(nDrawn > 8);
    Calculator.HitKey(kKeyRunStop);
    CHECK(WaitFor([&] { return !IsProgramRunning(Calculator); }));
}
