// A run in the real window, which stays responsive meanwhile.

#include "tests/window/calculator.h"

#include <algorithm>
#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

static const char kCounting[] = "LBL 1\r\n1\r\n+\r\nGTO 1\r\n";

static const unsigned kLockedCommands[] = {IDM_NEW, IDM_OPEN, IDM_EXIT, IDM_OPTIONS};
static const unsigned kLockedButtons[]  = {IDM_NEW, IDM_OPEN, IDM_OPTIONS};

static int IsLocked(const cCalculator &Calculator, unsigned nId)
{
    return (Calculator.MenuState(nId) & MF_GRAYED) != 0;
}

// Whether the buttons of the commands that a run locks have this state.
static int ButtonsAre(const cCalculator &Calculator, int nState)
{
    return std::all_of(std::begin(kLockedButtons), std::end(kLockedButtons),
                       [&](unsigned nId) { return ToolState(Calculator, nId) == nState; });
}

// Drags a part of the frame, HTCAPTION or HTRIGHT.
static void DragFrame(const cCalculator &Calculator, LRESULT nPart, int nRight, int nDown)
{
    const POINT From = FramePoint(Calculator.Window(), nPart);
    MoveMouse(From);
    PressMouse();
    MoveMouse({From.x + nRight / 2, From.y + nDown / 2});
    Calculator.Settle();
    MoveMouse({From.x + nRight, From.y + nDown});
    Calculator.Settle();
    ReleaseMouse();
    Calculator.Settle();
}

// Posts a click, which does not wait for a thread that is busy.
static void PostClick(const cCalculator &Calculator, unsigned nKey)
{
    POINT At = Calculator.OnKey(nKey);
    ScreenToClient(Calculator.Keypad(), &At);
    PostMessageA(Calculator.Keypad(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(At.x, At.y));
    PostMessageA(Calculator.Keypad(), WM_LBUTTONUP, 0, MAKELPARAM(At.x, At.y));
}

// All of the display's main line.
static std::string MainLine(const cCalculator &Calculator)
{
    return Calculator.Read(0, 59, 66, 20);
}

TEST_CASE("any key of the keypad halts a run and does nothing else")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    for (const unsigned nKey : {kKeySst, kKeyGsb, kKeyRollDown, kKey1, kKeyRunStop})
    {
        CAPTURE(nKey);
        Calculator.HitKey(kKeyRunStop);
        REQUIRE(IsProgramRunning(Calculator));
        MoveMouse(Calculator.OnKey(nKey));
        PressMouse();
        CHECK(HasHalted(Calculator));
        ReleaseMouse();
        Calculator.Settle();
        CHECK_FALSE(IsProgramRunning(Calculator));
        CHECK(Calculator.ReadsX("0.00"));
        CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
        CHECK_FALSE(Calculator.IsListingShown());
    }
}

TEST_CASE("quick clicks on R/S start and halt the program in turn")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    for (int i = 0; i < 5; i++)
        Click(Calculator.OnKey(kKeyRunStop));
    Calculator.Settle();
    CHECK(IsProgramRunning(Calculator));
    Click(Calculator.OnKey(kKey2));
    CHECK(HasHalted(Calculator));
    Calculator.HitKey(kKey2);
    CHECK(Calculator.ReadsX("2."));
}

TEST_CASE("GSB from the keypad starts a run at the label, if there is one")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    Calculator.HitKeys({kKeyGsb, kKey1});
    CHECK(IsProgramRunning(Calculator));
    CHECK(Calculator.ReadsBottom("LastOp:  GSB 1"));
    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Calculator));
    Calculator.HitKeys({kKeyGsb, kKey2});
    CHECK(Calculator.ReadsX("Error: no such label"));
    CHECK_FALSE(IsProgramRunning(Calculator));
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("during a run the commands that would disturb it are greyed, in menu and toolbar")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    CHECK(ButtonsAre(Calculator, TBSTATE_ENABLED));

    Calculator.HitKey(kKeyRunStop);
    for (const unsigned nId : kLockedCommands)
        CHECK(IsLocked(Calculator, nId));
    for (const unsigned nId : {IDM_SAVE, IDM_SAVE_AS, IDM_PRINT, IDM_TOOLBAR, IDM_ABOUT})
        CHECK_FALSE(IsLocked(Calculator, nId));
    CHECK(ButtonsAre(Calculator, 0));
    CHECK(ToolState(Calculator, IDM_SAVE) == TBSTATE_ENABLED);
    CHECK(ToolState(Calculator, IDM_PRINT) == TBSTATE_ENABLED);

    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Calculator));
    for (const unsigned nId : kLockedCommands)
        CHECK_FALSE(IsLocked(Calculator, nId));
    CHECK(ButtonsAre(Calculator, TBSTATE_ENABLED));
}

