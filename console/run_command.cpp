// run_command.cpp - vorstek-cli run: loads a listing, runs it, prints the stack.

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ostream>
#include <thread>

#include "console/commands.h"
#include "console/headless_host.h"
#include "console/json.h"
#include "console/run_files.h"
#include "console/run_options.h"
#include "console/stack_text.h"
#include "console/state_report.h"
#include "engine/vorstek_state.h"
#include "graph/graph_file_commands.h"
#include "graph/svg_file.h"

// Boxes go to standard error; questions are answered with Cancel.
class cRunHost : public cHeadlessHost
{
public:
    cRunHost(const cRunOptions &Options, const cStreams &Streams)
        : m_pOptions(&Options), m_Streams(Streams), m_pEngine(nullptr), m_bLoading(0), m_bSaving(0),
          m_nBoxes(0), m_nLines(0), m_bHalted(0)
    {
    }

    eAnswer Ask(const char *szText, const char *szCaption, eButtons nButtons, eIcon nIcon) override;
    unsigned DrainMessages(unsigned nLines) override;
    void     Pause(unsigned nMilliseconds) override;

    const cRunOptions *m_pOptions;
    cStreams           m_Streams;
    cVorstekEngine    *m_pEngine;
    int                m_bLoading;
    int                m_bSaving;  // the graph; a failure is reported in one line
    std::string        m_SavingText;
    int                m_nBoxes;   // shown so far
    uint64_t           m_nLines;   // executed without ending the program
    int                m_bHalted;  // by the limit of lines
};

// While loading, only the first box matters: it ends the command.
eAnswer cRunHost::Ask(const char *szText, const char *, eButtons nButtons, eIcon)
{
    if (m_bSaving)
        m_SavingText += std::string(szText) + "\n";
    else if (!m_bLoading || m_nBoxes == 0)
        *m_Streams.m_pErr << szText << "\n";
    m_nBoxes++;
    return nButtons == bnOk ? anOk : anCancel;
}

unsigned cRunHost::DrainMessages(unsigned nLines)
{
    m_nLines += nLines;
    const unsigned nAny = cHeadlessHost::DrainMessages(nLines);
    if (m_pOptions->m_nMaxLines == 0)
        return nAny;
    const uint64_t nLeft = m_pOptions->m_nMaxLines - m_nLines;
    if (nLeft > 0)
        return static_cast<unsigned>(std::min<uint64_t>(nLeft, nAny));
    m_bHalted = 1;
    m_pEngine->HaltProgram();
    return nAny;
}

// With JSON, standard output is reserved for the object. A program whose output
// can no longer be written is halted.
void cRunHost::Pause(unsigned nMilliseconds)
{
    std::ostream *const pOut = m_pOptions->m_bJson ? m_Streams.m_pErr : m_Streams.m_pOut;
    *pOut << DisplayedText(m_pEngine) << "\n";
    if (m_pOptions->m_bRealtime)
        pOut->flush();
    if (!*m_Streams.m_pOut)
        m_pEngine->HaltProgram();
    else if (m_pOptions->m_bRealtime)
        std::this_thread::sleep_for(std::chrono::milliseconds(nMilliseconds));
}

static int LoadQuietly(cRunHost *pHost, const std::string &Name)
{
    pHost->m_bLoading = 1;
    const int bLoaded = pHost->m_pEngine->LoadProgram(Name.c_str());
    pHost->m_bLoading = 0;
    if (!bLoaded || pHost->m_nBoxes > 0)
        return 0;
    pHost->m_pEngine->TakeLoadedProgram(Name.c_str());
    return 1;
}

static void SetUp(const cRunOptions &Options, cVorstekEngine *pEngine)
{
    for (const auto &[nLevel, dValue] : Options.m_Levels)
        pEngine->SetStackLevel(nLevel, dValue);
    for (const auto &[nRegister, dValue] : Options.m_Registers)
        pEngine->SetRegister(nRegister, dValue);
    if (Options.m_TraceFile.empty())
        return;
    cOptions Traced = {};
    Traced.m_bTrace = 1;
    pEngine->SetTraceFileName(Options.m_TraceFile.c_str());
    pEngine->ApplyOptions(Traced);
}

