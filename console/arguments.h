// arguments.h - reads the words of a command line or a script line.

#ifndef CONSOLE_ARGUMENTS_H
#define CONSOLE_ARGUMENTS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Words after this one are not options.
const char *const kEndOfOptions = "--";

// A text that consists of decimal digits. A number beyond 64 bits becomes the
// largest one. 0 if the text is empty or contains anything else.
int ParseWholeNumber(std::string_view Text, uint64_t *pnValue);

// A text that is a decimal number: sign, digits, point, exponent. 0 if it is
// not.
int ParseNumber(const std::string &Text, double *pdValue);

// The words between blanks (spaces and tabs).
std::vector<std::string> SplitWords(std::string_view Text);

// File names of a command without options: all words. Those before "--" must not
// begin with "--". 0, with a one-line error, if one does.
int TakeFileNames(const std::vector<std::string> &Arguments, std::vector<std::string> *pNames,
                  std::string *pError);

// The message for an option that does not exist: "unknown option '--w' (see
// vorstek-cli --help)".
std::string UnknownOption(const std::string &Name);

// The text without the blanks around it.
std::string_view TrimBlanks(std::string_view Text);

#endif
