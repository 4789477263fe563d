// Starts an installer, prints the licence that its first page shows, and
// leaves it with Cancel: read-setup SETUP.EXE
//
// Returns 0 if the page was shown and the installer ended.

#include "toolkit/win32/win32.h"

#include <cstdio>
#include <cstring>

#include "tests/win32/test_desktop.h"
#include "tests/window/waiting.h"

static const char *const kCaption  = "Vorstek Setup ";  // a blank for the name of the page
static const int         kLongText = 10000;

static BOOL CALLBACK FindLicence(HWND hWnd, LPARAM lParam)
{
    char szClass[40] = "";
    GetClassNameA(hWnd, szClass, sizeof szClass);
    if (strncmp(szClass, "RichEdit", 8) != 0)
        return TRUE;
    *reinterpret_cast<HWND *>(lParam) = hWnd;
    return FALSE;
}

// Waits for the page's text, which the installer fills in after the window has
// been shown. 0 if there is none.
static int ReadLicence(char (&szText)[kLongText])
{
    return WaitFor([&] {
        HWND hLicence = nullptr;
        EnumChildWindows(FindWindowA("#32770", kCaption), FindLicence,
                         reinterpret_cast<LPARAM>(&hLicence));
        return hLicence &&
               SendMessageA(hLicence, WM_GETTEXT, kLongText, reinterpret_cast<LPARAM>(szText)) > 0;
    });
}

int main(int nArguments, char **pszArguments)
{
    if (!cTestDesktop::IsEntered())
    {
        const cTestDesktop Desktop(1280, 1024);
        return Desktop.RunThisProgram();
    }
    if (nArguments < 2)
        return 2;

    STARTUPINFOA        Startup = {};
    PROCESS_INFORMATION Process = {};
    Startup.cb                  = sizeof Startup;
    if (!CreateProcessA(pszArguments[1], nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &Startup, &Process))
        return 3;
    static char s_szText[kLongText];
    const int   bRead = ReadLicence(s_szText);
    fputs(s_szText, stdout);
    PostMessageA(FindWindowA("#32770", kCaption), WM_COMMAND, IDCANCEL, 0);
    const int bEnded = WaitForSingleObject(Process.hProcess, kPatience) == WAIT_OBJECT_0;
    TerminateProcess(Process.hProcess, 1);
    return bRead && bEnded ? 0 : 1;
}
