// fmt_command.cpp - vorstek-cli fmt: brings listings into the canonical form.

#include <algorithm>
#include <cstdio>
#include <ostream>

#include "console/arguments.h"
#include "console/console.h"
#include "console/finding_report.h"
#include "console/input_text.h"
#include "console/unified_diff.h"
#include "listing/format.h"
#include "toolkit/replacement_file.h"

namespace
{

struct cFmtOptions
{
    std::vector<std::string> m_Files;               // "-" is standard input
    std::string              m_Name   = "<stdin>";  // of standard input in messages
    int                      m_bCheck = 0;
    int                      m_bDiff  = 0;
};

}  // namespace

// Takes the option at *pnAt; advances *pnAt to its value if it has one.
static int TakeFmtOption(const std::vector<std::string> &Arguments, size_t *pnAt,
                         cFmtOptions *pOptions, std::string *pError)
{
    const std::string &Name = Arguments[*pnAt];
    if (Name == "--check")
        pOptions->m_bCheck = 1;
    else if (Name == "--diff")
        pOptions->m_bDiff = 1;
    else if (Name != "--name")
        *pError = UnknownOption(Name);
    else if (++*pnAt == Arguments.size())
        *pError = "--name needs a file name";
    else
        pOptions->m_Name = Arguments[*pnAt];
    return pError->empty();
}

static int ParseFmtOptions(const std::vector<std::string> &Arguments, cFmtOptions *pOptions,
                           std::string *pError)
{
    int bOptions = 1;
    for (size_t nAt = 0; nAt < Arguments.size(); nAt++)
    {
        if (bOptions && Arguments[nAt] == kEndOfOptions)
            bOptions = 0;
        else if (!bOptions || !Arguments[nAt].starts_with("--"))
            pOptions->m_Files.push_back(Arguments[nAt]);
        else if (!TakeFmtOption(Arguments, &nAt, pOptions, pError))
            return 0;
    }
    if (pOptions->m_Files.empty())
        *pError = "fmt needs the file name of at least one program";
    return pError->empty();
}

static int WriteListing(const std::string &FileName, const std::string &Text)
{
    cReplacementFile File;
    if (!File.Open(FileName.c_str(), "wb"))
        return 0;
    fwrite(Text.data(), 1, Text.size(), File.Stream());
    return File.Commit();
}

// Nothing of a listing that is not understood is changed.
static int RefuseListing(const std::string &Shown, const std::vector<cFinding> &Findings,
                         const cStreams &Streams)
{
    for (const cFinding &Finding : Findings)
        *Streams.m_pErr << FindingText(Shown, Finding) << "\n";
    return kExitError;
}

static int FormatFile(const std::string &FileName, const cFmtOptions &Options,
                      const cStreams &Streams)
{
    const std::string          &Shown = FileName == kStandardInput ? Options.m_Name : FileName;
    std::string                 Text;
    std::vector<cFormattedLine> Lines;
    std::vector<cFinding>       Findings;
    if (!ReadInput(FileName, Streams, &Text))
        return kExitUsage;
    if (!FormatListing(Text, &Lines, &Findings))
        return RefuseListing(Shown, Findings, Streams);
    std::string New;
    for (const cFormattedLine &Line : Lines)
        New += Line.m_New;
    if (Options.m_bDiff)
        *Streams.m_pOut << UnifiedDiff(Shown, Lines);
    if (Options.m_bCheck && New != Text && !Options.m_bDiff)
        *Streams.m_pOut << Shown << "\n";
    if (Options.m_bCheck)
        return New == Text ? kExitDone : kExitError;
    if (Options.m_bDiff)
        return kExitDone;
    if (FileName == kStandardInput)
        *Streams.m_pOut << New;
    else if (New != Text && !WriteListing(FileName, New))
        return ReportUsage(Streams, "cannot write '" + FileName + "'");
    return kExitDone;
}

int FmtCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cFmtOptions Options;
    std::string Error;
    if (!ParseFmtOptions(Arguments, &Options, &Error))
        return ReportUsage(Streams, Error);
    int nExitCode = kExitDone;
    for (const std::string &FileName : Options.m_Files)
        nExitCode = std::max(nExitCode, FormatFile(FileName, Options, Streams));
    return nExitCode;
}
