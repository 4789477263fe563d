#include "shell/help.h"

#include "shell/application.h"
#include "toolkit/help_viewer.h"

static int OpenIntroduction()
{
    const HINSTANCE hResult = ShellExecuteA(nullptr, "open", "HtmlHelp\\Introduction.htm", nullptr,
                                            nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(hResult) > 32;
}

int ShowHelp(HWND *phHelpWnd)
{
    *phHelpWnd = OpenHelpContents("VORSTEK.chm");
    if (*phHelpWnd || OpenIntroduction())
        return 1;
    cPlatformBoxes Boxes;
    ReportMissingHelp(&Boxes, "VORSTEK.CHM");
    return 0;
}
