#include "console/session/undo_history.h"

#include <cstring>

#include "console/headless_host.h"
#include "graph/vantor_data_set.h"

static_assert(sizeof(cSnapshot) % sizeof(uint64_t) == 0);

cUndoHistory::cUndoHistory(cHeadlessCalculator *pCalculator, cHeadlessHost *pHost)
    : m_pCalculator(pCalculator), m_pHost(pHost), m_nAt(0)
{
    m_Words  = TakeWords();
    m_Beside = TakeBeside();
}

cUndoHistory::cWords cUndoHistory::TakeWords()
{
    const auto pSnapshot = std::make_unique<cSnapshot>();
    m_pCalculator->m_Engine.TakeSnapshot(pSnapshot.get());
    cWords Words(kWords);
    memcpy(Words.data(), pSnapshot.get(), sizeof(cSnapshot));
    return Words;
}

cUndoHistory::cBeside cUndoHistory::TakeBeside()
{
    cBeside     Beside = m_Beside;
    std::string Listing(m_pCalculator->m_Listing.GetTextLength() + 1, 0);
    Listing.resize(m_pCalculator->m_Listing.GetText(Listing.data(), Listing.size()));
    if (!Beside.m_pListing || *Beside.m_pListing != Listing)
        Beside.m_pListing = std::make_shared<const std::string>(std::move(Listing));

    std::vector<cPoints> Graph(m_pHost->m_Plot.Count());
    for (uint32_t nLine = 1; nLine <= Graph.size(); nLine++)
    {
        const cVantorDataSet &Set = *m_pHost->m_Plot.DataSet(nLine);
        for (uint32_t n = 0; n < Set.m_nPoints; n++)
            Graph[nLine - 1].emplace_back(Set.X(n), Set.m_pY[n]);
    }
    if (!Beside.m_pGraph || *Beside.m_pGraph != Graph)
        Beside.m_pGraph = std::make_shared<const std::vector<cPoints>>(std::move(Graph));
    return Beside;
}

void cUndoHistory::Keep()
{
    const cWords Words = TakeWords();
    cStep        Step  = {{}, m_Beside, TakeBeside()};
    for (uint32_t n = 0; n < kWords; n++)
        if (Words[n] != m_Words[n])
            Step.m_Changes.push_back({n, Words[n] ^ m_Words[n]});
    if (Step.m_Changes.empty() && Step.m_After.m_pListing == m_Beside.m_pListing &&
        Step.m_After.m_pGraph == m_Beside.m_pGraph)
        return;
    m_Words  = Words;
    m_Beside = Step.m_After;
    m_Steps.resize(m_nAt);
    m_Steps.push_back(std::move(Step));
    if (m_Steps.size() > kMostUndo)
        m_Steps.erase(m_Steps.begin());
    m_nAt = m_Steps.size();
}

int cUndoHistory::Undo()
{
    if (m_nAt == 0)
        return 0;
    m_nAt--;
    Travel(m_Steps[m_nAt], m_Steps[m_nAt].m_Before);
    return 1;
}

int cUndoHistory::Redo()
{
    if (m_nAt == m_Steps.size())
        return 0;
    Travel(m_Steps[m_nAt], m_Steps[m_nAt].m_After);
    m_nAt++;
    return 1;
}

void cUndoHistory::DrawGraph(const std::vector<cPoints> &Graph)
{
    m_pHost->m_Plot.ClearAll();
    for (uint32_t nLine = 1; nLine <= Graph.size(); nLine++)
        for (const auto &[fX, fY] : Graph[nLine - 1])
            m_pHost->m_Plot.AddPoint(nLine, fX, fY);
}

void cUndoHistory::Restore(const char *szListing)
{
    const auto pSnapshot = std::make_unique<cSnapshot>();
    memcpy(pSnapshot.get(), m_Words.data(), sizeof(cSnapshot));
    m_pCalculator->m_Engine.Restore(*pSnapshot, szListing);
}

void cUndoHistory::Revert()
{
    Restore(m_Beside.m_pListing->c_str());
    DrawGraph(*m_Beside.m_pGraph);
}

void cUndoHistory::Travel(const cStep &Step, const cBeside &Target)
{
    for (const cChange &Change : Step.m_Changes)
        m_Words[Change.m_nWord] ^= Change.m_nDifference;
    Restore(Target.m_pListing == m_Beside.m_pListing ? nullptr : Target.m_pListing->c_str());
    if (Target.m_pGraph != m_Beside.m_pGraph)
        DrawGraph(*Target.m_pGraph);
    m_Beside = Target;
}
