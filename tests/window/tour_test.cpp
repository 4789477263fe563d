// A short tour of the calculator, which ./run shows where there is no screen.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/keys.h"
#include "tests/window/waiting.h"

TEST_CASE("an example listing is opened with the file dialog and run with the mouse")
{
    cCalculator Calculator;
    Calculator.KeepOpen(1, 1);

    Calculator.Choose(mnFile, IDM_OPEN);
    Calculator.GiveFileName(FullPath(VORSTEK_EXAMPLES "/queens.txt"));
    CHECK(Eventually(std::string("   ; Queens on a chessboard, none of which attacks another"),
                     [&] { return Calculator.ListingLines()[1]; }) ==
          "   ; Queens on a chessboard, none of which attacks another");
    Calculator.HitKeys({kKey8, kKeyRunStop});
    CHECK(Calculator.ReadsX("15863724"));
    Calculator.Settle();
    Calculator.Photograph().Save("queens");
}
