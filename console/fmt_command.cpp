// fmt_command.cpp - vorstek-cli fmt: brings listings into the canonical form.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ostream>

#include "console/commands.h"
#include "console/file_reason.h"
#include "console/finding_report.h"
#include "console/input_text.h"
#include "console/unified_diff.h"
#include "listing/format.h"
#include "toolkit/disk_file.h"
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

// clang-format off
static const cOptionRow s_FmtRows[] =
{
    { "--check", nullptr, nullptr, SetFlag<cFmtOptions, &cFmtOptions::m_bCheck>,
      "change nothing, name the files that would change" },
    { "--diff", nullptr, nullptr, SetFlag<cFmtOptions, &cFmtOptions::m_bDiff>,
      "change nothing, print the changes" },
    { "--name", "FILE", "a file name", TakeText<cFmtOptions, &cFmtOptions::m_Name>,
      "name of standard input in messages" },
};
// clang-format on

std::span<const cOptionRow> FmtOptionRows()
{
    return s_FmtRows;
}

static int ParseFmtOptions(const std::vector<std::string> &Arguments, cFmtOptions *pOptions,
                           std::string *pError)
{
    if (!ReadOptions(s_FmtRows, Arguments, pOptions, &pOptions->m_Files, pError))
        return 0;
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
    if (FileName == kStandardInput || KindOfFile(FileName.c_str()) != fkRegular)
        *Streams.m_pOut << New;  // a pipe or a device is not replaced by a file
    else if (New != Text && !WriteListing(FileName, New))
        return ReportUnwritable(Streams, FileName, errno);
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
