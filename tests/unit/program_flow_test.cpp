#include "listing/program_flow.h"

#include <random>

#include "engine/program_line.h"
#include "listing/lint.h"
#include "listing/source_program.h"
#include "tests/unit/calculator_rig.h"

static cSourceProgram Program(const std::string &Text)
{
    cSourceProgram Program;
    cSourceReader  Reader(Text);
    cSourceLine    Line;
    while (Reader.Next(&Line))
        Program.Add(Line);
    Program.Finish();
    return Program;
}

// The lines that can follow line 1, as the calculator does it. Registers and
// stack make each test hold and fail.
static cLineSet LinesAfter(const std::string &Listing)
{
    cLineSet After;
    for (const double dValue : {-1.0, 0.0, 1.0})
        for (const double dOther : {0.0, 2.0})
        {
            cCalculatorRig Rig;
            Rig.Load(Listing.c_str());
            Rig.Set(dValue, dOther);
            Rig.SetReg(0, dValue);
            Rig.m_Engine.SingleStep();
            After.set(Rig.State().m_nCurLine);
        }
    return After;
}

TEST_CASE("every instruction goes where the calculator goes")
{
    for (const cInstruction &Instruction : Instructions())
    {
        const std::string Mnemonic = Instruction.m_szMnemonic;
        const std::string Listing =
            Mnemonic + (Instruction.m_nOperand == opNone ? "" : " 1") + "\n2\n3\nLBL 1\n5\n";
        CAPTURE(Mnemonic);
        const cProgramFlow Flow = Program(Listing).Flow();

        // Wherever a single step leads, a run can go; only RTN would end one.
        const cLineSet Reached = Flow.Reach(cLineSet().set(1));
        const cLineSet After   = LinesAfter(Listing);
        if (Flow.IsIndirect() || Flow.Line(1).m_nFlow == flReturn)
            continue;
        CHECK((After & ~Reached).none());
        CHECK((Flow.Line(1).m_nFlow == flSkip) == (After[2] && After[3]));
        CHECK((Flow.Line(1).m_nTarget == 4) == (After.count() == 1 && After[4]));
    }
}

TEST_CASE("jumps, calls, returns, stops and tests are told apart")
{
    // clang-format off
    static const struct { const char *szLine; eFlow nFlow; } s_Rows[] =
    {
        { "GTO 1", flGoto         },
        { "GTO i", flGotoIndirect },
        { "GSB 1", flCall         },
        { "GSB i", flCallIndirect },
        { "RTN",   flReturn       },
        { "R/S",   flStop         },
        { "DSZ",   flSkip         },
        { "ISZ",   flSkip         },
        { "x<=y",  flSkip         },
        { "x!=0",  flSkip         },
        { "PAUSE", flNext         },
        { "LBL 1", flNext         },
        { "RCL i", flNext         },
        { "5",     flNext         },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE_TEXT(Row.szLine);
        CHECK(Program(Row.szLine).Flow().Line(1).m_nFlow == Row.nFlow);
    }
    CHECK(cProgramFlow().Line(kLastLine).m_nFlow == flStop);
}

namespace
{

// Short programs of jumps, tests and a few sums.
class cRandomProgram
{
public:
    explicit cRandomProgram(unsigned nSeed) : m_Random(nSeed) {}

    std::string Text()
    {
        std::string  Text;
        const size_t nLines = m_Random() % 4 ? 2 + m_Random() % 30 : kLastLine - m_Random() % 2;
        for (size_t nLine = 0; nLine < nLines; nLine++)
            Text += Line() + "\n";
        return Text;
    }

private:
    std::string Line()
    {
        static const char *const s_Plain[] = {"1",   "CHS", "x<>y", "STO 0", "+",   "x=0",
                                              "x<0", "DSZ", "ISZ",  "R/S",   "RTN", "x<=y"};
        static const char *const s_Label[] = {"LBL ", "GTO ", "GSB ", "LBL "};
        if (m_Random() % 2)
            return s_Plain[m_Random() % std::size(s_Plain)];
        return s_Label[m_Random() % std::size(s_Label)] + std::to_string(m_Random() % 4);
    }

