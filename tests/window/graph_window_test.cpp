// The graph's window: shown by the calculator and by programs, driven with its own
// menus and the mouse.

#include "tests/window/graph_window.h"

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/menus.h"
#include "tests/window/plot_reader.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

static const unsigned kBareGround = 0xFFFFFF;

// A diagonal from one corner of the range to the other.
static const char *const kDiagonal = "ExplicitX\n0 , 0\n1 , 1\n2 , 2\n3 , 3\n4 , 4\n";

namespace
{

// A graph with the diagonal. Tests that share it leave data and view as they are.
struct cDiagonalRig
{
    cDiagonalRig() : m_Graph(&m_Calculator) { m_Graph.Open("diagonal.txt", kDiagonal); }

    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() && m_Graph.Count() == 1 &&
               m_Graph.SelectedRow() == LB_ERR && IsWindowVisible(m_Graph.Window());
    }

    cCalculator  m_Calculator;
    cGraphWindow m_Graph;
};

}  // namespace

// Opens a listing of the examples, which draws a graph.
static void OpenWaves(cCalculator *pCalculator)
{
    pCalculator->Choose(mnFile, IDM_OPEN);
    pCalculator->GiveFileName(FullPath(VORSTEK_EXAMPLES "/waves.txt"));
}

static int RowHeightOf(HWND hLegend)
{
    return static_cast<int>(SendMessageA(hLegend, LB_GETITEMHEIGHT, 0, 0));
}

TEST_CASE("the graph is shown and hidden with its menu items and its key, and keeps its data")
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
        Calculator.Choose(mnView, IDM_GRAPH);
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

    Calculator.Choose(mnView, IDM_GRAPH);
    CHECK(Eventually(TRUE, [&] { return IsWindowVisible(Graph.Window()); }) == TRUE);
    CHECK(Graph.Count() == 1);
}

// 200 GB that take no room on the disk and minutes to read: after a row there are only
// zeros, which are empty lines.
static void WriteZeros(const std::string &File)
{
    const HANDLE hFile =
        CreateFileA(File.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    REQUIRE(hFile != INVALID_HANDLE_VALUE);
    DWORD         dwWritten = 0;
    LARGE_INTEGER Size;
    Size.QuadPart = 200'000'000'000;
    CHECK(WriteFile(hFile, "1\n", 2, &dwWritten, nullptr));
    CHECK(SetFilePointerEx(hFile, Size, nullptr, FILE_BEGIN));
    CHECK(SetEndOfFile(hFile));
    CloseHandle(hFile);
}

// Whether a program has the file open: nobody may delete it then.
static int IsBeingRead(const std::string &File)
{
    const DWORD  dwShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE hFile =
        CreateFileA(File.c_str(), DELETE, dwShare, nullptr, OPEN_EXISTING, 0, nullptr);
    if (hFile != INVALID_HANDLE_VALUE)
        CloseHandle(hFile);
    return hFile == INVALID_HANDLE_VALUE;
}

static HCURSOR ShownCursor()
{
    CURSORINFO Info = {};
    Info.cbSize     = sizeof Info;
    REQUIRE(GetCursorInfo(&Info));
    return Info.hCursor;
}

// Returns while the file is being read, which another cursor than the dialog's shows. All
// that another program can know of a cursor is whether it is still the same.
static void BeginReading(cCalculator *pCalculator, cGraphWindow *pGraph, unsigned nCommand)
{
    pGraph->Choose(gmFile, nCommand);
    pCalculator->TypeFileName(pCalculator->Path("zeros.txt"));
    const HCURSOR hAsking = ShownCursor();
    HitKey(VK_RETURN);
    REQUIRE(WaitFor([=] { return IsBeingRead(pCalculator->Folder().Name("zeros.txt")); }));
    CHECK(ShownCursor() != hAsking);
}

TEST_CASE("reading a very large data file ends with Escape or when a window is closed")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    const cPicture Drawn = Graph.PhotographPlot();
    WriteZeros(Calculator.Folder().Name("zeros.txt"));

    BeginReading(&Calculator, &Graph, IDM_GRAPH_OPEN);
    const HCURSOR hReading = ShownCursor();
    HitKey('7');
    HitKey(VK_ESCAPE);
    CHECK(WaitFor([&] { return !IsBeingRead(Calculator.Folder().Name("zeros.txt")); }));
    Calculator.Settle();
    CHECK(WaitFor([=] { return ShownCursor() != hReading; }));
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(Graph.StatusText() == "filename: " + Calculator.Path("diagonal.txt"));
    CHECK(CountDifferences(Drawn, Graph.PhotographPlot()) == 0);

    BeginReading(&Calculator, &Graph, IDM_GRAPH_APPEND);
    Click(FramePoint(Graph.Window(), HTCLOSE));
    CHECK(WaitFor([&] { return !IsWindowVisible(Graph.Window()); }));
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(Graph.Count() == 1);

    Calculator.Choose(mnView, IDM_GRAPH);
    BeginReading(&Calculator, &Graph, IDM_GRAPH_OPEN);
    HitKey(VK_F4, kAlt);
    CHECK(WaitFor([&] { return !IsWindowVisible(Graph.Window()); }));

    Calculator.Choose(mnView, IDM_GRAPH);
    BeginReading(&Calculator, &Graph, IDM_GRAPH_OPEN);
    PostMessageA(Calculator.Window(), WM_CLOSE, 0, 0);
    CHECK(WaitFor([&] { return !Calculator.IsRunning(); }));
    CHECK(Calculator.ExitCode() == 0);
}

