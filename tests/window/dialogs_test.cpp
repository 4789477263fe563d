// The options dialog and the About box.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

namespace
{

struct cControl
{
    std::string m_Class;
    int         m_nId;
    std::string m_Text;

    bool operator==(const cControl &) const = default;
};

// A calculator with its first options, which tests that share it do not change.
struct cOptionsRig
{
    int IsAsNew() const
    {
        return m_Calculator.IsRunning() && !m_Calculator.HasDialog() &&
               !m_Calculator.IsListingShown() && !m_Calculator.IsRegistersShown();
    }

    cCalculator m_Calculator;
};

}  // namespace

// The controls 1031 to 1036, where '1' means checked.
static const char kFirstStates[] = "010101";

static const std::vector<cControl> kControls = {
    {"Button", -1, "Program Window"},
    {"Button", 1031, "Keep it open"},
    {"Button", 1032, "Open it upon entering Prgm mode"},
    {"Static", -1, "or when single stepping"},
    {"Static", -1, "(close it upon entering Run mode)"},
    {"Button", -1, "Registers Window"},
    {"Button", 1033, "Keep it open"},
    {"Button", 1034, "Open it when single stepping"},
    {"Static", -1, "(close it upon entering Prgm mode)"},
    {"Button", -1, "Tracing"},
    {"Button", 1035, "Trace Program Execution in a"},
    {"Static", -1, ".TXT file named TRACELOG"},
    {"Static", -1, "located in the same folder"},
    {"Static", -1, "as VORSTEK.EXE"},
    {"Button", -1, "Sound"},
    {"Button", 1036, "Provide keystroke and"},
    {"Static", -1, "slide switch sounds"},
    {"Button", 1, "OK"},
    {"Button", 2, "Cancel"},
};

// Over the centre of its parent, but never beyond the left or top of the screen.
static int IsCentred(HWND hDialog, HWND hParent)
{
    const RECT Dialog = RectOf(hDialog);
    const RECT Parent = RectOf(hParent);
    const LONG nLeft  = (Parent.left + Parent.right - (Dialog.right - Dialog.left)) / 2;
    const LONG nTop   = (Parent.top + Parent.bottom - (Dialog.bottom - Dialog.top)) / 2;
    return std::labs(Dialog.left - std::max(nLeft, 0L)) <= 1 &&
           std::labs(Dialog.top - std::max(nTop, 0L)) <= 1;
}

