#include "listing/lint.h"

#include "listing/listing_errors.h"
#include "listing/source_lines.h"

std::vector<cFinding> FindListingErrors(std::string_view Text)
{
    cFindings     Findings;
    cSourceReader Reader(Text);
    cSourceLine   Line;
    while (Reader.Next(&Line))
        FindErrors(Line, &Findings);
    return Findings.m_List;
}
