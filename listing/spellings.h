// spellings.h - what people write for instructions beside their mnemonics: what is
// printed on the keys, and what other calculators and keyboards call it. Commands
// read these words; suggestions and completion are made from them. Listings have
// mnemonics only.

#ifndef LISTING_SPELLINGS_H
#define LISTING_SPELLINGS_H

#include <span>
#include <string>
#include <string_view>

enum eSpelling
{
    spLegend,  // printed on a key
    spOther,
    spKey  // a key that is no instruction: m_szMeans is its name for FindKeys()
};

// Case does not matter, nor whether words are separated by the blank. Signs beyond ASCII
// that have a plain spelling, such as those of "x≤y" and "Σ+", need no row.
struct cSpelling
{
    const char *m_szWord;   // "CL REG"
    const char *m_szMeans;  // "ClearREG"
    eSpelling   m_nKind;
};

std::span<const cSpelling> Spellings();

// For comparisons: plain characters in lower case, "cl sum" for "CL Σ".
std::string FoldedSpelling(std::string_view Word);

#endif
