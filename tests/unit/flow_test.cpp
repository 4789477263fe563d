#include <limits>

#include "engine/range.h"
#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

// A listing of R/S lines with other lines at given numbers.
static std::string Program(const std::vector<std::pair<unsigned, std::string>> &Lines)
{
    std::string Listing;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
    {
        std::string Text = "R/S";
        for (const auto &[nNumber, Instruction] : Lines)
            if (nNumber == nLine)
                Text = Instruction;
        Listing += Text + "\n";
    }
    return Listing;
}

static void Load(cCalculatorRig *pRig, const std::vector<std::pair<unsigned, std::string>> &Lines)
{
    pRig->Load(Program(Lines).c_str());
}

// Number entry in progress and stack lift off, as before ENTER's next number.
static void BeginEntry(cCalculatorRig *pRig)
{
    pRig->Type("2");
    pRig->m_Engine.Raw().m_bStackLift = 0;
}

static void CheckEnded(cCalculatorRig &Rig)
{
    CHECK_TEXT(Rig.State().m_szEntry, "");
    CHECK(Rig.State().m_bStackLift == 1);
    CHECK_TEXT(Rig.Display(), Rig.State().m_szX);
}

// --- labels and jumps

TEST_CASE("GTO finds the label at or after the current line, then those before it")
{
    // clang-format off
    static const struct { unsigned nCurLine; unsigned nFound; } s_Rows[] =
    {
        { 0,  10 },
        { 1,  10 },
        { 9,  10 },
        { 10, 10 },
        { 11, 60 },
        { 60, 60 },
        { 61, 98 },
        { 98, 98 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nCurLine);
        cCalculatorRig Rig;
        Load(&Rig, {{10, "LBL 3"}, {20, "LBL 4"}, {60, "LBL 3"}, {98, "LBL 3"}});
        Rig.m_Engine.GoToLine(Row.nCurLine);

        const int nResult = Rig.Run("GTO", 3);

        CHECK(nResult == 1);
        CHECK(Rig.State().m_nCurLine == Row.nFound);
        CHECK(Rig.Highlighted() == Row.nFound);
    }
}

TEST_CASE("a label above the current line is found only when the scan to line 98 fails")
{
    cCalculatorRig Rig;
    Load(&Rig, {{1, "LBL 3"}, {49, "LBL 5"}, {51, "LBL 5"}});
    Rig.m_Engine.GoToLine(50);

    Rig.Run("GTO", 3);
    CHECK(Rig.State().m_nCurLine == 1);

    Rig.m_Engine.GoToLine(50);
    Rig.Run("GTO", 5);
    CHECK(Rig.State().m_nCurLine == 51);
}

TEST_CASE("every label 0 to 9 can be found, at line 1 and line 98 too")
{
    for (unsigned nLabel = 0; nLabel <= 9; nLabel++)
        for (const unsigned nLine : {1U, 2U, 97U, 98U})
        {
            cCalculatorRig Rig;
            Load(&Rig, {{nLine, "LBL " + std::to_string(nLabel)}});
            Rig.m_Engine.GoToLine(50);

            CHECK(Rig.Run("GTO", nLabel) == 1);

            CHECK(Rig.State().m_nCurLine == nLine);
        }
}

TEST_CASE("only LBL lines are labels")
{
    cCalculatorRig Rig;
    Rig.Load("STO 3\nGTO 3\nGSB 3\nFIX 3\n3\nLBL 2\n");

    CHECK(Rig.Run("GTO", 3) == 0);

    CHECK_TEXT(Rig.Display(), "Error: no such label");
}

