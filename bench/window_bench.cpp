// window_bench.cpp - the speed of the windows: programs that compute and draw, compared
// with the same programs in the console, painting and the readout. Prints one line per
// figure: name, value, unit and target.

#include "tests/window/graph_window.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "graph/win32/vantor.h"
#include "tests/unit/recording_boxes.h"
#include "tests/window/common_steps.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"

static const int      kRounds = 5;
static const uint32_t kPoints = 12800;  // of a full set

static void Print(const char *szName, double dValue, const char *szUnit, const char *szTarget)
{
    printf("%s|%.1f|%s|%s\n", szName, dValue, szUnit, szTarget);
    fflush(stdout);
}

static double Now()
{
    LARGE_INTEGER Count     = {};
    LARGE_INTEGER PerSecond = {};
    QueryPerformanceCounter(&Count);
    QueryPerformanceFrequency(&PerSecond);
    return static_cast<double>(Count.QuadPart) / static_cast<double>(PerSecond.QuadPart);
}

template <class cStep> static double Seconds(cStep Step)
{
    const double dStart = Now();
    Step();
    return Now() - dStart;
}

static double Median(std::vector<double> Values)
{
    std::sort(Values.begin(), Values.end());
    return Values[Values.size() / 2];
}

template <class cStep> static double MedianSeconds(cStep Step)
{
    std::vector<double> Times;
    for (int i = 0; i < kRounds; i++)
        Times.push_back(Seconds(Step));
    return Median(Times);
}

