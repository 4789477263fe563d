// keys_target.cpp - a listing and, after a byte 0xFF, key events of two bytes each:
// how many lines are executed before it, and what it is. In a run it comes after them;
// between runs it comes at once. Whether the host is called after every line or only
// where it asked to be, and whether runs are traced, must not make a difference.

#include <algorithm>
#include <cstdio>

#include "engine/key_codes.h"
#include "tests/fuzz/fuzz_calculator.h"
#include "tests/fuzz/fuzz_target.h"

namespace
{

class cKeyedCalculator : public cFuzzCalculator
{
public:
    cKeyedCalculator(std::string_view Events, int bEveryLine)
        : m_Events(Events), m_bEveryLine(bEveryLine), m_nRun(0), m_nLine(0)
    {
    }

    void     StartSound(unsigned nId) override { m_Sounds += std::to_string(nId) + " "; }
    unsigned DrainMessages(unsigned nLines) override;

    // Until there are no more, with a trace or without.
    void DeliverAll(int bTraced);

    std::string m_Sounds;

private:
    void     DeliverNext();
    unsigned LinesToNext() const;

    std::string_view m_Events;
    int              m_bEveryLine;
    unsigned         m_nRun;  // the last event came in this run, after so many lines
    unsigned         m_nLine;
};

}  // namespace

// The upper bits of the second byte tell a press from a release and from a character.
void cKeyedCalculator::DeliverNext()
{
    const unsigned nEvent = ByteAt(m_Events, 1);
    m_Events.remove_prefix(std::min<size_t>(2, m_Events.size()));
    m_nRun  = m_Calculator.m_Engine.RunNumber();
    m_nLine = LinesOfRun();
    if (nEvent >= 128)
        m_Calculator.m_Engine.OnChar(static_cast<char>(nEvent - 128));
    else
        m_Calculator.m_Engine.OnCalcKey(nEvent % 64, nEvent < 64);
}

unsigned cKeyedCalculator::LinesToNext() const
{
    const unsigned nFrom = m_nRun == m_Calculator.m_Engine.RunNumber() ? m_nLine : 0;
    const unsigned nDue  = nFrom + ByteAt(m_Events, 0);
    return nDue > LinesOfRun() ? nDue - LinesOfRun() : 0;
}

unsigned cKeyedCalculator::DrainMessages(unsigned nLines)
{
    const unsigned nLeft = cFuzzCalculator::DrainMessages(nLines);
    while (!m_Events.empty() && LinesToNext() == 0 && m_Calculator.m_Engine.IsRunning())
        DeliverNext();
    if (m_bEveryLine)
        return 1;
    return m_Events.empty() ? nLeft : std::min(nLeft, std::max(1U, LinesToNext()));
}

// The trace itself goes nowhere.
void cKeyedCalculator::DeliverAll(int bTraced)
{
    static FILE *const    s_pNowhere = fopen("/dev/null", "w");
    cVorstekEngine *const pEngine    = &m_Calculator.m_Engine;
    pEngine->SetTraceStream(s_pNowhere);
    pEngine->ApplyOptions({0, 0, bTraced, 0});
    pEngine->OnCalcKey(kKeyRunStop, 1);
    pEngine->OnCalcKey(kKeyRunStop, 0);
    while (!m_Events.empty())
        DeliverNext();
    pEngine->ApplyOptions({});
}

static void CheckSame(cKeyedCalculator *pActual, cKeyedCalculator *pExpected)
{
    FUZZ_CHECK_TEXT(pActual->StateText(), pExpected->StateText());
    FUZZ_CHECK_TEXT(pActual->m_Sounds, pExpected->m_Sounds);
    FUZZ_CHECK(pActual->m_Boxes == pExpected->m_Boxes);
}

void FuzzKeys(std::string_view Input)
{
    const cTwoParts  Parts = DivideInput(Input);
    cKeyedCalculator Often(Parts.m_Rest, 1);
    cKeyedCalculator Seldom(Parts.m_Rest, 0);
    cKeyedCalculator Traced(Parts.m_Rest, 0);
    for (cKeyedCalculator *pCalculator : {&Often, &Seldom, &Traced})
        pCalculator->Load(Parts.m_Text);

    Often.DeliverAll(0);
    Seldom.DeliverAll(0);
    Traced.DeliverAll(1);

    Often.CheckState();
    CheckSame(&Seldom, &Often);
    CheckSame(&Traced, &Often);
}
