#include "engine/display.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "tests/unit/calculator_rig.h"

namespace
{

using cLines = std::vector<std::string>;

}  // namespace

// Each line as "large 59,66 | 0.00                |".
static cLines LinesOf(const cDisplay &Display)
{
    cLines Lines;
    for (int i = 0; i < Display.m_nLines; i++)
    {
        const cDisplayLine &Line = Display.m_Lines[i];
        char                szText[64];
        snprintf(szText, sizeof szText, "%s %d,%d |%s|",
                 Line.m_nFont == dfLarge ? "large" : "small", Line.m_nLeft, Line.m_nTop,
                 Line.m_szText);
        Lines.push_back(szText);
    }
    return Lines;
}

static cLines Composed(cCalculatorRig *pRig)
{
    cDisplay Display;
    pRig->m_Engine.ComposeDisplay(&Display);
    return LinesOf(Display);
}

static void SetKeystrokes(cCalculatorRig *pRig, const char *szKeystrokes)
{
    snprintf(pRig->m_Engine.Raw().m_szKeystrokes, kKeystrokesText, "%s", szKeystrokes);
}

static void SetLastOp(cCalculatorRig *pRig, const char *szLastOp)
{
    snprintf(pRig->m_Engine.Raw().m_szLastOp, kKeystrokesText, "%s", szLastOp);
}

TEST_CASE("the normal layout shows X, the angle mode and the last operation")
{
    cCalculatorRig Rig;
    Rig.Set(-12.5);
    SetLastOp(&Rig, "Rolldown");

    CHECK(Composed(&Rig) == cLines{
                                "large 59,66 |-12.50              |",
                                "small 234,40 |deg|",
                                "small 50,42 |LastOp:  Rolldown  |",
                            });
}

TEST_CASE("the normal layout shows pending keys instead of the last operation")
{
    cCalculatorRig Rig;
    SetLastOp(&Rig, "Rolldown");
    SetKeystrokes(&Rig, "STO + . ");

    CHECK(Composed(&Rig) == cLines{
                                "large 59,66 | 0.00               |",
                                "small 234,40 |deg|",
                                "small 50,42 |Keystrs: STO + .   |",
                            });
}

TEST_CASE("the stack view shows four levels with X at the bottom")
{
    cCalculatorRig Rig;
    Rig.Set(1, -2, 3, -9.999999999e99);
    Rig.m_Engine.Raw().m_bShowStack = 1;
    SetLastOp(&Rig, "StdDev");

    CHECK(Composed(&Rig) == cLines{
                                "small 50,78 |X   1.00               |",
                                "small 50,66 |Y  -2.00               |",
                                "small 50,54 |Z   3.00               |",
                                "small 50,42 |T  -9.999999999e+99    |",
                                "small 234,40 |deg|",
                                "small 194,53 |LastOp:  |",
                                "small 194,66 |StdDev    |",
                            });
}

TEST_CASE("the stack view shows pending keys instead of the last operation")
{
    cCalculatorRig Rig;
    Rig.m_Engine.Raw().m_bShowStack = 1;
    SetLastOp(&Rig, "StdDev");
    SetKeystrokes(&Rig, "GTO . 4");

    const cLines Lines = Composed(&Rig);

    REQUIRE(Lines.size() == 7);
    CHECK_TEXT(Lines[5], "small 194,53 |Keystrs: |");
    CHECK_TEXT(Lines[6], "small 194,66 |GTO . 4   |");
}

TEST_CASE("the program layout shows the step and the pending keys")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM STO . 3 GTO i 3.14 ENTER GTO . 00");

    static const char *const s_Steps[] = {
        "large 50,66 |00                  |", "large 50,66 |01 STO .3           |",
        "large 50,66 |02 GTO i            |", "large 50,66 |03 +3.14            |",
        "large 50,66 |04 ENTER            |", "large 50,66 |05 R/S              |",
    };
    for (unsigned nStep = 0; nStep <= 5; nStep++)
    {
        Rig.m_Engine.GoToLine(nStep);
        CHECK(Composed(&Rig) == cLines{s_Steps[nStep], "small 50,42 |Keystrs:           |"});
    }

    SetKeystrokes(&Rig, "STO / . ");
    CHECK(Composed(&Rig) ==
          cLines{"large 50,66 |05 R/S              |", "small 50,42 |Keystrs: STO / .   |"});
}

TEST_CASE("the program layout hides the stack view")
{
    cCalculatorRig Rig;
    Rig.m_Engine.Raw().m_bShowStack = 1;
    Rig.Type("PRGM");

    CHECK(Composed(&Rig) ==
          cLines{"large 50,66 |00                  |", "small 50,42 |Keystrs:           |"});
}