static void HandleWaitingMessages()
{
    MSG Message;
    while (PeekMessageA(&Message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&Message);
}

namespace
{

// The graph alone, 640 by 480 pixels, with full data sets.
struct cGraphRig
{
    explicit cGraphRig(int nSets, const cVantorLineFormat &Format = {}, float fNoise = 0.0F)
    {
        Create();
        for (int nSet = 0; nSet < nSets; nSet++)
            AddWave(static_cast<float>(nSet), fNoise, Format);
        HandleWaitingMessages();
    }
    // One set of nPoints points that are anywhere.
    cGraphRig(uint32_t nPoints, const cVantorLineFormat &Format)
    {
        Create();
        AddCloud(nPoints, 0, Format);
        HandleWaitingMessages();
    }
    ~cGraphRig() { SendMessageA(m_Graph.Window(), WM_CLOSE, 0, 0); }

    void AddWave(float fPhase, float fNoise, const cVantorLineFormat &Format)
    {
        std::mt19937       Random(1);
        std::vector<float> X(kPoints);
        std::vector<float> Y(kPoints);
        for (uint32_t i = 0; i < kPoints; i++)
        {
            X[i] = static_cast<float>(i) * 0.01F;
            Y[i] = std::sin(X[i] + fPhase) + fNoise * static_cast<float>(Random() % 1000);
        }
        REQUIRE(m_Graph.Box()->AddDataSet(kPoints, X.data(), Y.data(), &Format));
    }

    void Create()
    {
        REQUIRE(m_Graph.Create({}, 0, 0, 640, 480, 0));
        m_Graph.Box()->AutoRange();
    }

    void AddCloud(uint32_t nPoints, unsigned nSeed, const cVantorLineFormat &Format)
    {
        std::mt19937       Random(nSeed);
        std::vector<float> X(nPoints);
        std::vector<float> Y(nPoints);
        for (uint32_t i = 0; i < nPoints; i++)
        {
            X[i] = static_cast<float>(Random() % 10000);
            Y[i] = static_cast<float>(Random() % 10000);
        }
        REQUIRE(m_Graph.Box()->AddDataSet(nPoints, X.data(), Y.data(), &Format));
    }

    // Round and round, so that x goes back and forth.
    void AddLoops(float fPhase, const cVantorLineFormat &Format)
    {
        std::vector<float> X(kPoints);
        std::vector<float> Y(kPoints);
        for (uint32_t i = 0; i < kPoints; i++)
        {
            X[i] = std::sin(static_cast<float>(i) * 0.03F + fPhase);
            Y[i] = std::cos(static_cast<float>(i) * 0.0201F + fPhase);
        }
        REQUIRE(m_Graph.Box()->AddDataSet(kPoints, X.data(), Y.data(), &Format));
    }

    // A complete repaint, as after a change of the settings.
    void Repaint()
    {
        m_Graph.Box()->AutoRange();
        UpdateWindow(m_Graph.Box()->Window());
        GdiFlush();
    }

    cRecordingBoxes m_Boxes;
    cVantor         m_Graph{&m_Boxes, nullptr};
};

}  // namespace

// Both fill a data set: one with a growing x, so that each point repaints the graph,
// the other with points that stay within the range.
static const char kGrowing[] = "12800\r\nSTO 0\r\nClearG\r\n0\r\nSTO 1\r\nLBL 1\r\n1\r\nSTO+ 1\r\n"
                               "RCL 1\r\nsin\r\nRCL 1\r\nSumG\r\nDSZ\r\nGTO 1\r\nR/S\r\n";
static const char kStaying[] = "12800\r\nSTO 0\r\nClearG\r\n0\r\nSTO 1\r\nLBL 1\r\n1\r\nSTO+ 1\r\n"
                               "RCL 1\r\nsin\r\nRCL 1\r\ncos\r\nSumG\r\nDSZ\r\nGTO 1\r\nR/S\r\n";

static void RunConsole(const cCalculator &Calculator, const std::string &Request,
                       const std::string &Arguments)
{
    std::string Command = std::string(VORSTEK_CLI) + " " + Request + " " +
                          Calculator.Path("program.txt") + " " + Arguments;
    SECURITY_ATTRIBUTES Inherited = {sizeof Inherited, nullptr, TRUE};
    const HANDLE        hNowhere =
        CreateFileA("NUL", GENERIC_WRITE, 0, &Inherited, OPEN_EXISTING, 0, nullptr);
    STARTUPINFOA Startup = {};
    Startup.cb           = sizeof Startup;
    Startup.dwFlags      = STARTF_USESTDHANDLES;
    Startup.hStdOutput   = hNowhere;
    Startup.hStdError    = hNowhere;
    cOwnedProcess Process;
    REQUIRE(CreateProcessA(nullptr, Command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                           &Startup, &Process));
    CloseHandle(hNowhere);
    REQUIRE(WaitForSingleObject(Process.hProcess, kPatience) == WAIT_OBJECT_0);
    DWORD dwExit = 1;
    GetExitCodeProcess(Process.hProcess, &dwExit);
    REQUIRE(dwExit == 0);
}

// Runs the program from the current line until it halts.
static void RunWindow(cCalculator *pCalculator)
{
    pCalculator->HitKey(kKeyRunStop);
    REQUIRE(WaitFor([=] { return (pCalculator->MenuState(IDM_OPEN) & MF_GRAYED) == 0; }));
}

// Runs the program in window and console in turn, so that a change in the speed of the
// machine affects both.
static void CompareRuns(const char *szName, const char *szProgram, const char *szLastX)
{
    cCalculator Calculator;
    OpenListing(&Calculator, szProgram);
    std::vector<double> Console;
    std::vector<double> Window;
    std::vector<double> Beyond;
    for (int i = 0; i < kRounds; i++)
    {
        Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey0, kKey0, kKeyClearX});
        Console.push_back(Seconds(
            [&] { RunConsole(Calculator, "run", "--graph " + Calculator.Path("drawn.txt")); }));
        Window.push_back(Seconds([&] { RunWindow(&Calculator); }));
        Beyond.push_back(Window.back() - Console.back());
        REQUIRE(Calculator.ReadsX(szLastX));
    }
    printf("%s|||\n", szName);
    Print("  in the console", 1000 * Median(Console), "ms", "");
    Print("  in the window", 1000 * Median(Window), "ms", "");
    Print("  longer by", 1000 * Median(Beyond), "ms", "1000 at most");
}

TEST_CASE("a program that draws")
{
    CompareRuns("12,800 points by a program, x grows", kGrowing, "12800.00");
    CompareRuns("12,800 points by a program, all within the range", kStaying, "-0.94");
}