    std::mt19937 m_Random;
};

// Runs a program and notes the lines that are executed.
class cWatchedRun
{
public:
    explicit cWatchedRun(const std::string &Text) : m_nDrains(0), m_bFell(0)
    {
        m_Rig.Load(Text.c_str());
        m_Rig.m_Host.m_OnDrain = [this] {
            Note(m_Rig.State().m_nCurLine);
            if (++m_nDrains == 300)
                m_Rig.m_Engine.HaltProgram();
            return 1;
        };
    }

    void Run(unsigned nLine)
    {
        m_nDrains = 0;
        m_nLast   = 0;
        m_Rig.m_Engine.GoToLine(nLine);
        Note(nLine);
        m_Rig.m_Engine.RunProgram();
    }

    // After R/S the next run begins in the next line; after an error the display
    // waits for a key.
    int Continues()
    {
        const ProgramLine &Last = m_Rig.State().m_Program[m_nBeforeLast];
        return Last.m_pInstruction && Last.m_pInstruction->m_nRole == rlStop;
    }

    cCalculatorRig m_Rig;
    cLineSet       m_Executed;
    unsigned       m_nDrains;
    unsigned       m_nLast       = 0;  // line to be executed next
    unsigned       m_nBeforeLast = 0;
    int            m_bFell;  // from the last line, or the one before it, to the first lines

private:
    void Note(unsigned nLine)
    {
        m_nBeforeLast = m_nLast;
        m_nLast       = nLine;
        if (!m_nBeforeLast || m_Rig.State().m_bProgramRunning)
            m_Executed.set(nLine);
        const ProgramLine &Last  = m_Rig.State().m_Program[m_nBeforeLast];
        const int          bJump = Last.m_pInstruction && Last.m_pInstruction->m_nRole != rlNone &&
                          Last.m_pInstruction->m_nRole != rlSkip &&
                          Last.m_pInstruction->m_nRole != rlLabel;
        if (m_nBeforeLast >= kLastLine - 1 && nLine <= 2 && !bJump)
            m_bFell = 1;
    }
};

}  // namespace

static int HasWarning(const std::vector<cFinding> &Findings, const std::string &Name,
                      unsigned nLine = 0)
{
    for (const cFinding &Finding : Findings)
        if (Finding.m_szName == Name && (nLine == 0 || Finding.m_nLine == nLine))
            return 1;
    return 0;
}

// Runs from line 1 and from each label, and on after each R/S.
static void RunEverywhere(cWatchedRun *pRun, const cSourceProgram &Source)
{
    const cLineSet Entries = Source.Flow().Entries();
    for (unsigned nEntry = 1; nEntry <= kLastLine; nEntry++)
    {
        if (!Entries[nEntry])
            continue;
        pRun->Run(nEntry);
        for (int i = 0; i < 20 && pRun->Continues(); i++)
            pRun->Run(pRun->m_Rig.State().m_nCurLine);
    }
}

TEST_CASE("what random programs execute is never reported as unreachable")
{
    size_t nUnreachable = 0;
    size_t nFalls       = 0;
    size_t nNoLabel     = 0;
    for (unsigned nSeed = 0; nSeed < 500; nSeed++)
    {
        CAPTURE(nSeed);
        cRandomProgram              Random(nSeed);
        const std::string           Text     = Random.Text();
        const std::vector<cFinding> Findings = LintListing(Text);
        const cSourceProgram        Source   = Program(Text);
        const cLineSet              Reached  = Source.Flow().Reach(Source.Flow().Entries());
        CAPTURE(Text);
        cWatchedRun Run(Text);

        RunEverywhere(&Run, Source);

        CHECK((Run.m_Executed & ~Reached).none());
        for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
            if (Run.m_Executed[nLine])
                CHECK_FALSE(HasWarning(Findings, "unreachable", nLine));
        if (Run.m_bFell)
            CHECK(HasWarning(Findings, "falls-off-end"));
        if (Run.m_Rig.Display() == "Error: no such label")
            CHECK(HasWarning(Findings, "missing-label", Run.m_Rig.State().m_nCurLine));
        nUnreachable += HasWarning(Findings, "unreachable") ? 1 : 0;
        nFalls += Run.m_bFell ? 1 : 0;
        nNoLabel += Run.m_Rig.Display() == "Error: no such label" ? 1 : 0;
    }
    CHECK(nUnreachable > 50);
    CHECK(nFalls > 5);
    CHECK(nNoLabel > 5);
}
