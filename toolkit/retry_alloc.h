// retry_alloc.h - handles memory running out: the user may close other programs
// and retry, or give up and quit the calculator.

#ifndef TOOLKIT_RETRY_ALLOC_H
#define TOOLKIT_RETRY_ALLOC_H

#include "toolkit/message_box.h"

const char *const kMemoryFailureText = "ERROR: insufficient memory.\n"
                                       "Close other running applications\n"
                                       "and then hit 'Retry'";

// Calls Allocate() until it returns something other than null, and returns
// that. After each failure the user is asked; Cancel posts quit code 0 and
// returns null. Allocate must not throw:
//
//     float *pX = AllocateWithRetry(pBoxes, [&] { return new (std::nothrow) float[n]; });
template <class cAllocate> auto AllocateWithRetry(cMessageBoxes *pBoxes, cAllocate Allocate)
{
    auto pMemory = Allocate();
    while (!pMemory)
    {
        if (pBoxes->Ask(kMemoryFailureText, nullptr, bnRetryCancel, icError) != anRetry)
        {
            pBoxes->PostQuit(0);
            break;
        }
        pMemory = Allocate();
    }
    return pMemory;
}

#endif
