#include <vector>

#include "engine/run_observer.h"
#include "engine/snapshot.h"
#include "tests/unit/calculator_rig.h"

namespace
{

// Notes the lines, and halts the run once it has seen so many.
struct cLineNotes : cRunObserver
{
    explicit cLineNotes(cCalculatorRig *pRig, size_t nMost = 1000) : m_pRig(pRig), m_nMost(nMost)
    {
        m_pRig->m_Engine.SetObserver(this);
    }
    ~cLineNotes() override { m_pRig->m_Engine.SetObserver(nullptr); }

    void OnRunBegins() override
    {
        m_nBegun++;
        if (m_nMost == 0)
            m_pRig->m_Engine.HaltProgram();
    }
    void OnLineDone(unsigned nLine) override
    {
        m_Lines.push_back(nLine);
        m_Next.push_back(m_pRig->m_Engine.State().m_nCurLine);
        if (m_Lines.size() == m_nMost)
            m_pRig->m_Engine.HaltProgram();
    }

    cCalculatorRig       *m_pRig;
    size_t                m_nMost;
    int                   m_nBegun = 0;
    std::vector<unsigned> m_Lines;
    std::vector<unsigned> m_Next;
};

}  // namespace

typedef std::vector<unsigned> cSeenLines;

TEST_CASE("an observer sees each line of a run, the last one too, and which is next")
{
    cCalculatorRig Rig;
    Rig.Load("GSB 1\nx=0\n7\nR/S\nLBL 1\n5\nRTN\n");
    cLineNotes Notes(&Rig);

    Rig.Type("R/S");

    CHECK(Notes.m_nBegun == 1);
    CHECK(Notes.m_Lines == cSeenLines{1, 5, 6, 7, 2, 4});
    CHECK(Notes.m_Next == cSeenLines{5, 6, 7, 2, 4, 5});
}

TEST_CASE("an observer sees the line that ends with an error, which stays current")
{
    cCalculatorRig Rig;
    Rig.Load("0\n1/x\n");
    cLineNotes Notes(&Rig);

    Rig.Type("R/S");

    CHECK(Notes.m_Lines == cSeenLines{1, 2});
    CHECK(Notes.m_Next == cSeenLines{2, 2});
}

TEST_CASE("an observer that halts as a run begins leaves all lines to the next run")
{
    cCalculatorRig Rig;
    Rig.Load("5\nSTO 3\n");
    cLineNotes Notes(&Rig, 0);

    Rig.Type("R/S");

    CHECK(Notes.m_nBegun == 1);
    CHECK(Notes.m_Lines.empty());
    CHECK(Rig.State().m_nCurLine == 0);
    CHECK(Rig.m_Engine.HasRunFailed() == 0);
}

TEST_CASE("a run that goes on after each line ends as one that was never halted")
{
    static const char s_szProgram[] = "1\nENTER\nGSB 1\nSTO 5\nR/S\n"
                                      "LBL 1\n7\nGSB 2\n+\nRTN\nLBL 2\n9\nENTER\n4\nRTN\n";
    cCalculatorRig    Whole;
    Whole.Load(s_szProgram);
    Whole.Type("R/S");

    cCalculatorRig Rig;
    Rig.Load(s_szProgram);
    {
        cLineNotes Notes(&Rig, 1);
        Rig.Type("R/S");
        for (int nRun = 0; nRun < 20 && Notes.m_Lines.back() != 5; nRun++)
        {
            Notes.m_Lines.clear();
            REQUIRE(Rig.m_Engine.ContinueRun() == 1);
            REQUIRE(Notes.m_Lines.size() == 1);
        }
    }

    CHECK(Rig.Snapshot() == Whole.Snapshot());
    CHECK(Rig.State().m_dReg[5] == 13.0);
}
