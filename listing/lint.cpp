#include "listing/lint.h"

#include "listing/listing_errors.h"
#include "listing/number_warnings.h"
#include "listing/program_warnings.h"
#include "listing/source_program.h"
#include "listing/text_warnings.h"

std::vector<cFinding> LintListing(std::string_view Text)
{
    cFindings      Findings;
    cSourceProgram Program;
    cSourceReader  Reader(Text);
    cSourceLine    Line;
    int            bStartsLine = 1;
    while (!Findings.IsFull() && Reader.Next(&Line))
    {
        FindErrors(Line, &Findings);
        FindTextWarnings(Line, bStartsLine, &Findings);
        FindNumberWarnings(Line, &Findings);
        Program.Add(Line);
        bStartsLine = !Line.m_bSplit;
    }
    Program.Finish();
    if (Program.IsComplete() && !Findings.IsFull())
    {
        FindLabelWarnings(Program, &Findings);
        FindFlowWarnings(Program, &Findings);
        FindCallWarnings(Program, &Findings);
    }
    Findings.Sort();
    return Findings.m_List;
}

std::vector<cFinding> FindListingErrors(std::string_view Text)
{
    cFindings     Findings;
    cSourceReader Reader(Text);
    cSourceLine   Line;
    while (!Findings.IsFull() && Reader.Next(&Line))
        FindErrors(Line, &Findings);
    return Findings.m_List;
}
