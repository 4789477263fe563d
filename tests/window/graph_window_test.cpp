// The graph's window as a person works it: with the calculator, and by its own
// menus and mouse.

#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/plot_reader.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kWhite = 0xFFFFFF;

RECT PlaceInPlot(const cGraphWindow &Graph, HWND hChild)
{
    RECT Rect = {};
    GetWindowRect(hChild, &Rect);
    MapWindowPoints(nullptr, Graph.Plot(), reinterpret_cast<POINT *>(&Rect), 2);
    return Rect;
}

// A diagonal from corner to corner of a range that is fixed by its ends.
const char *const kDiagonal = "ExplicitX\n0 , 0\n1 , 1\n2 , 2\n3 , 3\n4 , 4\n";

}  // namespace

TEST_CASE("the graph comes and goes with its menu item and keeps its data")
{
    cCalculator Calculator;
    CHECK((Calculator.MenuState(IDM_GRAPH) & MF_CHECKED) == 0);
    cGraphWindow Graph(&Calculator);
    CHECK((Calculator.MenuState(IDM_GRAPH) & MF_CHECKED) != 0);
    CHECK(IsWindowVisible(Graph.Window()));
    Graph.Photograph().Save("graph-empty");
    Graph.Open("diagonal.txt", kDiagonal);
    CHECK(Graph.Count() == 1);

    SUBCASE("by the calculator's menu")
    {
        Calculator.Choose(2, IDM_GRAPH);
    }
    SUBCASE("by its own menu")
    {
        Graph.Choose(gmFile, IDM_GRAPH_EXIT);
    }
    SUBCASE("by its key")
    {
        SetForegroundWindow(Graph.Window());
        HitKey('E', kCtrl);
    }
    CHECK(Eventually(FALSE, [&] { return IsWindowVisible(Graph.Window()); }) == FALSE);
    CHECK(Eventually(UINT{MF_UNCHECKED},
                     [&] { return Calculator.MenuState(IDM_GRAPH) & MF_CHECKED; }) == MF_UNCHECKED);

    Calculator.Choose(2, IDM_GRAPH);
    CHECK(Eventually(TRUE, [&] { return IsWindowVisible(Graph.Window()); }) == TRUE);
    CHECK(Graph.Count() == 1);
}

TEST_CASE("a program that draws shows the graph, point by point and as a whole alike")
{
    cCalculator Calculator;
    Calculator.Choose(0, IDM_OPEN);
    Calculator.GiveFileName(FullPath(VORSTEK_EXAMPLES "/waves.txt"));
    Calculator.HitKey(30);
    cGraphWindow Graph(&Calculator);
    REQUIRE(WaitFor([&] {
        Calculator.Settle();
        return (Calculator.MenuState(IDM_OPEN) & MF_GRAYED) == 0;
    }));
    const cPicture Drawn = Graph.PhotographPlot();
    Drawn.Save("graph-waves");
    InvalidateRect(Graph.Plot(), nullptr, TRUE);
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Drawn, Graph.PhotographPlot()) > 0);
    Graph.Photograph().Save("graph-grid");
    Graph.Choose(gmView, IDM_GRID);
    CHECK(CountDifferences(Drawn, Graph.PhotographPlot()) == 0);
}

TEST_CASE("a program that draws leaves a minimised graph minimised")
{
    const auto Drawn = [](int bMinimised) {
        cCalculator Calculator;
        Calculator.Choose(0, IDM_OPEN);
        Calculator.GiveFileName(FullPath(VORSTEK_EXAMPLES "/waves.txt"));
        cGraphWindow Graph(&Calculator);
        if (bMinimised)
            ShowWindow(Graph.Window(), SW_MINIMIZE);
        REQUIRE(WaitFor([&] { return IsIconic(Graph.Window()) == bMinimised; }));
        Calculator.HitKey(30);
        REQUIRE(WaitFor([&] { return Graph.Count() > 0; }));
        REQUIRE(WaitFor([&] {
            Calculator.Settle();
            return (Calculator.MenuState(IDM_OPEN) & MF_GRAYED) == 0;
        }));
        CHECK(IsIconic(Graph.Window()) == bMinimised);
        ShowWindow(Graph.Window(), SW_RESTORE);
        return Graph.PhotographPlot();
    };
    CHECK(CountDifferences(Drawn(0), Drawn(1)) == 0);
}