static void PrintText(const cRunOptions &Options, cHeadlessCalculator *pCalculator,
                      std::ostream *pOut)
{
    pCalculator->m_Engine.RefreshViews();
    const cVorstekState &State = pCalculator->m_Engine.State();
    PrintStack(State, pOut);
    if (!Options.m_bRegisters)
        return;
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
    {
        char szLine[64];
        if (State.m_dReg[nRegister] == 0.0)
            continue;
        pCalculator->m_Registers.GetLine(nRegister, szLine, sizeof szLine);
        const std::string Line = szLine;
        *pOut << Line.substr(0, Line.find('\r')) << "\n";
    }
}

static void PrintJson(cHeadlessCalculator *pCalculator, const cHeadlessHost &Host,
                      std::ostream *pOut)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        ReportState(pCalculator, Host, &Object);
    }
    *pOut << Json << "\n";
}

static int ReportUnwritable(const cRunHost &Host, const std::string &Name)
{
    return ReportUsage(Host.m_Streams, "cannot write '" + Name + "'");
}

static int WriteGraph(cRunHost *pHost, const cRunOptions &Options)
{
    const char *const szName = Options.m_GraphFile.c_str();
    if (Options.m_bGraphAsData)
        return SaveGraphFile(pHost->m_Plot, pHost, szName);
    return SaveSvgFile(pHost->m_Plot, kPlotWidth, kPlotHeight, szName);
}

static int SaveGraph(cRunHost *pHost, const cRunOptions &Options)
{
    const std::string &Name = Options.m_GraphFile;
    if (pHost->m_Plot.Count() == 0)
        return ReportUsage(pHost->m_Streams,
                           "'" + Name + "' was not written: the program drew nothing");
    pHost->m_bSaving = 1;
    if (!WriteGraph(pHost, Options))
        return ReportUnwritable(*pHost, Name);
    *pHost->m_Streams.m_pErr << pHost->m_SavingText;
    return kExitDone;
}

// 1, or 0 after an error that the display shows.
static int Start(const cRunOptions &Options, cVorstekEngine *pEngine)
{
    if (Options.m_nLabel < 0)
        return pEngine->Perform("R/S", 0);
    return pEngine->Perform("GSB", static_cast<unsigned>(Options.m_nLabel));
}

// Says how a run ended; returns the exit code.
static int ReportEnd(int bDone, const cRunHost &Host)
{
    if (bDone)
        return Host.m_bHalted ? kExitHalted : kExitDone;
    *Host.m_Streams.m_pErr << DisplayedText(Host.m_pEngine) << "\n";
    return kExitError;
}

int RunCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cRunOptions Options;
    std::string Error;
    if (!ParseRunOptions(Arguments, &Options, &Error) || !AreFilesApart(Options, &Error))
        return ReportUsage(Streams, Error);

    cRunHost            Host(Options, Streams);
    cHeadlessCalculator Calculator(&Host);
    Host.m_pEngine = &Calculator.m_Engine;
    if (!LoadQuietly(&Host, Options.m_Program))
        return kExitUsage;
    if (!AreFilesWritable(Options, &Error))
        return ReportUsage(Streams, Error);
    SetUp(Options, &Calculator.m_Engine);

    const int bDone = Start(Options, &Calculator.m_Engine);
    if (!*Streams.m_pOut)
        return kExitUsage;  // main() says why
    if (Options.m_bJson)
        PrintJson(&Calculator, Host, Streams.m_pOut);
    else
        PrintText(Options, &Calculator, Streams.m_pOut);
    const int nExitCode = ReportEnd(bDone, Host);
    if (Calculator.m_Engine.IsTraceLost())
        return ReportUnwritable(Host, Options.m_TraceFile);
    if (Options.m_GraphFile.empty() || (nExitCode != kExitDone && Host.m_Plot.Count() == 0))
        return nExitCode;  // a program that was cut short may have drawn nothing
    return SaveGraph(&Host, Options) == kExitDone ? nExitCode : kExitUsage;
}
