#include "console/run_options.h"

#include <algorithm>

#include "console/arguments.h"
#include "console/input_file.h"
#include "console/table_options.h"
#include "engine/vorstek_state.h"
#include "toolkit/dbg_file.h"

template <unsigned nLevel> static int TakeLevel(cRunOptions *pOptions, const std::string &Value)
{
    double dValue;
    if (!ParseNumber(Value, &dValue))
        return 0;
    pOptions->m_Levels.emplace_back(nLevel, dValue);
    return 1;
}

static int TakeRegister(cRunOptions *pOptions, const std::string &Value)
{
    const size_t nEqual = Value.find('=');
    uint64_t     nRegister;
    double       dValue;
    if (nEqual == std::string::npos || !ParseWholeNumber(Value.substr(0, nEqual), &nRegister) ||
        nRegister >= kRegisters || !ParseNumber(Value.substr(nEqual + 1), &dValue))
        return 0;
    pOptions->m_Registers.emplace_back(static_cast<unsigned>(nRegister), dValue);
    return 1;
}

static int TakeLabel(cRunOptions *pOptions, const std::string &Value)
{
    uint64_t nLabel;
    if (!ParseWholeNumber(Value, &nLabel) || nLabel > 9)
        return 0;
    pOptions->m_nLabel = static_cast<int>(nLabel);
    return 1;
}

static int TakeMaxLines(cRunOptions *pOptions, const std::string &Value)
{
    return ParseWholeNumber(Value, &pOptions->m_nMaxLines) && pOptions->m_nMaxLines > 0;
}

static int TakeTraceFile(cRunOptions *pOptions, const std::string &Value)
{
    pOptions->m_TraceFile = Value;
    return !Value.empty() && Value.size() < kDbgFileName;
}

static int TakeTraceSize(cRunOptions *pOptions, const std::string &Value)
{
    uint64_t nMegabytes;
    if (!ParseWholeNumber(Value, &nMegabytes) || nMegabytes < 1 || nMegabytes > kMostDbgMegabytes)
        return 0;
    pOptions->m_nTraceMegabytes = static_cast<unsigned>(nMegabytes);
    return 1;
}

static int TakeGraphFile(cRunOptions *pOptions, const std::string &Value)
{
    pOptions->m_GraphFile    = Value;
    pOptions->m_bGraphAsData = Value.ends_with(".txt") || Value.ends_with(".TXT");
    return !Value.empty();
}

// clang-format off
static const cOptionRow s_RunRows[] =
{
    { "--x", "V", "a number", Take<cRunOptions, TakeLevel<0>>,
      "set X before the start" },
    { "--y", "V", "a number", Take<cRunOptions, TakeLevel<1>>,
      "set Y before the start" },
    { "--z", "V", "a number", Take<cRunOptions, TakeLevel<2>>,
      "set Z before the start" },
    { "--t", "V", "a number", Take<cRunOptions, TakeLevel<3>>,
      "set T before the start" },
    { "--reg", "N=V", "N=V with a register N from 0 to 29", Take<cRunOptions, TakeRegister>,
      "set register N (0 to 29) before the start" },
    { "--label", "N", "a label from 0 to 9", Take<cRunOptions, TakeLabel>,
      "start at label N (0 to 9), as GSB N does" },
    { "--trace", "FILE", "a file name of up to 259 characters", Take<cRunOptions, TakeTraceFile>,
      "write a trace of the executed lines; - is standard\n"
      "output" },
    { "--trace-size", "MB", "a number of megabytes from 1 to 100",
      Take<cRunOptions, TakeTraceSize>,
      "how long the trace may become before it begins\n"
      "again, 1 unless given; the former part is kept\n"
      "as FILE_older" },
    { "--graph", "FILE", "a file name that ends in .txt, .svg, .png or .pdf, or -",
      Take<cRunOptions, TakeGraphFile>,
      "write the points that the program drew: FILE.txt\n"
      "as a data file; FILE.svg, FILE.png and FILE.pdf\n"
      "as a picture, which the options below are about;\n"
      "- is the picture on standard output, and what is\n"
      "printed then goes to standard error. No data file\n"
      "is read: --columns and the like are for plot" },
    { "--max-lines", "N", "a number of lines above 0", Take<cRunOptions, TakeMaxLines>,
      "halt after N executed lines" },
    { "--registers", nullptr, nullptr, SetFlag<cRunOptions, &cRunOptions::m_bRegisters>,
      "also print the registers that are not zero" },
    { "--json", nullptr, nullptr, SetFlag<cRunOptions, &cRunOptions::m_bJson>,
      "print the complete state as one JSON object" },
    { "--profile", nullptr, nullptr, SetFlag<cRunOptions, &cRunOptions::m_bProfile>,
      "also print the listing with how often each line\n"
      "ran and its share of the time" },
    { "--realtime", nullptr, nullptr, SetFlag<cRunOptions, &cRunOptions::m_bRealtime>,
      "let PAUSE wait for one second" },
    { "--wait", nullptr, nullptr, SetFlag<cRunOptions, &cRunOptions::m_bWait>,
      "in a terminal, wait for a key at the end" },
};
// clang-format on

