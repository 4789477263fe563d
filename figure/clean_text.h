// clean_text.h - texts of any bytes as valid UTF-8 that a file may contain.

#ifndef FIGURE_CLEAN_TEXT_H
#define FIGURE_CLEAN_TEXT_H

#include <string>
#include <string_view>

// The text with U+FFFD for each byte that is not part of a valid character, for
// control characters and for the two codes that XML forbids; a tab becomes a blank.
std::string CleanText(std::string_view Text);

// The text without its last characters, so that it ends in an ellipsis: "Free f...".
// nCharacters is how many of it stay.
std::string Elided(std::string_view CleanedText, size_t nCharacters);

size_t LengthInCharacters(std::string_view CleanedText);

#endif
