#include "tests/window/leaks.h"

#include <cstdlib>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/waiting.h"

void CancelDialog(const cCalculator &Calculator)
{
    const HWND hDialog = Calculator.Dialog();
    REQUIRE(hDialog);
    PostMessageA(hDialog, WM_COMMAND, IDCANCEL, 0);
    REQUIRE(WaitFor([hDialog] { return !IsWindow(hDialog); }));
}

void OpenAndClose(const cCalculator &Calculator, HWND hFrame, unsigned nCommand)
{
    PostMessageA(hFrame, WM_COMMAND, nCommand, 0);
    CancelDialog(Calculator);
}

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

int LeavesNothing(const cCalculator &Calculator, const std::function<void()> &Step)
{
    return LeavesNothing(Calculator, Rounds(), kpNothing, Step);
}

int Rounds()
{
    char szRounds[16] = "";
    GetEnvironmentVariableA("VORSTEK_SOAK", szRounds, sizeof szRounds);
    const int nRounds = atoi(szRounds);
    return nRounds > 0 ? nRounds : 30;
}
