#include <cstdio>
#include <cstring>
#include <string>

#include "tests/unit/calculator_rig.h"

// Judges a listing line as the loader does: mnemonic, operand text, value.
static int Checks(cCalculatorRig *pRig, const char *szMnemonic, const char *szOperand,
                  unsigned nValue, const char *szLineMnemonic = nullptr)
{
    cVorstekState &Raw = pRig->m_Engine.Raw();
    snprintf(Raw.m_szMnemonic, sizeof Raw.m_szMnemonic, "%s",
             szLineMnemonic ? szLineMnemonic : szMnemonic);
    snprintf(Raw.m_szOperand, sizeof Raw.m_szOperand, "%s", szOperand);
    Raw.m_bParseOnly  = 1;
    const int nResult = pRig->Run(szMnemonic, nValue);
    Raw.m_bParseOnly  = 0;
    return nResult;
}

// Presses digit nDigit while szPending waits.
static int Complete(cCalculatorRig *pRig, const char *szPending, unsigned nDigit)
{
    snprintf(pRig->m_Engine.Raw().m_szKeystrokes, kKeystrokesText, "%s", szPending);
    return pRig->m_Engine.OnDigitKey(nDigit);
}

TEST_CASE("checking accepts the operand that the instruction takes")
{
    // For each kind of operand: is the text good?
    // clang-format off
    static const struct
    {
        const char *szOperand;
        unsigned   nValue;
        int        bNone;
        int        bDigits;
        int        bRegister;
        int        bLabel;
    } s_Rows[] =
    {
        { "",     0,  1, 0, 0, 0 },
        { "0",    0,  0, 1, 1, 1 },
        { "5",    5,  0, 1, 1, 1 },
        { "9",    9,  0, 1, 1, 1 },
        { "x",    10, 0, 0, 0, 0 },
        { "05",   5,  0, 0, 0, 0 },
        { "12",   12, 0, 0, 0, 0 },
        { "10",   10, 0, 0, 0, 0 },
        { ".0",   10, 0, 0, 1, 0 },
        { ".7",   17, 0, 0, 1, 0 },
        { ".9",   19, 0, 0, 1, 0 },
        { ".10",  20, 0, 0, 1, 0 },
        { ".11",  21, 0, 0, 0, 0 },
        { ".99",  109, 0, 0, 0, 0 },
    };
    // clang-format on
    cCalculatorRig Rig;
    for (const cInstruction &Instruction : Instructions())
        for (const auto &Row : s_Rows)
        {
            CAPTURE(std::string(Instruction.m_szMnemonic));
            CAPTURE(std::string(Row.szOperand));
            int bExpected = Row.bNone;
            if (Instruction.m_nOperand == opDigits)
                bExpected = Row.bDigits;
            if (Instruction.m_nOperand == opRegister)
                bExpected = Row.bRegister;
            if (Instruction.m_nOperand == opLabel)
                bExpected = Row.bLabel;

            CHECK(Checks(&Rig, Instruction.m_szMnemonic, Row.szOperand, Row.nValue) == bExpected);
        }
    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK(Rig.m_Host.m_Sounds.empty());
}

TEST_CASE("a line STO .7 is accepted, STO 12 is rejected")
{
    cCalculatorRig Rig;
    CHECK(Checks(&Rig, "STO", ".7", 17) == 1);
    CHECK(Checks(&Rig, "STO", "12", 12) == 0);
}

TEST_CASE("a line ENTER with an operand is rejected")
{
    cCalculatorRig Rig;
    CHECK(Checks(&Rig, "ENTER", "", 0) == 1);
    CHECK(Checks(&Rig, "ENTER", "5", 5) == 0);
    CHECK(Checks(&Rig, "ENTER", ".5", 15) == 0);
    CHECK(Checks(&Rig, "ENTER", "i", 0) == 0);
}

TEST_CASE("checking changes nothing, whatever else is going on")
{
    cCalculatorRig Rig;
    Rig.SetReg(0, 5);
    Rig.Set(0, -2, 3, 4);
    Rig.Type("12");
    Rig.Forget();
    const std::string Before  = Rig.Snapshot();
    const std::string Display = Rig.Display();

    for (const int bProgramMode : {0, 1})
    {
        Rig.m_Engine.Raw().m_bProgramMode = bProgramMode;
        for (const cInstruction &Instruction : Instructions())
        {
            CAPTURE(std::string(Instruction.m_szMnemonic));
            Checks(&Rig, Instruction.m_szMnemonic, "", 0);
            Checks(&Rig, Instruction.m_szMnemonic, "5", 5);
            CHECK_TEXT(Rig.Snapshot(), Before);
            CHECK_TEXT(Rig.Display(), Display);
        }
    }
    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK(Rig.m_Host.m_Sounds.empty());
}