// Counts to 2e7 with five lines a turn.
static const char   kCounting[] = "2e7\r\nSTO 0\r\n0\r\nLBL 1\r\n1\r\n+\r\nDSZ\r\nGTO 1\r\nR/S\r\n";
static const double kCountLines = 1e8;
static const char   kCounted[]  = "20000000.00";

static const char kWithoutEnd[] = "LBL 1\r\n1\r\n+\r\nGTO 1\r\n";

// The console's lines a second, without the time that Wine takes to start a program.
static double ConsoleRate(const cCalculator &Calculator)
{
    const double dStart = Seconds([&] { RunConsole(Calculator, "check", ""); });
    return kCountLines / (Seconds([&] { RunConsole(Calculator, "run", ""); }) - dStart);
}

static double WindowRate(cCalculator *pCalculator)
{
    pCalculator->HitKeys({kKeyGoTo, kKeyPoint, kKey0, kKey0, kKeyClearX});
    const double dRate = kCountLines / Seconds([=] { RunWindow(pCalculator); });
    REQUIRE(pCalculator->ReadsX(kCounted));
    return dRate;
}

static void CompareRates(const char *szName, cCalculator *pCalculator, const char *szTarget)
{
    std::vector<double> Window;
    std::vector<double> Parts;
    for (int i = 0; i < kRounds; i++)
    {
        Window.push_back(WindowRate(pCalculator));
        Parts.push_back(100 * Window.back() / ConsoleRate(*pCalculator));
    }
    printf("%s|||\n", szName);
    Print("  million lines a second", Median(Window) / 1e6, "", "");
    Print("  of the console's", Median(Parts), "%", szTarget);
}

// How many different numbers the display shows in a second, as far as they can be read
// from the screen.
static double PictureRate(const cCalculator &Calculator)
{
    REQUIRE(IsProgramRunning(Calculator));
    const double dPeriod   = 2.0;
    const double dStart    = Now();
    int          nPictures = 0;
    std::string  Shown;
    while (Now() - dStart < dPeriod)
    {
        const std::string Next = Calculator.Read(0, 59, 66, 20);
        nPictures += Next != Shown;
        Shown = Next;
    }
    return nPictures / dPeriod;
}