static std::vector<cOptionRow> MakeRunRows()
{
    std::vector<cOptionRow> Rows(std::begin(s_RunRows), std::end(s_RunRows));
    AppendFigureRows<cRunOptions>(&Rows);
    return Rows;
}

std::span<const cOptionRow> RunOptionRows()
{
    static const std::vector<cOptionRow> s_Rows = MakeRunRows();
    return s_Rows;
}

// "" or why an option of plot is none of run.
static std::string WhyOnlyOfPlot(const std::string &Name)
{
    const int bTable = std::any_of(std::begin(kTableRows), std::end(kTableRows),
                                   [&Name](const auto &Row) { return Name == Row.m_szName; });
    return bTable ? Name + " is about data files, which plot reads; run --graph draws the points " +
                        "of its program"
                  : "";
}

// 1, or 0 with a one-line error.
static int ChooseGraph(cRunOptions *pOptions, std::string *pError)
{
    const cFigureOptions &Picture = pOptions->m_Picture;
    if (pOptions->m_GraphFile.empty() || pOptions->m_bGraphAsData)
    {
        if (!Picture.m_FirstOption.empty())
            *pError = Picture.m_FirstOption + " is about a picture, such as --graph FILE.svg draws";
        return pError->empty();
    }
    const int bOutput = pOptions->m_GraphFile == kPictureToOutput;
    if (!bOutput && !Picture.m_nFormat && !FormatOfName(pOptions->m_GraphFile))
        *pError = "--graph needs a file name that ends in .txt, .svg, .png or .pdf, or -";
    else if (bOutput && pOptions->m_TraceFile == kStandardOutput)
        *pError = "--trace and --graph cannot both be standard output";
    if (!pError->empty())
        return 0;
    return ChoosePicture(Picture, pOptions->m_GraphFile, &pOptions->m_PictureFile, pError);
}

int ParseRunOptions(const std::vector<std::string> &Arguments, cRunOptions *pOptions,
                    std::string *pError)
{
    std::vector<std::string> Words;
    std::string              Unknown;
    if (!ReadOptions(RunOptionRows(), Arguments, pOptions, &Words, pError, &Unknown))
    {
        const std::string Why = WhyOnlyOfPlot(Unknown);
        *pError               = Why.empty() ? *pError : Why;
        return 0;
    }
    if (Words.empty() || Words[0].empty())
        *pError = "run needs the file name of a program";
    else if (Words.size() > 1)
        *pError = "unexpected argument '" + Words[1] + "': run takes one program";
    else
        pOptions->m_Program = Words[0];
    NameFigure({pOptions->m_Program}, &pOptions->m_Picture);
    return pError->empty() && ChooseGraph(pOptions, pError);
}
