// main() of the test program. Its option --help lists the others.

#include "toolkit/win32/win32.h"

#include <doctest/doctest.h>

#include "tests/win32/test_desktop.h"

int main(int nArguments, char **pszArguments)
{
    if (!cTestDesktop::IsEntered())
    {
        const cTestDesktop Desktop(1280, 1024);
        return Desktop.RunThisProgram();
    }
    const INITCOMMONCONTROLSEX Controls = {sizeof Controls, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&Controls);

    doctest::Context Context(nArguments, pszArguments);
    return Context.run();
}
