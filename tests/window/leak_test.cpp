// What the calculator takes from the platform it gives back.

#include "tests/window/calculator.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/graph_window.h"
#include "tests/window/leaks.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kKeyEnter   = 11;
const unsigned kKeyRunStop = 30;

// A soak lasts longer; scripts/soak says how long.
int Rounds()
{
    char szRounds[16] = "";
    GetEnvironmentVariableA("VORSTEK_SOAK", szRounds, sizeof szRounds);
    const int nRounds = atoi(szRounds);
    return nRounds > 0 ? nRounds : 100;
}

}  // namespace

TEST_CASE("dialogs, boxes and program runs leave no GDI and no window objects behind")
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
    const int   nRounds = Rounds();
    const int   nSlides = std::max(nRounds / 10, 1);
    cCalculator Calculator;
    for (const auto &Dialog : s_Dialogs)
    {
        CAPTURE(std::string(Dialog.m_szName));
        CHECK(LeavesNothing(Calculator, nRounds, Dialog.m_nKept, [&] {
            OpenAndClose(Calculator, Calculator.Window(), Dialog.m_nCommand);
        }));
    }

    const auto Leaves = [&](int nTimes, const std::function<void()> &Step) {
        return LeavesNothing(Calculator, nTimes, kpNothing, Step);
    };
    OpenListing(&Calculator, "LBL 1\r\nRCL 0\r\nsin\r\nSTO 1\r\nR/S\r\nGTO 1\r\n");
    CHECK(Leaves(10 * nRounds, [&] { Calculator.HitKey(kKeyRunStop); }));
    CHECK(Leaves(nRounds, [&] { Repaint(Calculator); }));
    CHECK(Leaves(nSlides, [&] {
        Calculator.Slide(swStackView, 1);
        Calculator.Slide(swStackView, 0);
    }));
    CHECK(Leaves(nSlides, [&] {
        Calculator.Slide(swMode, 0);
        Calculator.Slide(swMode, 1);
    }));

    // The question whether to save.
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(kKeyEnter);
    CHECK(Leaves(nRounds, [&] { OpenAndClose(Calculator, Calculator.Window(), IDM_NEW); }));
}

TEST_CASE("the graph's dialogs that the platform makes leave nothing behind")
{
    const int    nRounds = Rounds();
    cCalculator  Calculator;
    cGraphWindow Graph(&Calculator);
    Graph.Open("line.txt", "1\n2\n3\n");
    for (const unsigned nCommand : {IDM_GRAPH_OPEN, IDM_GRAPH_APPEND, IDM_GRAPH_SAVE_AS})
    {
        CAPTURE(nCommand);
        CHECK(LeavesNothing(Calculator, nRounds, kpMenus,
                            [&] { OpenAndClose(Calculator, Graph.Window(), nCommand); }));
    }
    CHECK(LeavesNothing(Calculator, nRounds, kpNothing,
                        [&] { OpenAndClose(Calculator, Graph.Window(), IDM_PRINT_SETUP); }));

    // The file dialog of an export, which is drawn before it.
    CHECK(LeavesNothing(Calculator, nRounds, kpMenus, [&] {
        PostMessageA(Graph.Window(), WM_COMMAND, IDM_CREATE_BMP, 0);
        const HWND hSize = Calculator.Dialog();
        REQUIRE(hSize);
        PostMessageA(hSize, WM_COMMAND, IDOK, 0);
        REQUIRE(WaitFor([hSize] { return !IsWindow(hSize); }));
        CancelDialog(Calculator);
    }));

    // Those that a dialog opens.
    static const struct
    {
        unsigned m_nCommand;
        int      m_nButton;
    } s_Buttons[] = {{IDM_REFORMAT_PLOT, IDC_TEXT_FONT},
                     {IDM_REFORMAT_PLOT, IDC_AXIS_COLOUR},
                     {IDM_REFORMAT_PLOT, IDC_BACKGROUND_COLOUR},
                     {IDM_REFORMAT_LINE, IDC_CHANGE_COLOUR}};
    for (const auto &Button : s_Buttons)
    {
        CAPTURE(Button.m_nButton);
        PostMessageA(Graph.Window(), WM_COMMAND, Button.m_nCommand, 0);
        const HWND hDialog = Calculator.Dialog();
        REQUIRE(hDialog);
        CHECK(LeavesNothing(Calculator, nRounds, kpNothing, [&] {
            PostMessageA(hDialog, WM_COMMAND, static_cast<WPARAM>(Button.m_nButton), 0);
            REQUIRE(WaitFor([hDialog] { return !IsWindowEnabled(hDialog); }));
            CancelDialog(Calculator);
            REQUIRE(WaitFor([hDialog] { return IsWindowEnabled(hDialog); }));
        }));
        CancelDialog(Calculator);
    }
}
