// The test program's main(); what it accepts is listed by --help. Beyond that,
// --screen=800x599 makes the desktop this large.

#include "toolkit/win32/win32.h"

#include <cstdio>

#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include "tests/win32/test_desktop.h"

int main(int nArguments, char **pszArguments)
{
    int nWidth  = 1280;
    int nHeight = 1024;
    for (int i = 1; i < nArguments; i++)
        sscanf(pszArguments[i], "--screen=%dx%d", &nWidth, &nHeight);
    if (!cTestDesktop::IsEntered())
    {
        const cTestDesktop Desktop(nWidth, nHeight);
        return Desktop.RunThisProgram();
    }
    // Windows that open under the screen's own pointer would get its moves.
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    doctest::Context Context(nArguments, pszArguments);
    return Context.run();
}
