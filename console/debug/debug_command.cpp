// debug_command.cpp - vorstek-cli debug: runs a program step by step.

#include <ostream>

#include "console/commands.h"
#include "console/debug/debug_session.h"
#include "console/input_text.h"
#include "console/session/interactive.h"

int DebugCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    std::vector<std::string> Names;
    std::string              Error;
    if (!ReadOptions({}, Arguments, nullptr, &Names, &Error))
        return ReportUsage(Streams, Error);
    if (Names.size() != 1)
        return ReportUsage(Streams, "debug needs one program");
    if (Names[0] == kStandardInput)
        return ReportUsage(Streams, "debug reads commands from standard input; the program "
                                    "has to be a file");
    cDebugSession Session(Streams);
    if (!Session.Load(Names[0]))
    {
        if (!Session.Error().empty())
            *Streams.m_pErr << Session.Error() << "\n";
        return kExitUsage;
    }
    return RunSession(&Session, Streams);
}
