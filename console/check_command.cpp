// check_command.cpp - vorstek-cli check: prints what is wrong or odd in listings
// in the format of a compiler.

#include <algorithm>
#include <ostream>

#include "console/check_options.h"
#include "console/commands.h"
#include "console/finding_report.h"
#include "console/input_text.h"
#include "listing/lint.h"

static int CheckFile(const std::string &FileName, const cCheckOptions &Options,
                     const cStreams &Streams)
{
    std::string Text;
    if (!ReadInput(FileName, Streams, &Text))
        return kExitUsage;
    const std::string &Shown     = FileName == kStandardInput ? Options.m_Name : FileName;
    int                nExitCode = kExitDone;
    for (const cFinding &Finding : LintListing(Text))
    {
        if (Options.m_Ignored.contains(Finding.m_szName))
            continue;
        *Streams.m_pOut << (Options.m_bJson ? FindingJson(Shown, Finding)
                                            : FindingText(Shown, Finding))
                        << "\n";
        if (Options.m_bStrict || Finding.m_nSeverity == svError)
            nExitCode = kExitError;
    }
    return nExitCode;
}

// *pOptions has what was read, an error or not.
static int CheckFiles(const std::vector<std::string> &Arguments, const cStreams &Streams,
                      cCheckOptions *pOptions)
{
    std::string Error;
    if (!ParseCheckOptions(Arguments, pOptions, &Error))
        return ReportUsage(Streams, Error);
    int nExitCode = kExitDone;
    for (const std::string &FileName : pOptions->m_Files)
        nExitCode = std::max(nExitCode, CheckFile(FileName, *pOptions, Streams));
    return nExitCode;
}

int CheckCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cCheckOptions Options;
    const int     nExitCode = CheckFiles(Arguments, Streams, &Options);
    if (Options.m_bWait)
        WaitAtEnd(Streams);
    return nExitCode;
}