TEST_CASE("GTO and GSB to a label that does not exist fail and stay where they are")
{
    // clang-format off
    static const struct { const char *szMnemonic; unsigned nOperand; double dIndex; } s_Rows[] =
    {
        { "GTO",   3,  0.0  },
        { "GSB",   3,  0.0  },
        { "GTO i", 0,  3.9  },
        { "GSB i", 0,  3.9  },
        { "GTO",   10, 0.0  },
        { "GSB",   10, 0.0  },
        { "GTO i", 0,  10.0 },
        { "GSB i", 0,  10.0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szMnemonic);
        CAPTURE(Row.nOperand);
        cCalculatorRig Rig;
        Load(&Rig, {{10, "LBL 4"}});
        Rig.SetReg(0, Row.dIndex);
        Rig.m_Engine.GoToLine(7);
        Rig.Type("5");

        const int nResult = Rig.Run(Row.szMnemonic, Row.nOperand);

        CHECK(nResult == 0);
        CHECK_TEXT(Rig.Display(), "Error: no such label");
        CHECK(Rig.LastSound() == 10052);
        CHECK(Rig.State().m_nCurLine == 7);
        CHECK_TEXT(Rig.State().m_szEntry, "");
        CHECK(Rig.m_Host.m_nDrains == 0);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("labels and jumps end a number entry as every operation does")
{
    for (const char *const szMnemonic : {"LBL", "GTO", "RTN"})
    {
        CAPTURE_TEXT(szMnemonic);
        cCalculatorRig Rig;
        Load(&Rig, {{10, "LBL 0"}});
        BeginEntry(&Rig);

        CHECK(Rig.Run(szMnemonic) == 1);

        CheckEnded(Rig);
        CHECK_TEXT(Rig.Display(), "+2.00");
    }
}

TEST_CASE("LBL from the keyboard stays where it is")
{
    cCalculatorRig Rig;
    Rig.m_Engine.GoToLine(7);

    CHECK(Rig.Run("LBL", 3) == 1);

    CHECK(Rig.State().m_nCurLine == 7);
}

// --- GTO i

TEST_CASE("GTO i goes to the label that register 0 names, truncated toward zero")
{
    // clang-format off
    static const struct { double dIndex; unsigned nLabel; } s_Rows[] =
    {
        { 0.0,   0 },
        { 0.99,  0 },
        { -0.0,  0 },
        { -0.99, 0 },
        { 1.0,   1 },
        { 4.999, 4 },
        { 9.999, 9 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dIndex);
        cCalculatorRig Rig;
        Load(&Rig, {{10, "LBL 0"}, {11, "LBL 1"}, {14, "LBL 4"}, {19, "LBL 9"}});
        Rig.m_Engine.Raw().m_dReg[0] = Row.dIndex;

        CHECK(Rig.Run("GTO i") == 1);

        CHECK(Rig.State().m_nCurLine == 10 + Row.nLabel);
    }
}

TEST_CASE("GTO i with a negative index jumps back, wrapping within lines 1 to 98")
{
    // clang-format off
    static const struct { unsigned nCurLine; double dIndex; unsigned nTarget; } s_Rows[] =
    {
        { 2,  -3.0,  97 },
        { 50, -1.0,  49 },
        { 50, -49.0, 1  },
        { 50, -50.0, 98 },
        { 50, -51.0, 97 },
        { 1,  -1.0,  98 },
        { 2,  -1.0,  1  },
        { 98, -97.0, 1  },
        { 98, -98.0, 98 },
        { 98, -99.0, 97 },
        { 50, -99.0, 49 },
        { 50, -99.9, 49 },
        { 50, -1.9,  49 },
        // From far back the formula leaves lines 1 to 98.
        { 1,  -98.0, 1  },
        { 1,  -99.0, 0  },
        { 0,  -98.0, 0  },
        { 0,  -1.0,  97 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nCurLine);
        CAPTURE(Row.dIndex);
        cCalculatorRig Rig;
        Rig.SetReg(0, Row.dIndex);
        Rig.m_Engine.GoToLine(Row.nCurLine);

        const int nResult = Rig.Run("GTO i");

        CHECK(nResult == 1);
        CHECK(Rig.State().m_nCurLine == Row.nTarget);
        CHECK(Rig.Highlighted() == Row.nTarget);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("a backward jump below line 0 is an inconsistency and goes to line 0")
{
    for (const char *const szMnemonic : {"GTO i", "GSB i"})
    {
        cCalculatorRig Rig;
        Rig.SetReg(0, -99.0);

        const int nResult = Rig.Run(szMnemonic);

        CHECK(nResult == 1);
        REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
        CHECK_TEXT(Rig.LastBox(), "Program Error Code #114");
        // GSB i has run line 1, an R/S, from there.
        CHECK(Rig.State().m_nCurLine == (szMnemonic[1] == 'T' ? 0 : 2));
    }
}

TEST_CASE("an index below -99 is too big")
{
    for (const char *const szMnemonic : {"GTO i", "GSB i"})
        for (const double dIndex : {-100.0, -100.5, -1e9, -9.999999999e99})
        {
            CAPTURE_TEXT(szMnemonic);
            CAPTURE(dIndex);
            cCalculatorRig Rig;
            Rig.SetReg(0, dIndex);
            Rig.m_Engine.GoToLine(50);

            CHECK(Rig.Run(szMnemonic) == 0);

            CHECK_TEXT(Rig.Display(), "Error: neg i too big");
            CHECK(Rig.LastSound() == 10052);
            CHECK(Rig.State().m_nCurLine == 50);
        }
}

TEST_CASE("a huge index or a NaN names no label")
{
    const double dNan = std::numeric_limits<double>::quiet_NaN();
    for (const char *const szMnemonic : {"GTO i", "GSB i"})
        for (const double dIndex : {10.0, 4294967296.0, 4294967297.0, 9.999999999e99, dNan})
        {
            CAPTURE_TEXT(szMnemonic);
            CAPTURE(dIndex);
            cCalculatorRig Rig;
            Rig.Load("LBL 0\nLBL 1\n");
            Rig.m_Engine.Raw().m_dReg[0] = dIndex;

            CHECK(Rig.Run(szMnemonic) == 0);

            CHECK_TEXT(Rig.Display(), "Error: no such label");
        }
}

// --- subroutines

TEST_CASE("GSB from the keyboard runs from the label and returns to nowhere")
{
    for (const char *const szKeys : {"GSB 3", "GSB i"})
    {
        CAPTURE_TEXT(szKeys);
        cCalculatorRig Rig;
        Load(&Rig, {{40, "LBL 3"}, {41, "STO 7"}, {42, "RTN"}});
        Rig.SetReg(0, 3.0);
        Rig.Type("SST 5");

        Rig.Type(szKeys);

        CHECK(Rig.State().m_dReg[7] == 5.0);
        CHECK(Rig.State().m_nCurLine == 43);
        CHECK(Rig.State().m_nReturnDepth == 0);
        CHECK(Rig.State().m_bProgramRunning == 0);
        CHECK_TEXT(Rig.Display(), "+5.00");
    }
}

TEST_CASE("GSB from the keyboard returns what the last line returned")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\nCLX\n1/x\n");

    CHECK(Rig.Run("GSB", 1) == 0);

    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
    CHECK(Rig.State().m_nCurLine == 3);
}

TEST_CASE("a running GSB returns to the line after it")
{
    cCalculatorRig Rig;
    Load(&Rig, {{1, "GSB 1"}, {2, "STO 2"}, {10, "LBL 1"}, {11, "STO 1"}, {12, "RTN"}});
    Rig.Set(5.0);

    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[1] == 5.0);
    CHECK(Rig.State().m_dReg[2] == 5.0);
    CHECK(Rig.State().m_nCurLine == 4);
}

TEST_CASE("GSB i calls the label or the line back that register 0 names")
{
    static const struct
    {
        double   dIndex;
        unsigned nCalled;
    } s_Rows[] = {{4.0, 60}, {-8.0, 42}, {-60.0, 88}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dIndex);
        cCalculatorRig Rig;
        Load(&Rig, {{50, "GSB i"},
                    {51, "STO 9"},
                    {60, "LBL 4"},
                    {42, "LBL 8"},
                    {88, "LBL 8"},
                    {Row.nCalled + 1, "STO 8"},
                    {Row.nCalled + 2, "RTN"}});
        Rig.SetReg(0, Row.dIndex);
        Rig.Set(5.0);
        Rig.m_Engine.GoToLine(50);

        Rig.Type("R/S");

        CHECK(Rig.State().m_dReg[8] == 5.0);
        CHECK(Rig.State().m_dReg[9] == 5.0);
        CHECK(Rig.State().m_nCurLine == 53);
    }
}

TEST_CASE("the return address of a GSB on line 98 is 1")
{
    cCalculatorRig Rig;
    Load(&Rig, {{1, "STO 1"}, {50, "LBL 1"}, {51, "RTN"}, {98, "GSB 1"}});
    Rig.Set(5.0);
    Rig.m_Engine.GoToLine(98);
    unsigned nReturnAddr = 0;
    Rig.m_Host.m_OnDrain = [&] {
        if (Rig.State().m_nReturnDepth)
            nReturnAddr = Rig.State().m_nReturnAddr[0];
        return 1;
    };

    Rig.Type("R/S");

    CHECK(nReturnAddr == 1);
    CHECK(Rig.State().m_dReg[1] == 5.0);
    CHECK(Rig.State().m_nCurLine == 3);
}

TEST_CASE("subroutines nest three deep")
{
    cCalculatorRig Rig;
    Rig.Load("GSB 1\nR/S\n"
             "LBL 1\nGSB 2\nSTO 1\nRTN\n"
             "LBL 2\nGSB 3\nSTO 2\nRTN\n"
             "LBL 3\nSTO 3\nRTN\n");
    Rig.Set(5.0);
    std::vector<unsigned> Deepest;
    Rig.m_Host.m_OnDrain = [&] {
        const cVorstekState &State = Rig.State();
        if (State.m_nReturnDepth > Deepest.size())
            Deepest.assign(State.m_nReturnAddr, State.m_nReturnAddr + State.m_nReturnDepth);
        return 1;
    };

    Rig.Type("R/S");

    CHECK(Deepest == std::vector<unsigned>{2, 5, 9});
    CHECK(Rig.State().m_dReg[1] == 5.0);
    CHECK(Rig.State().m_dReg[2] == 5.0);
    CHECK(Rig.State().m_dReg[3] == 5.0);
    CHECK(Rig.State().m_nCurLine == 3);
    CHECK(Rig.State().m_nReturnDepth == 0);
}

TEST_CASE("the fourth GSB overflows and stays the current line")
{
    for (const char *const szFourth : {"GSB 4", "GSB i"})
    {
        CAPTURE_TEXT(szFourth);
        cCalculatorRig Rig;
        Load(&Rig, {{1, "GSB 1"},
                    {10, "LBL 1"},
                    {11, "GSB 2"},
                    {20, "LBL 2"},
                    {21, "GSB 3"},
                    {30, "LBL 3"},
                    {31, szFourth},
                    {40, "LBL 4"}});
        Rig.SetReg(0, 4.0);

        Rig.Type("R/S");

        CHECK_TEXT(Rig.Display(), "Error: subr overflow");
        CHECK(Rig.LastSound() == 10052);
        CHECK(Rig.State().m_nCurLine == 31);
        CHECK(Rig.Highlighted() == 31);
        CHECK(Rig.State().m_nReturnDepth == 3);
        CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    }
}

TEST_CASE("at the deepest level a missing label is told before the overflow")
{
    cCalculatorRig Rig;
    Load(&Rig, {{1, "GSB 1"},
                {10, "LBL 1"},
                {11, "GSB 2"},
                {20, "LBL 2"},
                {21, "GSB 3"},
                {30, "LBL 3"},
                {31, "GSB 9"}});

    Rig.Type("R/S");

    CHECK_TEXT(Rig.Display(), "Error: no such label");
    CHECK(Rig.State().m_nCurLine == 31);
}

TEST_CASE("RTN with an empty return stack halts at the following line")
{
    static const struct
    {
        unsigned nRtn;
        unsigned nNext;
    } s_Rows[] = {{1, 2}, {50, 51}, {98, 1}};
    for (const auto &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Load(&Rig, {{Row.nRtn, "RTN"}});
        Rig.Set(5.0);
        Rig.m_Engine.GoToLine(Row.nRtn);

        Rig.Type("R/S");

        CHECK(Rig.State().m_nCurLine == Row.nNext);
        CHECK(Rig.Highlighted() == Row.nNext);
        CHECK(Rig.State().m_bProgramRunning == 0);
        CHECK(Rig.m_Host.m_nDrains == 0);
        CHECK_TEXT(Rig.Display(), "+5.00");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    }
}

TEST_CASE("RTN from the keyboard goes to line 0")
{
    cCalculatorRig Rig;
    Rig.Set(5.0);
    Rig.m_Engine.GoToLine(50);

    Rig.Type("g GSB");

    CHECK(Rig.State().m_nCurLine == 0);
    CHECK(Rig.Highlighted() == 0);
    CHECK_TEXT(Rig.Display(), "+5.00");
}

TEST_CASE("a new run starts with an empty return stack")
{
    cCalculatorRig Rig;
    Rig.Load("GSB 1\nR/S\nLBL 1\nRTN\n");
    Rig.Type("SST");
    REQUIRE(Rig.State().m_nReturnDepth == 1);

    Rig.Type("R/S");

    CHECK(Rig.State().m_nReturnDepth == 0);
    CHECK(Rig.State().m_nCurLine == 5);
}

// --- tests

namespace
{

// Whether each test holds for X and Y.
struct cTestRow
{
    double dX;
    double dY;
    int    bLessOrEqual, bGreater, bNotEqual, bEqual;
    int    bNegative, bPositive, bNotZero, bZero;
};

}  // namespace

// clang-format off
static const cTestRow s_Tests[] =
{
//     X     Y      <=y >y !=y =y   <0 >0 !=0 =0
    {  1.0,  2.0,    1, 0,  1, 0,   0, 1,  1, 0 },
    {  2.0,  1.0,    0, 1,  1, 0,   0, 1,  1, 0 },
    {  2.0,  2.0,    1, 0,  0, 1,   0, 1,  1, 0 },
    { -2.0, -1.0,    1, 0,  1, 0,   1, 0,  1, 0 },
    { -1.0, -2.0,    0, 1,  1, 0,   1, 0,  1, 0 },
    {  0.0,  0.0,    1, 0,  0, 1,   0, 0,  0, 1 },
    { -0.0,  0.0,    1, 0,  0, 1,   0, 0,  0, 1 },
    {  1e-99, 0.0,   0, 1,  1, 0,   0, 1,  1, 0 },
    { kNan,  1.0,    0, 0,  1, 0,   0, 0,  1, 0 },
    {  1.0,  kNan,   0, 0,  1, 0,   0, 1,  1, 0 },
    { kNan,  kNan,   0, 0,  1, 0,   0, 0,  1, 0 },
};
// clang-format on

// Calls Check(X, Y, mnemonic, whether the test holds) for each cell.
template <class cCheck> static void ForEachTest(cCheck Check)
{
    for (const cTestRow &Row : s_Tests)
    {
        const struct
        {
            const char *szTest;
            int         bHolds;
        } Tests[] = {{"x<=y", Row.bLessOrEqual}, {"x>y", Row.bGreater},  {"x!=y", Row.bNotEqual},
                     {"x=y", Row.bEqual},        {"x<0", Row.bNegative}, {"x>0", Row.bPositive},
                     {"x!=0", Row.bNotZero},     {"x=0", Row.bZero}};
        for (const auto &Test : Tests)
        {
            CAPTURE(Row.dX);
            CAPTURE(Row.dY);
            CAPTURE_TEXT(Test.szTest);
            Check(Row.dX, Row.dY, Test.szTest, Test.bHolds);
        }
    }
}

TEST_CASE("a test that fails skips the next line of a program")
{
    ForEachTest([](double dX, double dY, const char *szTest, int bHolds) {
        cCalculatorRig Rig;
        Rig.Load((std::string(szTest) + "\nSTO 1\nSTO 2\n").c_str());
        Rig.SetReg(1, 7.0);
        Rig.SetReg(2, 7.0);
        Rig.SetXY(dX, dY);

        Rig.Type("R/S");

        CHECK((Rig.State().m_dReg[1] != 7.0) == bHolds);
        CHECK(Rig.State().m_dReg[2] != 7.0);
        CHECK(Rig.State().m_nCurLine == 5);
    });
}

TEST_CASE("a test from the keyboard moves the current line on by one when it fails")
{
    ForEachTest([](double dX, double dY, const char *szTest, int bHolds) {
        cCalculatorRig Rig;
        Rig.SetXY(dX, dY);
        Rig.m_Engine.GoToLine(7);

        CHECK(Rig.Run(szTest) == 1);

        CHECK(Rig.State().m_nCurLine == (bHolds ? 7 : 8));
        CHECK(Rig.Highlighted() == Rig.State().m_nCurLine);
    });
}

TEST_CASE("a skip from line 98 goes to line 1")
{
    for (const char *const szTest : {"x>0", "x!=y", "ISZ"})
    {
        CAPTURE_TEXT(szTest);
        cCalculatorRig Rig;
        Rig.SetReg(0, -1.0);
        Rig.m_Engine.GoToLine(98);

        CHECK(Rig.Run(szTest) == 1);

        CHECK(Rig.State().m_nCurLine == 1);
    }
}

TEST_CASE("a test on line 97 skips line 98, one on line 98 skips line 1")
{
    cCalculatorRig Rig;
    Load(&Rig, {{1, "STO 1"}, {2, "STO 2"}, {97, "x>0"}, {98, "STO 3"}});
    Rig.SetXY(-5.0, 0.0);
    Rig.m_Engine.GoToLine(97);

    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[1] == -5.0);
    CHECK(Rig.State().m_dReg[3] == 0.0);

    Load(&Rig, {{1, "STO 4"}, {2, "STO 5"}, {98, "x>0"}});
    Rig.m_Engine.GoToLine(98);
    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[4] == 0.0);
    CHECK(Rig.State().m_dReg[5] == -5.0);
}

