// arguments.h - reads what stands on a command line or in a script line.

#ifndef CONSOLE_ARGUMENTS_H
#define CONSOLE_ARGUMENTS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A whole text of decimal digits. A number beyond 64 bits is the largest one.
// 0 if there is anything else in it.
int ParseWholeNumber(std::string_view Text, uint64_t *pnValue);

// A whole decimal number: sign, digits, point, exponent. 0 if it is none.
int ParseNumber(const std::string &Text, double *pdValue);

// The words between blanks (spaces and tabs).
std::vector<std::string> SplitWords(std::string_view Text);

// The text without the blanks around it.
std::string_view TrimBlanks(std::string_view Text);

#endif