static void MoveTo(HWND hWnd, int x, int y)
{
    SetWindowPos(hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

static std::vector<cControl> ControlsOf(HWND hDialog)
{
    std::vector<cControl> Controls;
    for (HWND hChild = GetWindow(hDialog, GW_CHILD); hChild;
         hChild      = GetWindow(hChild, GW_HWNDNEXT))
    {
        Controls.push_back(
            {ClassOf(hChild), static_cast<short>(GetDlgCtrlID(hChild)), TextOf(hChild)});
    }
    return Controls;
}

static int IsChecked(HWND hDialog, int nId)
{
    return SendDlgItemMessageA(hDialog, nId, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// The states of the controls, as in kFirstStates.
static std::string States(HWND hDialog)
{
    std::string Text;
    for (int nId = 1031; nId <= 1036; nId++)
        Text += IsChecked(hDialog, nId) ? '1' : '0';
    return Text;
}

static int IsHighlightCommandEnabled(cCalculator &Calculator)
{
    const UINT nGrey    = Calculator.MenuState(IDM_REPAIR_HIGHLIGHT) & (MF_GRAYED | MF_DISABLED);
    const int  nButton  = Calculator.Button(8).m_nState;
    const int  bEnabled = nGrey == 0;
    CHECK(nButton == (bEnabled ? TBSTATE_ENABLED : TBSTATE_INDETERMINATE));
    return bEnabled;
}

static HWND OpenOptions(cCalculator &Calculator)
{
    Calculator.Choose(mnView, IDM_OPTIONS);
    const HWND hDialog = Calculator.Dialog();
    REQUIRE(hDialog);
    return hDialog;
}

TEST_CASE("the options dialog has its controls and its first settings")
{
    cCalculator &Calculator = Shared<cOptionsRig>().m_Calculator;
    const HWND   hDialog    = OpenOptions(Calculator);
    CHECK(Calculator.Box().m_Caption == "Vorstek Options");
    CHECK((ControlsOf(hDialog) == kControls));
    CHECK(States(hDialog) == kFirstStates);
    CHECK(IsCentred(hDialog, Calculator.Window()));
    CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
    Calculator.PhotographScreen().Save("options");
    Calculator.CloseDialogWith(VK_ESCAPE);
}

TEST_CASE("Tab reaches every option, and each group of radio buttons is one stop")
{
    cCalculator &Calculator = Shared<cOptionsRig>().m_Calculator;
    const HWND   hDialog    = OpenOptions(Calculator);
    for (const int nControl : {1032, 1034, 1035, 1036, 1, 2, 1032})
    {
        CHECK(Eventually(nControl, [&] { return Calculator.FocusedControl(); }) == nControl);
        HitKey(VK_TAB);
        Calculator.Settle();
    }
    CHECK(States(hDialog) == kFirstStates);
    Calculator.CloseDialogWith(VK_ESCAPE);
}

TEST_CASE("options are chosen with the keyboard, and Escape forgets them")
{
    cCalculator &Calculator = Shared<cOptionsRig>().m_Calculator;
    const HWND   hDialog    = OpenOptions(Calculator);
    REQUIRE(Eventually(1032, [&] { return Calculator.FocusedControl(); }) == 1032);
    // An arrow key in the second group, the space bar on both check boxes.
    for (const WORD nKey :
         std::initializer_list<WORD>{VK_TAB, VK_UP, VK_TAB, VK_SPACE, VK_TAB, VK_SPACE})
        HitKey(nKey);
    Calculator.Settle();
    CHECK(Eventually(std::string("011010"), [&] { return States(hDialog); }) == "011010");

    Calculator.CloseDialogWith(VK_ESCAPE);

    CHECK_FALSE(Calculator.IsRegistersShown());
    CHECK(States(OpenOptions(Calculator)) == kFirstStates);
    Calculator.CloseDialogWith(VK_ESCAPE);
}

TEST_CASE("Cancel and the close box forget the options that were clicked")
{
    cCalculator &Calculator = Shared<cOptionsRig>().m_Calculator;
    HWND         hDialog    = OpenOptions(Calculator);
    for (const int nControl : {1031, 1033, 1035, 1036})
        Calculator.ClickControl(nControl);
    CHECK(States(hDialog) == "101010");
    Calculator.Click("Cancel");

    hDialog = OpenOptions(Calculator);
    CHECK(States(hDialog) == kFirstStates);
    Calculator.ClickControl(1031);
    Click(FramePoint(hDialog, HTCLOSE));
    CHECK(Calculator.HasNoDialog());
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK_FALSE(IsHighlightCommandEnabled(Calculator));
}

TEST_CASE("Enter is OK in the options dialog, which opens over the calculator")
{
    cCalculator Calculator;
    MoveTo(Calculator.Window(), 400, 150);
    CHECK(IsCentred(OpenOptions(Calculator), Calculator.Window()));
    HitKey(VK_UP);
    Calculator.Settle();

    Calculator.CloseDialogWith(VK_RETURN);

    CHECK(Eventually(1, [&] { return Calculator.IsListingShown(); }) == 1);
    CHECK(GetForegroundWindow() == Calculator.Window());
}

TEST_CASE("a command that another program sends while a dialog is open does nothing")
{
    cCalculator Calculator;
    const HWND  hOptions = OpenOptions(Calculator);
    for (const unsigned nCommand : {IDM_OPTIONS, IDM_ABOUT, IDM_OPEN, IDM_NEW, IDM_EXIT})
        PostMessageA(Calculator.Window(), WM_COMMAND, nCommand, 0);
    Calculator.Settle();
    CHECK(Calculator.Dialog() == hOptions);

    Calculator.CloseDialogWith(VK_ESCAPE);

    CHECK(Calculator.HasNoDialog());
    CHECK(Calculator.IsRunning());
}

TEST_CASE("OK shows and hides the boxes, and the window grows and shrinks with them")
{
    cCalculator Calculator;
    const int   nFace = SizeOf(Calculator.Window()).cx;

    Calculator.KeepOpen(1, 0);
    CHECK(Calculator.IsListingShown());
    CHECK_FALSE(Calculator.IsRegistersShown());
    CHECK(SizeOf(Calculator.Window()).cx == nFace + 205);
    CHECK(IsHighlightCommandEnabled(Calculator));
    CHECK(Calculator.HighlightedLine() == "00");

    Calculator.KeepOpen(0, 1);
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK(Calculator.IsRegistersShown());
    CHECK_FALSE(IsHighlightCommandEnabled(Calculator));
}

TEST_CASE("in program mode the listing stays open until run mode is entered")
{
    cCalculator Calculator;
    const int   nFace = SizeOf(Calculator.Window()).cx;
    Calculator.KeepOpen(1, 0);
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(kKeyEnter);
    Calculator.KeepOpen(0, 0);
    CHECK(Calculator.IsListingShown());
    CHECK(IsHighlightCommandEnabled(Calculator));
    CHECK(Calculator.HighlightedLine() == "01 ENTER");

    Calculator.Slide(swMode, 1);
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK_FALSE(IsHighlightCommandEnabled(Calculator));
    CHECK(SizeOf(Calculator.Window()).cx == nFace);
}

TEST_CASE("a listing that is to be kept opens at once with the current line highlighted")
{
    cCalculator Calculator;
    AddEnter(&Calculator);
    Calculator.KeepOpen(1, 0);
    CHECK(Calculator.HighlightedLine() == "01 ENTER");
    Calculator.Slide(swMode, 0);
    Calculator.Slide(swMode, 1);
    CHECK(Calculator.IsListingShown());
}

TEST_CASE("tracing writes each run to a file until it is switched off")
{
    cCalculator Calculator;
    Calculator.Slide(swMode, 0);
    Calculator.HitKeys({kKey2, kKeyEnter});
    Calculator.Slide(swMode, 1);
    CHECK_FALSE(Calculator.Folder().Has("tracelog.txt"));

    OpenOptions(Calculator);
    Calculator.ClickControl(IDC_TRACE);
    Calculator.Click("OK");
    Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey0, kKey0, kKeyRunStop});
    CHECK(Calculator.ReadsX("2.00"));
    const std::string Trace = Calculator.Folder().Read("tracelog.txt");
    CHECK(Trace.starts_with("Program from file ''\r\nrun on "));
    CHECK(Trace.find("\r\n\r\n Instruction          X                 Y                 Reg[0]"
                     "       Subr Return Addr\r\n") != std::string::npos);
    CHECK(Trace.find("\r\n02 ENTER             +2.00             +2.00             +0.00"
                     "             --  --  --\r\n") != std::string::npos);
    CHECK(std::count(Trace.begin(), Trace.end(), '\n') == 7);

    OpenOptions(Calculator);
    CHECK(States(Calculator.Dialog()) == "010111");
    Calculator.ClickControl(IDC_TRACE);
    Calculator.Click("OK");
    Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey0, kKey0, kKey3, kKeyRunStop});
    CHECK(Calculator.ReadsX("2.00"));
    CHECK(Calculator.Folder().Read("tracelog.txt") == Trace);
}

