// The options dialog and the About box.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdlib>

#include "tests/window/input.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kViewMenu = 2;
const unsigned kHelpMenu = 3;

RECT WindowRect(HWND hWnd)
{
    RECT Rect = {};
    GetWindowRect(hWnd, &Rect);
    return Rect;
}

// Over the middle of its parent, but never beyond the screen's left or top.
int IsCentred(HWND hDialog, HWND hParent)
{
    const RECT Dialog = WindowRect(hDialog);
    const RECT Parent = WindowRect(hParent);
    const LONG nLeft  = (Parent.left + Parent.right - (Dialog.right - Dialog.left)) / 2;
    const LONG nTop   = (Parent.top + Parent.bottom - (Dialog.bottom - Dialog.top)) / 2;
    return std::labs(Dialog.left - std::max(nLeft, 0L)) <= 1 &&
           std::labs(Dialog.top - std::max(nTop, 0L)) <= 1;
}

void MoveTo(HWND hWnd, int x, int y)
{
    SetWindowPos(hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

struct cControl
{
    std::string m_Class;
    int         m_nId;
    std::string m_Text;

    bool operator==(const cControl &) const = default;
};

std::vector<cControl> ControlsOf(HWND hDialog)
{
    std::vector<cControl> Controls;
    for (HWND hChild = GetWindow(hDialog, GW_CHILD); hChild;
         hChild      = GetWindow(hChild, GW_HWNDNEXT))
    {
        char szClass[40] = "";
        char szText[200] = "";
        GetClassNameA(hChild, szClass, sizeof szClass);
        SendMessageA(hChild, WM_GETTEXT, sizeof szText, reinterpret_cast<LPARAM>(szText));
        Controls.push_back({szClass, static_cast<short>(GetDlgCtrlID(hChild)), szText});
    }
    return Controls;
}

int IsChecked(HWND hDialog, int nId)
{
    return SendDlgItemMessageA(hDialog, nId, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// The states of 1031 to 1036, as "010101".
std::string States(HWND hDialog)
{
    std::string Text;
    for (int nId = 1031; nId <= 1036; nId++)
        Text += IsChecked(hDialog, nId) ? '1' : '0';
    return Text;
}

int IsHighlightCommandEnabled(cCalculator &Calculator)
{
    const UINT nGrey    = Calculator.MenuState(IDM_REPAIR_HIGHLIGHT) & (MF_GRAYED | MF_DISABLED);
    const int  nButton  = Calculator.Button(8).m_nState;
    const int  bEnabled = nGrey == 0;
    CHECK(nButton == (bEnabled ? TBSTATE_ENABLED : TBSTATE_INDETERMINATE));
    return bEnabled;
}

void OpenOptions(cCalculator &Calculator)
{
    Calculator.Choose(kViewMenu, IDM_OPTIONS);
    REQUIRE(Calculator.Dialog());
}

int HasClosed(cCalculator &Calculator)
{
    return Eventually(0, [&] { return Calculator.HasDialog(); }) == 0;
}

}  // namespace

TEST_CASE("the options dialog has its controls and is worked with the keyboard alone")
{
    static const std::vector<cControl> s_Controls = {
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

    cCalculator Calculator;
    OpenOptions(Calculator);
    HWND hDialog = Calculator.Dialog();
    CHECK(Calculator.Box().m_Caption == "Vorstek Options");
    CHECK((ControlsOf(hDialog) == s_Controls));
    CHECK(States(hDialog) == "010101");
    CHECK(IsCentred(hDialog, Calculator.Window()));
    CHECK_FALSE(IsWindowEnabled(Calculator.Window()));
    Calculator.PhotographScreen().Save("options");

    // Tab goes round; each group of radio buttons is one stop.
    for (const int nControl : {1032, 1034, 1035, 1036, 1, 2, 1032})
    {
        CHECK(Eventually(nControl, [&] { return Calculator.FocusedControl(); }) == nControl);
        HitKey(VK_TAB);
        Calculator.Settle();
    }
    CHECK(States(hDialog) == "010101");

    // On 1034: arrow, then the space bar on both check boxes.
    HitKey(VK_UP);
    HitKey(VK_TAB);
    HitKey(VK_SPACE);
    HitKey(VK_TAB);
    HitKey(VK_SPACE);
    Calculator.Settle();
    CHECK(Eventually(std::string("011010"), [&] { return States(hDialog); }) == "011010");

    // Escape changes nothing.
    Calculator.CloseDialogWith(VK_ESCAPE);
    CHECK_FALSE(Calculator.IsRegistersShown());
    OpenOptions(Calculator);
    hDialog = Calculator.Dialog();
    CHECK(States(hDialog) == "010101");

    // Neither do Cancel and the close box, whatever was clicked before.
    for (const int nControl : {1031, 1033, 1035, 1036})
        Calculator.ClickControl(nControl);
    CHECK(States(hDialog) == "101010");
    Calculator.Click("Cancel");
    OpenOptions(Calculator);
    hDialog = Calculator.Dialog();
    CHECK(States(hDialog) == "010101");
    Calculator.ClickControl(1031);
    Click(FramePoint(hDialog, HTCLOSE));
    CHECK(HasClosed(Calculator));
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK_FALSE(IsHighlightCommandEnabled(Calculator));

    // Enter is OK.
    MoveTo(Calculator.Window(), 400, 150);
    OpenOptions(Calculator);
    hDialog = Calculator.Dialog();
    CHECK(IsCentred(hDialog, Calculator.Window()));
    HitKey(VK_UP);
    Calculator.Settle();
    Calculator.CloseDialogWith(VK_RETURN);
    CHECK(Eventually(1, [&] { return Calculator.IsListingShown(); }) == 1);
    CHECK(GetForegroundWindow() == Calculator.Window());
}

TEST_CASE("OK shows and hides the boxes and keeps the listing of program mode")
{
    cCalculator Calculator;
    const HWND  hWnd    = Calculator.Window();
    const auto  WidthOf = [hWnd] {
        const RECT Rect = WindowRect(hWnd);
        return static_cast<int>(Rect.right - Rect.left);
    };
    const int nFace = WidthOf();

    Calculator.KeepOpen(1, 0);
    CHECK(Calculator.IsListingShown());
    CHECK_FALSE(Calculator.IsRegistersShown());
    CHECK(WidthOf() == nFace + 205);
    CHECK(IsHighlightCommandEnabled(Calculator));
    CHECK(Calculator.HighlightedLine() == "00");

    Calculator.KeepOpen(0, 1);
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK(Calculator.IsRegistersShown());
    CHECK_FALSE(IsHighlightCommandEnabled(Calculator));

    // In program mode the listing stays until run mode is entered.
    Calculator.KeepOpen(1, 0);
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(11);  // ENTER
    Calculator.KeepOpen(0, 0);
    CHECK(Calculator.IsListingShown());
    CHECK(IsHighlightCommandEnabled(Calculator));
    CHECK(Calculator.HighlightedLine() == "01 ENTER");
    Calculator.Slide(swMode, 1);
    CHECK_FALSE(Calculator.IsListingShown());
    CHECK_FALSE(IsHighlightCommandEnabled(Calculator));
    CHECK(WidthOf() == nFace);

    // The other way round it opens at once, and the current line is marked.
    Calculator.KeepOpen(1, 0);
    CHECK(Calculator.HighlightedLine() == "01 ENTER");
    Calculator.Slide(swMode, 0);
    Calculator.Slide(swMode, 1);
    CHECK(Calculator.IsListingShown());
}

TEST_CASE("tracing writes each run beside the program until it is switched off")
{
    cCalculator Calculator;
    Calculator.Slide(swMode, 0);
    Calculator.HitKeys({25, 11});  // 2 ENTER
    Calculator.Slide(swMode, 1);
    CHECK_FALSE(Calculator.Folder().Has("tracelog.txt"));

    OpenOptions(Calculator);
    Calculator.ClickControl(IDC_TRACE);
    Calculator.Click("OK");
    Calculator.HitKeys({3, 29, 28, 28, 30});  // GTO . 0 0, R/S
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
    Calculator.HitKeys({3, 29, 28, 28, 26, 30});  // GTO . 0 0, 3 R/S
    CHECK(Calculator.ReadsX("2.00"));
    CHECK(Calculator.Folder().Read("tracelog.txt") == Trace);
}

TEST_CASE("the About box tells what the program is")
{
    cCalculator Calculator;
    MoveTo(Calculator.Window(), 300, 100);
    Calculator.Choose(kHelpMenu, IDM_ABOUT);
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
        Calculator.Choose(kHelpMenu, IDM_ABOUT);
        Calculator.CloseDialogWith(nKey);
    }
    Calculator.HitKey(24);
    CHECK(Calculator.ReadsX("1."));
}