TEST_CASE("the point nearest to the mouse is read out while the button is held")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("two.txt", "ImplicitX\nTitle \"Two\"\n1 , 5\n2 , 5\n3 , 5\n");
    REQUIRE(Graph.Count() == 2);
    const cPicture Before = Graph.Photograph();

    RECT Client = {};
    GetClientRect(Graph.Plot(), &Client);
    MoveMouse(Graph.OnPlot(Client.right / 2, Client.bottom / 8));
    PressMouse();
    Calculator.Settle();
    CHECK(Graph.SelectedRow() == 1);  // the upper line
    const cPicture Held = Graph.Photograph();
    Held.Save("graph-readout");
    CHECK(CountDifferences(Before, Held) > 0);

    MoveMouse(Graph.OnPlot(80, Client.bottom / 2));
    Calculator.Settle();
    CHECK(Graph.SelectedRow() == 0);
    CHECK(CountDifferences(Held, Graph.Photograph()) > 0);

    ReleaseMouse();
    Calculator.Settle();
    SendMessageA(Graph.Legend(), LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    CHECK(CountDifferences(Before, Graph.Photograph()) == 0);
}

TEST_CASE("of two sets with a point at the same pixel the later one is read out")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("same.txt", "ImplicitX\n1 , 1\n2 , 2\n3 , 3\n");
    RECT Client = {};
    GetClientRect(Graph.Plot(), &Client);
    MoveMouse(Graph.OnPlot(Client.right / 2, Client.bottom / 2));
    PressMouse();
    Calculator.Settle();
    CHECK(Graph.SelectedRow() == 1);
    ReleaseMouse();
    Calculator.Settle();
}

TEST_CASE("what is painted anew under a readout keeps its cross-hair and its text")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    RECT Client = {};
    GetClientRect(Graph.Plot(), &Client);
    MoveMouse(Graph.OnPlot(Client.right / 2, Client.bottom / 2));
    PressMouse();
    Calculator.Settle();
    const cPicture Shown = Graph.Photograph();

    const RECT Parts[] = {{0, 0, 10, 10},
                          {Client.right / 2, Client.bottom / 2, Client.right, Client.bottom},
                          {0, 0, Client.right, 8},
                          Client};
    for (const RECT &Part : Parts)
    {
        CAPTURE(Part.right);
        RedrawWindow(Graph.Plot(), &Part, nullptr, RDW_INVALIDATE);
        CHECK(CountDifferences(Shown, Graph.Photograph()) == 0);
    }
    ReleaseMouse();
    Calculator.Settle();
}

TEST_CASE("nothing is read out without data or beside the plot")
{
    cCalculator    Calculator;
    cGraphWindow   Graph(&Calculator);
    const cPicture Empty  = Graph.Photograph();
    RECT           Client = {};
    GetClientRect(Graph.Plot(), &Client);
    MoveMouse(Graph.OnPlot(Client.right / 2, Client.bottom / 2));
    PressMouse();
    Calculator.Settle();
    CHECK(CountDifferences(Empty, Graph.Photograph()) == 0);
    ReleaseMouse();

    Graph.Open("diagonal.txt", kDiagonal);
    const cPicture Shown = Graph.Photograph();
    MoveMouse(Graph.OnPlot(2, Client.bottom / 2));
    PressMouse();
    Calculator.Settle();
    CHECK(CountDifferences(Shown, Graph.Photograph()) == 0);
    CHECK(Graph.SelectedRow() == LB_ERR);
    ReleaseMouse();
    Calculator.Settle();
}