TEST_CASE("a program that draws shows the graph, which a repaint does not change")
{
    cCalculator Calculator;
    OpenWaves(&Calculator);
    Calculator.HitKey(kKeyRunStop);
    cGraphWindow Graph(&Calculator);
    REQUIRE(HasHalted(Calculator));
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
        OpenWaves(&Calculator);
        cGraphWindow Graph(&Calculator);
        if (bMinimised)
            ShowWindow(Graph.Window(), SW_MINIMIZE);
        REQUIRE(WaitFor([&] { return IsIconic(Graph.Window()) == bMinimised; }));
        Calculator.HitKey(kKeyRunStop);
        REQUIRE(WaitFor([&] { return Graph.Count() > 0; }));
        REQUIRE(HasHalted(Calculator));
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

    const RECT Client = ClientOf(Graph.Plot());
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
    MoveMouse(Graph.MiddleOfPlot());
    PressMouse();
    Calculator.Settle();
    CHECK(Graph.SelectedRow() == 1);
    ReleaseMouse();
    Calculator.Settle();
}

TEST_CASE("a repaint of any part keeps the cross-hair and the text of a readout")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    const RECT Client = ClientOf(Graph.Plot());
    MoveMouse(Graph.MiddleOfPlot());
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
    const RECT     Client = ClientOf(Graph.Plot());
    MoveMouse(Graph.MiddleOfPlot());
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
    const int nRow = RowHeightOf(Graph.Legend());
    CHECK(ClientOf(Graph.Legend()).bottom == 4 * nRow);

    for (const int nWanted : {5, 6, 3, 2, 1, 4})
    {
        const LONG nInside = ClientOf(Graph.Legend()).bottom;
        const RECT Place   = RectIn(Graph.Plot(), Graph.Legend());
        MoveMouse(Graph.OnPlot(100, Place.top - 1));
        PressMouse();
        Calculator.Settle();
        MoveMouse(Graph.OnPlot(100, Place.top + nInside - nWanted * nRow));
        Calculator.Settle();
        CHECK(ClientOf(Graph.Legend()).bottom == nWanted * nRow);
        POINT Pointer = {};
        GetCursorPos(&Pointer);
        CHECK(Pointer.y == RectOf(Graph.Legend()).top);
        ReleaseMouse();
        Calculator.Settle();
        Graph.Photograph();
    }
    Graph.Photograph().Save("graph-legend");
}

