// plain_spelling.h - the ASCII spelling of what people type or paste with other
// characters: signs of mathematics, Greek letters, superscripts.

#ifndef LISTING_PLAIN_SPELLING_H
#define LISTING_PLAIN_SPELLING_H

#include <string>
#include <string_view>

// The word with each known character replaced and invisible ones removed:
// "x<=y" for "x\u2264y", "sqrt" for "\u221A", "10^x" for "10\u02E3". Other
// characters stay.
std::string PlainSpelling(std::string_view Word);

#endif
