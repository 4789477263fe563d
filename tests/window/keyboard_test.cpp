// Typing on the PC keyboard, with the real window in front.

#include "tests/window/calculator.h"

#include <cstring>

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"

static const char kMapped[] = "e-789+456*123/0.";

static void TypeCharacter(char c)
{
    Type(std::string(1, c));
}

// All printable characters without a key of the calculator, and some that are not
// printable.
static std::string Unmapped()
{
    std::string Characters = "\b\n";
    for (int c = ' '; c < 256; c++)
        if (c != 127 && !strchr(kMapped, c))
            Characters += static_cast<char>(c);
    return Characters;
}

TEST_CASE("every mapped character does what a click on its key does")
{
    static const struct
    {
        char     m_cTyped;
        unsigned m_nKey;
    } s_Rows[] = {
        {'\r', 11}, {'e', 13}, {'-', 15}, {'7', 16}, {'8', 17}, {'9', 18},
        {'+', 19},  {'4', 20}, {'5', 21}, {'6', 22}, {'*', 23}, {'1', 24},
        {'2', 25},  {'3', 26}, {'/', 27}, {'0', 28}, {'.', 29},
    };
    cCalculator Calculator;
    for (const auto &Row : s_Rows)
        for (const unsigned nBefore : {kKeyClearX, kKeyStore})
        {
            CAPTURE(Row.m_nKey);
            CAPTURE(nBefore);
            // 2 in Y, 3 in X, then CLx or the beginning of an instruction.
            Calculator.HitKeys({kKeyClearX, kKey2, kKeyEnter, kKey3, nBefore, Row.m_nKey});
            const cPicture Clicked = PhotographFace(Calculator);
            Calculator.HitKeys({kKeyClearX, kKey2, kKeyEnter, kKey3, nBefore});
            const cPicture Before = PhotographFace(Calculator);

            TypeCharacter(Row.m_cTyped);
            CHECK(LooksLike(Calculator, Clicked));
            CHECK_FALSE(Before == Clicked);
        }
}

TEST_CASE("a sum is typed, and other characters do nothing")
{
    cCalculator Calculator;

    Type("12\r3.5+");
    CHECK(Calculator.ReadsX("15.50"));
    CHECK(Calculator.ReadsBottom("LastOp:  +"));
    HitKey(VK_RETURN);
    CHECK(Calculator.ReadsBottom("LastOp:  ENTER"));
    Type("2e3");
    CHECK(Calculator.ReadsX("2.e+03"));
    HitKey(VK_NUMLOCK);
    HitKey(VK_NUMPAD7);
    CHECK(Calculator.ReadsX("2.e+37"));
    HitKey(VK_NUMLOCK);

    // While a number or an instruction is incomplete.
    for (const unsigned nKey : {24U, kKeyStore})
    {
        Calculator.HitKey(nKey);
        const cPicture Before = PhotographFace(Calculator);
        Type(Unmapped());
        HitKey(VK_ESCAPE);
        HitKey(VK_F10 + 3);
        HitKey(VK_INSERT);
        HitKey(VK_SHIFT);
        CHECK(LooksLike(Calculator, Before));
        CHECK_FALSE(Calculator.HasDialog());
    }
    Type("7");
    CHECK(Calculator.ReadsBottom("LastOp:  STO 7"));
}

TEST_CASE("typed characters reach the calculator after a click into one of its boxes")
{
    cCalculator Calculator;
    Calculator.HitKey(kKeySst);
    REQUIRE(Calculator.IsListingShown());
    REQUIRE(Calculator.IsRegistersShown());

    ClickMiddleOf(Calculator.Listing());
    Type("12");
    CHECK(Calculator.ReadsX("12."));
    ClickMiddleOf(Calculator.Registers());
    Type("3\r");
    CHECK(Calculator.ReadsX("123.00"));
    ClickMiddleOf(Calculator.StatusBar());
    Type("5*");
    CHECK(Calculator.ReadsX("615.00"));

    // The boxes have not changed.
    CHECK(Calculator.ListingLines()[1] == "01 R/S");
    CHECK(Calculator.RegistersLines()[0] == "Reg[ 0] = +0.00");
    Calculator.Photograph().Save("boxes-after-typing");
}

TEST_CASE("a running program is halted by Escape and by a mapped character, and by no other")
{
    cCalculator Calculator;
    RunListing(&Calculator, "LBL 1\r\nGTO 1\r\n");
    CHECK(IsProgramRunning(Calculator));

    Type(Unmapped());
    Calculator.Settle();
    CHECK(IsProgramRunning(Calculator));

    HitKey(VK_ESCAPE);
    CHECK(HasHalted(Calculator));
    CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    HitKey(VK_ESCAPE);

    // The character that halts a program is not entered.
    for (const char c : std::string("\r") + kMapped)
    {
        Calculator.HitKey(kKeyRunStop);
        CHECK(IsProgramRunning(Calculator));
        TypeCharacter(c);
        CHECK(HasHalted(Calculator));
        CHECK(Calculator.ReadsX("0.00"));
        CHECK(Calculator.ReadsBottom("LastOp:  R/S"));
    }
    Type("6");
    CHECK(Calculator.ReadsX("6."));
}
