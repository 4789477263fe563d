// What calculator.cpp reports: errors of the user, and codes of inconsistencies,
// whichever part of the engine finds them.

#include <cstdio>
#include <string>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

static size_t CountBoxes(const cCalculatorRig &Rig, const char *szText)
{
    size_t nBoxes = 0;
    for (const cRecordingHost::cBox &Box : Rig.m_Host.m_Boxes)
        nBoxes += Box.m_Text == szText;
    return nBoxes;
}

// Exactly one box, with this code.
static void CheckCode(cCalculatorRig *pRig, unsigned nCode)
{
    CAPTURE(nCode);
    REQUIRE(pRig->m_Host.m_Boxes.size() == 1);
    const cRecordingHost::cBox &Box = pRig->m_Host.m_Boxes[0];
    CHECK_TEXT(Box.m_Text, "Program Error Code #" + std::to_string(nCode));
    CHECK_TEXT(Box.m_Caption, "");
    CHECK(Box.m_nButtons == bnOk);
    CHECK(Box.m_nIcon == icNone);
    pRig->Forget();
}

static void SetEntry(cCalculatorRig *pRig, const char *szEntry, const char *szExponent)
{
    cVorstekState &Raw = pRig->m_Engine.Raw();
    snprintf(Raw.m_szEntry, sizeof Raw.m_szEntry, "%s", szEntry);
    snprintf(Raw.m_szExponent, sizeof Raw.m_szExponent, "%s", szExponent);
}

namespace
{

struct cErrorRow
{
    const char *szMnemonic;
    double      dX;
    double      dY;
    double      dI;  // Reg[0]
    const char *szShown;
};

}  // namespace

// The statistics registers are 0.
// clang-format off
static const cErrorRow kErrors[] =
{
    { "sin^-1", 1.0000001, 2,    0,    "Error: impossible"    },
    { "sin^-1", -1.5,      2,    0,    "Error: impossible"    },
    { "cos^-1", 1.5,       2,    0,    "Error: impossible"    },
    { "cos^-1", -1.0000001, 2,   0,    "Error: impossible"    },
    { "ln",     0,         2,    0,    "Error: ln of x <= 0"  },
    { "ln",     -3,        2,    0,    "Error: ln of x <= 0"  },
    { "log",    0,         2,    0,    "Error: log of x <= 0" },
    { "log",    -1e-99,    2,    0,    "Error: log of x <= 0" },
    { "sqrt",   -4,        2,    0,    "Error: sqrt of x < 0" },
    { "sqrt",   -1e-99,    2,    0,    "Error: sqrt of x < 0" },
    { "1/x",    0,         2,    0,    "Error: divide by 0"   },
    { "/",      0,         2,    0,    "Error: divide by 0"   },
    { "y^x",    0,         0,    0,    "Error: impossible"    },
    { "y^x",    -1,        0,    0,    "Error: impossible"    },
    { "y^x",    0.5,       -8,   0,    "Error: impossible"    },
    { "STO/",   0,         2,    0,    "Error: divide by 0"   },
    { "STO i",  5,         2,    30,   "Error: no such reg"   },
    { "RCL i",  5,         2,    -30,  "Error: no such reg"   },
    { "STO+ i", 5,         2,    30,   "Error: no such reg"   },
    { "STO- i", 5,         2,    1e50, "Error: no such reg"   },
    { "STO* i", 5,         2,    99,   "Error: no such reg"   },
    { "STO/ i", 5,         2,    30.5, "Error: no such reg"   },
    { "Mean",   5,         2,    0,    "Error: npts = 0"      },
    { "LR",     5,         2,    0,    "Error: npts = 0"      },
    { "StdDev", 5,         2,    0,    "Error: npts <= 1"     },
    { "GTO",    5,         2,    0,    "Error: no such label" },
    { "GTO i",  5,         2,    1,    "Error: no such label" },
    { "GTO i",  5,         2,    1e50, "Error: no such label" },
    { "GTO i",  5,         2,    kNan, "Error: no such label" },
    { "GTO i",  5,         2,    -100, "Error: neg i too big" },
    { "GSB",    5,         2,    0,    "Error: no such label" },
    { "GSB i",  5,         2,    10,   "Error: no such label" },
    { "GSB i",  5,         2,    kNan, "Error: no such label" },
    { "GSB i",  5,         2,    -1e50, "Error: neg i too big" },
    { "SetG",   0.9,       2,    0,    "Error: bad graph"     },
    { "SetG",   0,         2,    0,    "Error: bad graph"     },
    { "SetG",   -1,        2,    0,    "Error: bad graph"     },
    { "SetG",   2,         2,    0,    "Error: bad graph"     },
    { "SetG",   1e50,      2,    0,    "Error: bad graph"     },
    { "SetG",   kNan,      2,    0,    "Error: bad graph"     },
    { "SumG",   kNan,      2,    0,    "Error: bad graph"     },
    { "SumG",   2,         kNan, 0,    "Error: bad graph"     },
};