TEST_CASE("a greyed command does nothing, however it is given, and the run goes on")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    for (const WORD nKey : {'N', 'O', 'E'})
        HitKey(nKey, kCtrl);
    for (const unsigned nId : kLockedButtons)
        Calculator.ClickButton(nId);
    Calculator.Choose(mnFile, IDM_EXIT);
    CloseMenus();
    Calculator.Choose(mnView, IDM_OPTIONS);
    CloseMenus();
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(IsProgramRunning(Calculator));
    CHECK(Calculator.ListingLines()[2] == "02 GTO 1");
}

TEST_CASE("a command that another program posts during a run is ignored if the run locks it")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    for (const unsigned nId : kLockedButtons)
    {
        PostCommand(Calculator, nId);
        Calculator.Settle();
    }
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(IsProgramRunning(Calculator));
    CHECK(Calculator.ListingLines()[2] == "02 GTO 1");
}

TEST_CASE("during a run the close box and Alt+F4 are refused; afterwards the window closes")
{
    const cSeenBox Refusal = {"Vorstek", kRefusedInRun, {"OK"}};
    cCalculator    Calculator;
    RunListing(&Calculator, kEndless);
    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CHECK(Calculator.Box() == Refusal);
    Calculator.PhotographScreen().Save("close-refused");
    Calculator.Click("OK");
    HitKey(VK_F4, kAlt);
    CHECK(Calculator.Answers(kRefusedInRun, "OK"));
    CHECK(Calculator.IsRunning());
    CHECK(IsProgramRunning(Calculator));

    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Calculator));
    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CHECK(Calculator.ExitCode() == 0);
}

TEST_CASE("during a run the face is repainted after a dialog has covered it")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    const cPicture Before = PhotographFace(Calculator);
    Repaint(Calculator);
    CHECK(PhotographFace(Calculator) == Before);

    Calculator.Choose(mnHelp, IDM_ABOUT);
    REQUIRE(Calculator.Dialog());
    CHECK(WaitFor([&] { return !(PhotographFace(Calculator) == Before); }));
    Calculator.Click("OK");
    CHECK(LooksLike(Calculator, Before));
    CHECK(IsProgramRunning(Calculator));
}

TEST_CASE("during a run the window is moved, sized, minimised and restored")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    const cPicture Before = PhotographFace(Calculator);
    const RECT     Start  = RectOf(Calculator.Window());
    DragFrame(Calculator, HTCAPTION, 90, 40);
    const RECT Moved = RectOf(Calculator.Window());
    CHECK(Moved.left == Start.left + 90);
    CHECK(Moved.top == Start.top + 40);
    CHECK(LooksLike(Calculator, Before));
    DragFrame(Calculator, HTRIGHT, 50, 0);
    CHECK(RectOf(Calculator.Window()).right == Moved.right + 50);
    CHECK(LooksLike(Calculator, Before));

    Minimise(Calculator);
    CHECK(IsProgramRunning(Calculator));
    Restore(Calculator);
    CHECK(LooksLike(Calculator, Before));
}

TEST_CASE("the stack view is switched during a run, the program mode after it")
{
    const std::string X = "X   0.00";
    cCalculator       Calculator;
    RunListing(&Calculator, kEndless);
    Calculator.Slide(swStackView, 1);
    CHECK(Eventually(X, [&] { return Calculator.Read(1, 50, 78, 8); }) == X);
    Calculator.Slide(swStackView, 0);
    Calculator.Slide(swMode, 0);
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK(IsProgramRunning(Calculator));

    Calculator.HitKey(kKey1);
    CHECK(WaitFor([&] { return Calculator.IsListingShown(); }));
    CHECK(Calculator.ReadsBottom("Keystrs:"));
    CHECK_FALSE(IsProgramRunning(Calculator));
    Calculator.Photograph().Save("program-mode-after-run");
    Calculator.Slide(swMode, 1);
    CHECK(Calculator.ReadsX("0.00"));
}

TEST_CASE("a mode switch that is moved there and back during a run has no effect")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    Calculator.Slide(swMode, 0);
    Calculator.Slide(swMode, 1);
    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Calculator));
    Calculator.HitKey(kKey1);
    CHECK(Calculator.ReadsX("1."));
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("a listing that opens while the window is minimised has its width when it is restored")
{
    cCalculator Calculator;
    const LONG  nWithout = ClientOf(Calculator.Window()).right;
    RunListing(&Calculator, kEndless);
    Calculator.Slide(swMode, 0);

    Minimise(Calculator);
    PostMessageA(Calculator.Window(), WM_CHAR, VK_ESCAPE, 0);
    CHECK(HasHalted(Calculator));
    Restore(Calculator);
    Calculator.Settle();

    CHECK(Calculator.IsListingShown());
    CHECK(ClientOf(Calculator.Window()).right == nWithout + 205);
    CHECK(SizeOf(Calculator.Listing()).cx == 205);
}

