// Printing without a printer, which the platform reports in its own words.

#include "tests/window/calculator.h"

#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/graph_window.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"

// Closes the report about the printer; 0 if another dialog follows it.
static int SaysSo(cCalculator *pCalculator)
{
    const cSeenBox Box = pCalculator->Box();
    CAPTURE(Box.m_Text);
    CHECK(Box.m_Text.find("printer") != std::string::npos);
    CHECK(Box.m_Buttons == std::vector<std::string>{"OK"});
    pCalculator->Click("OK");
    pCalculator->Settle();
    return !pCalculator->HasDialog();
}

TEST_CASE("a missing printer is reported, and the calculator still works")
{
    cCalculator Calculator;
    for (const unsigned nId : {IDM_PRINT, IDM_PAGE_SETUP})
    {
        CAPTURE(nId);
        Calculator.Choose(mnFile, nId);
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
    Calculator.HitKeys({kKey1, kKeyEnter, kKey2, kKeyPlus});
    CHECK(Calculator.ReadsX("3.00"));
}
