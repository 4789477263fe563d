// Starts the program that a shortcut names, waits for its window, asks for help
// and closes it: start-shortcut SHORTCUT.lnk
//
// Prints what it saw, one line each, and returns 0 if everything succeeded:
//
//     target: C:\users\anna\AppData\Local\Programs\Vorstek\Vorstek.exe
//     folder: C:\users\anna\AppData\Local\Programs\Vorstek
//     window: Vorstek
//     help: found
//     exit code: 0
//
// With a second argument it waits between window and help until that file is
// gone.

#include "toolkit/win32/win32.h"

#include <cstdio>
#include <string>

#include <initguid.h>
#include <shlobj.h>

#include "resources/resource.h"
#include "tests/win32/test_desktop.h"
#include "tests/window/waiting.h"

namespace
{

struct cShortcut
{
    char m_szTarget[MAX_PATH];
    char m_szFolder[MAX_PATH];
};

}  // namespace

static int ReadShortcut(const char *szFile, cShortcut *pShortcut)
{
    wchar_t       szName[MAX_PATH] = L"";
    IShellLinkA  *pLink            = nullptr;
    IPersistFile *pFile            = nullptr;
    MultiByteToWideChar(CP_ACP, 0, szFile, -1, szName, MAX_PATH);
    CoInitialize(nullptr);
    return SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IShellLinkA, reinterpret_cast<void **>(&pLink))) &&
           SUCCEEDED(pLink->QueryInterface(IID_IPersistFile, reinterpret_cast<void **>(&pFile))) &&
           SUCCEEDED(pFile->Load(szName, STGM_READ)) &&
           pLink->GetPath(pShortcut->m_szTarget, MAX_PATH, nullptr, 0) == S_OK &&
           pLink->GetWorkingDirectory(pShortcut->m_szFolder, MAX_PATH) == S_OK;
}

// Waits until the welcome box can be closed, and closes it.
static int PassWelcome()
{
    const HWND hOk = WaitFor([] {
        const HWND hButton = GetDlgItem(FindWindowA(nullptr, "Welcome to Vorstek.exe"), IDOK);
        return hButton && IsWindowEnabled(hButton) ? hButton : nullptr;
    });
    return hOk && PostMessageA(hOk, BM_CLICK, 0, 0);
}

static DWORD WINAPI AskForHelp(void *pWindow)
{
    SendMessageA(static_cast<HWND>(pWindow), WM_COMMAND, IDM_HELP, 0);
    return 0;
}

// A message box reports that there is none; otherwise the command returns.
static int HasHelp(HWND hWnd)
{
    const HANDLE hAsking = CreateThread(nullptr, 0, AskForHelp, hWnd, 0, nullptr);
    HWND         hBox    = nullptr;
    WaitFor([&] {
        hBox = FindWindowA("#32770", "Vorstek");
        return hBox || WaitForSingleObject(hAsking, 0) == WAIT_OBJECT_0;
    });
    if (hBox)
        PostMessageA(hBox, WM_COMMAND, IDOK, 0);
    const int bEnded = WaitForSingleObject(hAsking, kPatience) == WAIT_OBJECT_0;
    CloseHandle(hAsking);
    return bEnded && !hBox;
}

static int WorkProgram(HANDLE hProcess, const char *szMark)
{
    if (!PassWelcome())
        return 0;
    const HWND hWnd = WaitFor([] { return FindWindowA("cVorstek", nullptr); });
    if (!hWnd || !WaitFor([hWnd] { return IsWindowVisible(hWnd); }))
        return 0;
    char szCaption[80] = "";
    GetWindowTextA(hWnd, szCaption, sizeof szCaption);
    printf("window: %s\n", szCaption);
    if (szMark)
        WaitFor([szMark] { return GetFileAttributesA(szMark) == INVALID_FILE_ATTRIBUTES; });

    printf("help: %s\n", HasHelp(hWnd) ? "found" : "missing");
    PostMessageA(hWnd, WM_CLOSE, 0, 0);
    DWORD dwCode = 1;
    if (WaitForSingleObject(hProcess, kPatience) != WAIT_OBJECT_0)
        return 0;
    GetExitCodeProcess(hProcess, &dwCode);
    printf("exit code: %lu\n", dwCode);
    return dwCode == 0;
}

int main(int nArguments, char **pszArguments)
{
    if (!cTestDesktop::IsEntered())
    {
        const cTestDesktop Desktop(1280, 1024);
        return Desktop.RunThisProgram();
    }
    cShortcut Shortcut = {};
    if (nArguments < 2 || !ReadShortcut(pszArguments[1], &Shortcut))
        return 2;
    setvbuf(stdout, nullptr, _IONBF, 0);
    printf("target: %s\nfolder: %s\n", Shortcut.m_szTarget, Shortcut.m_szFolder);

    STARTUPINFOA        Startup = {};
    PROCESS_INFORMATION Process = {};
    Startup.cb                  = sizeof Startup;
    if (!CreateProcessA(Shortcut.m_szTarget, nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                        Shortcut.m_szFolder, &Startup, &Process))
        return 3;
    const int bDone = WorkProgram(Process.hProcess, nArguments > 2 ? pszArguments[2] : nullptr);
    TerminateProcess(Process.hProcess, 1);
    return bDone ? 0 : 1;
}