TEST_CASE("over the border of the legend the pointer shows that it can be dragged")
{
    cDiagonalRig       &Rig     = Shared<cDiagonalRig>();
    const cGraphWindow &Graph   = Rig.m_Graph;
    const LONG          nTop    = RectIn(Graph.Plot(), Graph.Legend()).top;
    const auto          Becomes = [&](int nAbove, UINT nCursor) {
        MoveMouse(Graph.OnPlot(100, nTop - nAbove));
        Rig.m_Calculator.Settle();
        return cProbeLink::Current()->AskWindow(Graph.Plot(), pbCursor, nCursor).m_nValue;
    };
    const UINT kArrow  = 32512;
    const UINT kUpDown = 32645;
    CHECK(Becomes(4, kArrow));
    CHECK(Becomes(3, kUpDown));
    CHECK(Becomes(1, kUpDown));
    CHECK(Becomes(20, kArrow));
}

TEST_CASE("a label wider than the legend does not change the height of its rows")
{
    cCalculator       Calculator;
    cGraphWindow      Graph(&Calculator);
    const std::string Long = std::string(79, 'W');
    Graph.Open("long.txt", "ImplicitX\nSetLabels \"" + Long + "\"\n1\n2\n");
    const int nRow = RowHeightOf(Graph.Legend());
    CHECK(ClientOf(Graph.Legend()).bottom == nRow);
    Graph.Photograph().Save("graph-long-label");
}

TEST_CASE("the legend is hidden and shown, and the menu has its mark")
{
    cGraphWindow &Graph = Shared<cDiagonalRig>().m_Graph;
    CHECK(Graph.IsTicked(IDM_LEGEND));
    Graph.Choose(gmView, IDM_LEGEND);
    CHECK_FALSE(Graph.IsTicked(IDM_LEGEND));
    Graph.Photograph().Save("graph-no-legend");
    CHECK_FALSE(IsWindowVisible(Graph.Legend()));
    Graph.Choose(gmView, IDM_LEGEND);
    CHECK(Graph.IsTicked(IDM_LEGEND));
    Graph.Photograph();
    CHECK(IsWindowVisible(Graph.Legend()));
}

TEST_CASE("Grid hides a grid of one direction as well")
{
    cDiagonalRig  Rig;
    cGraphWindow &Graph = Rig.m_Graph;
    CHECK_FALSE(Graph.IsTicked(IDM_GRID));
    CHECK(Graph.IsTicked(IDM_AUTO_RANGE));
    const cPicture NoGrid = Graph.PhotographPlot();
    Graph.Choose(gmView, IDM_GRID);
    CHECK(Graph.IsTicked(IDM_GRID));

    Graph.Choose(gmEdit, IDM_REFORMAT_PLOT);
    ClickMiddleOf(Graph.Field(IDC_HORZ_GRID));
    Rig.m_Calculator.Click("OK");
    CHECK(Graph.IsTicked(IDM_GRID));
    Graph.Choose(gmView, IDM_GRID);
    CHECK_FALSE(Graph.IsTicked(IDM_GRID));
    CHECK(CountDifferences(NoGrid, Graph.PhotographPlot()) == 0);
}

TEST_CASE("without the status bar the plot is higher")
{
    cGraphWindow &Graph   = Shared<cDiagonalRig>().m_Graph;
    const LONG    nBefore = ClientOf(Graph.Plot()).bottom;
    CHECK(Graph.IsTicked(IDM_GRAPH_STATUS_BAR));
    Graph.Choose(gmView, IDM_GRAPH_STATUS_BAR);
    CHECK_FALSE(Graph.IsTicked(IDM_GRAPH_STATUS_BAR));
    CHECK(ClientOf(Graph.Plot()).bottom > nBefore);
    Graph.Photograph().Save("graph-no-status-bar");
    Graph.Choose(gmView, IDM_GRAPH_STATUS_BAR);
}