TEST_CASE("the border of the legend is dragged to each number of rows")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("six.txt", "ImplicitX\n1,2,3,4,5,6\n2,3,4,5,6,7\n");
    REQUIRE(Graph.Count() == 6);
    const int nRow  = static_cast<int>(SendMessageA(Graph.Legend(), LB_GETITEMHEIGHT, 0, 0));
    RECT      Inner = {};
    GetClientRect(Graph.Legend(), &Inner);
    CHECK(Inner.bottom == 4 * nRow);

    for (const int nWanted : {5, 6, 3, 2, 1, 4})
    {
        RECT Place = PlaceInPlot(Graph, Graph.Legend());
        MoveMouse(Graph.OnPlot(100, Place.top - 1));
        PressMouse();
        Calculator.Settle();
        const int nTop = Place.bottom - (Place.bottom - Place.top - Inner.bottom) - nWanted * nRow;
        MoveMouse(Graph.OnPlot(100, nTop));
        Calculator.Settle();
        GetClientRect(Graph.Legend(), &Inner);
        CHECK(Inner.bottom == nWanted * nRow);
        POINT Pointer = {};
        GetCursorPos(&Pointer);
        CHECK(Pointer.y == Graph.OnPlot(0, PlaceInPlot(Graph, Graph.Legend()).top).y);
        ReleaseMouse();
        Calculator.Settle();
        Graph.Photograph();
    }
    Graph.Photograph().Save("graph-legend");
}

TEST_CASE("over the border of the legend the pointer tells that it can be dragged")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    const int  nTop    = PlaceInPlot(Graph, Graph.Legend()).top;
    const auto Becomes = [&](int nAbove, UINT nCursor) {
        MoveMouse(Graph.OnPlot(100, nTop - nAbove));
        Calculator.Settle();
        return cProbeLink::Current()->AskWindow(Graph.Plot(), pbCursor, nCursor).m_nValue;
    };
    const UINT kArrow  = 32512;
    const UINT kUpDown = 32645;
    CHECK(Becomes(4, kArrow));
    CHECK(Becomes(3, kUpDown));
    CHECK(Becomes(1, kUpDown));
    CHECK(Becomes(20, kArrow));
}

TEST_CASE("a label that is longer than the legend is wide leaves the rows in their places")
{
    cCalculator       Calculator;
    cGraphWindow      Graph(&Calculator);
    const std::string Long = std::string(79, 'W');
    Graph.Open("long.txt", "ImplicitX\nSetLabels \"" + Long + "\"\n1\n2\n");
    const int nRow  = static_cast<int>(SendMessageA(Graph.Legend(), LB_GETITEMHEIGHT, 0, 0));
    RECT      Inner = {};
    GetClientRect(Graph.Legend(), &Inner);
    CHECK(Inner.bottom == nRow);
    Graph.Photograph().Save("graph-long-label");
}