TEST_CASE("the About box shows the program's name and version")
{
    cCalculator Calculator;
    MoveTo(Calculator.Window(), 300, 100);
    Calculator.Choose(mnHelp, IDM_ABOUT);
    const HWND hDialog = Calculator.Dialog();
    REQUIRE(hDialog);
    CHECK(Calculator.Box().m_Caption == "About Vorstek");
    CHECK(IsCentred(hDialog, Calculator.Window()));
    const std::vector<cControl> Controls = ControlsOf(hDialog);
    const auto                  Has      = [&](const cControl &Control) {
        return std::count(Controls.begin(), Controls.end(), Control);
    };
    CHECK(Has({"Static", -1, "VORSTEK.EXE"}) == 1);
    CHECK(Has({"Static", -1, "version 2.0"}) == 1);
    CHECK(Has({"Static", -1, "Copyright (c) 2026 The Vorstek authors"}) == 1);
    CHECK(Has({"Static", -1, "Free software under the MIT License"}) == 1);
    CHECK(Has({"Button", 1, "OK"}) == 1);
    Calculator.PhotographScreen().Save("about");
    Calculator.Click("OK");

    for (const int nKey : {VK_RETURN, VK_ESCAPE, VK_SPACE})
    {
        Calculator.Choose(mnHelp, IDM_ABOUT);
        Calculator.CloseDialogWith(nKey);
    }
    Calculator.HitKey(kKey1);
    CHECK(Calculator.ReadsX("1."));
}
