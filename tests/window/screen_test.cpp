// Screens of the heights at which the layout changes. Each test runs on the screen
// that its suite is named after and is skipped on others.

#include "tests/window/calculator.h"

#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/graph_window.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

static int IsScreenOther(int nWidth, int nHeight)
{
    return GetSystemMetrics(SM_CXSCREEN) != nWidth || GetSystemMetrics(SM_CYSCREEN) != nHeight;
}

// The size of the window after it was dragged to its least size.
static std::pair<int, int> DraggedSmall(cCalculator &Calculator)
{
    Calculator.Drag(HTBOTTOMRIGHT, -500, -500);
    const SIZE Size = SizeOf(Calculator.Window());
    return {Size.cx, Size.cy};
}

static const char *const kBend = "ExplicitX\nTitle \"Bend\"\n0,1\n1,4\n2,2\n";

static void CheckSum(cCalculator &Calculator)
{
    Calculator.HitKeys({kKey2, kKeyEnter, kKey3, kKeyPlus});
    CHECK(Calculator.ReadsX("5.00"));
    CHECK(Calculator.ReadsBottom("LastOp:  +"));
    CHECK(Calculator.ReadsAngle("deg"));
}

static void CheckWorking(cCalculator &Calculator)
{
    CheckSum(Calculator);
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(kKeyRunStop);
    CHECK(Calculator.ReadsProgramLine("01 R/S"));
    CHECK(Calculator.IsListingShown());
    Calculator.Slide(swMode, 1);
    CHECK(Calculator.ReadsX("5.00"));
    CHECK_FALSE(Calculator.IsListingShown());
}

// The calculator shows the face from its row nFirst, not nOther, and works.
static void CheckFaceFrom(cCalculator &Calculator, int nFirst, int nOther,
                          const std::string &Picture)
{
    CHECK(Calculator.ShowsFaceFrom(nFirst));
    CHECK_FALSE(Calculator.ShowsFaceFrom(nOther));
    CheckWorking(Calculator);
    Calculator.PhotographScreen().Save(Picture);
    CHECK(DraggedSmall(Calculator) == std::pair<int, int>(318, 617));
}

TEST_CASE("the welcome box fits on a screen of 640 by 480 and is closed there" *
          doctest::test_suite("640x480") * doctest::skip(IsScreenOther(640, 480)))
{
    cCalculator Calculator(1);
    const HWND  hWelcome = Calculator.Welcome();
    const RECT  Welcome  = RectOf(hWelcome);
    const RECT  Ok       = RectIn(hWelcome, GetDlgItem(hWelcome, IDOK));
    const RECT  Picture  = RectIn(hWelcome, FindWindowExA(hWelcome, nullptr, "STATIC", nullptr));
    Calculator.PhotographScreen().Save("screen-480");

    CHECK(Welcome.left >= 0);
    CHECK(Welcome.top >= 0);
    CHECK(Welcome.right <= 640);
    CHECK(Welcome.bottom <= 480);
    CHECK(Picture.bottom > 380);
    CHECK(std::abs(Picture.right * 510 - Picture.bottom * 600) <= 600);
    CHECK(Ok.top >= Picture.bottom);
    CHECK(Ok.bottom <= ClientOf(hWelcome).bottom);
    Calculator.PassWelcomeToDialog();
    Calculator.Click("OK");
    CHECK(Calculator.ExitCode() == 0);
}

TEST_CASE("on a low screen of high resolution the face is as large as all keys fit" *
          doctest::test_suite("1366x768") * doctest::skip(IsScreenOther(1366, 768)))
{
    cCalculator Calculator;
    const RECT  Window = RectOf(Calculator.Window());
    const RECT  Keypad = ClientOf(Calculator.Keypad());
    Calculator.SetFittedScale();
    Calculator.PhotographScreen().Save("screen-768-fine");

    CHECK(Calculator.Scale().Dpi() > 110);
    CHECK(Calculator.Scale().Dpi() < 144);
    CHECK(Keypad.right == Calculator.Scale().Length(306));
    CHECK(Window.top >= 0);
    CHECK(Window.bottom <= 768);
    POINT Lowest = Calculator.OnKey(kKeyRunStop);
    ScreenToClient(Calculator.Keypad(), &Lowest);
    CHECK(Lowest.y + Calculator.Scale().Length(16) <= Keypad.bottom);
    CheckSum(Calculator);
    Calculator.HitKey(kKeyRunStop);
    Calculator.Settle();
    CHECK_FALSE(Calculator.HasDialog());
}

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
    CHECK(Calculator.BoxIcon() == kErrorIcon);
    CHECK(!Calculator.FindMainWindow());
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
    const RECT Window = RectOf(Calculator.Window());
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

TEST_CASE("on a screen of 600 rows the graph and its dialogs are completely visible" *
          doctest::test_suite("800x600") * doctest::skip(IsScreenOther(800, 600)))
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    const auto   IsOnScreen = [](HWND hWnd) {
        const RECT Rect = RectOf(hWnd);
        return Rect.left >= 0 && Rect.top >= 0 && Rect.right <= 800 && Rect.bottom <= 600;
    };
    Graph.Open("bend.txt", kBend);
    CHECK(IsOnScreen(Graph.Window()));
    const RECT Place = RectOf(Graph.Window());
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
}

TEST_CASE("on a screen of 600 rows the graph is maximised, restored and closed" *
          doctest::test_suite("800x600") * doctest::skip(IsScreenOther(800, 600)))
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("bend.txt", kBend);
    PostMessageA(Graph.Window(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    CHECK(WaitFor([&] { return SizeOf(Graph.Window()).cx >= 800; }));
    Graph.Photograph();
    Calculator.PhotographScreen().Save("screen-600-graph-whole");
    PostMessageA(Graph.Window(), WM_SYSCOMMAND, SC_RESTORE, 0);
    CHECK(WaitFor([&] { return SizeOf(Graph.Window()).cx == 640; }));

    // The calculator below it comes to the front and goes on.
    Graph.Choose(gmFile, IDM_GRAPH_EXIT);
    CheckSum(Calculator);
}

TEST_CASE("on a screen of 767 rows the face is shifted" * doctest::test_suite("1024x767") *
          doctest::skip(IsScreenOther(1024, 767)))
{
    cCalculator Calculator;
    CheckFaceFrom(Calculator, 35, 0, "screen-767");
}

TEST_CASE("on a screen of 768 rows the complete face is shown" * doctest::test_suite("1024x768") *
          doctest::skip(IsScreenOther(1024, 768)))
{
    cCalculator Calculator;
    CheckFaceFrom(Calculator, 0, 35, "screen-768");
}
