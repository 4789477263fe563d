// arguments.h - reads what stands on a command line or in a script line.

#ifndef CONSOLE_ARGUMENTS_H
#define CONSOLE_ARGUMENTS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Words behind this one are no options.
const char *const kEndOfOptions = "--";

// A whole text of decimal digits. A number beyond 64 bits is the largest one.
// 0 if there is anything else in it.
int ParseWholeNumber(std::string_view Text, uint64_t *pnValue);

// A whole decimal number: sign, digits, point, exponent. 0 if it is none.
int ParseNumber(const std::string &Text, double *pdValue);

// The words between blanks (spaces and tabs).
std::vector<std::string> SplitWords(std::string_view Text);

// File names of a command that has no options: all words, but those in front
// of "--" must not begin with "--". 0 with what is wrong, in one line.
int TakeFileNames(const std::vector<std::string> &Arguments, std::vector<std::string> *pNames,
                  std::string *pError);

// What is said of an option that there is none of: "unknown option '--w' (see
// vorstek-cli --help)".
std::string UnknownOption(const std::string &Name);

// The text without the blanks around it.
std::string_view TrimBlanks(std::string_view Text);

#endif