TEST_CASE("a program step stays in the display's text")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM STO . 3");
    Composed(&Rig);

    CHECK_TEXT(Rig.State().m_szDisplay, "01 STO .3           ");
}

TEST_CASE("a positive number shows a blank where a negative one shows its sign")
{
    for (const int bShowStack : {0, 1})
    {
        cCalculatorRig Rig;
        Rig.m_Engine.Raw().m_bShowStack = bShowStack;
        const std::string Gap           = bShowStack ? "X  " : "";

        Rig.Set(5);
        CHECK_TEXT(Rig.Shown(), Gap + " 5.00");

        Rig.Set(-5);
        CHECK_TEXT(Rig.Shown(), Gap + "-5.00");

        Rig.Type("12.5 EEX 3");
        CHECK_TEXT(Rig.Shown(), Gap + " 12.5e+03");
    }
}

TEST_CASE("only the sign of a number is blanked")
{
    cCalculatorRig Rig;
    Rig.Set(1e20);
    CHECK_TEXT(Rig.Shown(), " 1.00e+20");

    Rig.Run("sin^-1");
    CHECK_TEXT(Rig.Shown(), "Error: impossible");

    Rig.m_Engine.Raw().m_bShowStack = 1;
    CHECK_TEXT(Rig.Shown(), "X  Error: impossible");
}

TEST_CASE("composing twice shows the same")
{
    cCalculatorRig Rig;
    Rig.Set(1, 2, 3, 4);
    for (const int bShowStack : {0, 1})
    {
        Rig.m_Engine.Raw().m_bShowStack = bShowStack;
        const cLines First              = Composed(&Rig);
        CHECK(Composed(&Rig) == First);
    }

    Rig.Run("1/x");
    Rig.Set(0);
    Rig.Run("1/x");
    const cLines Error = Composed(&Rig);
    CHECK(Composed(&Rig) == Error);
}

TEST_CASE("the annunciator follows the angle mode in both views")
{
    static const struct
    {
        const char *szMnemonic;
        const char *szShown;
    } s_Rows[] = {{"RAD", "small 234,40 |rad|"},
                  {"DEG", "small 234,40 |deg|"},
                  {"GRD", "small 234,40 |grd|"}};
    for (const auto &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Rig.Run(Row.szMnemonic);

        CHECK_TEXT(Composed(&Rig)[1], Row.szShown);

        Rig.m_Engine.Raw().m_bShowStack = 1;
        CHECK_TEXT(Composed(&Rig)[4], Row.szShown);
    }
}

TEST_CASE("wait markers are never shown, the last operation is shown instead")
{
    for (const char *const szMarker : {"EWFDK", "EWFUK", "HWFUK", "EWF", "HWF"})
    {
        CAPTURE(std::string(szMarker));
        cCalculatorRig Rig;
        SetLastOp(&Rig, "LR");
        SetKeystrokes(&Rig, szMarker);

        CHECK_TEXT(Composed(&Rig)[2], "small 50,42 |LastOp:  LR        |");

        Rig.m_Engine.Raw().m_bShowStack = 1;
        CHECK_TEXT(Composed(&Rig)[5], "small 194,53 |LastOp:  |");
        CHECK_TEXT(Composed(&Rig)[6], "small 194,66 |LR        |");
    }
}

TEST_CASE("texts as long as their fields are shown completely")
{
    cCalculatorRig Rig;
    SetKeystrokes(&Rig, "0123456789");
    SetLastOp(&Rig, "abcdefghij");

    CHECK_TEXT(Composed(&Rig)[2], "small 50,42 |Keystrs: 0123456789|");
    Rig.m_Engine.Raw().m_bShowStack = 1;
    CHECK_TEXT(Composed(&Rig)[6], "small 194,66 |0123456789|");

    SetKeystrokes(&Rig, "");
    CHECK_TEXT(Composed(&Rig)[6], "small 194,66 |abcdefghij|");
    Rig.m_Engine.Raw().m_bShowStack = 0;
    CHECK_TEXT(Composed(&Rig)[2], "small 50,42 |LastOp:  abcdefghij|");

    SetKeystrokes(&Rig, "0123456789");
    Rig.Type("PRGM");
    SetKeystrokes(&Rig, "0123456789");
    CHECK_TEXT(Composed(&Rig)[1], "small 50,42 |Keystrs: 0123456789|");
}