TEST_CASE("tests end a number entry and keep the stack")
{
    for (const char *const szTest : {"x<=y", "x>y", "x!=y", "x=y", "x<0", "x>0", "x!=0", "x=0"})
    {
        CAPTURE_TEXT(szTest);
        cCalculatorRig Rig;
        Rig.Set(9.0, 8.0);
        BeginEntry(&Rig);

        CHECK(Rig.Run(szTest) == 1);

        CheckEnded(Rig);
        CHECK(Rig.X() == 2.0);
        CHECK(Rig.Y() == 9.0);
        CHECK(Rig.State().m_dLastX == 0.0);
    }
}

// --- DSZ and ISZ

TEST_CASE("DSZ and ISZ count register 0 and skip when its integer part is 0")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        double      dBefore;
        double      dAfter;
        int         bSkips;
    } s_Rows[] =
    {
        { "DSZ", 3.0,             2.0,             0 },
        { "DSZ", 2.0,             1.0,             0 },
        { "DSZ", 1.0,             0.0,             1 },
        { "DSZ", 0.0,             -1.0,            0 },
        { "DSZ", 1.5,             0.5,             1 },
        { "DSZ", 1.999,           0.999,           1 },
        { "DSZ", 0.3,             -0.7,            1 },
        { "DSZ", 2.5,             1.5,             0 },
        { "DSZ", -5.0,            -6.0,            0 },
        { "ISZ", -3.0,            -2.0,            0 },
        { "ISZ", -2.0,            -1.0,            0 },
        { "ISZ", -1.0,            0.0,             1 },
        { "ISZ", 0.0,             1.0,             0 },
        { "ISZ", -1.75,           -0.75,           1 },
        { "ISZ", -0.25,           0.75,            1 },
        { "ISZ", 5.0,             6.0,             0 },
        { "ISZ", 9.999999999e99,  9.999999999e99,  0 },
        { "DSZ", -9.999999999e99, -9.999999999e99, 0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szMnemonic);
        CAPTURE(Row.dBefore);
        cCalculatorRig Rig;
        Rig.SetReg(0, Row.dBefore);
        Rig.m_Engine.GoToLine(7);

        const int nResult = Rig.Run(Row.szMnemonic);

        CHECK(nResult == 1);
        CHECK(Rig.State().m_dReg[0] == doctest::Approx(Row.dAfter));
        CHECK(Rig.State().m_nCurLine == (Row.bSkips ? 8 : 7));
        CHECK(Rig.Highlighted() == Rig.State().m_nCurLine);
    }
}

