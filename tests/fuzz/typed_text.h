// typed_text.h - makes lines for a session safe to perform.

#ifndef TESTS_FUZZ_TYPED_TEXT_H
#define TESTS_FUZZ_TYPED_TEXT_H

#include <string>
#include <string_view>

const size_t kMostTypedLines = 60;

// A pause sleeps for a second where there is a terminal. The text without them.
std::string WithoutPauses(std::string_view Text);

// 1 for a line that starts an editor.
int StartsEditor(const std::string &Line);

// At most kMostTypedLines lines, without pauses, editors, and names of other folders.
std::string TameLines(std::string_view Text);

// While an object lives, a run ends after some milliseconds of the processor, as by
// Ctrl-C. One at a time.
class cRunTimer
{
public:
    cRunTimer();
    ~cRunTimer();
    cRunTimer(const cRunTimer &)            = delete;
    cRunTimer &operator=(const cRunTimer &) = delete;
};

#endif
