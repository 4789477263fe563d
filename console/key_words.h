// key_words.h - the keys to press for what is printed on them: "CL REG STO+ 5".

#ifndef CONSOLE_KEY_WORDS_H
#define CONSOLE_KEY_WORDS_H

#include <string>
#include <string_view>
#include <vector>

class cVocabulary;

// Appends the key codes for a line of words: instructions and keys as the face, listings
// and Vocabulary name them, and numbers, a key for each digit. An instruction that takes
// several keys gets them all: STO and + for "STO+". 0 if a word has no keys, with the
// reason: "\"->H\" has no key; do ->H performs it".
int FindKeysOfLine(const cVocabulary &Vocabulary, std::string_view Line,
                   std::vector<unsigned> *pKeys, std::string *pWhy);

#endif
