// commands.h - the commands of vorstek-cli as one table: the console finds them in
// it; help, completions and the manual page are made from it.

#ifndef CONSOLE_COMMANDS_H
#define CONSOLE_COMMANDS_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/console.h"
#include "console/option_table.h"

// A command that is read by a command of vorstek-cli.
struct cHelpRow
{
    const char *m_szName;
    const char *m_szArguments;  // "" for none
    const char *m_szSummary;
};

struct cCommandRow
{
    const char *m_szName;
    const char *m_szArguments;  // "PROGRAM.txt", as help names them; "" for none
    const char *m_szSummary;    // "run a program, print the stack"
    const char *m_szText;       // what help says before the options; lines end in "\n"
    std::span<const cOptionRow> (*m_pOptions)();  // null: none

    // Arguments are those after the command's name. Returns the exit code.
    int (*m_pRun)(const std::vector<std::string> &Arguments, const cStreams &Streams);

    std::vector<cHelpRow> (*m_pHelpRows)() = nullptr;  // the commands that it reads; null: none
};

std::span<const cCommandRow> Commands();

// Null if there is none of this name.
const cCommandRow *FindCommand(std::string_view Name);

// The message for a name that FindCommand() does not know; returns kExitUsage.
int ReportUnknownCommand(const cStreams &Streams, const std::string &Name);

// --- the rows' functions
int EvalCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int RunCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int DebugCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int CheckCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int FmtCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int ScriptCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int PlotCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int GifCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);
int HelpCommand(const std::vector<std::string> &Arguments, const cStreams &Streams);

std::vector<cHelpRow> DebugHelpRows();
std::vector<cHelpRow> ScriptHelpRows();

std::span<const cOptionRow> FmtOptionRows();
std::span<const cOptionRow> GifOptionRows();

#endif