TEST_CASE("a counter beyond the range becomes the largest number")
{
    for (const char *const szMnemonic : {"DSZ", "ISZ"})
        for (const double dSign : {1.0, -1.0})
        {
            cCalculatorRig Rig;
            Rig.m_Engine.Raw().m_dReg[0] = dSign * 1e150;

            Rig.Run(szMnemonic);

            CHECK(Rig.State().m_dReg[0] == dSign * kLargest);
        }
}

TEST_CASE("DSZ and ISZ rewrite register 0's line and end a number entry")
{
    static const struct
    {
        const char *szMnemonic;
        const char *szLine;
    } s_Rows[] = {{"DSZ", "Reg[ 0] = +4.00"}, {"ISZ", "Reg[ 0] = +6.00"}};
    for (const auto &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Rig.SetReg(0, 5.0);
        BeginEntry(&Rig);

        Rig.Run(Row.szMnemonic);

        CHECK_TEXT(Rig.RegisterLine(0), Row.szLine);
        CheckEnded(Rig);
        CHECK(Rig.X() == 2.0);
    }
}

TEST_CASE("a DSZ loop runs as often as register 0 says")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\n1\nSTO+ 5\nDSZ\nGTO 1\n");
    Rig.SetReg(0, 7.0);

    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[5] == 7.0);
    CHECK(Rig.State().m_dReg[0] == 0.0);
    CHECK(Rig.State().m_nCurLine == 7);
}