TEST_CASE("twenty characters of an error text are visible")
{
    cCalculatorRig Rig;
    Rig.Set(-4);
    Rig.Run("sqrt");

    CHECK_TEXT(Composed(&Rig)[0], "large 59,66 |Error: sqrt of x < 0|");
    Rig.m_Engine.Raw().m_bShowStack = 1;
    CHECK_TEXT(Composed(&Rig)[0], "small 50,78 |X  Error: sqrt of x < 0|");
}

TEST_CASE("a program step longer than the display is cut to twenty characters")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM STO 5");
    ProgramLine &Line = Rig.m_Engine.Raw().m_Program[1];
    snprintf(Line.m_szText, sizeof Line.m_szText, "ABCDEFGHIJKLMNOPQ");
    CHECK_TEXT(Composed(&Rig)[0], "large 50,66 |01 ABCDEFGHIJKLMNOPQ|");

    snprintf(Line.m_szText, sizeof Line.m_szText, "ABCDEFGHIJKLMNO");
    snprintf(Line.m_szOperandText, sizeof Line.m_szOperandText, ".3");
    CHECK_TEXT(Composed(&Rig)[0], "large 50,66 |01 ABCDEFGHIJKLMNO .|");
}

TEST_CASE("step 99 reports code 128 once and paints step 98")
{
    cCalculatorRig Rig;
    Rig.Type("PRGM");
    Rig.Forget();
    Rig.m_Engine.Raw().m_nCurLine = 99;

    Rig.m_Engine.PaintDisplay();

    CHECK_TEXT(LinesOf(Rig.m_Host.m_Drawn)[0], "large 50,66 |98 R/S              |");
    CHECK(Rig.State().m_nCurLine == 98);
    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #128");

    Rig.m_Engine.PaintDisplay();
    CHECK(Rig.m_Host.m_Boxes.size() == 1);
}

TEST_CASE("painting draws what is composed, blanking draws nothing")
{
    cCalculatorRig Rig;
    Rig.Set(7);

    CHECK(Rig.m_Engine.PaintDisplay() == 1);
    CHECK(Rig.m_Host.m_nDraws == 1);
    CHECK(Rig.m_Host.m_nBlanks == 0);
    CHECK(LinesOf(Rig.m_Host.m_Drawn) == Composed(&Rig));

    CHECK(Rig.m_Engine.BlankDisplay() == 1);
    CHECK(Rig.m_Host.m_nDraws == 1);
    CHECK(Rig.m_Host.m_nBlanks == 1);
}

TEST_CASE("a change of layout blanks before and paints after")
{
    cCalculatorRig Rig;

    Rig.Down(kKeyStackView);
    CHECK(Rig.m_Host.m_nBlanks == 1);
    CHECK_TEXT(LinesOf(Rig.m_Host.m_Drawn)[0], "small 50,78 |X   0.00               |");

    Rig.Up(kKeyStackView);
    CHECK(Rig.m_Host.m_nBlanks == 2);
    CHECK_TEXT(LinesOf(Rig.m_Host.m_Drawn)[0], "large 59,66 | 0.00               |");

    Rig.Type("PRGM");
    CHECK(Rig.m_Host.m_nBlanks == 3);
    CHECK_TEXT(LinesOf(Rig.m_Host.m_Drawn)[0], "large 50,66 |00                  |");

    Rig.Type("RUN");
    CHECK(Rig.m_Host.m_nBlanks == 4);
    CHECK_TEXT(LinesOf(Rig.m_Host.m_Drawn)[0], "large 59,66 | 0.00               |");
}

TEST_CASE("lamps show a pending f or g, program mode and a run")
{
    const unsigned nF = 1U << laF, nG = 1U << laG, nProgram = 1U << laProgram;
    static const struct
    {
        const char *m_szKeystrokes;
        int         m_bProgramMode;
        int         m_bRunning;
        unsigned    m_nLamps;
    } s_Rows[] = {
        {"", 0, 0, 0},
        {"f ", 0, 0, nF},
        {"g ", 0, 0, nG},
        {"GTO f ", 0, 0, nF},
        {"RCL g ", 1, 0, nG | nProgram},
        {"STO ", 0, 0, 0},
        {"EWFDK", 0, 0, 0},
        {"", 1, 0, nProgram},
        {"", 0, 1, 1U << laRunning},
    };

    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_szKeystrokes);
        cCalculatorRig Rig;
        SetKeystrokes(&Rig, Row.m_szKeystrokes);
        Rig.m_Engine.Raw().m_bProgramMode    = Row.m_bProgramMode;
        Rig.m_Engine.Raw().m_bProgramRunning = Row.m_bRunning;

        cDisplay Display;
        Rig.m_Engine.ComposeDisplay(&Display);

        CHECK(Display.m_nLamps == Row.m_nLamps);
    }
}