TEST_CASE("checking a line for another instruction reports code 100 and rejects it")
{
    for (const cInstruction &Instruction : Instructions())
    {
        cCalculatorRig    Rig;
        const char *const szOperand = Instruction.m_nOperand == opNone ? "" : "5";

        CHECK(Checks(&Rig, Instruction.m_szMnemonic, szOperand, 5, "Sqrt") == 0);

        CHECK(Rig.m_Host.m_Boxes.size() == 1);
        CHECK_TEXT(Rig.LastBox(), "Program Error Code #100");
    }
}

TEST_CASE("program mode records instructions instead of performing them")
{
    for (const cInstruction &Instruction : Instructions())
    {
        CAPTURE(std::string(Instruction.m_szMnemonic));
        cCalculatorRig Rig;
        Rig.SetReg(0, 5);
        Rig.Set(0.5, 2, 3, 4);
        Rig.Type("PRGM");
        Rig.Forget();
        const unsigned    nOperand = Instruction.m_nOperand == opNone ? 0 : 7;
        const std::string Text     = Instruction.m_szMnemonic + std::string(nOperand ? " 7" : "");

        CHECK(Rig.Run(Instruction.m_szMnemonic, nOperand) == 1);

        const ProgramLine &Line = Rig.State().m_Program[1];
        CHECK_TEXT(Rig.ListingLine(1), "01 " + Text);
        CHECK(Line.m_pInstruction == &Instruction);
        CHECK_TEXT(Line.m_szText, Instruction.m_szMnemonic);
        CHECK_TEXT(Line.m_szOperandText, nOperand ? "7" : "");
        CHECK(Line.m_nOperand == nOperand);
        CHECK(Rig.State().m_nCurLine == 1);
        CHECK(Rig.State().m_bProgramModified == 1);
        CHECK(Rig.X() == 0.5);
        CHECK(Rig.Y() == 2);
        CHECK(Rig.State().m_dLastX == 0);
        CHECK(Rig.State().m_dReg[0] == 5);
        CHECK(Rig.State().m_dReg[7] == 0);
        CHECK(Rig.State().m_nDisplayDigits == 2);
        CHECK(Rig.State().m_nAngleMode == kAngleDeg);
        CHECK(Rig.m_Host.m_Boxes.empty());
        CHECK(Rig.m_Host.m_Sounds.empty());
    }
}

TEST_CASE("registers above 9 are recorded with a point")
{
    for (const char *const szMnemonic : {"STO", "RCL", "STO+", "STO-", "STO*", "STO/"})
        for (unsigned nRegister = 0; nRegister <= 20; nRegister++)
        {
            cCalculatorRig Rig;
            Rig.Type("PRGM");

            Rig.Run(szMnemonic, nRegister);

            const std::string Operand =
                nRegister < 10 ? std::to_string(nRegister) : "." + std::to_string(nRegister - 10);
            CHECK_TEXT(Rig.ListingLine(1), "01 " + std::string(szMnemonic) + " " + Operand);
        }
}

TEST_CASE("digits and labels are recorded as they are")
{
    for (const char *const szMnemonic : {"FIX", "SCI", "ENG", "LBL", "GTO", "GSB"})
        for (unsigned nOperand = 0; nOperand <= 9; nOperand++)
        {
            cCalculatorRig Rig;
            Rig.Type("PRGM");

            Rig.Run(szMnemonic, nOperand);

            CHECK_TEXT(Rig.ListingLine(1),
                       "01 " + std::string(szMnemonic) + " " + std::to_string(nOperand));
            CHECK(Rig.State().m_Program[1].m_nOperand == nOperand);
        }
}

TEST_CASE("mnemonics are found by their exact text only")
{
    cCalculatorRig Rig;
    Rig.Set(16);
    for (const char *const szMnemonic :
         {"Sqrt", "SQRT", "sqrt ", " sqrt", "sq", "", "STO 5", "sto"})
    {
        CAPTURE(std::string(szMnemonic));
        CHECK(Rig.Run(szMnemonic) == 0);
        CHECK(Rig.X() == 16);
    }
    CHECK(Rig.Run("sqrt") == 1);
    CHECK(Rig.X() == 4);
}

