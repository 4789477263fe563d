#include "engine/snapshot.h"

#include <cstring>
#include <type_traits>

#include "engine/calculator.h"
#include "engine/line_box.h"
#include "engine/run_lines.h"

static_assert(std::is_trivially_copyable_v<cSnapshot>);

// What follows the end of a text is left from longer ones.
template <size_t nSize> static void ClearRest(char (&szText)[nSize])
{
    const size_t nLength = strlen(szText);
    memset(szText + nLength, 0, nSize - nLength);
}

// Equal calculators have equal snapshots. Painting the display changes its text.
void TakeSnapshot(cCalculator &c, cSnapshot *pSnapshot)
{
    c.MarkDisplay();
    c.RefreshViews();
    const cVorstekState &State = c;
    memcpy(&pSnapshot->m_State, &State, sizeof State);
    pSnapshot->m_State.m_bProgramRunning = 0;
    ClearRest(pSnapshot->m_State.m_szX);
    ClearRest(pSnapshot->m_State.m_szY);
    ClearRest(pSnapshot->m_State.m_szZ);
    ClearRest(pSnapshot->m_State.m_szT);
    ClearRest(pSnapshot->m_State.m_szDisplay);
    memset(pSnapshot->m_szRegisters, 0, sizeof pSnapshot->m_szRegisters);
    c.m_pRegisters->GetText(pSnapshot->m_szRegisters, sizeof pSnapshot->m_szRegisters);
    pSnapshot->m_bDisplayShowsX = c.DoesDisplayFollowX();
}

int RestoreSnapshot(cCalculator &c, const cSnapshot &Snapshot, const char *szListing)
{
    if (c.m_bInRun)
        return 0;
    c.RefreshViews();  // nothing that is stale may be written over what comes
    static_cast<cVorstekState &>(c) = Snapshot.m_State;
    if (szListing)
        c.m_pListing->SetText(szListing);
    c.m_pRegisters->SetText(Snapshot.m_szRegisters);
    PrepareRunLines(c);
    c.MarkRestored(Snapshot.m_bDisplayShowsX);
    return 1;
}
