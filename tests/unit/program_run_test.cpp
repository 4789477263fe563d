#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <random>

#include "engine/range.h"
#include "tests/unit/calculator_rig.h"
#include "tests/unit/scratch_folder.h"

static const char *const kEndless = "LBL 1\nGTO 1\n";

// Delivers Event from the drain after the nLine-th executed line of the next
// run; the drain after the hundredth is a quit.
static void At(cCalculatorRig *pRig, unsigned nLine, const std::function<void()> &Event)
{
    pRig->m_Host.m_nDrains = 0;
    pRig->m_Host.m_OnDrain = [pRig, nLine, Event] {
        if (pRig->m_Host.m_nDrains == nLine)
            Event();
        return pRig->m_Host.m_nDrains < 100;
    };
}

// Whether commands 101, 102, 121 and 404 are enabled, as "1111".
static std::string Commands(cCalculatorRig &Rig)
{
    std::string Enabled;
    for (const unsigned nId : {101U, 102U, 121U, 404U})
        Enabled +=
            Rig.m_Host.m_Enabled.count(nId) ? std::to_string(Rig.m_Host.m_Enabled[nId]) : "-";
    return Enabled;
}

// --- the run loop

TEST_CASE("a program of only R/S lines stops after one line")
{
    cCalculatorRig Rig;

    Rig.Type("R/S");

    CHECK(Rig.State().m_nCurLine == 2);
    CHECK(Rig.State().m_bProgramRunning == 0);
    CHECK(Rig.m_Host.m_nDrains == 0);
}

TEST_CASE("a run from line 0 begins with line 1")
{
    cCalculatorRig Rig;
    Rig.Load("3\nSTO 1\n");
    REQUIRE(Rig.State().m_nCurLine == 0);

    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[1] == 3.0);
}

TEST_CASE("a run from line 0 judges the mnemonic of line 1")
{
    // clang-format off
    static const struct { const char *szLine; unsigned nNext; } s_Rows[] =
    {
        { "GTO 5", 50 },
        { "GTO i", 50 },
        { "RTN",   2  },
        { "CLX",   2  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        cCalculatorRig Rig;
        std::string    Listing = std::string(Row.szLine) + "\n";
        for (unsigned nLine = 2; nLine < 50; nLine++)
            Listing += "CLX\n";
        Rig.Load((Listing + "LBL 5\n").c_str());
        Rig.SetReg(0, 5.0);
        At(&Rig, 1, [&Rig] { Rig.m_Engine.HaltProgram(); });

        Rig.Type("R/S");

        CHECK(Rig.State().m_nCurLine == Row.nNext);
    }
}

TEST_CASE("a run goes from line 98 to line 1")
{
    cCalculatorRig Rig;
    Rig.Load("STO 1\n");
    Rig.Type("PRGM GTO . 9 7 STO 2 RUN GTO . 9 8 5");

    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[2] == 5.0);
    CHECK(Rig.State().m_dReg[1] == 5.0);
    CHECK(Rig.State().m_nCurLine == 3);
}

TEST_CASE("the run returns the result of its last line")
{
    cCalculatorRig Rig;

    Rig.Load("CLX\nR/S\n1/x\n");
    CHECK(Rig.m_Engine.RunProgram() == 1);
    CHECK(Rig.State().m_nCurLine == 3);

    CHECK(Rig.m_Engine.RunProgram() == 0);
    CHECK(Rig.State().m_nCurLine == 3);
}

TEST_CASE("a failing line halts the run and stays the current line")
{
    cCalculatorRig Rig;
    Rig.Load("2\n0\n/\n5\n");

    Rig.Type("R/S");

    CHECK(Rig.State().m_nCurLine == 3);
    CHECK(Rig.Highlighted() == 3);
    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
    CHECK_TEXT(Rig.Sounds(), "10050 10052");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
    CHECK(Rig.State().m_bProgramRunning == 0);
    CHECK(Rig.X() == 0.0);
    CHECK(Rig.Y() == 2.0);
}

TEST_CASE("a run can be resumed after a halt, a failing line fails again")
{
    cCalculatorRig Rig;
    Rig.Load("1/x\nSTO 1\n");
    Rig.Type("R/S");
    REQUIRE(Rig.Display() == "Error: divide by 0");

    Rig.Type("CLX 4");
    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[1] == 0.25);
}

