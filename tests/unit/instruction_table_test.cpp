#include <cmath>
#include <cstring>
#include <string>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

namespace
{

enum eLiftAfter
{
    lfOff,
    lfOn,
    lfKept
};

// What an instruction with X as given does to a calculator with Y = 3, Z = 5,
// T = 7, LASTx = 11, Reg[0] = 5, the sums of (1, 3) (2, 5) (3, 6) (4, 8), and
// a program "LBL 5", "R/S" with R/S as the current line.
struct cInstructionRow
{
    const char *szMnemonic;
    unsigned    nOperand;
    double      dX;  // before
    double      dNewX;
    double      dNewY;
    double      dNewZ;
    double      dNewT;
    int         bPushesIfLift;  // without stack lift Y, Z and T stay
    int         bLastX;         // X goes to LASTx
    eLiftAfter  nLift;
    unsigned    nLine;  // current line after it
};

}  // namespace

// In registration order.
// clang-format off
static const cInstructionRow kRows[] =
{
    //  mnemonic  operand X     new X                 Y    Z  T  push  LASTx lift line
    { "FIX",      4, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "SCI",      4, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "ENG",      4, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "GSB",      5, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   3 },
    { "GSB i",    0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   3 },
    { "GTO",      5, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   1 },
    { "GTO i",    0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   1 },
    { "RTN",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   0 },
    { "LBL",      5, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "Mean",     0, 0.25,  2.5,                      5.5, 5, 7, 0,    1, lfOn,   2 },
    { "StdDev",   0, 0.25,  1.2909944487358056, 2.0816659994661326, 5, 7, 0, 1, lfOn, 2 },
    { "LR",       0, 0.25,  1.6,                      1.5, 5, 7, 0,    1, lfOn,   2 },
    { "Sum-",     0, 0.25,  3,                        3,   5, 7, 0,    1, lfOff,  2 },
    { "x<>y",     0, 0.25,  3,                        0.25, 5, 7, 0,   0, lfOn,   2 },
    { "Rolldown", 0, 0.25,  3,                        5,   7, 0.25, 0, 0, lfOn,   2 },
    { "STO",      6, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO i",    0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO+",     6, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO+ i",   0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO-",     6, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO- i",   0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO*",     6, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO* i",   0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO/",     6, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "STO/ i",   0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "RCL",     14, 0.25,  134,                      0.25, 3, 5, 1,   0, lfOn,   2 },
    { "RCL i",    0, 0.25,  2,                        3,   5, 7, 0,    0, lfOn,   2 },
    { "RCLSum+",  0, 0.25,  10,                       22,  5, 7, 0,    1, lfOn,   2 },
    { "Sum+",     0, 0.25,  5,                        3,   5, 7, 0,    1, lfOff,  2 },
    { "%",        0, 0.25,  0.0075,                   3,   5, 7, 0,    1, lfOn,   2 },
    { "DSZ",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "ISZ",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "ClearREG", 0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "ClearSum", 0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "ENTER",    0, 0.25,  0.25,                     0.25, 3, 5, 0,   0, lfOff,  2 },
    { "CHS",      0, 0.25,  -0.25,                    3,   5, 7, 0,    0, lfKept, 2 },
    { "CLX",      0, 0.25,  0,                        3,   5, 7, 0,    0, lfOff,  2 },
    { "GRD",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "RAD",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "DEG",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "ln",       0, 0.25,  -1.3862943611198906,      3,   5, 7, 0,    1, lfOn,   2 },
    { "log",      0, 0.25,  -0.60205999132796239,     3,   5, 7, 0,    1, lfOn,   2 },
    { "->R",      0, 2,     1.9972590695091477, 0.10467191248588767, 5, 7, 0, 1, lfOn, 2 },
    { "-",        0, 0.25,  2.75,                     5,   7, 7, 0,    1, lfOn,   2 },
    { "e^x",      0, 0.25,  1.2840254166877415,       3,   5, 7, 0,    1, lfOn,   2 },
    { "10^x",     0, 0.25,  1.7782794100389228,       3,   5, 7, 0,    1, lfOn,   2 },
    { "->P",      0, 4,     5,          36.869897645844021, 5, 7, 0,   1, lfOn,   2 },
    { "sin",      0, 30,    0.49999999999999994,      3,   5, 7, 0,    1, lfOn,   2 },
    { "cos",      0, 60,    0.5000000000000001,       3,   5, 7, 0,    1, lfOn,   2 },
    { "tan",      0, 45,    0.9999999999999999,       3,   5, 7, 0,    1, lfOn,   2 },
    { "+",        0, 0.25,  3.25,                     5,   7, 7, 0,    1, lfOn,   2 },
    { "sin^-1",   0, 0.5,   30.000000000000004,       3,   5, 7, 0,    1, lfOn,   2 },
    { "cos^-1",   0, 0.5,   60.00000000000001,        3,   5, 7, 0,    1, lfOn,   2 },
    { "tan^-1",   0, -1,    -45,                      3,   5, 7, 0,    1, lfOn,   2 },
    { "INT",      0, -2.75, -2,                       3,   5, 7, 0,    1, lfOn,   2 },
    { "sqrt",     0, 0.25,  0.5,                      3,   5, 7, 0,    1, lfOn,   2 },
    { "y^x",      0, 2,     9,                        5,   7, 7, 0,    1, lfOn,   2 },
    { "*",        0, 0.25,  0.75,                     5,   7, 7, 0,    1, lfOn,   2 },
    { "FRAC",     0, -2.75, -0.75,                    3,   5, 7, 0,    1, lfOn,   2 },
    { "x^2",      0, 0.25,  0.0625,                   3,   5, 7, 0,    1, lfOn,   2 },
    { "ABS",      0, -2.75, 2.75,                     3,   5, 7, 0,    1, lfOn,   2 },
    { "->H.MS",   0, -2.75, -2.45,                    3,   5, 7, 0,    1, lfOn,   2 },
    { "LASTx",    0, 0.25,  11,                       0.25, 3, 5, 1,   0, lfOn,   2 },
    { "PAUSE",    0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "/",        0, 0.25,  12,                       5,   7, 7, 0,    1, lfOn,   2 },
    { "R/S",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   3 },
    { "->H",      0, -2.45, -2.7500000000000004,      3,   5, 7, 0,    1, lfOn,   2 },
    { "pi",       0, 0.25,  3.1415926535897932,       0.25, 3, 5, 1,   0, lfOn,   2 },
    { "1/x",      0, 0.25,  4,                        3,   5, 7, 0,    1, lfOn,   2 },
    { "x<=y",     0, 3,     3,                        3,   5, 7, 0,    0, lfOn,   2 },
    { "x>y",      0, 3,     3,                        3,   5, 7, 0,    0, lfOn,   3 },
    { "x!=y",     0, 3,     3,                        3,   5, 7, 0,    0, lfOn,   3 },
    { "x=y",      0, 3,     3,                        3,   5, 7, 0,    0, lfOn,   2 },
    { "x<0",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   3 },
    { "x>0",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "x!=0",     0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "x=0",      0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   3 },
    { "ClearG",   0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "SumG",     0, 0.25,  0.25,                     3,   5, 7, 0,    0, lfOn,   2 },
    { "SetG",     0, 1,     1,                        3,   5, 7, 0,    0, lfOn,   2 },
};
// clang-format on

