#include "shell/win32/help.h"

#include "shell/win32/application.h"
#include "toolkit/win32/help_viewer.h"

static int OpenIntroduction()
{
    char szPath[MAX_PATH];
    FindHelp("HtmlHelp\\Introduction.htm", szPath);
    const HINSTANCE hResult =
        ShellExecuteA(nullptr, "open", szPath, nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(hResult) > 32;
}

int ShowHelp(HWND *phHelpWnd)
{
    *phHelpWnd = OpenHelpContents("VORSTEK.chm");
    if (*phHelpWnd || OpenIntroduction())
        return 1;
    char szText[kMissingHelpText];
    FormatMissingHelp("VORSTEK.CHM", szText);
    cPlatformBoxes Boxes;
    Boxes.ReportUnowned(szText, nullptr);
    return 0;
}