TEST_CASE("the messages are drained after each line but the one that ended the run")
{
    // clang-format off
    static const struct { const char *szListing; unsigned nDrains; } s_Rows[] =
    {
        { "1\n2\nR/S\n",              2 },
        { "1\n2\nRTN\n",              2 },
        { "CLX\n1/x\n",               1 },
        { "LBL 1\nGTO 9\n",           1 },
        { "R/S\n",                    0 },
        { "1/x\n",                    0 },
        { "GSB 1\nR/S\nLBL 1\nRTN\n", 3 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szListing);
        cCalculatorRig Rig;
        Rig.Load(Row.szListing);

        Rig.m_Engine.RunProgram();

        CHECK(Rig.m_Host.m_nDrains == Row.nDrains);
    }
}

// Halts the program of kCounting when so many lines have been executed. The host
// allows as many lines at a time as it is told here.
static void RunCounted(cCalculatorRig *pRig, unsigned nAllowed, unsigned nLines)
{
    pRig->m_Host.m_OnDrain = [=] {
        const unsigned nLeft = nLines - pRig->m_Host.m_nLines;
        if (nLeft == 0)
            pRig->m_Engine.HaltProgram();
        pRig->m_Host.m_nAllowed = std::max(std::min(nAllowed, nLeft), 1U);
        return 1;
    };
    pRig->m_Engine.RunProgram();
}

TEST_CASE("the host is asked again after exactly as many lines as it allowed")
{
    static const char *const kCounting = "LBL 1\nISZ\nGTO 1\n";
    for (const unsigned nAllowed : {1U, 2U, 7U, 98U, 1000U, 4000000000U})
        for (const unsigned nLines : {1U, 2U, 3U, 299U, 300U, 301U})
        {
            CAPTURE(nAllowed);
            CAPTURE(nLines);
            cCalculatorRig Rig;
            Rig.Load(kCounting);

            RunCounted(&Rig, nAllowed, nLines);

            CHECK(Rig.State().m_dReg[0] == (nLines + 1) / 3);
            CHECK(Rig.State().m_nCurLine == nLines % 3 + 1);
            CHECK(Rig.m_Host.m_nLines == nLines);
            CHECK(Rig.m_Host.m_nDrains == 1 + (nLines - 1 + nAllowed - 1) / nAllowed);
        }
}