static const double kRegistersBefore[kRegisters] = {5, 0, 0, 0,  0,  2,  40,  0,
                                                    0, 0, 4, 10, 30, 22, 134, 63};

namespace
{

struct cRegisterRow
{
    const char *szMnemonic;
    unsigned    nRegister;
    double      dNew;
};

}  // namespace

// Registers that an instruction changes.
static const cRegisterRow kRegisterRows[] = {
    {"STO", 6, 0.25},      {"STO i", 5, 0.25},  {"STO+", 6, 40.25},    {"STO+ i", 5, 2.25},
    {"STO-", 6, 39.75},    {"STO- i", 5, 1.75}, {"STO*", 6, 10},       {"STO* i", 5, 0.5},
    {"STO/", 6, 160},      {"STO/ i", 5, 8},    {"DSZ", 0, 4},         {"ISZ", 0, 6},
    {"Sum+", 10, 5},       {"Sum+", 11, 10.25}, {"Sum+", 12, 30.0625}, {"Sum+", 13, 25},
    {"Sum+", 14, 143},     {"Sum+", 15, 63.75}, {"Sum-", 10, 3},       {"Sum-", 11, 9.75},
    {"Sum-", 12, 29.9375}, {"Sum-", 13, 19},    {"Sum-", 14, 125},     {"Sum-", 15, 62.25},
    {"ClearREG", 0, 0},    {"ClearREG", 5, 0},  {"ClearREG", 6, 0},    {"ClearREG", 10, 0},
    {"ClearREG", 11, 0},   {"ClearREG", 12, 0}, {"ClearREG", 13, 0},   {"ClearREG", 14, 0},
    {"ClearREG", 15, 0},   {"ClearSum", 10, 0}, {"ClearSum", 11, 0},   {"ClearSum", 12, 0},
    {"ClearSum", 13, 0},   {"ClearSum", 14, 0}, {"ClearSum", 15, 0},
};