// The number that the display shows while the counting program pauses.
static unsigned ShownNumber(const cCalculator &Calculator)
{
    return static_cast<unsigned>(atoi(Calculator.Read(0, 59, 66, 5).c_str()));
}

TEST_CASE("PAUSE shows X for a second, and a key that is pressed meanwhile halts the program")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "LBL 1\r\n1\r\n+\r\nPAUSE\r\nGTO 1\r\n");
    const DWORD dwStart = GetTickCount();
    Calculator.HitKey(kKeyRunStop);
    // On a busy computer a number may come and go unseen.
    const unsigned nSeen = WaitFor([&] {
        const unsigned nNow = ShownNumber(Calculator);
        return nNow < 3 ? 0 : nNow;
    });
    CHECK(nSeen >= 3);
    CHECK(GetTickCount() - dwStart >= 1000 * (nSeen - 1));

    PostClick(Calculator, kKey1);
    CHECK(HasHalted(Calculator));
    // The key itself has no effect. The halt follows the present pause, or the
    // step to the next one.
    Calculator.SettlePaint();
    const unsigned nHalted = ShownNumber(Calculator);
    CHECK(nHalted >= nSeen);
    CHECK(GetTickCount() - dwStart >= 1000 * std::max(nSeen, nHalted - 1));
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
}

TEST_CASE("a character that is typed during PAUSE halts the program and is not entered")
{
    cCalculator Calculator;
    RunListing(&Calculator, "LBL 1\r\nPAUSE\r\nGTO 1\r\n");
    PostMessageA(Calculator.Window(), WM_CHAR, '5', 0);
    CHECK(HasHalted(Calculator));
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    Type("5");
    CHECK(Calculator.ReadsX("5."));
}

TEST_CASE("a program of many steps ends by itself, with its last line highlighted")
{
    cCalculator Calculator;
    // Counts register 0 down from 20,000.
    RunListing(&Calculator, "20000\r\nSTO 0\r\nLBL 1\r\nDSZ\r\nGTO 1\r\nRCL 0\r\nR/S\r\n");
    CHECK(HasHalted(Calculator));
    CHECK(Calculator.ReadsX("0.00"));
    CHECK(Calculator.HighlightedLine() == "08 R/S");
}

TEST_CASE("a run goes on while its boxes are open and clicked, and SST only halts it")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kCounting);
    Calculator.HitKeys({kKeySst, kKeySst});
    CHECK(Calculator.IsListingShown());
    CHECK(Calculator.IsRegistersShown());
    Calculator.HitKey(kKeyRunStop);
    CHECK(IsProgramRunning(Calculator));
    const std::string Early = MainLine(Calculator);
    CHECK(WaitFor([&] { return MainLine(Calculator) != Early; }));

    ClickMiddleOf(Calculator.Listing());
    ClickMiddleOf(Calculator.Registers());
    CHECK(IsProgramRunning(Calculator));
    CHECK(Calculator.ListingLines()[3] == "03 +");

    Calculator.HitKey(kKeySst);
    CHECK(HasHalted(Calculator));
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    Calculator.SettlePaint();
    const std::string Halted = MainLine(Calculator);
    Repaint(Calculator);
    CHECK(MainLine(Calculator) == Halted);
}

TEST_CASE("a quit message ends the run and the calculator")
{
    cCalculator Calculator;
    RunListing(&Calculator, kCounting);
    PostThreadMessageA(GetWindowThreadProcessId(Calculator.Window(), nullptr), WM_QUIT, 7, 0);
    CHECK(Calculator.ExitCode() == 7);
}

TEST_CASE("the exit command itself is not refused during a run")
{
    for (const char *const szListing : {kCounting, "LBL 1\r\nSumG\r\nClearG\r\nGTO 1\r\n"})
    {
        cCalculator Calculator;
        RunListing(&Calculator, szListing);
        CHECK(IsProgramRunning(Calculator));

        PostCommand(Calculator, IDM_EXIT);

        CHECK(Calculator.ExitCode() == 0);
    }
}

TEST_CASE("a single step of ClearG leaves the waiting keys alone")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "ClearG\r\n");

    PostClick(Calculator, kKeySst);
    PostMessageA(Calculator.Window(), WM_CHAR, '5', 0);

    CHECK(Calculator.ReadsX("5."));
    CHECK(Calculator.HighlightedLine() == "02 R/S");
}
