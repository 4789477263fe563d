// What somebody does who has the calculator for the first time, with the mouse
// alone.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/waiting.h"

TEST_CASE("a sum is computed with the mouse")
{
    cCalculator Calculator;
    CHECK(Calculator.ReadsX("0.00"));
    Calculator.HitKeys({25, 11, 26, 19});  // 2 ENTER 3 +
    CHECK(Calculator.ReadsX("5.00"));
    CHECK(Calculator.ReadsBottom("LastOp:  +"));
    CHECK(Calculator.ReadsAngle("deg"));
    Calculator.Photograph().Save("sum");
}

TEST_CASE("a program is keyed in, run, stepped, saved and opened again with the mouse")
{
    cCalculator Calculator;
    Calculator.Slide(swMode, 0);
    CHECK(Calculator.ReadsProgramLine("00"));
    CHECK(Calculator.IsListingShown());
    Calculator.HitKeys({11, 25, 23, 24, 19});  // ENTER 2 * 1 +
    CHECK(Calculator.ReadsProgramLine("05 +"));
    CHECK(Calculator.HighlightedLine() == "05 +");
    Calculator.Photograph().Save("program");

    Calculator.Slide(swMode, 1);
    CHECK_FALSE(Calculator.IsListingShown());
    Calculator.HitKeys({3, 29, 28, 28, 22, 30});  // GTO . 0 0, 6 R/S
    CHECK(Calculator.ReadsX("13.00"));

    Calculator.HitKeys({3, 29, 28, 28, 20});  // GTO . 0 0, 4
    for (int i = 0; i < 5; i++)
        Calculator.HitKey(1);  // SST
    CHECK(Calculator.ReadsX("9.00"));
    CHECK(Calculator.IsListingShown());
    CHECK(Calculator.IsRegistersShown());
    Calculator.Photograph().Save("single-step");

    Calculator.Choose(0, IDM_SAVE_AS);
    Calculator.GiveFileName(Calculator.Path("double and one.txt"));
    CHECK(Eventually(0, [&] { return Calculator.HasDialog(); }) == 0);
    CHECK(Calculator.Folder().Read("double and one.txt") == "ENTER\r\n+2.\r\n*\r\n+1.\r\n+\r\n");
    CHECK(Calculator.StatusText() == "filename: " + Calculator.Path("double and one.txt"));

    Calculator.Choose(0, IDM_NEW);
    CHECK(Eventually(std::string("01 R/S"), [&] { return Calculator.ListingLines()[1]; }) ==
          "01 R/S");
    Calculator.Choose(0, IDM_OPEN);
    Calculator.GiveFileName("double and one.txt");
    CHECK(Eventually(std::string("05 +"), [&] { return Calculator.ListingLines()[5]; }) == "05 +");
    Calculator.HitKeys({16, 30});  // 7 R/S
    CHECK(Calculator.ReadsX("15.00"));
}
