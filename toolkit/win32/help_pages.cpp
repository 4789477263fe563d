// help_pages.cpp - a viewer of help files for Wine, whose own shows an empty page where
// Wine has no page engine. A topic is opened as the page beside the help file from which
// it was compiled, by the program that opens pages. The contents are left to whoever
// asks: this viewer opens no window.

#include "toolkit/win32/win32.h"

#include <cstdio>
#include <cstring>

static const UINT kDisplayTopic = 0;  // HH_DISPLAY_TOPIC

// Where szFile is: "C:\Vorstek\" for "C:\Vorstek\cVantor.CHM".
static int FolderLength(const char *szFile)
{
    const char *const pSlash = strrchr(szFile, '\\');
    return pSlash ? static_cast<int>(pSlash - szFile) + 1 : 0;
}

extern "C" __declspec(dllexport) HWND WINAPI
    HtmlHelpA(HWND, LPCSTR szFile, UINT nCommand, DWORD_PTR dwData)
{
    const auto *const szTopic = reinterpret_cast<const char *>(dwData);
    if (nCommand != kDisplayTopic || !szTopic)
        return nullptr;
    char szPage[MAX_PATH];
    snprintf(szPage, sizeof szPage, "%.*s%s", FolderLength(szFile), szFile, szTopic);
    const HINSTANCE hResult =
        ShellExecuteA(nullptr, "open", szPage, nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(hResult) > 32 ? GetDesktopWindow() : nullptr;
}