TEST_CASE("legend, grid and status bar are switched, and both menus tell")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    CHECK((Graph.MenuState(IDM_LEGEND) & MF_CHECKED) != 0);
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) == 0);
    CHECK((Graph.MenuState(IDM_GRAPH_STATUS_BAR) & MF_CHECKED) != 0);
    CHECK((Graph.MenuState(IDM_AUTO_RANGE) & MF_CHECKED) != 0);
    const cPicture NoGrid = Graph.PhotographPlot();

    Graph.Choose(gmView, IDM_LEGEND);
    CHECK((Graph.MenuState(IDM_LEGEND) & MF_CHECKED) == 0);
    Graph.Photograph().Save("graph-no-legend");
    CHECK_FALSE(IsWindowVisible(Graph.Legend()));
    Graph.Choose(gmView, IDM_LEGEND);
    CHECK((Graph.MenuState(IDM_LEGEND) & MF_CHECKED) != 0);
    Graph.Photograph();
    CHECK(IsWindowVisible(Graph.Legend()));

    Graph.Choose(gmView, IDM_GRID);
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) != 0);

    // Lines of one direction are a grid too, and go with it.
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    ClickMiddleOf(Graph.Field(IDC_HORZ_GRID));
    Calculator.Click("OK");
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) != 0);
    Graph.Choose(gmView, IDM_GRID);
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) == 0);
    CHECK(CountDifferences(NoGrid, Graph.PhotographPlot()) == 0);

    RECT Before = {};
    RECT After  = {};
    GetClientRect(Graph.Plot(), &Before);
    Graph.Choose(gmView, IDM_GRAPH_STATUS_BAR);
    CHECK((Graph.MenuState(IDM_GRAPH_STATUS_BAR) & MF_CHECKED) == 0);
    GetClientRect(Graph.Plot(), &After);
    CHECK(After.bottom > Before.bottom);
    Graph.Photograph().Save("graph-no-status-bar");
}

TEST_CASE("data files are opened, appended and saved, and a bad one changes nothing")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    CHECK(Graph.StatusText() == "filename: UNTITLED");

    Graph.Choose(gmFile, IDM_GRAPH_SAVE);
    CHECK(Calculator.Answers("There is no data to save", "OK"));

    Graph.Open("diagonal.txt", kDiagonal);
    CHECK(Graph.StatusText() == "filename: " + Calculator.Path("diagonal.txt"));
    const cPicture Shown = Graph.Photograph();

    Calculator.Folder().Write("bad.txt", "ExplicitX\n");
    Graph.Choose(gmFile, IDM_GRAPH_OPEN);
    Calculator.GiveFileName(Calculator.Path("bad.txt"));
    CHECK(Calculator.Answers("Could not read the file:\n " + Calculator.Path("bad.txt"), "OK"));
    CHECK(Graph.Count() == 1);
    CHECK(Graph.StatusText() == "filename: " + Calculator.Path("diagonal.txt"));

    Graph.Choose(gmFile, IDM_GRAPH_OPEN);
    REQUIRE(Calculator.Dialog());
    HitKey(VK_ESCAPE);
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
    CHECK(CountDifferences(Shown, Graph.Photograph()) == 0);

    Graph.Choose(gmFile, IDM_GRAPH_SAVE_AS);
    const std::string Proposed = "diagonal.txt";  // in its folder
    CHECK(Eventually(Proposed, [&] { return Calculator.ProposedFileName(); }) == Proposed);
    Graph.Escape();

    Calculator.Folder().Write("more.txt", "ImplicitX\n7\n8\n");
    Graph.Choose(gmFile, IDM_GRAPH_APPEND);
    Calculator.GiveFileName(Calculator.Path("more.txt"));
    CHECK(Graph.Count() == 2);
    CHECK(Graph.StatusText() == "filename: " + Calculator.Path("diagonal.txt"));

    Graph.Choose(gmFile, IDM_GRAPH_NEW);
    CHECK(Graph.Count() == 0);
    CHECK(Graph.StatusText() == "filename: UNTITLED");
}

