// format_target.cpp - the input is a listing, which is formatted. The program remains
// the same, and a formatted listing stays as it is.

#include "listing/format.h"
#include "tests/fuzz/fuzz_calculator.h"
#include "tests/fuzz/fuzz_target.h"

// 0 if it is refused.
static int Format(std::string_view Listing, std::string *pFormatted)
{
    std::vector<cFormattedLine> Lines;
    std::vector<cFinding>       Findings;
    std::string                 Old;
    const int                   bDone = FormatListing(Listing, &Lines, &Findings);
    FUZZ_CHECK(bDone || !Findings.empty());
    pFormatted->clear();
    for (const cFormattedLine &Line : Lines)
    {
        Old += Line.m_Old;
        *pFormatted += Line.m_New;
    }
    if (bDone)
        FUZZ_CHECK_TEXT(Old, std::string(Listing));
    return bDone;
}

void FuzzFormat(std::string_view Input)
{
    std::string Once;
    std::string Twice;
    if (!Format(Input, &Once))
        return;
    cFuzzCalculator Before;
    cFuzzCalculator After;

    FUZZ_CHECK(Before.Load(Input) && After.Load(Once));

    FUZZ_CHECK(Before.m_Boxes.empty() && After.m_Boxes.empty());
    FUZZ_CHECK_TEXT(After.Program(), Before.Program());
    FUZZ_CHECK(Format(Once, &Twice));
    FUZZ_CHECK_TEXT(Twice, Once);
}
