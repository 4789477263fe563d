// engine_bench.cpp - how fast the calculator is without a window: executed
// lines, number formatting and entry, listing files.

#include <cmath>
#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>

#include "console/headless_host.h"
#include "engine/number_format.h"
#include "toolkit/disk_file.h"

static const double kTurns     = 10000.0;
static const double kManyTurns = 10000000.0;

class cBenchHost : public cHeadlessHost
{
public:
    eAnswer Ask(const char *, const char *, eButtons, eIcon) override { return anCancel; }
};

static std::string ProgramFile(const std::string &Name)
{
    return std::string(BENCH_PROGRAMS) + "/" + Name + ".txt";
}

// Lines of the program that each turn executes are given with the case.
static void RunLines(benchmark::State &State, const char *szProgram, double dLinesPerTurn,
                     double dTurns = kTurns)
{
    cBenchHost          Host;
    cHeadlessCalculator Calculator(&Host);
    cVorstekEngine     &Engine = Calculator.m_Engine;
    if (!Engine.LoadProgram(ProgramFile(szProgram).c_str()))
        State.SkipWithError("the program does not load");
    Engine.SetRegister(1, 0.5);
    Engine.SetRegister(2, 1.0);
    Engine.SetRegister(3, 2.0);
    Engine.SetRegister(4, 3.0);
    for (auto _ : State)
    {
        Engine.SetRegister(0, dTurns);
        Engine.SetStackLevel(0, 1.0);
        Engine.GoToLine(0);
        if (!Engine.Perform("R/S", 0))
            State.SkipWithError("the program fails");
    }
    State.SetItemsProcessed(
        static_cast<int64_t>(static_cast<double>(State.iterations()) * dTurns * dLinesPerTurn));
}
BENCHMARK_CAPTURE(RunLines, counting, "counting", 5.0);
BENCHMARK_CAPTURE(RunLines, functions, "functions", 8.0);
BENCHMARK_CAPTURE(RunLines, registers, "registers", 9.0);
BENCHMARK_CAPTURE(RunLines, subroutines, "subroutines", 9.0);

// Neither the length of a run nor the distance of the labels matters.
BENCHMARK_CAPTURE(RunLines, counting_long, "counting", 5.0, kManyTurns);
BENCHMARK_CAPTURE(RunLines, distant, "distant", 7.0);

static void FormatNumbers(benchmark::State &State, unsigned nMode)
{
    cNumberFormat Format = {nMode, 4, "", "", 0.00005, 1e10};
    BuildFormat(4, 'f', Format.m_szFixFormat);
    BuildFormat(4, 'e', Format.m_szSciFormat);
    char   szText[kStackText];
    double dValue = 1.0;
    for (auto _ : State)
    {
        FormatNumber(dValue, Format, szText);
        benchmark::DoNotOptimize(szText);
        dValue = dValue < 1e9 ? dValue * 1.37 : 0.001;
    }
    State.SetItemsProcessed(State.iterations());
}
BENCHMARK_CAPTURE(FormatNumbers, fix, kModeFix);
BENCHMARK_CAPTURE(FormatNumbers, sci, kModeSci);
BENCHMARK_CAPTURE(FormatNumbers, eng, kModeEng);

// One number of 15 keys, as the keys of the face enter it.
static void EnterNumber(benchmark::State &State)
{
    static const char   kKeys[] = "12345.67890e12";
    cBenchHost          Host;
    cHeadlessCalculator Calculator(&Host);
    for (auto _ : State)
    {
        for (const char *pKey = kKeys; *pKey; pKey++)
            Calculator.m_Engine.EnterCharacter(*pKey);
        Calculator.m_Engine.Perform("ENTER", 0);
    }
    State.SetItemsProcessed(State.iterations());
}
BENCHMARK(EnterNumber);

static std::string FullListing()
{
    std::string Listing;
    for (int nLine = 1; nLine <= 98; nLine++)
        Listing += nLine % 4 == 0   ? "3.14159 ; a number\r\n"
                   : nLine % 4 == 1 ? "STO .3\r\n"
                                    : "x<>y\r\n";
    return Listing;
}

static void LoadListing(benchmark::State &State)
{
    static const char *const kName = "engine_bench_listing.txt";
    const std::string        Text  = FullListing();
    if (FILE *const pFile = fopen(kName, "wb"))
    {
        fwrite(Text.data(), 1, Text.size(), pFile);
        fclose(pFile);
    }
    cBenchHost          Host;
    cHeadlessCalculator Calculator(&Host);
    for (auto _ : State)
        if (!Calculator.m_Engine.LoadProgram(kName))
            State.SkipWithError("the listing does not load");
    State.SetItemsProcessed(State.iterations());
    remove(kName);
}
BENCHMARK(LoadListing);

static const char *const kSaved = "engine_bench_saved.txt";

static void SaveListing(benchmark::State &State)
{
    cBenchHost          Host;
    cHeadlessCalculator Calculator(&Host);
    Calculator.m_Listing.SetText(("00\r\n" + FullListing()).c_str());
    for (auto _ : State)
        if (!Calculator.m_Engine.SaveProgram(kSaved))
            State.SkipWithError("the listing is not saved");
    State.SetItemsProcessed(State.iterations());
    remove(kSaved);
}
BENCHMARK(SaveListing)->UseRealTime();

// What the disk takes of it: a new file with the same text reaches the disk and
// replaces the old one.
static void SaveListingDiskAlone(benchmark::State &State)
{
    static const char *const kTemporary = "engine_bench_saved.tmp";
    const std::string        Text       = FullListing();
    for (auto _ : State)
    {
        FILE *const pFile = fopen(kTemporary, "wb");
        if (!pFile || fwrite(Text.data(), 1, Text.size(), pFile) != Text.size() ||
            !SyncToDisk(pFile) || fclose(pFile) != 0 || rename(kTemporary, kSaved) != 0)
            State.SkipWithError("the file is not saved");
    }
    State.SetItemsProcessed(State.iterations());
    remove(kSaved);
}
BENCHMARK(SaveListingDiskAlone)->UseRealTime();

BENCHMARK_MAIN();
