// check_target.cpp - the input is a listing. Findings are inside it, and their errors
// are the lines that the loader rejects.

#include <set>

#include "engine/listing_words.h"
#include "listing/lint.h"
#include "tests/fuzz/fuzz_calculator.h"
#include "tests/fuzz/fuzz_target.h"

static std::set<unsigned> ErrorLines(const std::vector<cFinding> &Findings)
{
    std::set<unsigned> Lines;
    for (const cFinding &Finding : Findings)
        if (Finding.m_nSeverity == svError)
            Lines.insert(Finding.m_nLine);
    return Lines;
}

// From "Error: illegal number on line #3:", which the line follows.
static std::set<unsigned> RejectedLines(std::string_view Listing, int *pbOverflow)
{
    cFuzzCalculator Calculator;
    Calculator.Load(Listing);
    std::set<unsigned> Lines;
    *pbOverflow = 0;
    for (const std::string &Box : Calculator.m_Boxes)
    {
        const size_t nNumber = Box.find_first_of("0123456789");
        if (Box == kOverflowText)
            *pbOverflow = 1;
        else if (nNumber == std::string::npos)
            ReportFinding(__FILE__, __LINE__, Box);
        else
            Lines.insert(static_cast<unsigned>(std::stoul(Box.substr(nNumber))));
    }
    return Lines;
}

// The loader's lines, each with its length.
static std::vector<size_t> LineLengths(std::string_view Listing)
{
    std::vector<size_t> Lengths;
    char                szLine[kFileLineText];
    const char *const   pEnd  = Listing.data() + Listing.size();
    const char         *pText = Listing.data();
    for (const char *pNext; (pNext = NextFileLine(pText, pEnd, szLine)) != nullptr; pText = pNext)
        Lengths.push_back(static_cast<size_t>(pNext - pText));
    return Lengths;
}

static void CheckPlaces(std::string_view Listing, const std::vector<cFinding> &Findings)
{
    const std::vector<size_t> Lengths = LineLengths(Listing);
    unsigned                  nFormer = 0;
    for (const cFinding &Finding : Findings)
    {
        FUZZ_CHECK(Finding.m_nLine >= 1 && Finding.m_nLine <= Lengths.size());
        FUZZ_CHECK(Finding.m_nColumn >= 1);
        FUZZ_CHECK(Finding.m_nColumn <= Lengths[Finding.m_nLine - 1] + 1);
        FUZZ_CHECK(Finding.m_nLine >= nFormer);
        FUZZ_CHECK(!Finding.m_Text.empty());
        nFormer = Finding.m_nLine;
    }
}

// An overflow is an error of the line with which it comes.
void FuzzCheck(std::string_view Input)
{
    const std::vector<cFinding> Findings = LintListing(Input);
    int                         bOverflow;
    const std::set<unsigned>    Errors   = ErrorLines(Findings);
    std::set<unsigned>          Rejected = RejectedLines(Input, &bOverflow);

    CheckPlaces(Input, Findings);
    FUZZ_CHECK(ErrorLines(FindListingErrors(Input)) == Errors);
    if (Errors.size() > kMostFindings)
        return;
    if (bOverflow && !Errors.empty())
        Rejected.insert(*Errors.rbegin());
    FUZZ_CHECK(Rejected == Errors);
    FUZZ_CHECK(bOverflow <= static_cast<int>(!Errors.empty()));
}