// --- R/S and PAUSE

TEST_CASE("R/S from the keyboard ends a number entry before the run")
{
    cCalculatorRig Rig;
    Rig.Load("CHS\n");

    // CHS would change the sign of an exponent that is still being keyed.
    Rig.Type("1 EEX 5 R/S");

    CHECK(Rig.X() == -1e5);
}

TEST_CASE("R/S from the keyboard enables stack lift before the run")
{
    cCalculatorRig Rig;
    Rig.Load("3\n");

    Rig.Type("4 ENTER R/S");

    CHECK(Rig.X() == 3.0);
    CHECK(Rig.Y() == 4.0);
    CHECK(Rig.Z() == 4.0);
}

TEST_CASE("R/S in a program halts it after that line and shows X")
{
    cCalculatorRig Rig;
    Rig.Load("4\nR/S\n5\n");

    Rig.Type("R/S");
    CHECK(Rig.State().m_nCurLine == 3);
    CHECK_TEXT(Rig.Display(), "+4.00");
    CHECK(Rig.State().m_bProgramRunning == 0);

    Rig.Type("R/S");
    CHECK(Rig.X() == 5.0);
    CHECK(Rig.State().m_nCurLine == 5);
}

TEST_CASE("R/S on line 98 halts at line 1")
{
    cCalculatorRig Rig;
    Rig.m_Engine.GoToLine(98);

    Rig.Type("R/S");

    CHECK(Rig.State().m_nCurLine == 1);
}