TEST_CASE("a line that uses the host is followed by a drain, however many lines are allowed")
{
    // clang-format off
    static const struct { const char *szLine; unsigned nDrains; } s_Rows[] =
    {
        { "CLX",        1 },
        { "1e-99\nsin", 2 },  // a box: the result cannot be shown
        { "PAUSE",      2 },
        { "ClearG",     2 },
        { "SumG",       2 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        cCalculatorRig Rig;
        Rig.Load(("1\n" + std::string(Row.szLine) + "\n2\n3\n").c_str());
        Rig.m_Host.m_nAllowed = 1000;

        Rig.m_Engine.RunProgram();

        CHECK(Rig.m_Host.m_nDrains == Row.nDrains);
        CHECK(Rig.X() == 3.0);
    }
}

TEST_CASE("a key during a PAUSE halts the run after that line, however many lines are allowed")
{
    cCalculatorRig Rig;
    Rig.Load("1\n2\nPAUSE\n3\n4\n");
    Rig.m_Host.m_nAllowed = 1000;
    Rig.m_Host.m_OnPause  = [&Rig] { Rig.m_Engine.HaltProgram(); };

    Rig.m_Engine.RunProgram();

    CHECK(Rig.X() == 2.0);
    CHECK(Rig.State().m_nCurLine == 4);
}

// A program of nLines random lines, all kinds of instructions among them.
static std::string RandomProgram(std::mt19937 *pRandom)
{
    static const char *const s_Lines[] = {
        "1",     "2",     "-3",    "9e98",   "+",     "*",      "/",     "-",     "1/x",
        "sqrt",  "STO 0", "RCL 1", "STO+ 1", "RCL i", "STO/ i", "DSZ",   "ISZ",   "x<>y",
        "Sum+",  "Mean",  "LBL 1", "LBL 2",  "LBL 3", "GTO 1",  "GTO 2", "GSB 2", "GSB 3",
        "GTO i", "GSB i", "RTN",   "x=0",    "x>y",   "PAUSE",  "SumG",  "FIX 4", "SCI 9",
        "CHS",   "ENTER", "CLX",   "->P",    "1e-99", "LASTx",  "y^x",   "ClearG"};
    std::string Program = "LBL 1\nLBL 2\nLBL 3\n";
    for (int nLine = 0; nLine < 30; nLine++)
        Program += std::string(s_Lines[(*pRandom)() % std::size(s_Lines)]) + "\n";
    return Program + "GTO 1\n";
}

static std::string Report(cCalculatorRig &Rig)
{
    std::string Text = Rig.Snapshot() + Rig.Display();
    for (unsigned nLine = 0; nLine <= kRegisters; nLine++)
        Text += "\n" + Rig.RegisterLine(nLine);
    Text += "\nsounds " + Rig.Sounds() + ", highlight " + std::to_string(Rig.Highlighted());
    for (const size_t nCount :
         {Rig.m_Host.m_Boxes.size(), Rig.m_Host.m_Pauses.size(), Rig.m_Host.m_Graph.size()})
        Text += ", " + std::to_string(nCount);
    return Text;
}

TEST_CASE("a program computes the same, however many lines the host allows")
{
    std::mt19937 Random(4);
    unsigned     nLong = 0;
    for (int i = 0; i < 300; i++)
    {
        const std::string Program = RandomProgram(&Random);
        CAPTURE(Program);
        std::string Reports[3];
        for (int nRig = 0; nRig < 3; nRig++)
        {
            cCalculatorRig Rig;
            Rig.Load(Program.c_str());
            RunCounted(&Rig, nRig == 0 ? 1 : nRig == 1 ? 5 : 100000, 500);
            Reports[nRig] = Report(Rig);
            nLong += Rig.m_Host.m_nLines > 100;
        }
        CHECK(Reports[1] == Reports[0]);
        CHECK(Reports[2] == Reports[0]);
    }
    CHECK(nLong > 100);
}

TEST_CASE("a quit message ends the run")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    Rig.m_Host.m_OnDrain = [&Rig] { return Rig.m_Host.m_nDrains < 5; };

    const int nResult = Rig.m_Engine.RunProgram();

    CHECK(nResult == 1);
    CHECK(Rig.m_Host.m_nDrains == 5);
    CHECK(Rig.State().m_bProgramRunning == 0);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("four commands are grey while a program runs")
{
    static const struct
    {
        const char *szListing;
        const char *szKeys;
    } s_Rows[] = {
        {"CLX\nCLX\nR/S\n", "R/S"}, {"CLX\nCLX\n1/x\n", "R/S"}, {"LBL 1\nCLX\nRTN\n", "GSB 1"}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szListing);
        cCalculatorRig Rig;
        Rig.Load(Row.szListing);
        std::string During;
        At(&Rig, 2, [&] { During = Commands(Rig); });

        Rig.Type(Row.szKeys);

        CHECK_TEXT(During, "0000");
        CHECK_TEXT(Commands(Rig), "1111");
        CHECK(Rig.m_Host.m_Enabled.count(209) == 0);
    }
}

TEST_CASE("the lamp of a run is lit while the program runs and goes out with its end")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    unsigned nLit = 0;
    At(&Rig, 3, [&] {
        Rig.m_Engine.PaintDisplay();
        nLit = Rig.m_Host.m_Drawn.m_nLamps;
        Rig.m_Engine.HaltProgram();
    });

    Rig.Type("R/S");

    CHECK(nLit == 1U << laRunning);
    CHECK(Rig.m_Host.m_Drawn.m_nLamps == 0);
}

TEST_CASE("a single step leaves the commands as they are")
{
    cCalculatorRig Rig;
    Rig.Load("CLX\n");

    Rig.m_Engine.SingleStep();

    CHECK_TEXT(Commands(Rig), "----");
    CHECK(Rig.m_Host.m_nDrains == 0);
}

TEST_CASE("a key halts the run after the current line")
{
    cCalculatorRig Rig;
    Rig.Load("1\nSTO+ 1\n2\nSTO+ 2\n3\nSTO+ 3\n");
    At(&Rig, 4, [&Rig] { Rig.Down(11); });

    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[2] == 2.0);
    CHECK(Rig.State().m_nCurLine == 5);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "HWFUK");

    Rig.Up(11);
    Rig.Type("R/S");

    CHECK(Rig.State().m_dReg[3] == 3.0);
}

TEST_CASE("a key that halts a run which GSB started waits for its release")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    At(&Rig, 4, [&Rig] { Rig.Down(11); });

    Rig.Type("GSB");
    Rig.Down(24);

    CHECK_TEXT(Rig.State().m_szKeystrokes, "HWFUK");
    CHECK(Rig.m_Host.m_Boxes.empty());
}

TEST_CASE("the release of the key that started a run is ignored inside it")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    At(&Rig, 3, [&Rig] { Rig.Up(24); });
    Rig.Type("GSB");

    Rig.Down(24);

    CHECK(Rig.m_Host.m_nDrains == 100);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("a key pressed and released inside one drain halts the run, too")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    At(&Rig, 3, [&Rig] { Rig.Key(11); });

    Rig.Type("R/S");

    CHECK(Rig.m_Host.m_nDrains == 3);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
}