static double ExpectedRegister(const cInstructionRow &Row, unsigned nRegister)
{
    for (const cRegisterRow &Change : kRegisterRows)
        if (strcmp(Change.szMnemonic, Row.szMnemonic) == 0 && Change.nRegister == nRegister)
            return Change.dNew;
    return kRegistersBefore[nRegister];
}

static void Prepare(cCalculatorRig *pRig, double dX, int bStackLift)
{
    pRig->Type("PRGM g GTO 5 R/S RUN");
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        pRig->SetReg(nRegister, kRegistersBefore[nRegister]);
    pRig->Set(dX, 3, 5, 7);
    pRig->m_Engine.Raw().m_dLastX     = 11;
    pRig->m_Engine.Raw().m_bStackLift = bStackLift;
    pRig->Forget();
}

TEST_CASE("eighty instructions are registered, in this order")
{
    REQUIRE(Instructions().size() == 80);
    REQUIRE(std::size(kRows) == 80);
    for (size_t i = 0; i < std::size(kRows); i++)
        CHECK_TEXT(Instructions()[i].m_szMnemonic, kRows[i].szMnemonic);
}

TEST_CASE("each instruction has its kind of operand")
{
    for (const cInstruction &Row : Instructions())
    {
        const std::string Mnemonic  = Row.m_szMnemonic;
        eOperand          nExpected = opNone;
        if (Mnemonic == "FIX" || Mnemonic == "SCI" || Mnemonic == "ENG")
            nExpected = opDigits;
        if (Mnemonic == "GSB" || Mnemonic == "GTO" || Mnemonic == "LBL")
            nExpected = opLabel;
        if (Mnemonic == "STO" || Mnemonic == "RCL" || Mnemonic == "STO+" || Mnemonic == "STO-" ||
            Mnemonic == "STO*" || Mnemonic == "STO/")
            nExpected = opRegister;
        CAPTURE(Mnemonic);
        CHECK(Row.m_nOperand == nExpected);
    }
}

TEST_CASE("each instruction does to stack, LASTx, registers and line what it should")
{
    for (const cInstructionRow &Row : kRows)
        for (const int bStackLift : {0, 1})
        {
            CAPTURE(std::string(Row.szMnemonic));
            CAPTURE(bStackLift);
            cCalculatorRig Rig;
            Prepare(&Rig, Row.dX, bStackLift);

            CHECK(Rig.Run(Row.szMnemonic, Row.nOperand) == 1);

            const int bStays = Row.bPushesIfLift && !bStackLift;
            CHECK(Rig.X() == Row.dNewX);
            CHECK(Rig.Y() == (bStays ? 3 : Row.dNewY));
            CHECK(Rig.Z() == (bStays ? 5 : Row.dNewZ));
            CHECK(Rig.T() == (bStays ? 7 : Row.dNewT));
            CHECK(Rig.State().m_dLastX == (Row.bLastX ? Row.dX : 11));
            CHECK(Rig.State().m_bStackLift == (Row.nLift == lfKept ? bStackLift
                                               : Row.nLift == lfOn ? 1
                                                                   : 0));
            CHECK(Rig.State().m_nCurLine == Row.nLine);
            CHECK(Rig.State().m_bProgramRunning == 0);
            for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
                CHECK(Rig.State().m_dReg[nRegister] == ExpectedRegister(Row, nRegister));
            CHECK(Rig.m_Host.m_Boxes.empty());
            CHECK(Rig.m_Host.m_Sounds.empty());
        }
}

