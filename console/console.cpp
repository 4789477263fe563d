#include "console/console.h"

#include <algorithm>
#include <new>
#include <ostream>

#include "console/commands.h"
#include "console/help.h"
#include "console/option_table.h"
#include "console/session/interactive.h"
#include "console/session/terminal.h"
#include "resources/version.h"

int ReportUsage(const cStreams &Streams, const std::string &Text)
{
    *Streams.m_pErr << "vorstek-cli: " << Text << "\n";
    return kExitUsage;
}

void WaitAtEnd(const cStreams &Streams)
{
    if (!IsTerminal())
        return;
    *Streams.m_pOut << "\nPress a key to close." << std::flush;
    WaitForKey();
    *Streams.m_pOut << "\n";
}

// Anywhere in the command line, because you may think of it late; a file of this
// name needs "--" before it.
static int AsksForHelp(const std::vector<std::string> &Arguments)
{
    const auto End = std::find(Arguments.begin(), Arguments.end(), kEndOfOptions);
    return std::find(Arguments.begin(), End, "--help") != End ||
           std::find(Arguments.begin(), End, "-h") != End;
}

static int ReportUnknownOption(const cStreams &Streams, const std::string &Name)
{
    const std::string Suggestion = DidYouMean(Name, {"--help", "--version"});
    return ReportUsage(Streams,
                       "unknown option '" + Name + "'" +
                           (Suggestion.empty() ? " (see vorstek-cli --help)" : Suggestion));
}

// In place of a command.
static int RunOption(const std::string &Name, const cStreams &Streams)
{
    if (Name == "--version")
        *Streams.m_pOut << "vorstek-cli " << VORSTEK_VERSION << "\n";
    else if (AsksForHelp({Name}))
        PrintUsage(Streams.m_pOut);
    else if (Name.starts_with('-'))
        return ReportUnknownOption(Streams, Name);
    else
        return ReportUnknownCommand(Streams, Name);
    return kExitDone;
}

static int FindAndRun(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    if (Arguments.empty())
        return RunInteractive(Streams);
    if (Arguments[0] == kEndOfOptions)
        return FindAndRun({Arguments.begin() + 1, Arguments.end()}, Streams);
    const std::vector<std::string> Rest(Arguments.begin() + 1, Arguments.end());
    const cCommandRow *const       pRow = FindCommand(Arguments[0]);
    if (!pRow)
        return RunOption(Arguments[0], Streams);
    if (!AsksForHelp(Rest))
        return pRow->m_pRun(Rest, Streams);
    PrintCommandHelp(*pRow, Streams.m_pOut);
    return kExitDone;
}

// Without memory to compose a text.
static int ReportNoMemory(const char *szCommand, const cStreams &Streams)
{
    *Streams.m_pErr << "vorstek-cli: " << szCommand << (*szCommand ? ": " : "")
                    << "not enough memory\n";
    return kExitUsage;
}

int RunConsole(int nArguments, const char *const *ppArguments, const cStreams &Streams)
{
    try
    {
        return FindAndRun({ppArguments, ppArguments + nArguments}, Streams);
    }
    catch (const std::bad_alloc &)
    {
        return ReportNoMemory(nArguments > 0 ? *ppArguments : "", Streams);
    }
}