TEST_CASE("a key cannot start a second run inside the first")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    int nDepth   = 0;
    int nDeepest = 0;
    At(&Rig, 3, [&] {
        // The first key halts the run, the second would start another.
        Rig.Type("CLX R/S");
    });
    Rig.m_Host.m_OnDrain = [&, Drain = Rig.m_Host.m_OnDrain] {
        nDeepest          = std::max(nDeepest, ++nDepth);
        const int bGoesOn = Drain();
        nDepth--;
        return bGoesOn;
    };

    Rig.Type("R/S");

    CHECK(nDeepest == 1);
}

TEST_CASE("a second run or step that is refused leaves the halted program where it is")
{
    for (const char *const szKeys : {"R/S", "GSB 1", "GSB i", "SST"})
    {
        CAPTURE_TEXT(szKeys);
        cCalculatorRig Rig;
        Rig.Load("1\n2\n2\nLBL 1\n3\n");
        Rig.SetReg(0, 1.0);
        At(&Rig, 1, [&] {
            Rig.Type("7");
            Rig.Type(szKeys);
        });

        Rig.Type("R/S");

        CHECK(Rig.State().m_nCurLine == 2);
        CHECK(Rig.m_Host.m_nDrains == 1);
        CHECK(Rig.State().m_bProgramRunning == 0);
        CHECK(Rig.X() == 1.0);
        CHECK_TEXT(Commands(Rig), "1111");
    }
}

TEST_CASE("the host can tell one run from the next")
{
    cCalculatorRig Rig;
    CHECK(Rig.m_Engine.RunNumber() == 0);

    Rig.Type("R/S");
    CHECK(Rig.m_Engine.RunNumber() == 1);

    Rig.Type("SST");
    CHECK(Rig.m_Engine.RunNumber() == 1);

    Rig.Type("R/S");
    CHECK(Rig.m_Engine.RunNumber() == 2);
    CHECK(Rig.m_Engine.IsRunning() == 0);
}

// --- the switch to program mode that was asked for during a run

// Asks for program mode after the second line and halts as Halt does after
// the fifth.
static void AskForProgramMode(cCalculatorRig *pRig, const std::function<void()> &Halt)
{
    pRig->m_Host.m_nDrains = 0;
    pRig->m_Host.m_OnDrain = [pRig, Halt] {
        if (pRig->m_Host.m_nDrains == 2)
            pRig->Up(kKeyMode);
        else if (pRig->m_Host.m_nDrains == 5)
            Halt();
        CHECK(pRig->State().m_bProgramMode == 0);
        return pRig->m_Host.m_nDrains < 100;
    };
}

static void CheckSwitched(cCalculatorRig &Rig)
{
    CHECK(Rig.State().m_bProgramMode == 1);
    CHECK(Rig.State().m_bSwitchToProgramPending == 0);
    CHECK_TEXT(Rig.State().m_szSavedLastOp, Rig.State().m_szLastOp);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK(Rig.LastSound() == 10057);
    CHECK(Rig.m_Host.m_bListingShown == 1);
    CHECK(Rig.m_Host.m_Boxes.empty());
    CHECK(Rig.State().m_nReturnDepth == 0);
    CHECK(Rig.m_Host.m_Drawn.m_nLines == 2);
    CHECK_TEXT(Commands(Rig), "1111");
}

TEST_CASE("the switch is carried out at once when the program ends by itself")
{
    for (const char *const szEnd : {"R/S", "RTN"})
        for (const char *const szKeys : {"R/S", "GSB 1"})
        {
            CAPTURE_TEXT(szEnd);
            CAPTURE_TEXT(szKeys);
            cCalculatorRig Rig;
            Rig.Load(("LBL 1\nCLX\nCLX\n" + std::string(szEnd) + "\n").c_str());
            AskForProgramMode(&Rig, [] {});

            Rig.Type(szKeys);

            CheckSwitched(Rig);
            CHECK(Rig.State().m_nCurLine == 5);
        }
}

TEST_CASE("the switch is carried out at once when the host ends the run")
{
    const std::function<void(cCalculatorRig *)> Halts[] = {
        [](cCalculatorRig *pRig) { pRig->m_Engine.OnChar(27); },
        [](cCalculatorRig *pRig) { pRig->m_Engine.HaltProgram(); },
        [](cCalculatorRig *) {},  // quits after the hundredth line
    };
    for (const auto &Halt : Halts)
    {
        cCalculatorRig Rig;
        Rig.Load(kEndless);
        AskForProgramMode(&Rig, [&] { Halt(&Rig); });

        Rig.Type("R/S");

        CheckSwitched(Rig);
    }
}

