// session_commands.h - the commands of a session as one table: help and completion
// are made from it.

#ifndef CONSOLE_SESSION_SESSION_COMMANDS_H
#define CONSOLE_SESSION_SESSION_COMMANDS_H

#include <span>
#include <string>
#include <string_view>

#include "console/session/session.h"

struct cSessionCommand
{
    const char *m_szName;
    const char *m_szArgument;  // "FILE", as help names it; "" for none
    const char *m_szSummary;   // "back to before the last line"
    int         m_bTravels;    // goes through the history instead of adding to it
    void (cSession::*m_pPerform)(const std::string &Argument);
};

std::span<const cSessionCommand> SessionCommands();

// Null if there is none of this name.
const cSessionCommand *FindSessionCommand(std::string_view Name);

#endif
