// A program runs in the real window, which goes on working meanwhile.

#include "tests/window/calculator.h"

#include <algorithm>
#include <cstdlib>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/menus.h"
#include "tests/window/waiting.h"

namespace
{

const char kEndless[]  = "LBL 1\r\nGTO 1\r\n";
const char kCounting[] = "LBL 1\r\n1\r\n+\r\nGTO 1\r\n";

const unsigned kKeySst      = 1;
const unsigned kKeyGsb      = 2;
const unsigned kKeyIndirect = 7;
const unsigned kKeyOne      = 24;
const unsigned kKeyTwo      = 25;
const unsigned kKeyRunStop  = 30;
const unsigned kMenuView    = 2;
const unsigned kMenuHelp    = 3;

const unsigned kLockedCommands[] = {IDM_NEW, IDM_OPEN, IDM_EXIT, IDM_OPTIONS};

bool IsProgramRunning(const cCalculator &Calculator)
{
    return Calculator.MenuState(IDM_NEW) & MF_GRAYED;
}

bool HasHalted(const cCalculator &Calculator)
{
    return WaitFor([&] { return !IsProgramRunning(Calculator); });
}

bool IsLocked(const cCalculator &Calculator, unsigned nId)
{
    return Calculator.MenuState(nId) & MF_GRAYED;
}

RECT PlaceOf(const cCalculator &Calculator)
{
    RECT Rect = {};
    GetWindowRect(Calculator.Window(), &Rect);
    return Rect;
}

// Presses the mouse on a part of the frame, HTCAPTION or HTBOTTOM, and moves it.
void DragFrame(const cCalculator &Calculator, LRESULT nPart, int nRight, int nDown)
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

// A posted click, which a thread takes that does not answer at the moment.
void PostClick(const cCalculator &Calculator, unsigned nKey)
{
    POINT At = Calculator.OnKey(nKey);
    ScreenToClient(Calculator.Keypad(), &At);
    PostMessageA(Calculator.Keypad(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(At.x, At.y));
    PostMessageA(Calculator.Keypad(), WM_LBUTTONUP, 0, MAKELPARAM(At.x, At.y));
}

}  // namespace

TEST_CASE("a run is halted by any key of the keypad, which does nothing else")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    for (const unsigned nKey : {kKeySst, kKeyGsb, kKeyIndirect, kKeyOne, kKeyRunStop})
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

    // Clicks on R/S as quick as they come: on, off, on, off, on.
    for (int i = 0; i < 5; i++)
        Click(Calculator.OnKey(kKeyRunStop));
    Calculator.Settle();
    CHECK(IsProgramRunning(Calculator));
    Click(Calculator.OnKey(kKeyTwo));
    CHECK(HasHalted(Calculator));
    Calculator.HitKey(kKeyTwo);
    CHECK(Calculator.ReadsX("2."));

    // GSB from the keyboard runs as well; the digit completes it.
    Calculator.HitKeys({kKeyGsb, kKeyOne});
    CHECK(IsProgramRunning(Calculator));
    CHECK(Calculator.ReadsBottom("LastOp:  GSB 1"));
    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Calculator));
    Calculator.HitKeys({kKeyGsb, kKeyTwo});
    CHECK(Calculator.ReadsX("Error: no such label"));
    CHECK_FALSE(IsProgramRunning(Calculator));
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("during a run the commands that would disturb it are grey, in menu and toolbar")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kEndless);
    const auto ButtonsAre = [&](int nState) {
        for (const unsigned nId : {IDM_NEW, IDM_OPEN, IDM_OPTIONS})
            if (ToolState(Calculator, nId) != nState)
                return 0;
        return 1;
    };
    CHECK(ButtonsAre(TBSTATE_ENABLED));
    Calculator.HitKey(kKeyRunStop);

    for (const unsigned nId : kLockedCommands)
        CHECK(IsLocked(Calculator, nId));
    for (const unsigned nId : {IDM_SAVE, IDM_SAVE_AS, IDM_PRINT, IDM_TOOLBAR, IDM_ABOUT})
        CHECK_FALSE(IsLocked(Calculator, nId));
    CHECK(ButtonsAre(0));
    CHECK(ToolState(Calculator, IDM_SAVE) == TBSTATE_ENABLED);
    CHECK(ToolState(Calculator, IDM_PRINT) == TBSTATE_ENABLED);

    // They do nothing, however they are given; the run goes on.
    for (const WORD nKey : {'N', 'O', 'E'})
        HitKey(nKey, kCtrl);
    for (const unsigned nId : {IDM_NEW, IDM_OPEN, IDM_OPTIONS})
        Calculator.ClickButton(nId);
    Calculator.Choose(0, IDM_EXIT);
    CloseMenus();
    Calculator.Choose(kMenuView, IDM_OPTIONS);
    CloseMenus();
    CHECK_FALSE(Calculator.HasDialog());
    CHECK(IsProgramRunning(Calculator));
    CHECK(Calculator.ListingLines()[2] == "02 GTO 1");

    // The system menu's close is refused by a box, and so is Alt+F4.
    const cSeenBox Refusal = {"Vorstek", kRefusedInRun, {"OK"}};
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
    for (const unsigned nId : kLockedCommands)
        CHECK_FALSE(IsLocked(Calculator, nId));
    CHECK(ButtonsAre(TBSTATE_ENABLED));

    // Afterwards it closes.
    Click(FramePoint(Calculator.Window(), HTCLOSE));
    CHECK(Calculator.ExitCode() == 0);
}