TEST_CASE("the switch is carried out at once when the graph is full")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\nCLX\nCLX\nSumG\n");
    Rig.m_Host.m_nPointLimit = 0;
    AskForProgramMode(&Rig, [] {});

    Rig.Type("R/S");

    REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
    Rig.m_Host.m_Boxes.clear();
    CheckSwitched(Rig);
}

TEST_CASE("the switch waits for the release of the key that halted the program")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    AskForProgramMode(&Rig, [&Rig] { Rig.Down(11); });
    Rig.Type("R/S");
    CHECK(Rig.State().m_bProgramMode == 0);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "HWFUK");

    Rig.Up(11);

    CheckSwitched(Rig);
    CHECK_TEXT(Rig.Sounds(), "10050 10051 10053 10057");
}

TEST_CASE("the switch happens when the halting key's release arrives inside the drain")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    Rig.m_Host.m_OnDrain = [&Rig] {
        Rig.Up(kKeyMode);
        Rig.Key(11);
        return 1;
    };

    Rig.Type("R/S");

    CheckSwitched(Rig);
}

TEST_CASE("the switch waits for the release of the key that clears an error")
{
    for (const char *const szKeys : {"R/S", "GSB 1"})
    {
        CAPTURE_TEXT(szKeys);
        cCalculatorRig Rig;
        Rig.Load("LBL 1\nCLX\nCLX\n1/x\n");
        AskForProgramMode(&Rig, [] {});
        Rig.Type(szKeys);
        CHECK(Rig.State().m_bProgramMode == 0);
        CHECK_TEXT(Rig.Display(), "Error: divide by 0");

        Rig.Down(11);
        CHECK(Rig.State().m_bProgramMode == 0);
        Rig.Up(11);

        CheckSwitched(Rig);
        CHECK(Rig.State().m_nCurLine == 4);
    }
}

TEST_CASE("a new program ends the wait for the key, and the switch is carried out")
{
    for (const char *const szEnd : {"1/x", "GTO 1"})
    {
        CAPTURE_TEXT(szEnd);
        cCalculatorRig Rig;
        Rig.Load(("LBL 1\nCLX\nCLX\n" + std::string(szEnd) + "\n").c_str());
        AskForProgramMode(&Rig, [&Rig] { Rig.Down(11); });
        Rig.Type("R/S");
        REQUIRE(Rig.State().m_bProgramMode == 0);

        CHECK(Rig.m_Engine.New() == 1);

        CheckSwitched(Rig);
    }
}

TEST_CASE("another key between halt and release does not lose the switch")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\nGTO 1\n");
    Rig.m_Host.m_OnDrain = [&Rig] {
        Rig.Up(kKeyMode);
        Rig.Down(11);
        return 1;
    };
    Rig.Type("R/S");

    Rig.Key(6);

    CHECK(Rig.State().m_bProgramMode == 1);
    CHECK(Rig.State().m_bSwitchToProgramPending == 0);
}

TEST_CASE("a switch that was moved back during the run does nothing")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\nCLX\nCLX\nCLX\n");
    At(&Rig, 2, [&Rig] {
        Rig.Up(kKeyMode);
        Rig.Down(kKeyMode);
    });

    Rig.Type("R/S");

    CHECK(Rig.State().m_bProgramMode == 0);
    CHECK(Rig.State().m_bSwitchToProgramPending == 0);
    CHECK_TEXT(Rig.Sounds(), "10050 10051 10051");
}

TEST_CASE("the switch's release after the halt enters program mode in the ordinary way")
{
    cCalculatorRig Rig;
    Rig.Load(kEndless);
    At(&Rig, 3, [&Rig] { Rig.Down(11); });
    Rig.Type("R/S");
    Rig.Up(11);

    Rig.Up(kKeyMode);

    CheckSwitched(Rig);
}

// --- single step