TEST_CASE("a digit completes the prefix that the pending keys end with")
{
    // clang-format off
    static const struct { const char *szPending; const char *szLine; } s_Rows[] =
    {
        { "LBL ",     "LBL 3"   },
        { "FIX ",     "FIX 3"   },
        { "SCI ",     "SCI 3"   },
        { "ENG ",     "ENG 3"   },
        { "GSB ",     "GSB 3"   },
        { "GTO ",     "GTO 3"   },
        { "STO - . ", "STO- .3" },
        { "STO + . ", "STO+ .3" },
        { "STO * . ", "STO* .3" },
        { "STO / . ", "STO/ .3" },
        { "STO - ",   "STO- 3"  },
        { "STO + ",   "STO+ 3"  },
        { "STO * ",   "STO* 3"  },
        { "STO / ",   "STO/ 3"  },
        { "STO . ",   "STO .3"  },
        { "RCL . ",   "RCL .3"  },
        { "STO ",     "STO 3"   },
        { "RCL ",     "RCL 3"   },
        { "f STO ",   "STO 3"   },   // only the end counts
        { "xSTO + ",  "STO+ 3"  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szPending));
        cCalculatorRig Rig;
        Rig.Type("PRGM");

        CHECK(Complete(&Rig, Row.szPending, 3) == 1);

        CHECK_TEXT(Rig.ListingLine(1), "01 " + std::string(Row.szLine));
        CHECK_TEXT(Rig.State().m_szLastOp, Row.szLine);
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    }
}

TEST_CASE("every digit completes a prefix, to registers 0 to 9 or 10 to 19")
{
    for (unsigned nDigit = 0; nDigit <= 9; nDigit++)
    {
        cCalculatorRig Rig;
        Rig.Set(6.25);

        CHECK(Complete(&Rig, "STO ", nDigit) == 1);
        CHECK(Complete(&Rig, "STO . ", nDigit) == 1);
        CHECK(Rig.State().m_dReg[nDigit] == 6.25);
        CHECK(Rig.State().m_dReg[10 + nDigit] == 6.25);

        CHECK(Complete(&Rig, "STO + . ", nDigit) == 1);
        CHECK(Rig.State().m_dReg[10 + nDigit] == 12.5);

        Complete(&Rig, "RCL . ", nDigit);
        CHECK(Rig.X() == 12.5);

        Complete(&Rig, "SCI ", nDigit);
        CHECK(Rig.State().m_nDisplayDigits == nDigit);
    }
}

TEST_CASE("a digit without a prefix goes to number entry")
{
    for (const char *const szPending :
         {"", "f ", "g ", "STO g ", "GSB g ", "RCL g ", "FIX", "sto "})
    {
        CAPTURE(std::string(szPending));
        cCalculatorRig Rig;
        snprintf(Rig.m_Engine.Raw().m_szLastOp, kKeystrokesText, "LR");

        CHECK(Complete(&Rig, szPending, 3) == 1);

        CHECK(Rig.X() == 3);
        CHECK_TEXT(Rig.Display(), "+3.");
        CHECK_TEXT(Rig.State().m_szLastOp, "LR");
        CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    }
}

TEST_CASE("the result of a completed instruction is that of the handler")
{
    cCalculatorRig Rig;
    Rig.Set(0, 2);

    CHECK(Complete(&Rig, "STO / ", 3) == 0);
    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
    CHECK_TEXT(Rig.State().m_szLastOp, "STO/ 3");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");

    CHECK(Complete(&Rig, "GTO ", 3) == 0);
    CHECK_TEXT(Rig.Display(), "Error: no such label");
}

TEST_CASE("GTO, point, 4 waits for the second digit of line 42")
{
    cCalculatorRig Rig;
    Rig.Type("GTO . 4");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "GTO . 4");
    CHECK_TEXT(Rig.State().m_szLastOp, "");
    CHECK(Rig.State().m_nCurLine == 0);

    Rig.Type("2");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.State().m_szLastOp, "GTO.42");
    CHECK(Rig.State().m_nCurLine == 42);
}

TEST_CASE("two digits after GTO and point go to each line")
{
    cCalculatorRig Rig;
    for (unsigned nLine = 0; nLine <= 99; nLine++)
    {
        CHECK(Complete(&Rig, "GTO . ", nLine / 10) == 1);
        CHECK(Rig.m_Engine.OnDigitKey(nLine % 10) == 1);

        CHECK(Rig.State().m_nCurLine == (nLine == 99 ? 1 : nLine));
        CHECK_TEXT(Rig.State().m_szLastOp, "GTO." + std::to_string(nLine));
    }
    CHECK(Rig.X() == 0);
}

TEST_CASE("STO, point, 5 is register 15, performed and recorded")
{
    cCalculatorRig Rig;
    Rig.Type("8 STO . 5");
    CHECK(Rig.State().m_dReg[15] == 8);

    Rig.Type("PRGM STO . 5");
    CHECK_TEXT(Rig.ListingLine(1), "01 STO .5");
    CHECK(Rig.State().m_Program[1].m_nOperand == 15);
}