TEST_CASE("while a program runs the graph can be looked at, not changed")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    Calculator.Folder().Write("loop.txt", "LBL 1\nSumG\nISZ\nGTO 1\n");
    Calculator.Choose(0, IDM_OPEN);
    Calculator.GiveFileName(Calculator.Path("loop.txt"));
    Calculator.Folder().Write("still.txt", "LBL 1\nGTO 1\n");
    Calculator.Choose(0, IDM_OPEN);
    Calculator.GiveFileName(Calculator.Path("still.txt"));
    Calculator.HitKey(30);

    for (const unsigned nId :
         {IDM_GRAPH_NEW, IDM_GRAPH_OPEN, IDM_GRAPH_APPEND, IDM_ENTER_Y, IDM_ENTER_XY,
          IDM_PRINT_SETUP, IDM_PRINT_GRAPH, IDM_CREATE_BMP, IDM_CREATE_GIF, IDM_REFORMAT_PLOT,
          IDM_AUTO_RANGE, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET, IDM_DELETE_LINE})
    {
        CAPTURE(nId);
        PostMessageA(Graph.Window(), WM_COMMAND, nId, 0);
        CHECK(Calculator.Answers(kRefusedInRun, "OK"));
    }
    CHECK(Graph.Count() == 1);
    Graph.Choose(gmView, IDM_GRID);
    CHECK((Graph.MenuState(IDM_GRID) & MF_CHECKED) != 0);
    RECT Client = {};
    GetClientRect(Graph.Plot(), &Client);
    MoveMouse(Graph.OnPlot(Client.right / 2, Client.bottom / 2));
    PressMouse();
    CHECK(Eventually(0, [&] { return Graph.SelectedRow(); }) == 0);
    ReleaseMouse();
    CHECK((Calculator.MenuState(IDM_OPEN) & MF_GRAYED) != 0);
}

TEST_CASE("the context menu does what the menu bar does")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    RECT Client = {};
    GetClientRect(Graph.Plot(), &Client);
    const POINT At = Graph.OnPlot(Client.right / 3, Client.bottom / 3);
    Click(At, mbRight);
    WaitForMenu();
    Calculator.PhotographScreen().Save("graph-context");
    const auto AutoRange = [] {
        const HWND hMenu = FindWindowA("#32768", nullptr);
        return cProbeLink::Current()->AskWindow(hMenu, pbMenuState, IDM_CONTEXT_AUTO_RANGE);
    };
    CHECK((AutoRange().m_nValue & MF_CHECKED) != 0);
    CloseMenus();
    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    Graph.Fill(IDC_HORZ_MAX, "5");
    Calculator.Click("OK");
    Click(At, mbRight);
    WaitForMenu();
    CHECK((AutoRange().m_nValue & MF_CHECKED) == 0);
    HitKey(VK_DOWN);  // "Reformat Plot..."
    HitKey(VK_RETURN);
    const cSeenBox Box = Calculator.Box();
    CHECK(Box.m_Caption == "Reformat Plot");
    HitKey(VK_ESCAPE);
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
}

TEST_CASE("a file name of 300 characters is refused by each file dialog, and nothing is lost")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    const cPicture Shown = Graph.Photograph();
    for (const unsigned nId :
         {IDM_GRAPH_OPEN, IDM_GRAPH_APPEND, IDM_GRAPH_SAVE_AS, IDM_CREATE_BMP, IDM_CREATE_GIF})
    {
        CAPTURE(nId);
        Graph.Choose(gmFile, nId);
        if (nId == IDM_CREATE_BMP || nId == IDM_CREATE_GIF)
            Calculator.Click("OK");
        Calculator.GiveFileName(std::string(300, 'n'));
        CHECK(Calculator.Answers(kNameTooLong, "OK"));
        Graph.Escape();
        CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
        CHECK(Graph.StatusText() == "filename: " + Calculator.Path("diagonal.txt"));
        CHECK(CountDifferences(Shown, Graph.Photograph()) == 0);
    }
    CHECK(Calculator.Folder().Count() == 2);
}

TEST_CASE("the window is resized from the smallest to the whole screen")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    for (const POINT Size : {POINT{120, 100}, POINT{200, 500}, POINT{1280, 1024}, POINT{640, 480}})
    {
        SetWindowPos(Graph.Window(), HWND_TOP, 0, 0, Size.x, Size.y, 0);
        Calculator.Settle();
        Graph.Photograph().Save("graph-" + std::to_string(Size.x) + "x" + std::to_string(Size.y));
    }
    CHECK(Graph.ColourAt(2, 2) == kWhite);
}
