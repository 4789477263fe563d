// session_commands.h - the commands of a session as one table: help and completion
// are made from it.

#ifndef CONSOLE_SESSION_SESSION_COMMANDS_H
#define CONSOLE_SESSION_SESSION_COMMANDS_H

#include <cstdint>
#include <span>
#include <string>

class cSession;

struct cSessionCommand
{
    const char *m_szName;
    const char *m_szArgument;  // "FILE", as help names it; "" for none
    const char *m_szSummary;   // "back to before the last line"
    int         m_bTravels;    // goes through the history instead of adding to it
    void (*m_pPerform)(cSession *pSession, const std::string &Argument);
};

// For rows: an operation of a session of this kind.
template <typename tSession, void (tSession::*pOperation)(const std::string &)>
void PerformIn(cSession *pSession, const std::string &Argument)
{
    (static_cast<tSession *>(pSession)->*pOperation)(Argument);
}

std::span<const cSessionCommand> SessionCommands();

// A count after a command: 1 without an argument, 0 for anything but a number.
uint64_t CountFrom(const std::string &Argument);

#endif
