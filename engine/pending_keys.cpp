#include "engine/pending_keys.h"

#include <cstdio>
#include <cstring>

#include "engine/calculator.h"

const char *const kAwaitPress   = "EWFDK";
const char *const kAwaitRelease = "EWFUK";
const char *const kAwaitHalt    = "HWFUK";

int IsAwaiting(const cVorstekState &State, const char *szMarker)
{
    return strcmp(State.m_szKeystrokes, szMarker) == 0;
}

int IsWaitingForKey(const cVorstekState &State)
{
    return IsAwaiting(State, kAwaitPress) || IsAwaiting(State, kAwaitRelease) ||
           IsAwaiting(State, kAwaitHalt);
}

// The first three letters of a marker give the reason for the wait.
static int BeginsLike(const cVorstekState &State, const char *szMarker)
{
    const size_t kReason = 3;
    return strncmp(State.m_szKeystrokes, szMarker, kReason) == 0;
}

int HasPendingKeys(const cVorstekState &State)
{
    return State.m_szKeystrokes[0] && !BeginsLike(State, kAwaitPress) &&
           !BeginsLike(State, kAwaitRelease) && !BeginsLike(State, kAwaitHalt);
}

int EndsWith(const cVorstekState &State, const char *szEnding)
{
    const size_t nLength = strlen(State.m_szKeystrokes);
    const size_t nEnding = strlen(szEnding);
    return nLength >= nEnding && strcmp(State.m_szKeystrokes + nLength - nEnding, szEnding) == 0;
}

void SetKeystrokes(cVorstekState &State, const char *szKeystrokes)
{
    snprintf(State.m_szKeystrokes, sizeof State.m_szKeystrokes, "%s", szKeystrokes);
}

void AppendKeystroke(cVorstekState &State, const char *szKeystroke)
{
    const size_t nLength = strlen(State.m_szKeystrokes);
    snprintf(State.m_szKeystrokes + nLength, sizeof State.m_szKeystrokes - nLength, "%s",
             szKeystroke);
}

void ShowKeystrokesError(cCalculator &c, unsigned nCode)
{
    char szText[64];
    snprintf(szText, sizeof szText, "Program Error Code #%03u\nm_szKeystrokes = %s", nCode,
             c.m_szKeystrokes);
    c.AskUser(szText, bnOk, icNone);
}