TEST_CASE("PAUSE shows X and waits a second, in a program, from the keyboard and in SST")
{
    static const struct
    {
        const char *szKeys;
        unsigned    nCurLine;
    } s_Rows[] = {{"R/S", 3}, {"f R/S", 0}, {"SST", 2}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szKeys);
        cCalculatorRig Rig;
        Rig.Load("PAUSE\n");
        Rig.Set(1.0);
        Rig.Type("25");

        Rig.Type(Row.szKeys);

        CHECK(Rig.m_Host.m_Pauses == std::vector<unsigned>{1000});
        CHECK_TEXT(Rig.m_Host.m_PausedDisplays[0], " 25.00");
        CheckEnded(Rig);
        CHECK(Rig.State().m_nCurLine == Row.nCurLine);
    }
}

TEST_CASE("each PAUSE of a program shows the X of its moment")
{
    cCalculatorRig Rig;
    Rig.Load("1\nPAUSE\n2\nPAUSE\n3\n");

    Rig.Type("R/S");

    CHECK(Rig.m_Host.m_PausedDisplays == std::vector<std::string>{" 1.00", " 2.00"});
}

TEST_CASE("PAUSE handles no messages")
{
    cCalculatorRig Rig;

    Rig.Run("PAUSE");

    CHECK(Rig.m_Host.m_Pauses.size() == 1);
    CHECK(Rig.m_Host.m_nDrains == 0);
}

