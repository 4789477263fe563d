// The calculator frees every object of the platform that it creates.

#include "tests/window/calculator.h"

#include <algorithm>
#include <string>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/graph_window.h"
#include "tests/window/keys.h"
#include "tests/window/leaks.h"
#include "tests/window/waiting.h"

TEST_CASE("the calculator's dialogs leave no GDI objects and no windows behind")
{
    static const struct
    {
        const char *m_szName;
        unsigned    m_nCommand;
        eKept       m_nKept;
    } s_Dialogs[] = {
        {"options", IDM_OPTIONS, kpNothing},
        {"about", IDM_ABOUT, kpNothing},
        {"open", IDM_OPEN, kpMenus},
        {"save as", IDM_SAVE_AS, kpMenus},
        {"page setup", IDM_PAGE_SETUP, kpNothing},
        {"error box", IDM_UNDO, kpNothing},  // there is nothing to undo
    };
    cCalculator Calculator;
    for (const auto &Dialog : s_Dialogs)
    {
        CAPTURE(std::string(Dialog.m_szName));
        CHECK(LeavesNothing(Calculator, Rounds(), Dialog.m_nKept, [&] {
            OpenAndClose(Calculator, Calculator.Window(), Dialog.m_nCommand);
        }));
    }
}

TEST_CASE("program runs and repaints leave nothing behind")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "LBL 1\r\nRCL 0\r\nsin\r\nSTO 1\r\nR/S\r\nGTO 1\r\n");
    CHECK(LeavesNothing(Calculator, 10 * Rounds(), kpNothing,
                        [&] { Calculator.HitKey(kKeyRunStop); }));
    CHECK(LeavesNothing(Calculator, [&] { Repaint(Calculator); }));
}

TEST_CASE("the slide switches leave nothing behind")
{
    const int   nSlides = std::max(Rounds() / 10, 1);
    cCalculator Calculator;
    for (const eSwitch nSwitch : {swStackView, swMode})
    {
        const int bFirst = nSwitch == swStackView;
        CHECK(LeavesNothing(Calculator, nSlides, kpNothing, [&] {
            Calculator.Slide(nSwitch, bFirst);
            Calculator.Slide(nSwitch, !bFirst);
        }));
    }
}

TEST_CASE("the question whether to save leaves nothing behind")
{
    cCalculator Calculator;
    AddEnter(&Calculator);
    CHECK(
        LeavesNothing(Calculator, [&] { OpenAndClose(Calculator, Calculator.Window(), IDM_NEW); }));
}

TEST_CASE("the graph's file dialogs and its page setup leave nothing behind")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("line.txt", "1\n2\n3\n");
    for (const unsigned nCommand : {IDM_GRAPH_OPEN, IDM_GRAPH_APPEND, IDM_GRAPH_SAVE_AS})
    {
        CAPTURE(nCommand);
        CHECK(LeavesNothing(Calculator, Rounds(), kpMenus,
                            [&] { OpenAndClose(Calculator, Graph.Window(), nCommand); }));
    }
    CHECK(LeavesNothing(Calculator,
                        [&] { OpenAndClose(Calculator, Graph.Window(), IDM_PRINT_SETUP); }));
}

TEST_CASE("an export, which draws the picture before its file dialog, leaves nothing behind")
{
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("line.txt", "1\n2\n3\n");
    CHECK(LeavesNothing(Calculator, Rounds(), kpMenus, [&] {
        PostMessageA(Graph.Window(), WM_COMMAND, IDM_CREATE_BMP, 0);
        const HWND hSize = Calculator.Dialog();
        REQUIRE(hSize);
        PostMessageA(hSize, WM_COMMAND, IDOK, 0);
        REQUIRE(WaitFor([hSize] { return !IsWindow(hSize); }));
        CancelDialog(Calculator);
    }));
}

TEST_CASE("the platform's dialogs for colours and fonts leave nothing behind")
{
    static const struct
    {
        unsigned m_nCommand;
        int      m_nButton;
    } s_Buttons[] = {{IDM_REFORMAT_PLOT, IDC_TEXT_FONT},
                     {IDM_REFORMAT_PLOT, IDC_AXIS_COLOUR},
                     {IDM_REFORMAT_PLOT, IDC_BACKGROUND_COLOUR},
                     {IDM_REFORMAT_LINE, IDC_CHANGE_COLOUR}};
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("line.txt", "1\n2\n3\n");
    for (const auto &Button : s_Buttons)
    {
        CAPTURE(Button.m_nButton);
        PostMessageA(Graph.Window(), WM_COMMAND, Button.m_nCommand, 0);
        const HWND hDialog = Calculator.Dialog();
        REQUIRE(hDialog);
        CHECK(LeavesNothing(Calculator, [&] {
            PostMessageA(hDialog, WM_COMMAND, static_cast<WPARAM>(Button.m_nButton), 0);
            REQUIRE(WaitFor([hDialog] { return !IsWindowEnabled(hDialog); }));
            CancelDialog(Calculator);
            REQUIRE(WaitFor([hDialog] { return IsWindowEnabled(hDialog); }));
        }));
        CancelDialog(Calculator);
    }
}
