#include "listing/lint.h"

#include "listing/listing_errors.h"
#include "listing/number_warnings.h"
#include "listing/source_lines.h"
#include "listing/text_warnings.h"

std::vector<cFinding> LintListing(std::string_view Text)
{
    cFindings     Findings;
    cSourceReader Reader(Text);
    cSourceLine   Line;
    int           bStartsLine = 1;
    while (Reader.Next(&Line))
    {
        FindErrors(Line, &Findings);
        FindTextWarnings(Line, bStartsLine, &Findings);
        FindNumberWarnings(Line, &Findings);
        bStartsLine = !Line.m_bSplit;
    }
    Findings.Sort();
    return Findings.m_List;
}

std::vector<cFinding> FindListingErrors(std::string_view Text)
{
    cFindings     Findings;
    cSourceReader Reader(Text);
    cSourceLine   Line;
    while (Reader.Next(&Line))
        FindErrors(Line, &Findings);
    return Findings.m_List;
}
