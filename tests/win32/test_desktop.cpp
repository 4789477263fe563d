#include "tests/win32/test_desktop.h"

#include <cstdio>
#include <cstring>

static const char  kNameStart[] = "vorstek-tests-";
static const DWORD kTimeout     = 60000;  // milliseconds; enough for a very busy computer

static int IsWine()
{
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

static void CloseHandles(const PROCESS_INFORMATION &Process)
{
    CloseHandle(Process.hThread);
    CloseHandle(Process.hProcess);
}

// Also the usual resolution is written: an earlier test may have left another one.
static void SetResolution(DWORD nDpi)
{
    if (IsWine())
        RegSetKeyValueA(HKEY_CURRENT_USER, "Control Panel\\Desktop", "LogPixels", REG_DWORD, &nDpi,
                        sizeof nDpi);
}

cTestDesktop::cTestDesktop(int nWidth, int nHeight, int nDpi) : m_Explorer()
{
    SetResolution(static_cast<DWORD>(nDpi));
    snprintf(m_szName, sizeof m_szName, "%s%lu", kNameStart, GetCurrentProcessId());
    char szCommand[120];
    snprintf(szCommand, sizeof szCommand, "explorer.exe /desktop=%s,%dx%d", m_szName, nWidth,
             nHeight);

    STARTUPINFOA Startup = {};
    Startup.cb           = sizeof Startup;
    if (CreateProcessA(nullptr, szCommand, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &Startup,
                       &m_Explorer))
        WaitForInputIdle(m_Explorer.hProcess, kTimeout);
}

cTestDesktop::~cTestDesktop()
{
    if (!m_Explorer.hProcess)
        return;
    TerminateProcess(m_Explorer.hProcess, 0);
    WaitForSingleObject(m_Explorer.hProcess, kTimeout);
    CloseHandles(m_Explorer);
}

void cTestDesktop::SeePixels()
{
    const FARPROC pfnSet =
        GetProcAddress(GetModuleHandleA("user32.dll"), "SetProcessDpiAwarenessContext");
    if (pfnSet)
        reinterpret_cast<BOOL(WINAPI *)(HANDLE)>(reinterpret_cast<void *>(pfnSet))(
            reinterpret_cast<HANDLE>(-4));  // per monitor, version 2
}

int cTestDesktop::IsEntered()
{
    char        szName[sizeof m_szName] = "";
    const HDESK hDesktop                = GetThreadDesktop(GetCurrentThreadId());
    GetUserObjectInformationA(hDesktop, UOI_NAME, szName, sizeof szName, nullptr);
    return !IsWine() || strncmp(szName, kNameStart, strlen(kNameStart)) == 0;
}

int cTestDesktop::RunThisProgram() const
{
    char szProgram[MAX_PATH] = "";
    char szDesktop[sizeof m_szName];
    GetModuleFileNameA(nullptr, szProgram, sizeof szProgram);
    snprintf(szDesktop, sizeof szDesktop, "%s", m_szName);

    STARTUPINFOA Startup = {};
    Startup.cb           = sizeof Startup;
    Startup.lpDesktop    = szDesktop;
    Startup.dwFlags      = STARTF_USESTDHANDLES;
    Startup.hStdInput    = GetStdHandle(STD_INPUT_HANDLE);
    Startup.hStdOutput   = GetStdHandle(STD_OUTPUT_HANDLE);
    Startup.hStdError    = GetStdHandle(STD_ERROR_HANDLE);

    PROCESS_INFORMATION Second = {};
    if (!CreateProcessA(szProgram, GetCommandLineA(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &Startup, &Second))
        return 1;
    DWORD nExitCode = 1;
    WaitForSingleObject(Second.hProcess, INFINITE);
    GetExitCodeProcess(Second.hProcess, &nExitCode);
    CloseHandles(Second);
    return static_cast<int>(nExitCode);
}
