// run_command.cpp - vorstek-cli run: loads a listing, runs it, prints the stack.

#include <cerrno>
#include <cstdio>
#include <optional>
#include <ostream>

#include "console/commands.h"
#include "console/file_reason.h"
#include "console/input_file.h"
#include "console/input_text.h"
#include "console/json.h"
#include "console/profile_report.h"
#include "console/run_files.h"
#include "console/run_host.h"
#include "console/run_options.h"
#include "console/stack_text.h"
#include "console/state_report.h"
#include "console/stop_signal.h"
#include "engine/listing_words.h"
#include "engine/run_profile.h"
#include "engine/vorstek_state.h"
#include "figure/plot_source.h"
#include "graph/graph_file_commands.h"

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
    pEngine->SetTraceCap(Options.m_nTraceMegabytes);
    if (Options.m_TraceFile == kStandardOutput)
        pEngine->SetTraceStream(stdout);
    pEngine->ApplyOptions(Traced);
}

static void PrintText(const cRunOptions &Options, const std::optional<cRunProfile> &Profile,
                      cHeadlessCalculator *pCalculator, std::ostream *pOut)
{
    pCalculator->m_Engine.RefreshViews();
    const cVorstekState &State = pCalculator->m_Engine.State();
    PrintStack(State, pOut);
    if (Options.m_bRegisters)
        PrintRegisters(State, pCalculator->m_Registers, pOut);
    if (Profile)
        PrintProfile(*Profile, pCalculator, pOut);
}

static void PrintJson(const std::optional<cRunProfile> &Profile, cHeadlessCalculator *pCalculator,
                      const cHeadlessHost &Host, std::ostream *pOut)
{
    std::string Json;
    {
        cJsonList Object(&Json, '{', '}');
        ReportState(pCalculator, Host, &Object);
        if (Profile)
            ReportProfile(*Profile, &Object);
    }
    *pOut << Json << "\n";
}

// What the trace lost, in a line on standard error. 1 unless that was a failure: that a
// log holds no more than it may is what the user asked for.
static int ReportTraceLoss(const cRunOptions &Options, eLogLoss nLoss, const cStreams &Streams)
{
    char szBackup[kDbgFileName];
    DbgBackupName(Options.m_TraceFile.c_str(), szBackup);
    if (nLoss == loOldest)
        *Streams.m_pErr << "vorstek-cli: '" << Options.m_TraceFile << "' and '" << szBackup
                        << "' have only the end of the trace (see --trace-size)\n";
    else if (nLoss == loBackup)
        ReportUnwritable(Streams, szBackup, 0);
    else if (nLoss == loLog)
        ReportUnwritable(Streams, Options.m_TraceFile, 0);
    return nLoss < loBackup;
}

static int SavePicture(cRunHost *pHost, const cRunOptions &Options, const cStreams &Streams)
{
    static_cast<void>(ReportMissingLines(Options.m_Picture, pHost->m_Plot.Count(), Streams));
    if (Options.m_Picture.m_bWindow)
        return SaveWindowPicture(Options.m_Picture, Options.m_PictureFile, &pHost->m_Plot, Streams);
    cPlotSource Source(pHost->m_Plot);
    return SaveFigurePicture(Options.m_Picture, Options.m_PictureFile, &Source, Streams);
}

// Data lines that the file cannot hold are an error.
static int SaveGraph(cRunHost *pHost, const cRunOptions &Options, const cStreams &Streams)
{
    const std::string &Name = Options.m_GraphFile;
    if (pHost->m_Plot.Count() == 0)
        return ReportUsage(Streams,
                           ShownOutput(Name) + " was not written: the program drew nothing");
    if (!Options.m_bGraphAsData)
        return SavePicture(pHost, Options, Streams);
    pHost->BeginSaving();
    if (!SaveGraphFile(pHost->m_Plot, pHost, Name.c_str()))
        return ReportUnwritable(Streams, Name, errno);
    *Streams.m_pErr << pHost->SavingText();
    return pHost->SavingText().empty() ? kExitDone : kExitError;
}

// 1, or 0 after an error that the display shows.
static int Start(const cRunOptions &Options, cVorstekEngine *pEngine)
{
    if (Options.m_nLabel < 0)
        return pEngine->Perform("R/S", 0);
    return pEngine->Perform("GSB", static_cast<unsigned>(Options.m_nLabel));
}

