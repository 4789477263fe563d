// debug_command.cpp - vorstek-cli debug: runs a program step by step.

#include <cstdio>
#include <istream>
#include <ostream>

#include "console/commands.h"
#include "console/debug/debug_session.h"
#include "console/input_text.h"
#include "console/session/interactive.h"
#include "console/session/terminal.h"
#include "toolkit/disk_file.h"

// Under any name.
static int IsStandardInput(const std::string &Name)
{
    return Name == kStandardInput || IsFileOf(stdin, Name.c_str());
}

// The program came from standard input; the commands follow from the terminal.
static int ReadTerminal(const cStreams &Streams)
{
    Streams.m_pIn->clear();
    return UseTerminal();
}

int DebugCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    std::vector<std::string> Names;
    std::string              Error;
    if (!ReadOptions({}, Arguments, nullptr, &Names, &Error))
        return ReportUsage(Streams, Error);
    if (Names.size() != 1)
        return ReportUsage(Streams, "debug needs one program");
    if (IsStandardInput(Names[0]) && !CanReadTerminal())
        return ReportUsage(Streams,
                           "debug reads its commands from standard input where there is no "
                           "terminal; the program has to be a file, not " +
                               ShownInput(Names[0]));
    cDebugSession Session(Streams);
    if (!Session.Load(Names[0]))
    {
        if (!Session.Error().empty())
            *Streams.m_pErr << Session.Error() << "\n";
        return kExitUsage;
    }
    if (IsStandardInput(Names[0]) && !ReadTerminal(Streams))
        return ReportUsage(Streams, "cannot read the terminal");
    return RunSession(&Session, Streams);
}
