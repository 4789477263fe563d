#include "toolkit/win32/help_viewer.h"

#include <cstdio>
#include <cstring>

#include "toolkit/win32/system_library.h"

static const UINT kDisplayTopic    = 0;  // HH_DISPLAY_TOPIC
static const UINT kDisplayContents = 1;  // HH_DISPLAY_TOC

typedef HWND(WINAPI *cHtmlHelp)(HWND hCaller, LPCSTR szFile, UINT nCommand, DWORD_PTR dwData);

// The registered help viewer; if it cannot be loaded, the usual file name is
// tried.
static HMODULE LoadViewer()
{
    char szPath[MAX_PATH] = "";
    LONG nLength          = sizeof szPath;
    RegQueryValueA(HKEY_CLASSES_ROOT,
                   "CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32", szPath,
                   &nLength);
    const HMODULE hModule = szPath[0] ? LoadLibraryA(szPath) : nullptr;
    return hModule ? hModule : LoadSystemLibrary("hhctrl.ocx");
}

void FindHelp(const char *szName, char (&szPath)[MAX_PATH])
{
    const DWORD nLength = GetModuleFileNameA(nullptr, szPath, sizeof szPath);
    char *const pSlash  = nLength < sizeof szPath ? strrchr(szPath, '\\') : nullptr;
    char *const pName   = pSlash ? pSlash + 1 : szPath;
    const auto  nRoom   = static_cast<size_t>(szPath + sizeof szPath - pName);
    if (!pSlash || strlen(szName) >= nRoom)
        szPath[0] = 0;
    else
        snprintf(pName, nRoom, "%s", szName);
}

static HWND OpenHelp(const char *szFile, UINT nCommand, const char *szTopic)
{
    static HMODULE s_hViewer = LoadViewer();
    if (!s_hViewer)
        return nullptr;
    const auto pfnHtmlHelp = FindFunction<cHtmlHelp>(s_hViewer, "HtmlHelpA");
    if (!pfnHtmlHelp)
        return nullptr;
    char szPath[MAX_PATH];
    FindHelp(szFile, szPath);
    return pfnHtmlHelp(nullptr, szPath, nCommand, reinterpret_cast<DWORD_PTR>(szTopic));
}

HWND OpenHelpContents(const char *szFile)
{
    return OpenHelp(szFile, kDisplayContents, nullptr);
}

HWND OpenHelpTopic(const char *szFile, const char *szTopic)
{
    return OpenHelp(szFile, kDisplayTopic, szTopic);
}

void FormatMissingHelp(const char *szFile, char (&szText)[kMissingHelpText])
{
    snprintf(szText, sizeof szText,
             "ERROR: HtmlHelp() failed to find the %s file.\n\n"
             "This probably means that your computer has an archaic\n"
             "version of Internet Explorer.  You can download the\n"
             "latest version of Internet Explorer from Microsoft's\n"
             "web site or you can get Version 5.5 from the CD you\n"
             "used to install this software (in either case, you\n"
             "don't have to make it your default web browser).\n",
             szFile);
}
