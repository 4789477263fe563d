// listing_target.cpp - loads a listing, saves it and loads it again. After a byte
// 0xFF: keys that are pressed between loading and a second saving, a byte each.

#include "engine/key_codes.h"
#include "engine/listing_words.h"
#include "tests/fuzz/fuzz_calculator.h"
#include "tests/fuzz/fuzz_target.h"

static std::string SavedListing(cFuzzCalculator *pCalculator)
{
    FUZZ_CHECK(pCalculator->m_Calculator.m_Engine.SaveProgram("saved.txt"));
    return ReadScratch("saved.txt");
}

// The loader divides such a line, and the line end that a part gains when it is saved
// makes it one of these again.
static int HasDividedLine(const std::string &Text)
{
    size_t nStart = 0;
    for (size_t nEnd; (nEnd = Text.find('\n', nStart)) != std::string::npos; nStart = nEnd + 1)
        if (nEnd + 1 - nStart >= static_cast<size_t>(kFileLineText))
            return 1;
    return 0;
}

static void CheckRoundTrip(cFuzzCalculator *pFirst)
{
    const std::string Saved = SavedListing(pFirst);
    cFuzzCalculator   Second;

    FUZZ_CHECK(Second.m_Calculator.m_Engine.LoadProgram("saved.txt"));

    Second.CheckState();
    FUZZ_CHECK_TEXT(Second.Program(), pFirst->Program());
    if (!HasDividedLine(Saved))
        FUZZ_CHECK_TEXT(SavedListing(&Second), Saved);
}

void FuzzListing(std::string_view Input)
{
    const cTwoParts      Parts = DivideInput(Input);
    const cScratchFolder Scratch;
    cFuzzCalculator      Calculator;

    FUZZ_CHECK(Calculator.Load(Parts.m_Text));
    Calculator.CheckState();
    CheckRoundTrip(&Calculator);
    if (Parts.m_Rest.empty())
        return;
    for (const char cKey : Parts.m_Rest)
        Calculator.Press(1 + static_cast<unsigned char>(cKey) % kKeyMode);
    Calculator.CheckState();
    CheckRoundTrip(&Calculator);
}