TEST_CASE("a single step executes the current line and advances")
{
    // clang-format off
    static const struct
    {
        const char *szLine;
        unsigned    nNext;   // from line 1, register 0 holding 5, X 0
    } s_Rows[] =
    {
        { "CLX",   2  },
        { "7",     2  },
        { "R/S",   2  },
        { "LBL 3", 2  },
        { "PAUSE", 2  },
        { "x=0",   2  },
        { "x!=0",  3  },
        { "DSZ",   2  },
        { "GTO 5", 50 },
        { "GTO i", 50 },
        { "GSB 5", 50 },
        { "GSB i", 50 },
        { "RTN",   2  },
        { "1/x",   1  },
        { "GTO 9", 1  },
        { "GSB 9", 1  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        cCalculatorRig Rig;
        std::string    Listing = std::string(Row.szLine) + "\n";
        for (unsigned nLine = 2; nLine < 50; nLine++)
            Listing += "CLX\n";
        Rig.Load((Listing + "LBL 5\n").c_str());
        Rig.SetReg(0, 5.0);
        Rig.m_Engine.GoToLine(1);

        const int nResult = Rig.m_Engine.SingleStep();

        CHECK(nResult == (Row.nNext == 1 ? 0 : 1));
        CHECK(Rig.State().m_nCurLine == Row.nNext);
        CHECK(Rig.Highlighted() == Row.nNext);
        CHECK(Rig.State().m_bProgramRunning == 0);
    }
}

TEST_CASE("a single step from line 0 executes line 1, one from line 98 continues with line 1")
{
    cCalculatorRig Rig;
    Rig.Load("4\n");

    Rig.Type("SST");
    CHECK(Rig.X() == 4.0);
    CHECK(Rig.State().m_nCurLine == 2);

    Rig.Type("GTO . 9 8 SST");
    CHECK(Rig.State().m_nCurLine == 1);
}

TEST_CASE("a stepped GSB pushes its return address and a stepped RTN pops it")
{
    cCalculatorRig Rig;
    Rig.Load("GSB 1\nCLX\nLBL 1\nRTN\n");

    Rig.Type("SST");
    CHECK(Rig.State().m_nCurLine == 3);
    CHECK(Rig.State().m_nReturnDepth == 1);
    CHECK(Rig.State().m_nReturnAddr[0] == 2);

    Rig.Type("SST SST");
    CHECK(Rig.State().m_nCurLine == 2);
    CHECK(Rig.State().m_nReturnDepth == 0);
}

TEST_CASE("a stepped R/S starts no run")
{
    cCalculatorRig Rig;
    Rig.Load("R/S\n7\n");

    Rig.Type("SST");

    CHECK(Rig.State().m_nCurLine == 2);
    CHECK(Rig.X() == 0.0);
}

// --- one line

TEST_CASE("a line can be executed without advancing")
{
    cCalculatorRig Rig;
    Rig.Load("7\n1/x\n");

    CHECK(Rig.m_Engine.ExecuteCurrentLine() == 1);
    CHECK(Rig.State().m_nCurLine == 1);
    CHECK(Rig.Highlighted() == 1);
    CHECK(Rig.X() == 7.0);

    Rig.Set(0.0);
    Rig.m_Engine.GoToLine(2);
    CHECK(Rig.m_Engine.ExecuteCurrentLine() == 0);
    CHECK(Rig.State().m_nCurLine == 2);
}

TEST_CASE("a number line puts its value into X, held within the range")
{
    // clang-format off
    static const struct { const char *szLine; double dX; const char *szShown; } s_Rows[] =
    {
        { "3.14",           3.14,            "+3.14"     },
        { "-2.5e1",         -25.0,           "-25.00"    },
        { "9.999999999e99", 9.999999999e99,  "+1.00e+00" },
        { "1e100",          9.999999999e99,  "+1.00e+00" },
        { "-1e100",         -9.999999999e99, "-1.00e+00" },
        { "1e999",          9.999999999e99,  "+1.00e+00" },
        { "-1e999",         -9.999999999e99, "-1.00e+00" },
        { "1e-99",          1e-99,           "+1.00e-99" },
        { "9e-100",         0.0,             "+0.00"     },
        { "-9e-100",        0.0,             "+0.00"     },
        { "1e-999",         0.0,             "+0.00"     },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        cCalculatorRig Rig;
        Rig.Load((std::string(Row.szLine) + "\n").c_str());

        const int nResult = Rig.m_Engine.ExecuteCurrentLine();

        CHECK(nResult == 1);
        CHECK(Rig.X() == Row.dX);
        CHECK_FALSE(std::signbit(Rig.X()) != std::signbit(Row.dX));
        if (std::fabs(Row.dX) < 1e99)
            CHECK_TEXT(Rig.Display(), Row.szShown);
    }
}

TEST_CASE("a number line lifts the stack if stack lift is enabled")
{
    for (const int bLift : {0, 1})
    {
        cCalculatorRig Rig;
        Rig.Load("9\n");
        Rig.Set(1.0, 2.0, 3.0, 4.0);
        Rig.Type("5");
        Rig.m_Engine.Raw().m_bStackLift = bLift;

        Rig.m_Engine.ExecuteCurrentLine();

        CHECK(Rig.X() == 9.0);
        CHECK(Rig.Y() == (bLift ? 5.0 : 1.0));
        CHECK(Rig.Z() == (bLift ? 1.0 : 2.0));
        CHECK(Rig.T() == (bLift ? 2.0 : 3.0));
        CHECK_TEXT(Rig.State().m_szY, bLift ? "+5.00" : "+1.00");
        CHECK_TEXT(Rig.State().m_szEntry, "");
        CHECK(Rig.State().m_bStackLift == 1);
    }
}

TEST_CASE("a number line that does not parse to its end is an inconsistency")
{
    cCalculatorRig Rig;
    Rig.Load("3\n");
    Rig.m_Engine.Raw().m_Program[1].m_bNumberParsed = 0;

    const int nResult = Rig.m_Engine.ExecuteCurrentLine();

    CHECK(nResult == 1);
    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), "Program Error Code #125");
    CHECK(Rig.X() == 3.0);
}

