#include "console/session/undo_history.h"

#include <cstring>

#include "console/headless_host.h"

static_assert(sizeof(cSnapshot) % sizeof(uint64_t) == 0);

cUndoHistory::cUndoHistory(cHeadlessCalculator *pCalculator, cHeadlessHost *pHost)
    : m_pCalculator(pCalculator), m_pSnapshot(std::make_unique<cSnapshot>()), m_Graph(pHost),
      m_nAt(0)
{
    TakeSnapshot();
    memcpy(m_Words, m_pSnapshot.get(), sizeof m_Words);
    m_pListing = TakeListing();
}

void cUndoHistory::TakeSnapshot()
{
    m_pCalculator->m_Engine.TakeSnapshot(m_pSnapshot.get());
}

// The present step's own if nothing has changed.
cUndoHistory::cListing cUndoHistory::TakeListing() const
{
    std::string Text(m_pCalculator->m_Listing.GetTextLength() + 1, 0);
    Text.resize(m_pCalculator->m_Listing.GetText(Text.data(), Text.size()));
    if (m_pListing && *m_pListing == Text)
        return m_pListing;
    return std::make_shared<const std::string>(std::move(Text));
}

void cUndoHistory::Keep(unsigned nTag)
{
    uint64_t Words[kWords];
    cStep    Step = {{}, m_Graph.TakeChange(), m_pListing, TakeListing(), nTag};
    TakeSnapshot();
    memcpy(Words, m_pSnapshot.get(), sizeof Words);
    for (uint32_t n = 0; n < kWords; n++)
        if (Words[n] != m_Words[n])
            Step.m_Changes.push_back({n, Words[n] ^ m_Words[n]});
    if (Step.m_Changes.empty() && Step.m_pAfter == m_pListing && Step.m_Graph.IsEmpty())
        return;
    memcpy(m_Words, Words, sizeof m_Words);
    m_pListing = Step.m_pAfter;
    m_Steps.resize(m_nAt);
    m_Steps.push_back(std::move(Step));
    if (m_Steps.size() > kMostUndo)
        m_Steps.pop_front();
    m_nAt = m_Steps.size();
}

void cUndoHistory::Forget()
{
    Keep();
    m_Steps.clear();
    m_nAt = 0;
}

size_t cUndoHistory::StepsToTag() const
{
    size_t nBack = 0;
    while (nBack < m_nAt && m_Steps[m_nAt - nBack - 1].m_nTag == 0)
        nBack++;
    return nBack < m_nAt ? nBack + 1 : 0;
}

int cUndoHistory::Undo()
{
    if (m_nAt == 0)
        return 0;
    const cStep &Step = m_Steps[--m_nAt];
    m_Graph.Undo(Step.m_Graph);
    Travel(Step, Step.m_pBefore);
    return 1;
}

int cUndoHistory::Redo()
{
    if (m_nAt == m_Steps.size())
        return 0;
    const cStep &Step = m_Steps[m_nAt++];
    m_Graph.Redo(Step.m_Graph);
    Travel(Step, Step.m_pAfter);
    return 1;
}

void cUndoHistory::Restore(const char *szListing)
{
    memcpy(m_pSnapshot.get(), m_Words, sizeof m_Words);
    m_pCalculator->m_Engine.Restore(*m_pSnapshot, szListing);
}

void cUndoHistory::Revert()
{
    Restore(m_pListing->c_str());
    m_Graph.Revert();
}

void cUndoHistory::Travel(const cStep &Step, const cListing &pTarget)
{
    for (const cChange &Change : Step.m_Changes)
        m_Words[Change.m_nWord] ^= Change.m_nDifference;
    Restore(pTarget == m_pListing ? nullptr : pTarget->c_str());
    m_pListing = pTarget;
}
