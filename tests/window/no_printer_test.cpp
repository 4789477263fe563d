// Printing where there is no printer: the platform says so in words of its own.

#include "tests/window/calculator.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/graph_window.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kFileMenu = 0;

// Whether a box speaks of the printer, goes with OK, and no other dialog comes.
int SaysSo(cCalculator *pCalculator)
{
    const cSeenBox Box = pCalculator->Box();
    CAPTURE(Box.m_Text);
    CHECK(Box.m_Text.find("printer") != std::string::npos);
    CHECK(Box.m_Buttons == std::vector<std::string>{"OK"});
    pCalculator->Click("OK");
    pCalculator->Settle();
    return !pCalculator->HasDialog();
}

}  // namespace

TEST_CASE("without a printer a box says so, and the calculator goes on")
{
    cCalculator Calculator;
    for (const unsigned nId : {IDM_PRINT, IDM_PAGE_SETUP})
    {
        CAPTURE(nId);
        Calculator.Choose(kFileMenu, nId);
        CHECK(SaysSo(&Calculator));
    }
    cGraphWindow Graph(&Calculator);
    for (const unsigned nId : {IDM_PRINT_GRAPH, IDM_PRINT_SETUP})
    {
        CAPTURE(nId);
        Graph.Choose(gmFile, nId);
        CHECK(SaysSo(&Calculator));
    }
    CHECK(IsWindowEnabled(Graph.Window()));
    CHECK(IsWindowEnabled(Calculator.Window()));
    Calculator.HitKeys({24, 11, 25, 19});  // 1 ENTER 2 +
    CHECK(Calculator.ReadsX("3.00"));
}
