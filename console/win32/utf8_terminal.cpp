#include "console/utf8_terminal.h"

#include <cstdlib>

#include "toolkit/win32/win32.h"

static UINT s_nFormerIn;
static UINT s_nFormerOut;

static void RestoreTerminal()
{
    SetConsoleCP(s_nFormerIn);
    SetConsoleOutputCP(s_nFormerOut);
}

// Without a terminal the code pages are 0, and cannot be set either.
void UseUtf8Terminal()
{
    s_nFormerIn  = GetConsoleCP();
    s_nFormerOut = GetConsoleOutputCP();
    SetConsoleCP(CP_UTF8);
    SetConsoleOutputCP(CP_UTF8);
    atexit(RestoreTerminal);
}
