#include "console/profile_report.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <ostream>
#include <string>

#include "console/headless_host.h"
#include "console/json.h"
#include "console/state_report.h"
#include "engine/run_profile.h"
#include "engine/vorstek_state.h"

static const size_t kNumbers = 21;  // characters before a line of the listing

static double TotalTime(const cRunProfile &Profile)
{
    double dTotal = 0.0;
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        dTotal += Profile.TimeOf(nLine);
    return dTotal;
}

// The last program line to print.
static unsigned LastLine(const cRunProfile &Profile, const cVorstekState &State,
                         const cMemoryLineBox &Listing)
{
    unsigned nLast = kLastLine;
    while (nLast > 1 && Profile.CountOf(nLast) == 0)
        nLast--;
    return std::max(nLast, LastUsedLine(State, Listing));
}

static void PrintComments(const cMemoryLineBox &Listing, unsigned nEnd, unsigned *pnAt,
                          std::ostream *pOut)
{
    for (; *pnAt < nEnd; ++*pnAt)
        *pOut << std::string(kNumbers, ' ') << BoxLine(Listing, *pnAt) << "\n";
}

void PrintProfile(const cRunProfile &Profile, cHeadlessCalculator *pCalculator, std::ostream *pOut)
{
    const cVorstekState  &State   = pCalculator->m_Engine.State();
    const cMemoryLineBox &Listing = pCalculator->m_Listing;
    const double          dTotal  = std::max(TotalTime(Profile), 1e-9);
    const unsigned        nLast   = LastLine(Profile, State, Listing);
    unsigned              nAt     = 1;  // in the listing, after its line 0
    *pOut << "\n     count     time  line\n";
    for (unsigned nLine = 1; nLine <= nLast; nLine++)
    {
        char szNumbers[64];
        PrintComments(Listing, State.m_Program[nLine].m_nListingLine, &nAt, pOut);
        snprintf(szNumbers, sizeof szNumbers, "%10" PRIu64 "  %5.1f %%  ", Profile.CountOf(nLine),
                 100.0 * Profile.TimeOf(nLine) / dTotal);
        *pOut << szNumbers << BoxLine(Listing, nAt++) << "\n";
    }
    PrintComments(Listing, EndOfComments(nLast, State, Listing), &nAt, pOut);
}

void ReportProfile(const cRunProfile &Profile, cJsonList *pObject)
{
    cJsonList Lines(pObject->Key("profile"), '[', ']');
    for (unsigned nLine = 1; nLine <= kLastLine; nLine++)
        if (Profile.CountOf(nLine) > 0)
        {
            cJsonList Line(Lines.Next(), '{', '}');
            Line.Number("line", nLine);
            Line.Number("count", static_cast<double>(Profile.CountOf(nLine)));
            Line.Number("seconds", Profile.TimeOf(nLine));
        }
}