TEST_CASE("after each instruction texts and numbers of the stack agree and X is shown")
{
    for (const cInstructionRow &Row : kRows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;
        Prepare(&Rig, Row.dX, 1);

        Rig.Run(Row.szMnemonic, Row.nOperand);

        const cVorstekState                  &Is       = Rig.State();
        const std::pair<double, const char *> Levels[] = {
            {Is.m_dX, Is.m_szX}, {Is.m_dY, Is.m_szY}, {Is.m_dZ, Is.m_szZ}, {Is.m_dT, Is.m_szT}};
        for (const auto &Level : Levels)
        {
            char szText[kStackText];
            FormatNumber(Level.first, Is, szText);
            CHECK_TEXT(Level.second, szText);
        }
        CHECK_TEXT(Rig.Display(), Is.m_szX);
    }
}

TEST_CASE("each instruction but CHS ends a number entry, also if it fails")
{
    for (const cInstructionRow &Row : kRows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;
        Prepare(&Rig, 0, 0);
        Rig.Type("5 EEX 2");

        Rig.Run(Row.szMnemonic, Row.nOperand);

        const int bChs = strcmp(Row.szMnemonic, "CHS") == 0;
        CHECK_TEXT(Rig.State().m_szEntry, bChs ? "+5" : "");
        CHECK_TEXT(Rig.State().m_szExponent, bChs ? "e-02" : "");
    }
}

TEST_CASE("each clamped instruction holds its result, the others do not")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        double     dX;
        double     dY;
        double     dNewX;
        double     dNewY;
    } s_Rows[] =
    {
        { "+",      9e99,   9e99,  kMost,   0      },
        { "+",      5e-100, 0,     0,       0      },
        { "-",      9e99,   -9e99, -kMost,  0      },
        { "*",      1e60,   1e60,  kMost,   0      },
        { "*",      1e-60,  -1e-60, 0,      0      },
        { "/",      1e-60,  -1e60, -kMost,  0      },
        { "/",      1e60,   1e-60, 0,       0      },
        { "y^x",    3,      1e50,  kMost,   0      },
        { "y^x",    3,      -1e50, -kMost,  0      },
        { "y^x",    -3,     1e50,  0,       0      },
        { "%",      1e60,   1e60,  kMost,   1e60   },
        { "%",      1e-60,  1e-60, 0,       1e-60  },
        { "e^x",    1e5,    1,     kMost,   1      },
        { "e^x",    -1e5,   1,     0,       1      },
        { "10^x",   100,    1,     kMost,   1      },
        { "10^x",   -99.5,  1,     0,       1      },
        { "x^2",    -1e60,  1,     kMost,   1      },
        { "x^2",    1e-60,  1,     0,       1      },
        { "1/x",    5e-101, 1,     kMost,   1      },
        { "1/x",    -5e-101, 1,    -kMost,  1      },
        { "1/x",    1e150,  1,     0,       1      },
        { "tan",    1e-150, 1,     0,       1      },
        { "->H.MS", 1e-150, 1,     0,       1      },
        { "->H",    1e-150, 1,     0,       1      },
        { "->P",    9e99,   9e99,  kMost,   45     },
        { "->P",    1e50,   1e-60, 1e50,    0      },
        { "->R",    1e-99,  45,    0,       0      },
        { "->R",    1e110,  45,    kMost,   kMost  },
        { "->R",    1e110,  -135,  -kMost,  -kMost },
        // These give what they find.
        { "INT",    1e110,  1,     1e110,   1      },
        { "FRAC",   1e-150, 1,     1e-150,  1      },
        { "ABS",    -1e110, 1,     1e110,   1      },
        { "sqrt",   1e-220, 1,     1e-110,  1      },
        { "sin",    1e-150, 1,     1e-150 * 0.017453292519943295, 1 },
        { "sin^-1", 1e-150, 1,     1e-150 * 57.29577951308232,    1 },
        { "tan^-1", 1e-150, 1,     1e-150 * 57.29577951308232,    1 },
        { "CHS",    1e110,  1,     -1e110,  1      },
        { "x<>y",   1,      1e110, 1e110,   1      },
        { "Rolldown", 1,    1e110, 1e110,   0      },
        { "ENTER",  1e110,  1,     1e110,   1e110  },
        { "CLX",    1,      1e110, 0,       1e110  },
        { "SetG",   1,      1e110, 1,       1e110  },
        { "pi",     1e110,  1,     3.1415926535897932, 1e110 },
        { "Sum+",   1,      1e110, 1,       1e110  },
        { "Sum-",   1,      1e110, -1,      1e110  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        CAPTURE(Row.dX);
        cCalculatorRig Rig;
        Rig.m_Engine.Raw().m_dX = Row.dX;
        Rig.m_Engine.Raw().m_dY = Row.dY;

        CHECK(Rig.Run(Row.szMnemonic) == 1);

        CHECK(Rig.X() == Row.dNewX);
        CHECK(Rig.Y() == Row.dNewY);
        CHECK_FALSE((Row.dNewX == 0 && std::signbit(Rig.X())));
    }
}

