// check_command.cpp - vorstek-cli check: prints the loader's findings in the
// format of a compiler.

#include <algorithm>
#include <ostream>

#include "console/arguments.h"
#include "console/console.h"
#include "console/headless_host.h"

// Prints the loader's boxes and answers them so that loading continues.
class cCheckHost : public cHeadlessHost
{
public:
    cCheckHost(const std::string &FileName, const cStreams &Streams)
        : m_FileName(FileName), m_Streams(Streams), m_pEngine(nullptr), m_nFindings(0)
    {
    }

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;

    std::string     m_FileName;
    cStreams        m_Streams;
    cVorstekEngine *m_pEngine;
    unsigned        m_nFindings;
};

// The message up to its own line number.
static std::string Finding(const std::string &Text)
{
    return Text.substr(0, Text.find(" on line "));
}

// The error icon marks a file that cannot be opened, which is not a finding.
eAnswer cCheckHost::Ask(const char *szText, const char *, eButtons nButtons, eIcon nIcon)
{
    if (nIcon == icError)
    {
        *m_Streams.m_pErr << szText << "\n";
        return nButtons == bnOk ? anOk : anCancel;
    }
    m_nFindings++;
    *m_Streams.m_pOut << m_FileName << ":" << m_pEngine->LoaderLine() << ": " << Finding(szText)
                      << "\n";
    return anOk;
}

static int CheckFile(const std::string &FileName, const cStreams &Streams)
{
    cCheckHost          Host(FileName, Streams);
    cHeadlessCalculator Calculator(&Host);
    Host.m_pEngine = &Calculator.m_Engine;
    if (!Calculator.m_Engine.LoadProgram(FileName.c_str()))
        return kExitUsage;
    return Host.m_nFindings ? kExitError : kExitDone;
}

int CheckCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    std::vector<std::string> Names;
    std::string              Error;
    if (!TakeFileNames(Arguments, &Names, &Error))
        return ReportUsage(Streams, Error);
    if (Names.empty())
        return ReportUsage(Streams, "check needs the file name of at least one program");
    int nExitCode = kExitDone;
    for (const std::string &FileName : Names)
        nExitCode = std::max(nExitCode, CheckFile(FileName, Streams));
    return nExitCode;
}
