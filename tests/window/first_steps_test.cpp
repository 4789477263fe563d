// The first steps of a new user, with the mouse alone.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/keys.h"
#include "tests/window/waiting.h"

TEST_CASE("a sum is computed with the mouse")
{
    cCalculator Calculator;
    CHECK(Calculator.ReadsX("0.00"));
    Calculator.HitKeys({kKey2, kKeyEnter, kKey3, kKeyPlus});
    CHECK(Calculator.ReadsX("5.00"));
    CHECK(Calculator.ReadsBottom("LastOp:  +"));
    CHECK(Calculator.ReadsAngle("deg"));
    Calculator.Photograph().Save("sum");
}

TEST_CASE("a program is entered, run and stepped with the mouse")
{
    cCalculator Calculator;
    Calculator.Slide(swMode, 0);
    CHECK(Calculator.ReadsProgramLine("00"));
    CHECK(Calculator.IsListingShown());
    Calculator.HitKeys({kKeyEnter, kKey2, kKeyTimes, kKey1, kKeyPlus});
    CHECK(Calculator.ReadsProgramLine("05 +"));
    CHECK(Calculator.HighlightedLine() == "05 +");
    Calculator.Photograph().Save("program");

    Calculator.Slide(swMode, 1);
    CHECK_FALSE(Calculator.IsListingShown());
    Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey0, kKey0, kKey6, kKeyRunStop});
    CHECK(Calculator.ReadsX("13.00"));

    Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey0, kKey0, kKey4});
    for (int i = 0; i < 5; i++)
        Calculator.HitKey(kKeySst);
    CHECK(Calculator.ReadsX("9.00"));
    CHECK(Calculator.IsListingShown());
    CHECK(Calculator.IsRegistersShown());
    Calculator.Photograph().Save("single-step");
}

TEST_CASE("a program is saved and opened again with the mouse")
{
    cCalculator Calculator;
    Calculator.Slide(swMode, 0);
    Calculator.HitKeys({kKeyEnter, kKey2, kKeyTimes, kKey1, kKeyPlus});
    Calculator.Slide(swMode, 1);
    Calculator.Choose(mnFile, IDM_SAVE_AS);
    Calculator.GiveFileName(Calculator.Path("double and one.txt"));
    CHECK(Calculator.HasNoDialog());
    CHECK(Calculator.Folder().Read("double and one.txt") == "ENTER\r\n+2.\r\n*\r\n+1.\r\n+\r\n");
    CHECK(Calculator.StatusText() == "filename: " + Calculator.Path("double and one.txt"));

    Calculator.Choose(mnFile, IDM_NEW);
    CHECK(Eventually(std::string("01 R/S"), [&] { return Calculator.ListingLines()[1]; }) ==
          "01 R/S");
    Calculator.Choose(mnFile, IDM_OPEN);
    Calculator.GiveFileName("double and one.txt");
    CHECK(Eventually(std::string("05 +"), [&] { return Calculator.ListingLines()[5]; }) == "05 +");
    Calculator.HitKeys({kKey7, kKeyRunStop});
    CHECK(Calculator.ReadsX("15.00"));
}
