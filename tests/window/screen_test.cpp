// Screens of the heights at which something changes. Each test runs on the
// screen that its suite is named after; on others it is left out.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/graph_window.h"
#include "tests/window/input.h"
#include "tests/window/waiting.h"

namespace
{

bool IsScreenOther(int nWidth, int nHeight)
{
    return GetSystemMetrics(SM_CXSCREEN) != nWidth || GetSystemMetrics(SM_CYSCREEN) != nHeight;
}

SIZE SizeOf(HWND hWnd)
{
    RECT Rect = {};
    GetWindowRect(hWnd, &Rect);
    return {Rect.right - Rect.left, Rect.bottom - Rect.top};
}

// The size of the window after it was dragged as small as it can be.
std::pair<int, int> DraggedSmall(cCalculator &Calculator)
{
    Calculator.Drag(HTBOTTOMRIGHT, -500, -500);
    const SIZE Size = SizeOf(Calculator.Window());
    return {Size.cx, Size.cy};
}

void CheckSum(cCalculator &Calculator)
{
    Calculator.HitKeys({25, 11, 26, 19});  // 2 ENTER 3 +
    CHECK(Calculator.ReadsX("5.00"));
    CHECK(Calculator.ReadsBottom("LastOp:  +"));
    CHECK(Calculator.ReadsAngle("deg"));
}

void CheckWorking(cCalculator &Calculator)
{
    CheckSum(Calculator);
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(30);  // R/S
    CHECK(Calculator.ReadsProgramLine("01 R/S"));
    CHECK(Calculator.IsListingShown());
    Calculator.Slide(swMode, 1);
    CHECK(Calculator.ReadsX("5.00"));
    CHECK_FALSE(Calculator.IsListingShown());
}

}  // namespace

TEST_CASE("a screen of 599 rows is refused" * doctest::test_suite("800x599") *
          doctest::skip(IsScreenOther(800, 599)))
{
    cCalculator Calculator(1);
    Calculator.PassWelcomeToDialog();
    const cSeenBox Expected = {"Vorstek",
                               "Sorry, but this program requires a screen\n"
                               "resolution of at least 800 by 600 pixels.\n"
                               "To change your computer's screen resolution\n"
                               "right click on an empty portion of your\n"
                               "desktop,  choose 'Properties' from the pop-up\n"
                               "menu, go to the 'Settings' tab and then adjust\n"
                               "the slider labeled 'Screen area'.\n",
                               {"OK"}};
    CHECK((Calculator.Box() == Expected));
    CHECK(Calculator.BoxIcon() == 32513);
    CHECK(Calculator.FindMainWindow() == nullptr);
    Calculator.PhotographScreen().Save("screen-599");
    Calculator.Click("OK");
    CHECK(Calculator.ExitCode() == 0);
}

TEST_CASE("on a screen of 600 rows the window keeps its height and the face is shifted" *
          doctest::test_suite("800x600") * doctest::skip(IsScreenOther(800, 600)))
{
    cCalculator Calculator;
    CHECK(Calculator.ShowsFaceFrom(35));
    CHECK_FALSE(Calculator.ShowsFaceFrom(0));
    Calculator.PhotographScreen().Save("screen-600");
    RECT Window = {};
    GetWindowRect(Calculator.Window(), &Window);
    CHECK(Window.bottom <= 600);
    CheckWorking(Calculator);
    CHECK(SizeOf(Calculator.Window()).cy == Window.bottom - Window.top);
    Calculator.KeepOpen(1, 1);
    CHECK(SizeOf(Calculator.Window()).cy == Window.bottom - Window.top);
    Calculator.KeepOpen(0, 0);
    CHECK(DraggedSmall(Calculator) == std::pair<int, int>(318, 570));
    CheckSum(Calculator);
    Calculator.PhotographScreen().Save("screen-600-least");
}

TEST_CASE("on a screen of 600 rows the graph and its dialogs are seen whole" *
          doctest::test_suite("800x600") * doctest::skip(IsScreenOther(800, 600)))
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    const auto   IsOnScreen = [](HWND hWnd) {
        RECT Rect = {};
        GetWindowRect(hWnd, &Rect);
        return Rect.left >= 0 && Rect.top >= 0 && Rect.right <= 800 && Rect.bottom <= 600;
    };
    Graph.Open("bend.txt", "ExplicitX\nTitle \"Bend\"\n0,1\n1,4\n2,2\n");
    CHECK(IsOnScreen(Graph.Window()));
    RECT Place = {};
    GetWindowRect(Graph.Window(), &Place);
    CHECK(Place.left == 160);
    CHECK(SizeOf(Graph.Window()).cx == 640);
    CHECK(SizeOf(Graph.Window()).cy == 480);
    Graph.Photograph();
    Calculator.PhotographScreen().Save("screen-600-graph");

    for (const unsigned nId :
         {IDM_REFORMAT_PLOT, IDM_REFORMAT_LINE, IDM_EDIT_DATA_SET, IDM_DELETE_LINE, IDM_ENTER_Y,
          IDM_ENTER_XY, IDM_CREATE_BMP, IDM_CREATE_GIF, IDM_GRAPH_ABOUT})
    {
        CAPTURE(nId);
        PostMessageA(Graph.Window(), WM_COMMAND, nId, 0);
        REQUIRE(Calculator.Dialog());
        CHECK(IsOnScreen(Calculator.Dialog()));
        Graph.Escape();
    }

    // The whole screen, and back.
    PostMessageA(Graph.Window(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    CHECK(WaitFor([&] { return SizeOf(Graph.Window()).cx >= 800; }));
    Graph.Photograph();
    Calculator.PhotographScreen().Save("screen-600-graph-whole");
    PostMessageA(Graph.Window(), WM_SYSCOMMAND, SC_RESTORE, 0);
    CHECK(WaitFor([&] { return SizeOf(Graph.Window()).cx == 640; }));

    // The calculator behind it comes to the front and goes on.
    Graph.Choose(gmFile, IDM_GRAPH_EXIT);
    CheckSum(Calculator);
}

TEST_CASE("on a screen of 767 rows the face is shifted" * doctest::test_suite("1024x767") *
          doctest::skip(IsScreenOther(1024, 767)))
{
    cCalculator Calculator;
    CHECK(Calculator.ShowsFaceFrom(35));
    CHECK_FALSE(Calculator.ShowsFaceFrom(0));
    CheckWorking(Calculator);
    Calculator.PhotographScreen().Save("screen-767");
    CHECK(DraggedSmall(Calculator) == std::pair<int, int>(318, 617));
}

TEST_CASE("on a screen of 768 rows the whole face is shown" * doctest::test_suite("1024x768") *
          doctest::skip(IsScreenOther(1024, 768)))
{
    cCalculator Calculator;
    CHECK(Calculator.ShowsFaceFrom(0));
    CHECK_FALSE(Calculator.ShowsFaceFrom(35));
    CheckWorking(Calculator);
    Calculator.PhotographScreen().Save("screen-768");
    CHECK(DraggedSmall(Calculator) == std::pair<int, int>(318, 617));
}
