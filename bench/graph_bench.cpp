// graph_bench.cpp - how fast the graph is without a window: reading data files,
// adding points, layout and drawing.

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "console/headless_host.h"
#include "graph/ascii_data_file.h"
#include "graph/plot_renderer.h"
#include "tests/unit/recording_canvas.h"

static const char *const kDataFile = "graph_bench_data.txt";
static const int         kRows     = 1000000;

namespace
{

class cBenchHost : public cHeadlessHost
{
public:
    eAnswer Ask(const char *, const char *, eButtons, eIcon) override { return anCancel; }
};

}  // namespace

// x and two columns of y, as the calculator itself writes them.
static int64_t WriteDataFile()
{
    FILE *const pFile = fopen(kDataFile, "wb");
    if (!pFile)
        return 0;
    fputs("ExplicitX\n", pFile);
    for (int nRow = 0; nRow < kRows; nRow++)
    {
        const double dX = nRow * 0.001;
        fprintf(pFile, "%f , %f , %f\n", dX, 100.0 * std::sin(dX), std::exp(-0.01 * dX));
    }
    const int64_t nBytes = ftell(pFile);
    fclose(pFile);
    return nBytes;
}

static void ReadDataFile(benchmark::State &State)
{
    const int64_t  nBytes = WriteDataFile();
    cBenchHost     Host;
    cAsciiDataFile File(&Host);
    for (auto _ : State)
        if (!File.ReadFromFile(kDataFile) || File.RowCount() != kRows)
            State.SkipWithError("the data file is not read");
    State.SetBytesProcessed(State.iterations() * nBytes);
    State.SetItemsProcessed(State.iterations() * kRows);
    remove(kDataFile);
}
BENCHMARK(ReadDataFile)->Unit(benchmark::kMillisecond);

// Each point widens the range, which is the dearest case.
static void AddPoints(benchmark::State &State)
{
    const auto nPoints = static_cast<uint32_t>(State.range(0));
    cBenchHost Host;
    for (auto _ : State)
    {
        Host.m_Plot.ClearAll();
        for (uint32_t i = 0; i < nPoints; i++)
            if (!Host.m_Plot.AddPoint(1, static_cast<float>(i), static_cast<float>(i)))
                State.SkipWithError("a point is refused");
    }
    State.SetItemsProcessed(State.iterations() * nPoints);
}
BENCHMARK(AddPoints)->Arg(1600)->Arg(12800);

static void RunSumG(benchmark::State &State)
{
    cBenchHost          Host;
    cHeadlessCalculator Calculator(&Host);
    if (!Calculator.m_Engine.LoadProgram((std::string(BENCH_PROGRAMS) + "/drawing.txt").c_str()))
        State.SkipWithError("the program does not load");
    for (auto _ : State)
    {
        Calculator.m_Engine.SetRegister(0, static_cast<double>(State.range(0)));
        Calculator.m_Engine.GoToLine(0);
        if (!Calculator.m_Engine.Perform("R/S", 0))
            State.SkipWithError("the program fails");
    }
    if (Host.m_Plot.DataSet(1)->m_nPoints != State.range(0))
        State.SkipWithError("points are missing");
    State.SetItemsProcessed(State.iterations() * State.range(0));
}
BENCHMARK(RunSumG)->Arg(1600)->Arg(12800);

// 100 sets of 12,800 points; items are vertices.
static void DrawSets(benchmark::State &State, uint32_t nType)
{
    const uint32_t     nPoints = 12800;
    std::vector<float> X(nPoints);
    std::vector<float> Y(nPoints);
    cVantorLineFormat  Format;
    cBenchHost         Host;
    Format.m_nGraphType = nType;
    for (int nSet = 0; nSet < 100; nSet++)
    {
        for (uint32_t i = 0; i < nPoints; i++)
        {
            X[i] = static_cast<float>(i) * 0.01F;
            Y[i] = std::sin(X[i] + static_cast<float>(nSet));
        }
        Host.m_Plot.AddDataSet(nPoints, X.data(), Y.data(), &Format);
    }
    int64_t nVertices = 0;
    for (auto _ : State)
    {
        cRecordingCanvas  Canvas;
        const cPlotLayout Layout = LayOutPlot(Host.m_Plot, {ptImage, {0, 0, 640, 480}}, Canvas);
        if (!DrawPlot(Layout, Host.m_Plot, &Canvas))
            State.SkipWithError("the plot is not drawn");
        nVertices += static_cast<int64_t>(Canvas.CountVertices());
    }
    State.SetItemsProcessed(nVertices);
}
BENCHMARK_CAPTURE(DrawSets, plot, gtPlot)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawSets, stairstep, gtStairStep)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawSets, scatter, gtScatter)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawSets, stoop, gtStoop)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
