// arguments.h - reads the words of a command line or a script line.

#ifndef CONSOLE_ARGUMENTS_H
#define CONSOLE_ARGUMENTS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A text that consists of decimal digits. A number beyond 64 bits becomes the
// largest one. 0 if the text is empty or contains anything else.
int ParseWholeNumber(std::string_view Text, uint64_t *pnValue);

// A text that is a decimal number: sign, digits, point, exponent. 0 if it is
// not.
int ParseNumber(const std::string &Text, double *pdValue);

// The words between blanks (spaces and tabs).
std::vector<std::string> SplitWords(std::string_view Text);

// The text without the blanks around it.
std::string_view TrimBlanks(std::string_view Text);

#endif
