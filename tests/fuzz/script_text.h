// script_text.h - makes a script safe to run.

#ifndef TESTS_FUZZ_SCRIPT_TEXT_H
#define TESTS_FUZZ_SCRIPT_TEXT_H

#include <string>
#include <string_view>

// The script with runs of at most 999 lines, 200 by default, and with file names that
// remain in the current folder.
std::string TameScript(std::string_view Script);

#endif
