// What the calculator takes from the platform it gives back.

#include "tests/window/calculator.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
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

// Opens a dialog by a posted command and closes it as Escape does.
void OpenAndClose(const cCalculator &Calculator, unsigned nCommand)
{
    PostCommand(Calculator, nCommand);
    const HWND hDialog = Calculator.Dialog();
    REQUIRE(hDialog);
    PostMessageA(hDialog, WM_COMMAND, IDCANCEL, 0);
    REQUIRE(WaitFor([hDialog] { return !IsWindow(hDialog); }));
}

// Wine itself keeps the two menus of each file dialog.
enum eKept
{
    kpNothing,
    kpMenus
};

// What a step leaves behind shows each time it is taken so often. Caches of the
// platform, of device contexts and fonts, grow as well, but come to an end: from
// some time on so many rounds leave the counts as they were.
int LeavesNothing(const cCalculator &Calculator, int nRounds, eKept nKept,
                  const std::function<void()> &Step)
{
    const int    nMenus = nKept == kpMenus ? 2 * nRounds : 0;
    const size_t nParts = 5;  // of the rounds, between two counts
    const size_t nMost  = 6 * nParts;
    const size_t nPart  = (static_cast<size_t>(nRounds) + nParts - 1) / nParts;

    std::vector<std::pair<int, int>> Counts;
    for (size_t i = 0; i <= nMost; i++)
    {
        Calculator.SettlePaint();
        Counts.push_back(Calculator.Objects());
        if (i >= nParts && Counts[i].first <= Counts[i - nParts].first &&
            Counts[i].second <= Counts[i - nParts].second + nMenus)
            return 1;
        for (size_t j = 0; j < nPart; j++)
            Step();
    }
    return 0;
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
        CHECK(LeavesNothing(Calculator, nRounds, Dialog.m_nKept,
                            [&] { OpenAndClose(Calculator, Dialog.m_nCommand); }));
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
    CHECK(Leaves(nRounds, [&] { OpenAndClose(Calculator, IDM_NEW); }));
}
