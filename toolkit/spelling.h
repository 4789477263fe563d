// spelling.h - finds the word that a misspelt one was meant to be.
// Pure: ASCII only, no locale.

#ifndef TOOLKIT_SPELLING_H
#define TOOLKIT_SPELLING_H

#include <cstddef>
#include <span>
#include <string_view>

// 1 if the texts differ at most in the case of the letters A to Z.
int EqualIgnoringCase(std::string_view Text, std::string_view Other);

// How many single changes lead from one text to the other: a character that is
// missing, surplus or wrong, or two neighbours that have changed places. The case
// of letters is ignored: "ETNER" is 1 from "enter". nMost limits the effort:
// a longer distance is reported as nMost + 1.
size_t SpellingDistance(std::string_view Text, std::string_view Other, size_t nMost);

// The index of the word that Word resembles most; -1 if none is near, or several
// are equally so. Near is one change for words of 2 to 4 characters, two for up to
// 7, three for longer ones; a single character may only have the wrong case.
int NearestWord(std::string_view Word, std::span<const std::string_view> Words);

#endif
