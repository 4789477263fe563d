#include "console/session/terminal.h"

#include <unistd.h>

int IsTerminal()
{
    return isatty(STDIN_FILENO) && isatty(STDOUT_FILENO);
}

int CanReadTerminal()
{
    return IsTerminal();
}

int UseTerminal()
{
    return IsTerminal();
}

// Nothing is known of the terminal but that it is one.
int CanRedraw()
{
    return 0;
}

int CanRedrawErrors()
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

int WasStopped()
{
    return 0;
}

void WaitForKey() {}

std::string HistoryFile()
{
    return "";
}

std::string ScratchFile()
{
    return "";
}

// No program can start another one.
int EditFile(const std::string &)
{
    return 0;
}