// From the press of a key until the run has ended.
static double HaltSeconds(cCalculator *pCalculator)
{
    pCalculator->HitKey(kKeyRunStop);
    Sleep(300);
    REQUIRE(IsProgramRunning(*pCalculator));
    POINT At = pCalculator->OnKey(kKey1);
    ScreenToClient(pCalculator->Keypad(), &At);
    const double dSeconds = Seconds([&] {
        PostMessageA(pCalculator->Keypad(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(At.x, At.y));
        while (IsProgramRunning(*pCalculator))
            Sleep(1);
    });
    PostMessageA(pCalculator->Keypad(), WM_LBUTTONUP, 0, MAKELPARAM(At.x, At.y));
    pCalculator->Settle();
    return dSeconds;
}

static void PrintManners(cCalculator *pCalculator)
{
    OpenListing(pCalculator, kWithoutEnd);
    std::vector<double> Halts;
    for (int i = 0; i < kRounds; i++)
        Halts.push_back(HaltSeconds(pCalculator));
    Print("  longest time to a halt by a key", 1000 * *std::max_element(Halts.begin(), Halts.end()),
          "ms", "50 at most");
    pCalculator->HitKeys({kKeyClearX, kKeyRunStop});
    Print("  pictures of the display", PictureRate(*pCalculator), "a second", "30 at least");
    pCalculator->HitKey(kKey1);
}

TEST_CASE("a program that computes")
{
    cCalculator Calculator;
    OpenListing(&Calculator, kCounting);
    CompareRates("counting loop, both boxes closed", &Calculator, "60 at least");
    PrintManners(&Calculator);
    OpenListing(&Calculator, kCounting);
    Calculator.HitKey(kKeySst);
    REQUIRE(Calculator.IsListingShown());
    REQUIRE(Calculator.IsRegistersShown());
    CompareRates("counting loop, both boxes open", &Calculator, "30 at least");
    PrintManners(&Calculator);
}

TEST_CASE("a full repaint")
{
    static const struct
    {
        const char *m_szName;
        uint32_t    m_nType;
        uint32_t    m_nWidth;
        uint32_t    m_nStyle;
        float       m_fNoise;
        const char *m_szTarget;
    } s_Rows[] = {
        {"20 sets of 12,800 points repainted", gtPlot, 1, 0, 0.0F, "100 at most"},
        {"the same, noise", gtPlot, 1, 0, 0.01F, "100 at most"},
        {"the same, dashed", gtPlot, 1, 1, 0.0F, "100 at most"},
        {"the same, 4 pixels wide", gtPlot, 4, 0, 0.0F, "100 at most"},
        {"the same, stairs", gtStairStep, 1, 0, 0.0F, "100 at most"},
        {"the same, markers", gtScatter, 1, 0, 0.0F, "100 at most"},
        {"the same, bars", gtStoop, 1, 0, 0.0F, "100 at most"},
    };
    for (const auto &Row : s_Rows)
    {
        cGraphRig Rig(20, {Row.m_nType, 0, Row.m_nWidth, Row.m_nStyle, nullptr}, Row.m_fNoise);
        Print(Row.m_szName, 1000 * MedianSeconds([&] { Rig.Repaint(); }), "ms", Row.m_szTarget);
    }
}

TEST_CASE("a full repaint of points in no order")
{
    for (const uint32_t nPoints : {51200u, 256000u})
    {
        cGraphRig         Rig(nPoints, {gtScatter, 0, 1, 0, nullptr});
        const std::string Name = "one set of " + std::to_string(nPoints) + " markers repainted";
        Print(Name.c_str(), 1000 * MedianSeconds([&] { Rig.Repaint(); }), "ms", "150 at most");
    }
    static const struct
    {
        const char *m_szName;
        uint32_t    m_nWidth;
        uint32_t    m_nStyle;
        int         m_bCloud;
    } s_Rows[] = {
        {"20 sets of 12,800 points in loops, 4 pixels wide", 4, 0, 0},
        {"the same, dashed", 1, 1, 0},
        {"20 sets of 12,800 points anywhere, 4 pixels wide", 4, 0, 1},
        {"the same, dashed", 1, 1, 1},
    };
    for (const auto &Row : s_Rows)
    {
        const cVantorLineFormat Format = {gtPlot, 0, Row.m_nWidth, Row.m_nStyle, nullptr};
        cGraphRig               Rig(0);
        for (int nSet = 0; nSet < 20; nSet++)
            if (Row.m_bCloud)
                Rig.AddCloud(kPoints, static_cast<unsigned>(nSet), Format);
            else
                Rig.AddLoops(static_cast<float>(nSet), Format);
        HandleWaitingMessages();
        Print(Row.m_szName, 1000 * MedianSeconds([&] { Rig.Repaint(); }), "ms", "250 at most");
    }
}

TEST_CASE("the readout")
{
    const int  kMoves = 100;
    cGraphRig  Rig(20);  // 256,000 points
    const HWND hPlot  = Rig.m_Graph.Box()->Window();
    RECT       Client = {};
    GetClientRect(hPlot, &Client);
    const auto At = [&](int nMove) {
        return MAKELPARAM(Client.right / 4 + 2 * nMove, Client.bottom / 4 + nMove);
    };
    SendMessageA(hPlot, WM_LBUTTONDOWN, MK_LBUTTON, At(0));
    const double dSeconds = MedianSeconds([&] {
        for (int i = 0; i < kMoves; i++)
            SendMessageA(hPlot, WM_MOUSEMOVE, MK_LBUTTON, At(i));
        GdiFlush();
    });
    SendMessageA(hPlot, WM_LBUTTONUP, 0, At(0));
    Print("readout over 256,000 points", kMoves / dSeconds, "pictures a second", "20 at least");
}