// --- random keys

static int IsOneOf(const std::string &Text, const std::vector<std::string> &Texts)
{
    for (const std::string &Other : Texts)
        if (Text == Other)
            return 1;
    return 0;
}

// Pending keys are known words, a line number's digit, or a wait marker.
static int AreKeystrokes(const std::string &Keystrokes)
{
    static const std::vector<std::string> s_Markers = {"", "EWFDK", "EWFUK", "HWFUK"};
    static const std::vector<std::string> s_Words   = {
          "f",   "g",   "STO", "RCL",   "GTO", "GSB", "LBL", "FIX", "SCI", "ENG",
          "SST", "BST", "R/S", "PAUSE", "1/x", "+",   "-",   "*",   "/",   "."};
    if (IsOneOf(Keystrokes, s_Markers))
        return 1;
    size_t nStart = 0;
    for (size_t nBlank; (nBlank = Keystrokes.find(' ', nStart)) != std::string::npos;
         nStart = nBlank + 1)
        if (!IsOneOf(Keystrokes.substr(nStart, nBlank - nStart), s_Words))
            return 0;
    const std::string Rest = Keystrokes.substr(nStart);
    return Rest.empty() || (Rest.size() == 1 && Keystrokes.find("GTO . ") == 0);
}

static int IsText(double dValue, const char *szText, const cVorstekState &State)
{
    char szFormatted[kStackText];
    FormatNumber(dValue, State, szFormatted);
    return strcmp(szFormatted, szText) == 0;
}

// What holds after every key event.
static void CheckState(const cVorstekState &State)
{
    REQUIRE(State.m_nCurLine <= kLastLine);
    REQUIRE(State.m_nReturnDepth <= kReturnLevels);
    REQUIRE(State.m_bProgramRunning == 0);
    REQUIRE(State.m_bParseOnly == 0);
    REQUIRE(State.m_nDisplayDigits <= 9);
    REQUIRE(AreKeystrokes(State.m_szKeystrokes));
    REQUIRE(strlen(State.m_szDisplay) <= static_cast<size_t>(kDisplayVisible));
    REQUIRE((State.m_szEntry[0] == 0 || State.m_szEntry[0] == '+' || State.m_szEntry[0] == '-'));
    REQUIRE((State.m_szExponent[0] == 0 || strlen(State.m_szExponent) == 4));
    REQUIRE((State.m_szExponent[0] == 0 || State.m_szEntry[0] != 0));
    REQUIRE(IsText(State.m_dY, State.m_szY, State));
    REQUIRE(IsText(State.m_dZ, State.m_szZ, State));
    REQUIRE(IsText(State.m_dT, State.m_szT, State));
    REQUIRE(
        ((State.m_szEntry[0] && !State.m_bProgramMode) || IsText(State.m_dX, State.m_szX, State)));
    for (const double dValue : {State.m_dX, State.m_dY, State.m_dZ, State.m_dT})
        REQUIRE_FALSE(std::fabs(dValue) > kLargest);
}

// Whether the program's records, the listing and the highlight agree.
static void CheckListedProgram(cCalculatorRig &Rig)
{
    const cVorstekState &State = Rig.State();
    REQUIRE(Rig.m_Listing.CountLines() == kProgramLines);
    REQUIRE(Rig.ListingLine(0) == "00");
    // One assertion for all lines: a million of them take longer than what they check.
    unsigned nLine = 1;
    while (nLine <= kLastLine && State.m_Program[nLine].m_nListingLine == nLine &&
           Rig.ListingLine(nLine) == TwoDigits(nLine) + " " + Rig.Step(nLine))
        nLine++;
    REQUIRE(nLine == kProgramLines);
    REQUIRE(Rig.m_Listing.HighlightedLine() == State.m_nCurLine);
}