TEST_CASE("during a run the window is repainted, moved and sized, and its menus open")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    const cPicture Before = PhotographFace(Calculator);
    const auto     IsSame = [&] { return PhotographFace(Calculator) == Before; };
    Repaint(Calculator);
    CHECK(IsSame());

    // A dialog lies over the face; the run rests until it is closed.
    Calculator.Choose(kMenuHelp, IDM_ABOUT);
    REQUIRE(Calculator.Dialog());
    CHECK(WaitFor([&] { return !IsSame(); }));
    Calculator.Click("OK");
    CHECK(WaitFor(IsSame));
    CHECK(IsProgramRunning(Calculator));

    const RECT Start = PlaceOf(Calculator);
    DragFrame(Calculator, HTCAPTION, 90, 40);
    const RECT Moved = PlaceOf(Calculator);
    CHECK(Moved.left == Start.left + 90);
    CHECK(Moved.top == Start.top + 40);
    CHECK(WaitFor(IsSame));
    DragFrame(Calculator, HTRIGHT, 50, 0);
    const RECT Sized = PlaceOf(Calculator);
    CHECK(Sized.right == Moved.right + 50);
    CHECK(WaitFor(IsSame));

    PostSystemCommand(Calculator, SC_MINIMIZE);
    CHECK(WaitFor([&] { return IsIconic(Calculator.Window()); }));
    CHECK(IsProgramRunning(Calculator));
    PostSystemCommand(Calculator, SC_RESTORE);
    CHECK(WaitFor([&] { return !IsIconic(Calculator.Window()); }));
    CHECK(WaitFor(IsSame));

    // The stack view is switched during a run, the program mode after it.
    Calculator.Slide(swStackView, 1);
    CHECK(Eventually(std::string("X   0.00"), [&] { return Calculator.Read(1, 50, 78, 8); }) ==
          "X   0.00");
    Calculator.Slide(swStackView, 0);
    Calculator.Slide(swMode, 0);
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK(IsProgramRunning(Calculator));
    Calculator.HitKey(kKeyOne);
    CHECK(WaitFor([&] { return Calculator.IsListingShown(); }));
    CHECK(Calculator.ReadsBottom("Keystrs:"));
    CHECK_FALSE(IsProgramRunning(Calculator));
    Calculator.Photograph().Save("program-mode-after-run");
    Calculator.Slide(swMode, 1);
    CHECK(Calculator.ReadsX("0.00"));

    // There and back during a run is no switch at all.
    Calculator.HitKey(kKeyRunStop);
    Calculator.Slide(swMode, 0);
    Calculator.Slide(swMode, 1);
    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Calculator));
    Calculator.HitKey(kKeyOne);
    CHECK(Calculator.ReadsX("1."));
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK_FALSE(Calculator.HasDialog());
}

