#include <random>

#include "tests/unit/calculator_rig.h"

// Where the label is: at or below the current line, else from line 1 on; 0 if it
// is nowhere.
static unsigned ScanForLabel(cCalculatorRig &Rig, unsigned nCurLine, unsigned nLabel)
{
    const std::string Step = "LBL " + std::to_string(nLabel);
    for (unsigned i = 0; i < kProgramLines; i++)
    {
        const unsigned nLine = (nCurLine + i) % kProgramLines;
        if (nLine > 0 && Rig.Step(nLine) == Step)
            return nLine;
    }
    return 0;
}

static void CheckLabels(cCalculatorRig &Rig)
{
    for (unsigned nLine = 0; nLine <= kLastLine; nLine += 7)
        for (unsigned nLabel = 0; nLabel <= 9; nLabel++)
        {
            const unsigned nFound = ScanForLabel(Rig, nLine, nLabel);
            Rig.m_Engine.GoToLine(nLine);
            REQUIRE(Rig.Run("GTO", nLabel) == (nFound > 0));
            REQUIRE(Rig.State().m_nCurLine == (nFound > 0 ? nFound : nLine));
        }
}

// The programs of these tests contain only numbers, labels and R/S.
static void CheckNumbers(cCalculatorRig &Rig)
{
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
    {
        const std::string Step = Rig.Step(nLine);
        if (Step == "R/S")
            continue;
        Rig.Set(0.5);
        Rig.m_Engine.GoToLine(nLine);
        REQUIRE(Rig.m_Engine.ExecuteCurrentLine() == 1);
        REQUIRE(Rig.X() == (Step.find("LBL") == 0 ? 0.5 : std::stod(Step)));
    }
}

static unsigned Pick(std::mt19937 *pRandom, unsigned nCount)
{
    return static_cast<unsigned>((*pRandom)() % nCount);
}

static std::string RandomListing(std::mt19937 *pRandom)
{
    std::string    Listing;
    const unsigned nLines = Pick(pRandom, kProgramLines);
    for (unsigned nLine = 1; nLine <= nLines; nLine++)
        Listing += (Pick(pRandom, 3) ? "LBL " : "1") + std::to_string(Pick(pRandom, 10)) + "\n";
    return Listing;
}

// A random change of the program, in program mode.
static void Change(std::mt19937 *pRandom, cCalculatorRig *pRig)
{
    const unsigned nLine = Pick(pRandom, kProgramLines);
    const unsigned nPick = Pick(pRandom, 40);
    pRig->m_Engine.GoToLine(nLine);
    if (nPick < 15)
        pRig->Run("LBL", Pick(pRandom, 10));
    else if (nPick < 25)
        pRig->Type("3 4");
    else if (nPick < 37)
        pRig->Type("g Sum+");  // DEL
    else if (nPick < 38)
        pRig->m_Engine.ClearProgram();
    else
        pRig->Load(RandomListing(pRandom).c_str());
}

TEST_CASE("after every change of the program its lines and labels are the new ones")
{
    std::mt19937   Random(12);
    cCalculatorRig Rig;
    Rig.Load(RandomListing(&Random).c_str());
    for (int i = 0; i < 300; i++)
    {
        CAPTURE(i);
        Rig.Type("PRGM");
        Change(&Random, &Rig);
        Rig.Type("RUN");
        CheckLabels(Rig);
        CheckNumbers(Rig);
        Rig.Key(11);  // ends the wait after a label that was not found
        Rig.Forget();
    }
}

TEST_CASE("a number that replaces the label on the last line is executed there")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 7\n");
    Rig.Type("PRGM GTO . 9 7 g GTO 7 GTO . 9 8 4 2 RUN");
    REQUIRE(Rig.Step(98) == "+42.");

    CHECK(Rig.m_Engine.ExecuteCurrentLine() == 1);
    CHECK(Rig.X() == 42.0);

    CHECK(Rig.Run("GTO", 7) == 1);
    CHECK(Rig.State().m_nCurLine == 1);
}

TEST_CASE("a step that was changed runs with its new operand")
{
    cCalculatorRig Rig;
    Rig.Load("STO 3\nRCL 5\n");
    Rig.Set(7.0);
    Rig.SetReg(6, 0.25);
    Rig.Type("R/S GTO . 0 0");
    REQUIRE(Rig.State().m_dReg[3] == 7.0);

    Rig.Type("PRGM GTO . 0 0 STO 4 RCL 6 R/S RUN GTO . 0 0");
    REQUIRE(Rig.Step(1) == "STO 4");
    REQUIRE(Rig.Step(2) == "RCL 6");
    Rig.Set(9.0);
    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[3] == 7.0);
    CHECK(Rig.State().m_dReg[4] == 9.0);
    CHECK(Rig.X() == 0.25);
}
