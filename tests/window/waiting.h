// waiting.h - waits for a condition in another program.

#ifndef TESTS_WINDOW_WAITING_H
#define TESTS_WINDOW_WAITING_H

#include "toolkit/win32/win32.h"

const DWORD kPatience  = 30000;  // milliseconds; enough for a very busy computer
const DWORD kLookAgain = 5;

// Calls IsSo() until it returns something other than 0 or null, and returns that. After
// kPatience it returns the last answer.
template <class cQuestion> auto WaitFor(cQuestion IsSo)
{
    const DWORD dwStart = GetTickCount();
    for (;;)
    {
        const auto Answer = IsSo();
        if (Answer || GetTickCount() - dwStart > kPatience)
            return Answer;
        Sleep(kLookAgain);
    }
}

// Looks at a value until it is the expected one and returns the last value, so that a
// failing check shows it:
//
//     CHECK(Eventually("5.00", [&] { return Calculator.MainLine(); }) == "5.00");
template <class cValue, class cLook> auto Eventually(const cValue &Expected, cLook Look)
{
    auto Seen = Look();
    WaitFor([&] {
        Seen = Look();
        return Seen == Expected;
    });
    return Seen;
}

#endif
