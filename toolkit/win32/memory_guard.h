// memory_guard.h - where a step of a window ends for which memory ran out. An exception
// must not reach the platform, which calls the window.

#ifndef TOOLKIT_WIN32_MEMORY_GUARD_H
#define TOOLKIT_WIN32_MEMORY_GUARD_H

#include "toolkit/win32/win32.h"

#include <new>

// The result of Step(), or 0 if it ran out of memory; then the program quits.
template <class cStep> auto EndWithoutMemory(cStep Step) -> decltype(Step())
{
    try
    {
        return Step();
    }
    catch (const std::bad_alloc &)
    {
        PostQuitMessage(0);
        return 0;
    }
}

#endif
