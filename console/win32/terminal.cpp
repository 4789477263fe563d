#include "console/session/terminal.h"

#include "toolkit/win32/win32.h"

#include <cstdlib>
#include <filesystem>

static int IsConsole(DWORD nStream)
{
    DWORD dwMode = 0;
    return GetConsoleMode(GetStdHandle(nStream), &dwMode) != 0;
}

int IsTerminal()
{
    return IsConsole(STD_INPUT_HANDLE) && IsConsole(STD_OUTPUT_HANDLE);
}

int CanReadTerminal()
{
    return IsTerminal();
}

int UseTerminal()
{
    return IsTerminal();
}

// The console edits lines itself and keeps their history.
int CanRedraw()
{
    return 0;
}

int CanRedrawErrors()
{
    return 0;
}

int WasStopped()
{
    return 0;
}

unsigned TerminalWidth()
{
    return 80;
}

unsigned TerminalHeight()
{
    return 24;
}

// A key that is let go, or held such as Shift, is none. What was typed before is none.
void WaitForKey()
{
    if (!IsTerminal())
        return;
    const HANDLE hInput = GetStdHandle(STD_INPUT_HANDLE);
    FlushConsoleInputBuffer(hInput);
    INPUT_RECORD Record;
    DWORD        nRead;
    while (ReadConsoleInputA(hInput, &Record, 1, &nRead))
        if (Record.EventType == KEY_EVENT && Record.Event.KeyEvent.bKeyDown &&
            Record.Event.KeyEvent.uChar.AsciiChar != 0)
            return;
}

std::string HistoryFile()
{
    return "";
}

std::string ScratchFile()
{
    char szFolder[MAX_PATH + 1];
    char szName[MAX_PATH];
    if (!GetTempPathA(sizeof szFolder, szFolder) || !GetTempFileNameA(szFolder, "vor", 0, szName))
        return "";
    std::error_code   Error;
    const std::string Name = std::string(szName) + ".txt";
    std::filesystem::rename(szName, Name, Error);
    return Error ? "" : Name;
}

// VISUAL and EDITOR may hold options; Notepad is everywhere.
static std::string Editor()
{
    for (const char *const szVariable : {"VISUAL", "EDITOR"})
    {
        const char *const szEditor = getenv(szVariable);
        if (szEditor && *szEditor)
            return szEditor;
    }
    return "notepad.exe";
}

int EditFile(const std::string &Name)
{
    std::string  Command        = Editor() + " \"" + Name + "\"";
    STARTUPINFOA Startup        = {};
    Startup.cb                  = sizeof Startup;
    PROCESS_INFORMATION Process = {};
    if (!CreateProcessA(nullptr, Command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &Startup, &Process))
        return 0;
    DWORD dwExitCode = 1;
    WaitForSingleObject(Process.hProcess, INFINITE);
    GetExitCodeProcess(Process.hProcess, &dwExitCode);
    CloseHandle(Process.hThread);
    CloseHandle(Process.hProcess);
    return dwExitCode == 0;
}
