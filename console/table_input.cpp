#include "console/table_input.h"

#include <ostream>
#include <utility>

#include "console/finding_report.h"
#include "console/input_file.h"
#include "console/session/terminal.h"

// Standard input in findings and labels.
static const char kStdinTable[] = "<stdin>";

cTableInput::cTableInput(const cTableOptions &Options, const cStreams &Streams, size_t nMostKept)
    : m_Options(Options), m_Streams(Streams),
      m_Progress(Streams.m_pErr, !Options.m_bNoProgress && CanRedrawErrors()),
      m_Points(Options.m_Format, &m_Progress, nMostKept)
{
}

int cTableInput::Open(const std::vector<std::string> &Names)
{
    uint64_t nLength = 0;
    for (const std::string &Name : Names)
    {
        cSeekableInput Input;
        if (!OpenSeekableInput(Name, m_Streams, &m_Progress, &Input))
            return 0;
        nLength += Input.m_nLength;
        m_Points.Add(Name == kStandardInput ? kStdinTable : Name, std::move(Input.m_File));
    }
    m_Progress.Expect(nLength);
    return 1;
}

int cTableInput::Load(const std::vector<std::string> &Names)
{
    m_Names = Names;
    if (!Open(Names))
        return kExitUsage;
    const int bRead     = m_Points.Scan();
    const int bFindings = ReportFindings();
    if (!bRead)
    {
        ReportFailure();
        return kExitUsage;
    }
    return bFindings && m_Options.m_bStrict ? RefuseStrictly(m_Streams) : kExitDone;
}

int RefuseStrictly(const cStreams &Streams)
{
    ReportUsage(Streams, "nothing was drawn, because of --strict");
    return kExitError;
}

// Returns 1 if there is one.
int cTableInput::ReportFindings()
{
    int bAny = 0;
    for (const auto &Table : m_Points.Tables())
        for (const cFinding &Finding : Table->Findings().m_List)
        {
            *m_Streams.m_pErr << FindingText(Table->Name(), Finding) << "\n";
            bAny = 1;
        }
    return bAny;
}

// Of a file; tables that are refused have a finding that says why.
void cTableInput::ReportFailure()
{
    for (size_t nTable = 0; nTable < m_Names.size(); nTable++)
        if (m_Points.Tables()[nTable]->Failed())
            RefuseInput(m_Streams, m_Names[nTable], "it fails while it is read");
}

int cTableInput::Read(cPointSink *pSink)
{
    const int bRead = m_Points.Read(pSink);
    if (!bRead)
        ReportFailure();
    return bRead;
}
