#include "tests/unit/calculator_rig.h"

static std::string RegisterLabel(unsigned nRegister)
{
    return std::string("Reg[") + (nRegister < 10 ? " " : "") + std::to_string(nRegister) + "] = ";
}

// A box's present line, without bringing the box up to date.
static std::string Standing(const cLineBox &Box, unsigned nLine)
{
    char szText[100];
    Box.GetLine(nLine, szText, sizeof szText);
    const std::string Text = szText;
    return Text.substr(0, Text.size() - 2);
}

// The display's main line as the host drew it last.
static std::string Drawn(const cCalculatorRig &Rig)
{
    std::string Text = Rig.m_Host.m_Drawn.m_Lines[0].m_szText;
    return Text.erase(Text.find_last_not_of(' ') + 1);
}

// What a user sees: display, current line, registers 1 and 2, LASTx.
static std::string Views(const cCalculatorRig &Rig)
{
    return Drawn(Rig) + ", line " + std::to_string(Rig.m_Listing.HighlightedLine()) + ", " +
           Standing(Rig.m_Registers, 1).substr(10) + ", " +
           Standing(Rig.m_Registers, 2).substr(10) + ", " +
           Standing(Rig.m_Registers, kRegisters).substr(10);
}

// --- the registers box

TEST_CASE("the registers box starts with 30 registers and LASTx")
{
    cCalculatorRig Rig;

    CHECK(Rig.m_Registers.CountLines() == 31);
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        CHECK_TEXT(Standing(Rig.m_Registers, nRegister), RegisterLabel(nRegister) + "+0.00");
    CHECK_TEXT(Standing(Rig.m_Registers, 30), "LASTx   = +0.00");
}

