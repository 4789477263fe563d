// waiting.h - waits for what a program does in its own time.

#ifndef TESTS_WINDOW_WAITING_H
#define TESTS_WINDOW_WAITING_H

#include "toolkit/win32/win32.h"

const DWORD kPatience  = 30000;  // milliseconds, on a very busy computer
const DWORD kLookAgain = 5;

// Asks until IsSo() gives something other than 0 or null, and returns that; at
// last what it gave when the patience came to its end.
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

// A value that is looked at until it is the expected one. Read by a check, it
// shows what it was at last:
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