namespace
{

// Mashes the keys, inside runs as well; every run is halted after some lines.
class cMasher
{
public:
    cMasher(cCalculatorRig *pRig, unsigned nSeed) : m_pRig(pRig), m_Random(nSeed)
    {
        m_pRig->m_Host.m_OnDrain = [this] { return Drain(); };
        m_pRig->m_Host.m_OnAsk   = [this] { m_nBoxes++; };
    }

    void Event()
    {
        switch (Pick(16))
        {
        case 0:
            m_pRig->m_Engine.OnCalcKey(Key(), static_cast<int>(Pick(2)));
            break;
        case 1:
            m_pRig->m_Engine.OnCalcKey(kKeyMode, static_cast<int>(Pick(2)));
            break;
        case 2:
            m_pRig->m_Engine.OnChar("0123456789.e+-*/\r\x1b?"[Pick(19)]);
            break;
        case 3:
        case 4:
            m_pRig->Type(Phrase());
            break;
        default:
            m_pRig->Key(Key());
            break;
        }
    }

    unsigned Pick(unsigned nCount) { return static_cast<unsigned>(m_Random() % nCount); }

    unsigned m_nLines = 0;
    unsigned m_nBoxes = 0;

private:
    // Mostly a key of the face or the stack view switch.
    unsigned Key()
    {
        static const unsigned s_Invalid[] = {0, 33, 99, 0xFFFFFFFF};
        return Pick(50) ? 1 + Pick(31) : s_Invalid[Pick(4)];
    }

    // Chance alone would hardly write loops and subroutines.
    const char *Phrase()
    {
        static const char *const s_Phrases[] = {
            "g GTO 1", "g GTO 2", "GTO 1", "GTO 2",       "GSB 1",     "GSB 2",
            "GTO i",   "GSB i",   "g GSB", "R/S",         "R/S",       "SST",
            "g SST",   "f R/S",   "f 0",   "g 0",         "GTO . 0 3", "GTO . 9 7",
            "g STO",   "g RCL",   "RUN",   "1 CHS STO 0", "f GTO 2",   "f SST 3"};
        return s_Phrases[Pick(sizeof s_Phrases / sizeof *s_Phrases)];
    }

    int Drain()
    {
        m_nLines++;
        m_nDepth++;
        if (m_nDepth > 2)
            m_pRig->m_Engine.HaltProgram();
        else if (Pick(8) == 0)
            for (unsigned nEvents = 1 + Pick(3); nEvents; nEvents--)
                Event();
        m_nDepth--;
        return Pick(40) != 0;
    }

    cCalculatorRig *m_pRig;
    std::mt19937    m_Random;
    int             m_nDepth = 0;  // of runs that keys started inside a run
};

}  // namespace

static void Mash(cCalculatorRig *pRig, unsigned nSeed, int nEvents, int bTrace)
{
    cMasher Masher(pRig, nSeed);
    for (int i = 0; i < nEvents; i++)
    {
        CAPTURE(i);
        Masher.Event();
        CheckState(pRig->State());
        if (i % 64 == 0)
        {
            CheckListedProgram(*pRig);
            pRig->m_Engine.ApplyOptions({static_cast<int>(Masher.Pick(2)),
                                         static_cast<int>(Masher.Pick(2)), bTrace,
                                         static_cast<int>(Masher.Pick(2))});
            pRig->Forget();
            pRig->m_Host.m_Pauses.clear();
            pRig->m_Host.m_PausedDisplays.clear();
            pRig->m_Host.m_Graph.clear();
        }
    }
    CHECK(Masher.m_nLines > static_cast<unsigned>(nEvents) / 40);
    CHECK(Masher.m_nBoxes > static_cast<unsigned>(nEvents) / 100);
}

TEST_CASE("two hundred thousand random key events leave the calculator in order")
{
    cCalculatorRig Rig;

    Mash(&Rig, 20260, 200000, 0);
}

TEST_CASE("random key events during traced runs leave the calculator in order")
{
    cScratchFolder    Folder;
    const std::string Name = Folder.Name("trace.txt");
    cCalculatorRig    Rig;
    Rig.m_Engine.SetTraceFileName(Name.c_str());

    Mash(&Rig, 7, 5000, 1);

    CHECK(Folder.Has("trace.txt"));
}