// --- recording

TEST_CASE("in program mode the flow instructions are recorded and do nothing else")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        unsigned    nOperand;
        const char *szRecorded;
    } s_Rows[] =
    {
        { "LBL",   3, "LBL 3" },
        { "GTO",   3, "GTO 3" },
        { "GTO i", 0, "GTO i" },
        { "GSB",   3, "GSB 3" },
        { "GSB i", 0, "GSB i" },
        { "RTN",   0, "RTN"   },
        { "R/S",   0, "R/S"   },
        { "PAUSE", 0, "PAUSE" },
        { "x<=y",  0, "x<=y"  },
        { "x>y",   0, "x>y"   },
        { "x!=y",  0, "x!=y"  },
        { "x=y",   0, "x=y"   },
        { "x<0",   0, "x<0"   },
        { "x>0",   0, "x>0"   },
        { "x!=0",  0, "x!=0"  },
        { "x=0",   0, "x=0"   },
        { "DSZ",   0, "DSZ"   },
        { "ISZ",   0, "ISZ"   },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szMnemonic);
        cCalculatorRig Rig;
        Rig.Type("PRGM CLX");

        CHECK(Rig.Run(Row.szMnemonic, Row.nOperand) == 1);

        CHECK_TEXT(Rig.Step(2), Row.szRecorded);
        CHECK(Rig.State().m_nCurLine == 2);
        CHECK(Rig.State().m_dReg[0] == 0.0);
        CHECK(Rig.m_Host.m_nDrains == 0);
        CHECK(Rig.m_Host.m_Pauses.empty());
    }
}