TEST_CASE("a bad data file and a cancelled dialog leave the graph as it was")
{
    cDiagonalRig     &Rig        = Shared<cDiagonalRig>();
    cCalculator      &Calculator = Rig.m_Calculator;
    cGraphWindow     &Graph      = Rig.m_Graph;
    const std::string Status     = "filename: " + Calculator.Path("diagonal.txt");
    const cPicture    Shown      = Graph.Photograph();
    CHECK(Graph.StatusText() == Status);
    Calculator.Folder().Write("bad.txt", "ExplicitX\n");
    Graph.Choose(gmFile, IDM_GRAPH_OPEN);
    Calculator.GiveFileName(Calculator.Path("bad.txt"));
    CHECK(Calculator.Answers("Could not read the file:\n " + Calculator.Path("bad.txt"), "OK"));
    CHECK(Graph.Count() == 1);
    CHECK(Graph.StatusText() == Status);

    Graph.Choose(gmFile, IDM_GRAPH_OPEN);
    REQUIRE(Calculator.Dialog());
    HitKey(VK_ESCAPE);
    CHECK(Calculator.HasNoDialog());
    CHECK(CountDifferences(Shown, Graph.Photograph()) == 0);
}

TEST_CASE("Save As proposes the name of the data file, in its folder")
{
    cDiagonalRig     &Rig      = Shared<cDiagonalRig>();
    const std::string Proposed = "diagonal.txt";
    Rig.m_Graph.Choose(gmFile, IDM_GRAPH_SAVE_AS);
    CHECK(Eventually(Proposed, [&] { return Rig.m_Calculator.ProposedFileName(); }) == Proposed);
    Rig.m_Graph.Escape();
}

TEST_CASE("Append keeps the file name, New forgets it; without data there is nothing to save")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    CHECK(Graph.StatusText() == "filename: UNTITLED");
    Graph.Choose(gmFile, IDM_GRAPH_SAVE);
    CHECK(Calculator.Answers("There is no data to save", "OK"));

    Graph.Open("diagonal.txt", kDiagonal);
    Calculator.Folder().Write("more.txt", "ImplicitX\n7\n8\n");
    Graph.Choose(gmFile, IDM_GRAPH_APPEND);
    Calculator.GiveFileName(Calculator.Path("more.txt"));
    CHECK(Graph.Count() == 2);
    CHECK(Graph.StatusText() == "filename: " + Calculator.Path("diagonal.txt"));

    Graph.Choose(gmFile, IDM_GRAPH_NEW);
    CHECK(Graph.Count() == 0);
    CHECK(Graph.StatusText() == "filename: UNTITLED");
}

TEST_CASE("while a program runs the graph can be read, but not changed")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    Calculator.Folder().Write("loop.txt", "LBL 1\nSumG\nISZ\nGTO 1\n");
    Calculator.Choose(mnFile, IDM_OPEN);
    Calculator.GiveFileName(Calculator.Path("loop.txt"));
    Calculator.Folder().Write("still.txt", "LBL 1\nGTO 1\n");
    Calculator.Choose(mnFile, IDM_OPEN);
    Calculator.GiveFileName(Calculator.Path("still.txt"));
    Calculator.HitKey(kKeyRunStop);

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
    CHECK(Graph.IsTicked(IDM_GRID));
    MoveMouse(Graph.MiddleOfPlot());
    PressMouse();
    CHECK(Eventually(0, [&] { return Graph.SelectedRow(); }) == 0);
    ReleaseMouse();
    CHECK((Calculator.MenuState(IDM_OPEN) & MF_GRAYED) != 0);
}

TEST_CASE("the context menu has the mark and the commands of the menu bar")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("diagonal.txt", kDiagonal);
    const RECT  Client = ClientOf(Graph.Plot());
    const POINT At     = Graph.OnPlot(Client.right / 3, Client.bottom / 3);
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
    CHECK(Calculator.HasNoDialog());
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
        CHECK(Calculator.HasNoDialog());
        CHECK(Graph.StatusText() == "filename: " + Calculator.Path("diagonal.txt"));
        CHECK(CountDifferences(Shown, Graph.Photograph()) == 0);
    }
    CHECK(Calculator.Folder().Count() == 2);
}

TEST_CASE("the window is resized from the least size to the full screen")
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
    CHECK(Graph.ColourAt(2, 2) == kBareGround);
}