TEST_CASE("a store rewrites its register's line and selects it")
{
    // clang-format off
    static const struct
    {
        const char *szKeys;
        unsigned    nRegister;
        const char *szShown;
    } s_Rows[] =
    {
        { "STO 0",     0,  "+4.00"  },
        { "STO 9",     9,  "+4.00"  },
        { "STO . 0",   10, "+4.00"  },
        { "STO . 9",   19, "+4.00"  },
        { "STO + 7",   7,  "+16.00" },
        { "STO - . 3", 13, "+8.00"  },
        { "STO * 5",   5,  "+48.00" },
        { "STO / 6",   6,  "+3.00"  },
        { "STO i",     12, "+4.00"  },
        { "STO + g i", 12, "+16.00" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
            Rig.SetReg(nRegister, 12.0);
        Rig.Set(4.0);

        Rig.Type(Row.szKeys);

        for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
            CHECK_TEXT(Standing(Rig.m_Registers, nRegister),
                       RegisterLabel(nRegister) +
                           (nRegister == Row.nRegister ? Row.szShown : "+12.00"));
        CHECK(Rig.m_Registers.HighlightedLine() == Row.nRegister);
        CHECK(Rig.m_Registers.CountLines() == 31);
    }
}

TEST_CASE("only stores and statistics select a line of the registers box")
{
    for (const char *const szKeys : {"g STO", "g RCL", "f EEX", "f CLX", "RCL 3", "g 2", "f SST 4"})
    {
        CAPTURE_TEXT(szKeys);
        cCalculatorRig Rig;
        Rig.Type("5 STO 7");
        REQUIRE(Rig.m_Registers.HighlightedLine() == 7);

        Rig.Type(szKeys);

        CHECK(Rig.m_Registers.HighlightedLine() == 7);
    }
}

TEST_CASE("an operation that saves X writes the LASTx line")
{
    cCalculatorRig Rig;

    Rig.Type("3 ENTER 4 +");
    CHECK_TEXT(Standing(Rig.m_Registers, 30), "LASTx   = +4.00");

    Rig.Type("g 2");
    CHECK_TEXT(Standing(Rig.m_Registers, 30), "LASTx   = +7.00");
}

TEST_CASE("statistics write six registers and select .0")
{
    cCalculatorRig Rig;
    Rig.Set(3.0, 2.0);

    Rig.Type("Sum+");

    static const char *const s_Sums[] = {"+1.00", "+3.00", "+9.00", "+2.00", "+4.00", "+6.00"};
    for (unsigned i = 0; i < 6; i++)
        CHECK_TEXT(Standing(Rig.m_Registers, 10 + i), RegisterLabel(10 + i) + s_Sums[i]);
    CHECK(Rig.m_Registers.HighlightedLine() == 10);

    Rig.Type("f CLX");
    for (unsigned i = 0; i < 6; i++)
        CHECK_TEXT(Standing(Rig.m_Registers, 10 + i), RegisterLabel(10 + i) + "+0.00");
}

TEST_CASE("clearing the registers writes all of their lines but not LASTx")
{
    cCalculatorRig Rig;
    Rig.Type("2 ENTER 3 * STO 5 STO . 9");

    Rig.Type("f EEX");

    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        CHECK_TEXT(Standing(Rig.m_Registers, nRegister), RegisterLabel(nRegister) + "+0.00");
    CHECK_TEXT(Standing(Rig.m_Registers, 30), "LASTx   = +3.00");
}

TEST_CASE("a register's line keeps the format in which it was last written")
{
    cCalculatorRig Rig;
    Rig.Type("1.5 STO 1 f SST 4 STO 2 f GSB 1 STO 3 f GTO 2 STO 4 g 2 f SST 0");

    CHECK_TEXT(Standing(Rig.m_Registers, 0), "Reg[ 0] = +0.00");
    CHECK_TEXT(Standing(Rig.m_Registers, 1), "Reg[ 1] = +1.50");
    CHECK_TEXT(Standing(Rig.m_Registers, 2), "Reg[ 2] = +1.5000");
    CHECK_TEXT(Standing(Rig.m_Registers, 3), "Reg[ 3] = +1.5e+00");
    CHECK_TEXT(Standing(Rig.m_Registers, 4), "Reg[ 4] = +1.50e+00");
    CHECK_TEXT(Standing(Rig.m_Registers, 30), "LASTx   = +1.50e+00");
}

TEST_CASE("lines written during a run keep the format of their moment, too")
{
    cCalculatorRig Rig;
    Rig.Load("1.5\nSTO 1\nFIX 4\nSTO 2\nx^2\nSCI 1\nSTO 3\nSTO 1\nENG 2\n");

    Rig.Type("R/S");

    CHECK_TEXT(Standing(Rig.m_Registers, 1), "Reg[ 1] = +2.2e+00");
    CHECK_TEXT(Standing(Rig.m_Registers, 2), "Reg[ 2] = +1.5000");
    CHECK_TEXT(Standing(Rig.m_Registers, 3), "Reg[ 3] = +2.2e+00");
    CHECK_TEXT(Standing(Rig.m_Registers, 30), "LASTx   = +1.5000");
    CHECK(Rig.m_Registers.HighlightedLine() == 1);
}

// --- the highlight

TEST_CASE("the highlight follows the current line, whoever moves it")
{
    // clang-format off
    static const struct { const char *szKeys; unsigned nCurLine; } s_Rows[] =
    {
        { "GTO . 0 2",           2  },
        { "GTO . 0 0",           0  },
        { "SST",                 2  },
        { "SST SST",             3  },
        { "g SST",               98 },
        { "GTO 5",               3  },
        { "GTO . 0 3 g GSB",     0  },
        { "GSB 5",               5  },
        { "R/S",                 5  },
        { "PRGM SST",            1  },
        { "PRGM SST CLX",        2  },
        { "PRGM 12",             1  },
        { "PRGM SST SST g Sum+", 1  },
        { "PRGM f CHS",          0  },
        { "GTO . 9 9",           1  },
        { "f 1",                 0  },
        { "f -",                 0  },
        { "GTO . 0 2 1 g -",     3  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        Rig.Load("; a\nx<>y\n; b\nCLX\n; c\nLBL 5\n");

        Rig.Type(Row.szKeys);

        CHECK(Rig.State().m_nCurLine == Row.nCurLine);
        CHECK(Rig.m_Listing.HighlightedLine() ==
              Rig.State().m_Program[Row.nCurLine].m_nListingLine);
    }
}

TEST_CASE("Repair Highlight shows the current line again")
{
    cCalculatorRig Rig;
    Rig.Load("; a\nx<>y\n; b\nCLX\n");
    Rig.Type("GTO . 0 2");
    Rig.m_Listing.HighlightLine(50);

    const int nResult = Rig.m_Engine.RepairHighlight();

    CHECK(nResult == 1);
    CHECK(Rig.m_Listing.HighlightedLine() == 4);
}

TEST_CASE("a comment's place can be highlighted by the user and stays until a line moves")
{
    cCalculatorRig Rig;
    Rig.Load("; a\nx<>y\n");
    Rig.Type("GTO . 0 1");
    Rig.m_Listing.HighlightLine(1);

    Rig.Type("3 ENTER");
    CHECK(Rig.m_Listing.HighlightedLine() == 1);

    Rig.Type("GTO . 0 1");
    CHECK(Rig.m_Listing.HighlightedLine() == 2);
}

// --- during a run

static const char *const kCounting = "1\nSTO 1\n+\nSTO 2\n";

TEST_CASE("at the halt all views are up to date")
{
    static const struct
    {
        const char *szEnd;
        const char *szViews;
    } s_Rows[] = {{"R/S\n", " 6.00, line 6, +1.00, +6.00, +1.00"},
                  {"RTN\n", " 6.00, line 6, +1.00, +6.00, +1.00"},
                  {"GTO 9\n", "Error: no such label, line 5, +1.00, +6.00, +1.00"}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szEnd);
        cCalculatorRig Rig;
        Rig.Load((kCounting + std::string(Row.szEnd)).c_str());

        Rig.Type("5 R/S");

        CHECK_TEXT(Views(Rig), Row.szViews);
    }
}

TEST_CASE("a run that the host ends leaves all views up to date")
{
    cCalculatorRig Rig;
    Rig.Load(kCounting);
    Rig.m_Host.m_OnDrain = [&Rig] { return Rig.m_Host.m_nDrains < 3; };
    Rig.Set(5.0);

    Rig.m_Engine.RunProgram();

    CHECK_TEXT(Views(Rig), " 6.00, line 4, +1.00, +0.00, +1.00");
}

TEST_CASE("a PAUSE shows all views up to date")
{
    cCalculatorRig Rig;
    Rig.Load((kCounting + std::string("PAUSE\nCLX\n")).c_str());
    std::string Seen;
    Rig.m_Host.m_OnPause = [&] { Seen = Views(Rig); };

    Rig.Type("5 R/S");

    CHECK_TEXT(Seen, " 6.00, line 5, +1.00, +6.00, +1.00");
}

TEST_CASE("beside a box all views are up to date")
{
    cCalculatorRig Rig;
    Rig.Load((kCounting + std::string("SumG\nCLX\n")).c_str());
    Rig.m_Host.m_nPointLimit = 0;
    std::string Seen;
    Rig.m_Host.m_OnAsk = [&] { Seen = Views(Rig); };

    Rig.Type("5 R/S");

    CHECK_TEXT(Seen, " 6.00, line 5, +1.00, +6.00, +1.00");
}

TEST_CASE("beside a box of an inconsistency all views are up to date")
{
    cCalculatorRig Rig;
    Rig.Load((kCounting + std::string("7\nCLX\n")).c_str());
    Rig.m_Engine.Raw().m_Program[5].m_bNumberParsed = 0;
    std::string Seen;
    Rig.m_Host.m_OnAsk = [&] { Seen = Views(Rig); };

    Rig.Type("5 R/S");

    CHECK_TEXT(Seen, " 6.00, line 5, +1.00, +6.00, +1.00");
}

TEST_CASE("a host that dispatches messages can bring the views up to date")
{
    cCalculatorRig           Rig;
    std::vector<std::string> Seen;
    Rig.Load(kCounting);
    Rig.m_Host.m_OnDrain = [&] {
        Rig.m_Engine.RefreshViews();
        Seen.push_back(Views(Rig));
        return 1;
    };

    Rig.Type("5 R/S");

    CHECK(Seen == std::vector<std::string>{
                      " 1.00, line 2, +0.00, +0.00, +0.00", " 1.00, line 3, +1.00, +0.00, +0.00",
                      " 6.00, line 4, +1.00, +0.00, +1.00", " 6.00, line 5, +1.00, +6.00, +1.00"});
}

TEST_CASE("the state is up to date at every moment of a run")
{
    cCalculatorRig           Rig;
    std::vector<std::string> Seen;
    Rig.Load(kCounting);
    Rig.m_Host.m_OnDrain = [&] {
        Seen.push_back(Rig.State().m_szX + std::string(" ") + Rig.State().m_szY + " " +
                       Rig.State().m_szDisplay);
        return 1;
    };

    Rig.Type("5 R/S");

    CHECK(Seen == std::vector<std::string>{"+1.00 +5.00 +1.00", "+1.00 +5.00 +1.00",
                                           "+6.00 +0.00 +6.00", "+6.00 +0.00 +6.00"});
}

TEST_CASE("a single step brings all views up to date")
{
    cCalculatorRig Rig;
    Rig.Load(kCounting);
    Rig.Set(5.0);

    Rig.Type("SST SST SST SST");

    CHECK_TEXT(Views(Rig), " 6.00, line 5, +1.00, +6.00, +1.00");
}

TEST_CASE("a switch of the view during a run shows the stack of that moment")
{
    cCalculatorRig Rig;
    Rig.Load(kCounting);
    std::string Seen;
    Rig.m_Host.m_OnDrain = [&] {
        if (Rig.m_Host.m_nDrains == 1)
        {
            Rig.Down(kKeyStackView);
            Seen = Drawn(Rig) + "|" + Rig.m_Host.m_Drawn.m_Lines[1].m_szText;
        }
        return 1;
    };

    Rig.Type("5 R/S");

    CHECK_TEXT(Seen.substr(0, 24), "X   1.00|Y   5.00       ");
}

TEST_CASE("a full error text is visible")
{
    cCalculatorRig Rig;

    Rig.Type("GTO 3");

    CHECK_TEXT(Drawn(Rig), "Error: no such label");
}
