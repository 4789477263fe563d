#include "shell/help.h"

#include "shell/application.h"

static const UINT kDisplayContents = 1;  // HH_DISPLAY_TOC

typedef HWND(WINAPI *cHtmlHelp)(HWND hCaller, LPCSTR szFile, UINT nCommand, DWORD_PTR dwData);

// Where the help viewer is registered; without an entry the bare name is tried.
static HMODULE LoadViewer()
{
    char szPath[MAX_PATH] = "";
    LONG nLength          = sizeof szPath;
    RegQueryValueA(HKEY_CLASSES_ROOT,
                   "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32", szPath,
                   &nLength);
    const HMODULE hModule = szPath[0] ? LoadLibraryA(szPath) : nullptr;
    return hModule ? hModule : LoadLibraryA("hhctrl.ocx");
}

static HWND OpenHelpFile()
{
    static HMODULE s_hViewer = LoadViewer();
    if (!s_hViewer)
        return nullptr;
    const auto pfnHtmlHelp = reinterpret_cast<cHtmlHelp>(
        reinterpret_cast<void *>(GetProcAddress(s_hViewer, "HtmlHelpA")));
    return pfnHtmlHelp ? pfnHtmlHelp(nullptr, "VORSTEK.chm", kDisplayContents, 0) : nullptr;
}

static int OpenIntroduction()
{
    const HINSTANCE hResult = ShellExecuteA(nullptr, "open", "HtmlHelp\\Introduction.htm", nullptr,
                                            nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(hResult) > 32;
}

int ShowHelp(HWND *phHelpWnd)
{
    *phHelpWnd = OpenHelpFile();
    if (*phHelpWnd || OpenIntroduction())
        return 1;
    cPlatformBoxes Boxes;
    Boxes.Ask("ERROR: HtmlHelp() failed to find the VORSTEK.CHM file.\n\n"
              "This probably means that your computer has an archaic\n"
              "version of Internet Explorer.  You can download the\n"
              "latest version of Internet Explorer from Microsoft's\n"
              "web site or you can get Version 5.5 from the CD you\n"
              "used to install this software (in either case, you\n"
              "don't have to make it your default web browser).\n",
              nullptr, bnOk, icError);
    return 0;
}
