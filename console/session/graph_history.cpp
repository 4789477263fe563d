#include "console/session/graph_history.h"

#include "console/headless_host.h"
#include "graph/vantor_data_set.h"

static cGraphTexts TextsOf(const cVantorPlot &Plot)
{
    return {Plot.Settings().m_szTitle, Plot.Settings().m_szHorzLabel};
}

cGraphHistory::cGraphHistory(cHeadlessHost *pHost)
    : m_pHost(pHost), m_Texts(TextsOf(pHost->m_Plot)), m_nCleared(pHost->m_nGraphsCleared)
{
    TakeChange();
}

static cGraphPoints PointsFrom(const cVantorDataSet &Set, size_t nFirst)
{
    cGraphPoints Points;
    for (auto n = static_cast<uint32_t>(nFirst); n < Set.m_nPoints; n++)
        Points.emplace_back(Set.X(n), Set.m_pY[n]);
    return Points;
}

cGraphChange cGraphHistory::TakeChange()
{
    cGraphChange Change;
    if (m_pHost->m_nGraphsCleared != m_nCleared)
    {
        Change.m_bCleared = 1;
        Change.m_Cleared.swap(m_Lines);
        Change.m_TextsBefore = m_Texts;
        Change.m_TextsAfter = m_Texts = TextsOf(m_pHost->m_Plot);
        m_nCleared                    = m_pHost->m_nGraphsCleared;
    }
    const uint32_t nLines = m_pHost->m_Plot.Count();
    for (uint32_t nLine = 1; nLine <= nLines; nLine++)
    {
        const cVantorDataSet &Set    = *m_pHost->m_Plot.DataSet(nLine);
        const size_t          nKnown = nLine <= m_Lines.size() ? m_Lines[nLine - 1].size() : 0;
        if (Set.m_nPoints == nKnown)
            continue;
        Change.m_Added.resize(nLine);
        Change.m_Added.back() = PointsFrom(Set, nKnown);
    }
    Append(Change.m_Added);
    return Change;
}

void cGraphHistory::Append(const cGraphLines &Added)
{
    if (m_Lines.size() < Added.size())
        m_Lines.resize(Added.size());
    for (size_t n = 0; n < Added.size(); n++)
        m_Lines[n].insert(m_Lines[n].end(), Added[n].begin(), Added[n].end());
}

void cGraphHistory::Undo(const cGraphChange &Change)
{
    if (Change.IsEmpty())
        return;
    for (size_t n = 0; n < Change.m_Added.size(); n++)
        m_Lines[n].resize(m_Lines[n].size() - Change.m_Added[n].size());
    while (!m_Lines.empty() && m_Lines.back().empty())
        m_Lines.pop_back();
    if (Change.m_bCleared)
    {
        m_Lines = Change.m_Cleared;
        m_Texts = Change.m_TextsBefore;
    }
    Revert();
}

void cGraphHistory::Redo(const cGraphChange &Change)
{
    if (Change.IsEmpty())
        return;
    if (Change.m_bCleared)
    {
        m_Lines.clear();
        m_Texts = Change.m_TextsAfter;
    }
    Append(Change.m_Added);
    Revert();
}

void cGraphHistory::Revert()
{
    m_pHost->ClearGraph();
    m_nCleared = m_pHost->m_nGraphsCleared;
    m_pHost->m_Plot.SetTitle(m_Texts.m_Title.c_str());
    m_pHost->m_Plot.SetHorzLabel(m_Texts.m_HorzLabel.c_str());
    for (uint32_t nLine = 1; nLine <= m_Lines.size(); nLine++)
        for (const auto &[fX, fY] : m_Lines[nLine - 1])
            m_pHost->m_Plot.AddPoint(nLine, fX, fY);
}