TEST_CASE("a listing that opens while the window is minimised has its width when it is restored")
{
    cCalculator Calculator;
    RECT        Client = {};
    GetClientRect(Calculator.Window(), &Client);
    const LONG nWithout = Client.right;
    RunListing(&Calculator, kEndless);
    Calculator.Slide(swMode, 0);

    PostSystemCommand(Calculator, SC_MINIMIZE);
    REQUIRE(WaitFor([&] { return IsIconic(Calculator.Window()); }));
    PostMessageA(Calculator.Window(), WM_CHAR, VK_ESCAPE, 0);
    CHECK(HasHalted(Calculator));
    PostSystemCommand(Calculator, SC_RESTORE);
    REQUIRE(WaitFor([&] { return !IsIconic(Calculator.Window()); }));
    Calculator.Settle();

    RECT Listing = {};
    CHECK(Calculator.IsListingShown());
    GetClientRect(Calculator.Window(), &Client);
    GetWindowRect(Calculator.Listing(), &Listing);
    CHECK(Client.right == nWithout + 205);
    CHECK(Listing.right - Listing.left == 205);
}

TEST_CASE("PAUSE shows X for a second, and a key that is hit meanwhile halts the program")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "LBL 1\r\n1\r\n+\r\nPAUSE\r\nGTO 1\r\n");

    const DWORD dwStart = GetTickCount();
    Calculator.HitKey(kKeyRunStop);
    CHECK(Calculator.ReadsX("1.00"));
    // On a busy computer a number may have gone before it is looked at.
    const auto     Shown = [&] { return atoi(Calculator.Read(0, 59, 66, 5).c_str()); };
    const unsigned nSeen =
        static_cast<unsigned>(WaitFor([&] { return Shown() < 3 ? 0 : Shown(); }));
    CHECK(nSeen >= 3);
    CHECK(GetTickCount() - dwStart >= 1000 * (nSeen - 1));

    PostClick(Calculator, kKeyOne);
    CHECK(HasHalted(Calculator));
    // The key is used up; the halt came after the pause that it was hit in, or
    // in the step to the next one.
    Calculator.SettlePaint();
    const auto nHalted = static_cast<unsigned>(Shown());
    CHECK(nHalted >= nSeen);
    CHECK(GetTickCount() - dwStart >= 1000 * std::max(nSeen, nHalted - 1));
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));

    Calculator.HitKey(kKeyRunStop);
    PostMessageA(Calculator.Window(), WM_CHAR, '5', 0);
    CHECK(HasHalted(Calculator));
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    Type("5");
    CHECK(Calculator.ReadsX("5."));
}

TEST_CASE("a program of many steps ends by itself, and the listing shows where it stands")
{
    cCalculator Calculator;
    // Counts register 0 down from 20000.
    OpenListing(&Calculator, "20000\r\nSTO 0\r\nLBL 1\r\nDSZ\r\nGTO 1\r\nRCL 0\r\nR/S\r\n");
    Calculator.HitKey(kKeyRunStop);
    CHECK(WaitFor([&] { return !IsProgramRunning(Calculator); }));
    CHECK(Calculator.ReadsX("0.00"));
    CHECK(Calculator.HighlightedLine() == "08 R/S");

    // SST, with the boxes that it opens, then a run with both of them open.
    Calculator.HitKeys({kKeySst, kKeySst});
    CHECK(Calculator.IsListingShown());
    CHECK(Calculator.IsRegistersShown());
    OpenListing(&Calculator, kCounting);
    Calculator.HitKey(kKeyRunStop);
    CHECK(IsProgramRunning(Calculator));
    const std::string Early = Calculator.Read(0, 59, 66, 20);
    CHECK(WaitFor([&] { return Calculator.Read(0, 59, 66, 20) != Early; }));

    // A click into the boxes does not halt it, the text is not disturbed.
    ClickMiddleOf(Calculator.Listing());
    ClickMiddleOf(Calculator.Registers());
    CHECK(IsProgramRunning(Calculator));
    CHECK(Calculator.ListingLines()[3] == "03 +");

    // SST during the run halts it, and only that.
    Calculator.HitKey(kKeySst);
    CHECK(HasHalted(Calculator));
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    Calculator.SettlePaint();
    const std::string Halted = Calculator.Read(0, 59, 66, 20);
    Repaint(Calculator);
    CHECK(Calculator.Read(0, 59, 66, 20) == Halted);

    // A quit message ends run and program.
    Calculator.HitKey(kKeyRunStop);
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

TEST_CASE("a single step of ClearG leaves the keys that wait alone")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "ClearG\r\n");

    PostClick(Calculator, kKeySst);
    PostMessageA(Calculator.Window(), WM_CHAR, '5', 0);

    CHECK(Calculator.ReadsX("5."));
    CHECK(Calculator.HighlightedLine() == "02 R/S");
}