// "draw.txt:12: 1/x: ", the current line's place in the file and its instruction. A
// run that could not begin has only the first: "draw.txt: GSB 5: ".
static std::string PlaceOf(const cRunOptions &Options, const cVorstekEngine &Engine,
                           const cVorstekState &State)
{
    const std::string Name = Options.m_Program == kStandardInput ? "<stdin>" : Options.m_Program;
    if (Engine.RunNumber() == 0)
        return Name + ": GSB " + std::to_string(Options.m_nLabel) + ": ";
    char               szStep[kStepText];
    const ProgramLine &Line = State.m_Program[State.m_nCurLine];
    PrintStep(Line, szStep);
    return Name + ":" + std::to_string(Line.m_nListingLine) + ": " + szStep + ": ";
}

// " (program line 07)" unless the line of the listing has the same number.
static std::string ProgramLineText(const cVorstekEngine &Engine, const cVorstekState &State)
{
    const unsigned nLine = State.m_nCurLine;
    if (Engine.RunNumber() == 0 || State.m_Program[nLine].m_nListingLine == nLine)
        return "";
    char szText[32];
    snprintf(szText, sizeof szText, " (program line %02u)", nLine);
    return szText;
}

// Says how a run ended; returns the exit code.
static int ReportEnd(int bDone, const cRunOptions &Options, const cRunHost &Host,
                     cVorstekEngine *pEngine, const cStreams &Streams)
{
    const int         nSignal = cStopSignals::Caught();
    const std::string Place   = PlaceOf(Options, *pEngine, pEngine->State());
    const std::string Line    = ProgramLineText(*pEngine, pEngine->State());
    if (!bDone)
        *Streams.m_pErr << Place << DisplayedText(pEngine) << Line << "\n";
    else if (nSignal)
        *Streams.m_pErr << Place << "interrupted" << Line << "\n";
    else if (Host.IsHalted())
        *Streams.m_pErr << Place << "halted by --max-lines" << Line << "\n";
    if (!bDone)
        return kExitError;
    if (nSignal)
        return ExitCodeOfSignal(nSignal);
    return Host.IsHalted() ? kExitHalted : kExitDone;
}

static int LoadProgram(const cRunOptions &Options, const cStreams &Streams, cRunHost *pHost,
                       cVorstekEngine *pEngine)
{
    std::string Listing;
    if (!ReadInput(Options.m_Program, Streams, &Listing) || !pHost->Load(Listing))
        return 0;
    if (Options.m_Program != kStandardInput)
        pEngine->TakeLoadedProgram(Options.m_Program.c_str());
    return 1;
}

// What is lost is worse than a limit that was asked for. A shell needs to know of a
// signal, which is what cut the graph short.
static int Worse(int nRun, int nSaved)
{
    if (nSaved == kExitUsage || nRun == kExitDone || nRun == kExitHalted)
        return nSaved == kExitDone ? nRun : nSaved;
    return nRun;
}

static int RunProgram(const cRunOptions &Options, const cStreams &Streams)
{
    std::string Error;
    if (!AreFilesApart(Options, &Error))
        return ReportUsage(Streams, Error);

    cRunHost              Host(Options, Streams);
    cHeadlessCalculator   Calculator(&Host);
    cVorstekEngine *const pEngine = &Calculator.m_Engine;
    Host.SetEngine(pEngine);
    if (!LoadProgram(Options, Streams, &Host, pEngine))
        return kExitUsage;
    if (!AreFilesWritable(Options, &Error))
        return ReportUsage(Streams, Error);
    SetUp(Options, pEngine);

    std::optional<cRunProfile> Profile;
    if (Options.m_bProfile)
        pEngine->SetObserver(&Profile.emplace());
    const cStopSignals Signals;
    const int          bDone = Start(Options, pEngine);
    if (!*Streams.m_pOut)
        return kExitUsage;  // main() says why
    if (Options.m_bJson)
        PrintJson(Profile, &Calculator, Host, Streams.m_pOut);
    else
        PrintText(Options, Profile, &Calculator, Streams.m_pOut);
    const int nExitCode = ReportEnd(bDone, Options, Host, pEngine, Streams);
    if (!ReportTraceLoss(Options, pEngine->TraceLoss(), Streams))
        return kExitUsage;
    if (Options.m_GraphFile.empty() || (nExitCode != kExitDone && Host.m_Plot.Count() == 0))
        return nExitCode;  // a program that was cut short may have drawn nothing
    const int nSaved = SaveGraph(&Host, Options, Streams);
    return Worse(nExitCode, nSaved);
}

int RunCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cRunOptions Options;
    std::string Error;
    const int   bParsed = ParseRunOptions(Arguments, &Options, &Error);
    cStreams    Printed = Streams;
    if (Options.m_GraphFile == kStandardOutput)
        Printed.m_pOut = Streams.m_pErr;  // standard output is the picture's
    const int nExitCode = bParsed ? RunProgram(Options, Printed) : ReportUsage(Streams, Error);
    if (Options.m_bWait)
        WaitAtEnd(Streams);
    return nExitCode;
}