// clang-format on

TEST_CASE("a user error is shown, sounds, and changes nothing else")
{
    for (const cErrorRow &Row : kErrors)
    {
        CAPTURE(std::string(Row.szMnemonic));
        CAPTURE(Row.dX);
        cCalculatorRig Rig;
        Rig.Set(121);
        Rig.Run("sqrt");
        Rig.SetReg(0, Row.dI);
        Rig.Set(Row.dX, Row.dY, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;
        const std::string Before        = Rig.Snapshot();

        CHECK(Rig.Run(Row.szMnemonic) == 0);

        CHECK_TEXT(Rig.Display(), Row.szShown);
        CHECK_TEXT(Rig.Shown(), Row.szShown);
        CHECK(Rig.m_Host.m_Sounds == std::vector<unsigned>{10052});
        CHECK_TEXT(Rig.Snapshot(), Before);
        CHECK(Rig.State().m_dLastX == 121);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("a user error formats and ends the number that was being keyed")
{
    cCalculatorRig Rig;
    Rig.Type("4 CHS");
    CHECK_TEXT(Rig.State().m_szX, "-4.");

    Rig.Run("sqrt");

    CHECK_TEXT(Rig.Display(), "Error: sqrt of x < 0");
    CHECK_TEXT(Rig.State().m_szX, "-4.00");
    CHECK_TEXT(Rig.State().m_szEntry, "");
    CHECK(Rig.X() == -4);
}

TEST_CASE("user errors are silent while sounds are off")
{
    for (const cErrorRow &Row : kErrors)
    {
        cCalculatorRig Rig;
        Rig.m_Engine.ApplyOptions({0, 0, 0, 1});
        Rig.SetReg(0, Row.dI);
        Rig.Set(Row.dX, Row.dY, 3, 4);

        CHECK(Rig.Run(Row.szMnemonic) == 0);

        CHECK_TEXT(Rig.Display(), Row.szShown);
        CHECK(Rig.m_Host.m_Sounds.empty());
    }
}

TEST_CASE("SumG shows the graph even if the point is bad")
{
    cCalculatorRig Rig;
    Rig.Set(kNan, 2);

    Rig.Run("SumG");

    CHECK(Rig.m_Host.m_bGraphShown == 1);
    CHECK(Rig.m_Host.m_Graph.empty());
}

TEST_CASE("code 102: a register above 20 is replaced by register 0")
{
    for (const char *const szMnemonic : {"STO", "STO+", "STO-", "STO*", "STO/", "RCL"})
        for (const unsigned nRegister : {21u, 29u, 4294967295u})
        {
            CAPTURE(std::string(szMnemonic));
            cCalculatorRig Rig;
            Rig.SetReg(0, 8);
            Rig.Set(2);

            CHECK(Rig.Run(szMnemonic, nRegister) == 1);
            CheckCode(&Rig, 102);
            const int bRecall = std::string(szMnemonic) == "RCL";
            CHECK((bRecall ? Rig.X() == 8 : Rig.State().m_dReg[0] != 8));

            Rig.Type("PRGM");
            Rig.Run(szMnemonic, nRegister);
            CheckCode(&Rig, 102);
            CHECK_TEXT(Rig.ListingLine(1), "01 " + std::string(szMnemonic) + " 0");
        }
}

TEST_CASE("code 103: number entry ignores a character that is no key of a number")
{
    for (const char cKey : {'x', '+', '-', ' ', 'E', '\0', '/', ':'})
    {
        cCalculatorRig Rig;
        Rig.Set(1, 2, 3, 4);
        const std::string Before = Rig.Snapshot();

        CHECK(Rig.m_Engine.EnterCharacter(cKey) == 1);
        CheckCode(&Rig, 103);
        CHECK_TEXT(Rig.Snapshot(), Before);
        CHECK(Rig.m_Host.m_Sounds.empty());

        Rig.Type("12");
        Rig.Forget();
        Rig.m_Engine.EnterCharacter(cKey);
        CheckCode(&Rig, 103);
        CHECK_TEXT(Rig.Display(), "+12.");
    }
}

TEST_CASE("code 104: CHS leaves a mantissa without a sign as it is")
{
    cCalculatorRig Rig;
    SetEntry(&Rig, "12", "");

    CHECK(Rig.Run("CHS") == 1);

    CheckCode(&Rig, 104);
    CHECK_TEXT(Rig.State().m_szEntry, "12");
    CHECK(Rig.X() == 12);
}

TEST_CASE("code 105: CHS leaves an exponent without a sign as it is")
{
    cCalculatorRig Rig;
    SetEntry(&Rig, "+1.5", "e003");

    CHECK(Rig.Run("CHS") == 1);

    CheckCode(&Rig, 105);
    CHECK_TEXT(Rig.State().m_szExponent, "e003");
    CHECK(Rig.X() == 1500);
}

TEST_CASE("code 106: the number of boxes is that of the numbers formatted")
{
    // Only CHS during entry leads out of the range: X is 12e99, shown as keyed.
    static const char *const kTooLarge = "12 EEX CHS 99 CHS";
    // clang-format off
    static const struct { const char *szMnemonic; unsigned nOperand; size_t nBoxes; } s_Rows[] =
    {
        { "ENTER",   0, 1 },   // X; what only moves keeps its text
        { "x<>y",    0, 0 },
        { "Rolldown", 0, 0 },
        { "CLX",     0, 0 },
        { "CHS",     0, 0 },   // the entry continues
        { "STO",     3, 2 },   // the register and X
        { "STO+",    3, 1 },   // the register is clamped
        { "RCL",     3, 0 },
        { "+",       0, 1 },   // LASTx
        { "*",       0, 1 },
        { "%",       0, 1 },
        { "1/x",     0, 1 },
        { "INT",     0, 2 },   // LASTx and X
        { "ABS",     0, 2 },
        { "FRAC",    0, 1 },
        { "sin^-1",  0, 1 },   // X, beside the error
        { "Sum+",    0, 1 },   // LASTx; sums are clamped, X is n
        { "RCLSum+", 0, 1 },
        { "FIX",     2, 1 },
        { "SCI",     2, 1 },
        { "ENG",     2, 0 },   // shows three digits of the mantissa
        { "RAD",     0, 1 },
        { "PAUSE",   0, 1 },
        { "pi",      0, 0 },
        { "LBL",     1, 1 },
        { "x=0",     0, 1 },
        { "GTO",     1, 1 },   // no such label
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;
        Rig.Type(kTooLarge);
        REQUIRE(Rig.X() == 1.2e100);
        REQUIRE(Rig.m_Host.m_Boxes.empty());

        Rig.Run(Row.szMnemonic, Row.nOperand);

        CHECK(CountBoxes(Rig, "Program Error Code #106") == Row.nBoxes);
        CHECK(Rig.m_Host.m_Boxes.size() == Row.nBoxes);
    }
}

TEST_CASE("code 106: FIX formats each level once")
{
    cCalculatorRig Rig;
    cVorstekState &Raw = Rig.m_Engine.Raw();
    Raw.m_dX = Raw.m_dY = Raw.m_dZ = Raw.m_dT = 1.5e-120;

    Rig.Run("FIX", 4);

    CHECK(CountBoxes(Rig, "Program Error Code #106") == 4);
    CHECK_TEXT(Rig.State().m_szT, "+1.500000000e-20");
    CHECK_TEXT(Rig.Display(), "+1.500000000e-20");
}

TEST_CASE("code 106: a number out of range comes back with the register that holds it")
{
    cCalculatorRig Rig;
    Rig.m_Engine.Raw().m_dReg[11] = 1e120;
    Rig.m_Engine.Raw().m_dReg[13] = -1e120;

    Rig.Run("RCL", 11);
    CHECK(CountBoxes(Rig, "Program Error Code #106") == 1);
    CHECK_TEXT(Rig.Display(), "+1.000000000e+20");

    Rig.Set(0);
    Rig.Forget();
    Rig.Run("RCLSum+");
    CHECK(CountBoxes(Rig, "Program Error Code #106") == 2);
    CHECK_TEXT(Rig.State().m_szY, "-1.000000000e+20");
}

TEST_CASE("code 110: what parses of an entry is kept")
{
    cCalculatorRig Rig;
    SetEntry(&Rig, "+1x", "");

    CHECK(Rig.m_Engine.EnterCharacter('2') == 1);

    CheckCode(&Rig, 110);
    CHECK(Rig.X() == 1);
    CHECK_TEXT(Rig.Display(), "+1x2.");
}

TEST_CASE("code 112: digit counts above 9 are taken modulo 10")
{
    for (const char *const szMnemonic : {"FIX", "SCI", "ENG"})
        for (const unsigned nDigits : {10u, 17u, 4294967295u})
        {
            CAPTURE(std::string(szMnemonic));
            cCalculatorRig Rig;

            CHECK(Rig.Run(szMnemonic, nDigits) == 1);
            CheckCode(&Rig, 112);
            CHECK(Rig.State().m_nDisplayDigits == nDigits % 10);

            Rig.Type("PRGM");
            Rig.Run(szMnemonic, nDigits);
            CheckCode(&Rig, 112);
            CHECK_TEXT(Rig.ListingLine(1),
                       "01 " + std::string(szMnemonic) + " " + std::to_string(nDigits % 10));
        }
}

TEST_CASE("code 113: a digit above 9 is taken modulo 10")
{
    cCalculatorRig Rig;

    CHECK(Rig.m_Engine.OnDigitKey(12) == 1);
    CheckCode(&Rig, 113);
    CHECK_TEXT(Rig.Display(), "+2.");

    snprintf(Rig.m_Engine.Raw().m_szKeystrokes, kKeystrokesText, "STO . ");
    CHECK(Rig.m_Engine.OnDigitKey(4294967295u) == 1);
    CheckCode(&Rig, 113);
    CHECK(Rig.State().m_dReg[15] == 2);
    CHECK_TEXT(Rig.State().m_szLastOp, "STO .5");
}

TEST_CASE("code 114: a line above 99 is replaced by line 0")
{
    cCalculatorRig Rig;
    Rig.m_Engine.GoToLine(42);

    CHECK(Rig.m_Engine.GoToLine(100) == 1);

    CheckCode(&Rig, 114);
    CHECK(Rig.State().m_nCurLine == 0);
}

TEST_CASE("code 109: the current line is not shown in program mode")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM 5");
    Rig.Forget();
    const std::string Before = Rig.Snapshot();

    Rig.m_Engine.ShowCurrentLine();

    CheckCode(&Rig, 109);
    CHECK_TEXT(Rig.Snapshot(), Before);
}

TEST_CASE("codes are shown while sounds are off, and without a sound")
{
    cCalculatorRig Rig;
    Rig.m_Engine.EnterCharacter('x');
    CHECK(Rig.m_Host.m_Sounds.empty());
    Rig.Forget();

    Rig.m_Engine.ApplyOptions({0, 0, 0, 1});
    Rig.m_Engine.EnterCharacter('x');
    CheckCode(&Rig, 103);
}