TEST_CASE("what an instruction does not compute is not clamped")
{
    for (const cInstructionRow &Row : kRows)
    {
        if (Row.bLastX || Row.dNewX != Row.dX || Row.dNewY != 3)
            continue;
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;
        Prepare(&Rig, 0, 1);
        Rig.m_Engine.Raw().m_dX = 1e110;
        Rig.m_Engine.Raw().m_dY = 1e-110;

        Rig.Run(Row.szMnemonic, Row.nOperand);

        CHECK(Rig.X() == 1e110);
        CHECK(Rig.Y() == 1e-110);
    }
}

TEST_CASE("recalled numbers are not clamped")
{
    for (const char *const szMnemonic : {"RCL", "RCL i", "LASTx", "RCLSum+"})
    {
        CAPTURE(std::string(szMnemonic));
        cCalculatorRig Rig;
        cVorstekState &Raw = Rig.m_Engine.Raw();
        Raw.m_dReg[0]      = 11;
        Raw.m_dReg[11] = Raw.m_dReg[13] = Raw.m_dLastX = 1e110;
        Raw.m_dX = Raw.m_dY = 1e110;

        Rig.Run(szMnemonic, 11);

        CHECK(Rig.X() == 1e110);
        CHECK(Rig.Y() == 1e110);
    }
}

TEST_CASE("FIX, SCI, ENG, RAD, DEG and GRD set their modes")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        unsigned   nMode;
        unsigned   nDigits;
        int        nAngleMode;
    } s_Rows[] =
    {
        { "FIX", kModeFix, 7, kAngleDeg },
        { "SCI", kModeSci, 7, kAngleDeg },
        { "ENG", kModeEng, 7, kAngleDeg },
        { "RAD", kModeFix, 2, kAngleRad },
        { "DEG", kModeFix, 2, kAngleDeg },
        { "GRD", kModeFix, 2, kAngleGrd },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;

        Rig.Run(Row.szMnemonic, 7);

        CHECK(Rig.State().m_nDisplayMode == Row.nMode);
        CHECK(Rig.State().m_nDisplayDigits == Row.nDigits);
        CHECK(Rig.State().m_nAngleMode == Row.nAngleMode);
    }
}

TEST_CASE("FIX, SCI and ENG reformat all four levels")
{
    cCalculatorRig Rig;
    Rig.Set(1, -20, 300, 0.5);

    Rig.Run("SCI", 3);
    CHECK_TEXT(Rig.State().m_szX, "+1.000e+00");
    CHECK_TEXT(Rig.State().m_szY, "-2.000e+01");
    CHECK_TEXT(Rig.State().m_szZ, "+3.000e+02");
    CHECK_TEXT(Rig.State().m_szT, "+5.000e-01");
    CHECK_TEXT(Rig.Display(), "+1.000e+00");

    Rig.Run("ENG", 1);
    CHECK_TEXT(Rig.State().m_szX, "+1.0e+00");
    CHECK_TEXT(Rig.State().m_szY, "-20.e+00");
    CHECK_TEXT(Rig.State().m_szZ, "+300.e+00");
    CHECK_TEXT(Rig.State().m_szT, "+500.e-03");

    Rig.Run("FIX", 0);
    CHECK_TEXT(Rig.State().m_szX, "+1");
    CHECK_TEXT(Rig.State().m_szY, "-20");
    CHECK_TEXT(Rig.State().m_szZ, "+300");
    CHECK_TEXT(Rig.State().m_szT, "+0");
}
