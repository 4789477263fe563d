#include "engine/number_transfer.h"

#include "tests/unit/calculator_rig.h"

static const char *const kRefused = "10051";

TEST_CASE("a number is copied with all of its digits and read back as the same")
{
    static const struct
    {
        double      m_dValue;
        const char *m_szText;
    } s_Rows[] = {
        {0.0, "0"},
        {-2.5, "-2.5"},
        {0.1, "0.1"},
        {1.0 / 3.0, "0.3333333333333333"},
        {-1.2345678901234566e-07, "-1.2345678901234566e-07"},
        {9.999999999e99, "9.999999999e+99"},
    };
    for (const auto &Row : s_Rows)
    {
        char           szText[kTransferText];
        cCalculatorRig Rig;
        PrintForTransfer(Row.m_dValue, szText);
        CHECK_TEXT(szText, Row.m_szText);
        CHECK(Rig.m_Engine.EnterNumber(szText) == 1);
        CHECK(Rig.X() == Row.m_dValue);
    }
}

TEST_CASE("a number that comes as a text goes into X as a number line's does")
{
    cCalculatorRig Rig;
    Rig.Type("12");

    CHECK(Rig.m_Engine.EnterNumber("-2500") == 1);
    CHECK(Rig.X() == -2500.0);
    CHECK(Rig.Y() == 12.0);
    CHECK_TEXT(Rig.Shown(), "-2500.00");
    CHECK(Rig.m_Engine.EnterNumber("3.14159265358979323846") == 1);
    CHECK(Rig.X() == 3.14159265358979323846);
    CHECK(Rig.Y() == -2500.0);
    CHECK(Rig.m_Engine.EnterNumber("-1e999") == 1);
    CHECK(Rig.X() == -9.999999999e99);
    Rig.Type("7");
    CHECK(Rig.Y() == -9.999999999e99);

    Rig.Type("ENTER");
    CHECK(Rig.m_Engine.EnterNumber("8") == 1);
    CHECK(Rig.X() == 8.0);
    CHECK(Rig.Y() == 7.0);
    CHECK(Rig.Z() == -9.999999999e99);
}

TEST_CASE("a text that is not a number is refused in the loader's words and changes nothing")
{
    static const struct
    {
        const char *m_szText;
        const char *m_szBox;
    } s_Rows[] = {
        {"", "1:\n"},          {"\r\n \r\n", "2:\n "},    {"abc", "1:\nabc"},
        {"1,5", "1:\n1,5"},    {"1 2", "1:\n1 2"},        {"2.5 kg\r\n", "1:\n2.5 kg"},
        {"0x10", "1:\n0x10"},  {"inf", "1:\ninf"},        {"nan", "1:\nnan"},
        {"1e", "1:\n1e"},      {"--1", "1:\n--1"},        {"STO 1", "1:\nSTO 1"},
        {"1\n\n2\n", "3:\n2"}, {"; width\nx\n", "2:\nx"},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.m_szText);
        cCalculatorRig Rig;
        Rig.Type("4 ENTER 12");
        Rig.Forget();
        const std::string Before = Rig.Snapshot();

        CHECK(Rig.m_Engine.EnterNumber(Row.m_szText) == 0);
        CHECK_TEXT(Rig.LastBox(), std::string("Error: illegal number on line #") + Row.m_szBox);
        CHECK_TEXT(Rig.Sounds(), "");
        CHECK_TEXT(Rig.Snapshot(), Before);
        CHECK_TEXT(Rig.Shown(), " 12.");
        CHECK_TEXT(Rig.State().m_szEntry, "+12");
    }
}

TEST_CASE("blanks, comments and blank lines around a number that comes as a text are skipped")
{
    for (const char *const szText :
         {"-2.5E3", " \t-2.5E3\r\n", "-2.5E3;width", "; width\n\n-2.5E3  ; in metres\n;\n"})
    {
        CAPTURE_TEXT(szText);
        cCalculatorRig Rig;
        CHECK(Rig.m_Engine.EnterNumber(szText) == 1);
        CHECK(Rig.X() == -2500.0);
    }
}

TEST_CASE("in program mode a number that comes as a text becomes a line")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM 1 2");

    CHECK(Rig.m_Engine.EnterNumber("6.02e23") == 1);
    CHECK_TEXT(Rig.Step(1), "+12.");
    CHECK_TEXT(Rig.Step(2), "6.02e23");
    CHECK_TEXT(Rig.ListingLine(2), "02 6.02e23");
    CHECK(Rig.State().m_nCurLine == 2);
    CHECK(Rig.X() == 0.0);
    Rig.Type("3");
    CHECK_TEXT(Rig.Step(3), "+3.");

    Rig.Forget();
    CHECK(Rig.m_Engine.EnterNumber("1234567890.1234567") == 0);
    CHECK_TEXT(Rig.LastBox(), "Error: illegal number on line #1:\n1234567890.1234567");
    CHECK(Rig.m_Engine.EnterNumber("123456789.1234567") == 1);
    CHECK_TEXT(Rig.Step(4), "123456789.1234567");
}

TEST_CASE("a number that comes as a text clears an error, but waits for pending keys")
{
    cCalculatorRig Rig;
    Rig.Type("4 CHS f 2");
    REQUIRE(Rig.Display() == "Error: sqrt of x < 0");
    CHECK(Rig.m_Engine.EnterNumber("9") == 1);
    CHECK(Rig.X() == 9.0);
    CHECK_TEXT(Rig.Shown(), " 9.00");

    Rig.Type("STO");
    Rig.Forget();
    CHECK(Rig.m_Engine.EnterNumber("5") == 0);
    CHECK_TEXT(Rig.Sounds(), kRefused);
    CHECK(Rig.X() == 9.0);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "STO ");
}

TEST_CASE("a number that comes as a text is refused during a run")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\nGTO 1\n");
    int nEntered         = -1;
    Rig.m_Host.m_OnDrain = [&] {
        nEntered = Rig.m_Engine.EnterNumber("5");
        Rig.m_Engine.HaltProgram();
        return 1;
    };
    Rig.Type("R/S");

    CHECK(nEntered == 0);
    CHECK(Rig.X() == 0.0);
}
