#include "console/profile_report.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <ostream>
#include <string>

#include "console/headless_host.h"
#include "console/json.h"
#include "console/state_report.h"
#include "engine/instruction.h"
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

// Unused lines are like this.
static int IsRunStop(const ProgramLine &Line)
{
    return Line.m_pInstruction && Line.m_pInstruction->m_nRole == rlStop;
}

// The last program line to print.
static unsigned LastLine(const cRunProfile &Profile, const cVorstekState &State)
{
    unsigned nLast = kLastLine;
    while (nLast > 1 && Profile.CountOf(nLast) == 0 && IsRunStop(State.m_Program[nLast]))
        nLast--;
    return nLast;
}

void PrintProfile(const cRunProfile &Profile, cHeadlessCalculator *pCalculator, std::ostream *pOut)
{
    const cVorstekState &State  = pCalculator->m_Engine.State();
    const double         dTotal = std::max(TotalTime(Profile), 1e-9);
    unsigned             nAt    = 1;  // in the listing, after its line 0
    *pOut << "\n     count     time  line\n";
    for (unsigned nLine = 1; nLine <= LastLine(Profile, State); nLine++)
    {
        char szNumbers[64];
        for (; nAt < State.m_Program[nLine].m_nListingLine; nAt++)
            *pOut << std::string(kNumbers, ' ') << BoxLine(pCalculator->m_Listing, nAt) << "\n";
        snprintf(szNumbers, sizeof szNumbers, "%10" PRIu64 "  %5.1f %%  ", Profile.CountOf(nLine),
                 100.0 * Profile.TimeOf(nLine) / dTotal);
        *pOut << szNumbers << BoxLine(pCalculator->m_Listing, nAt++) << "\n";
    }
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
