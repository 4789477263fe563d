#include "console/figure_options.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <ostream>

#include "console/arguments.h"
#include "console/file_reason.h"
#include "console/input_file.h"
#include "console/table_input.h"
#include "console/window_picture.h"

// What there is to choose for a data line.
static const uint32_t kMostLineNumber = 1000000;
static const double   kLeastStroke    = 0.1;
static const double   kMostStroke     = 50.0;
static const double   kMostScale      = 100.0;
static const double   kLeastScale     = 0.01;
static const double   kNarrowestRange = 1e-12;  // relative to its bounds

template <class cValue> struct cNamedValue
{
    const char *m_szName;
    cValue      m_Value;
};

// clang-format off
static const cNamedValue<uint32_t> kTypeNames[] =
{
    { "plot",      gtPlot      },
    { "stairstep", gtStairStep },
    { "scatter",   gtScatter   },
    { "stoop",     gtStoop     },
};

static const cNamedValue<uint32_t> kStyleNames[] =
{
    { "solid",        0 },
    { "dash",         1 },
    { "dot",          2 },
    { "dash-dot",     3 },
    { "dash-dot-dot", 4 },
};

static const cNamedValue<uint32_t> kMarkerNames[] =
{
    { "triangle",   0 },
    { "square",     1 },
    { "diamond",    2 },
    { "vertical",   3 },
    { "horizontal", 4 },
    { "circle",     kCircle },
};
// clang-format on

template <class cTable>
static std::optional<uint32_t> ValueNamed(const cTable &Table, const std::string &Name)
{
    for (const auto &Row : Table)
        if (Name == Row.m_szName)
            return Row.m_Value;
    return std::nullopt;
}

// "2:dash" is for data line 2, "dash" for all. *pValue is what is after the number.
static cChosenLook *LookFor(cFigureOptions *pOptions, const std::string &Value, std::string *pRest)
{
    cFigure *const pFigure = &pOptions->m_Figure;
    const size_t   nColon  = Value.find(':');
    uint64_t       nLine;
    *pRest = nColon == std::string::npos ? Value : Value.substr(nColon + 1);
    if (nColon == std::string::npos)
        return &pFigure->m_Look;
    if (!ParseWholeNumber(Value.substr(0, nColon), &nLine) || nLine < 1 || nLine > kMostLineNumber)
        return nullptr;
    pOptions->m_LineOptions.push_back({static_cast<size_t>(nLine - 1), Value});
    return &pFigure->m_LineLooks[static_cast<size_t>(nLine - 1)];
}

static int TakeType(cFigureOptions *pOptions, const std::string &Value)
{
    std::string        Name;
    cChosenLook *const pLook = LookFor(pOptions, Value, &Name);
    const auto         nType = ValueNamed(kTypeNames, Name);
    if (!pLook || !nType)
        return 0;
    pLook->m_nType = nType;
    return 1;
}

static int TakeStyle(cFigureOptions *pOptions, const std::string &Value)
{
    std::string        Name;
    cChosenLook *const pLook  = LookFor(pOptions, Value, &Name);
    const auto         nLine  = ValueNamed(kStyleNames, Name);
    const auto         nShape = ValueNamed(kMarkerNames, Name);
    if (!pLook || (!nLine && !nShape))
        return 0;
    if (nLine)
        pLook->m_nStyle = nLine;
    else
        pLook->m_nShape = nShape;
    return 1;
}

template <std::optional<double> cChosenLook::*pMember>
static int TakeStroke(cFigureOptions *pOptions, const std::string &Value)
{
    std::string        Number;
    double             dSize;
    cChosenLook *const pLook = LookFor(pOptions, Value, &Number);
    if (!pLook || !ParseNumber(Number, &dSize) || dSize < kLeastStroke || dSize > kMostStroke)
        return 0;
    pLook->*pMember = dSize;
    return 1;
}

// At most as long as the plot's buffer.
static int IsPlotText(const std::string &Value)
{
    return Value.size() < kPlotText;
}

void NameFigure(const std::vector<std::string> &Sources, cFigureOptions *pOptions)
{
    std::string *const pName = &pOptions->m_Figure.m_Name;
    for (const std::string &Source : Sources)
        if (Source != kStandardInput)
            *pName += (pName->empty() ? "" : ", ") + NameWithoutFolder(Source);
}

static int TakeTitle(cFigureOptions *pOptions, const std::string &Value)
{
    pOptions->m_Figure.m_Title = Value;
    return IsPlotText(Value);
}

template <cAxisWish cFigure::*pAxis>
static int TakeAxisLabel(cFigureOptions *pOptions, const std::string &Value)
{
    (pOptions->m_Figure.*pAxis).m_Label = Value;
    return IsPlotText(Value);
}

static int TakeBound(const std::string &Text, std::optional<double> *pdBound)
{
    double dValue;
    if (Text.empty())
        return 1;
    if (!ParseNumber(Text, &dValue) || !std::isfinite(dValue))
        return 0;
    *pdBound = dValue;
    return 1;
}

// Two bounds that differ by so little that ticks between them would be equal.
static int IsTooNarrow(const cRangeWish &Range)
{
    if (!Range.m_dFrom || !Range.m_dTo)
        return 0;
    const double dMost = std::max(std::fabs(*Range.m_dFrom), std::fabs(*Range.m_dTo));
    return std::fabs(*Range.m_dTo / 2 - *Range.m_dFrom / 2) <= kNarrowestRange * dMost;
}

template <cAxisWish cFigure::*pAxis>
static int TakeRange(cFigureOptions *pOptions, const std::string &Value)
{
    const size_t nColon = Value.find(':');
    cRangeWish  &Range  = (pOptions->m_Figure.*pAxis).m_Range;
    Range.m_dFrom.reset();
    Range.m_dTo.reset();
    return nColon != std::string::npos && TakeBound(Value.substr(0, nColon), &Range.m_dFrom) &&
           TakeBound(Value.substr(nColon + 1), &Range.m_dTo) && !IsTooNarrow(Range);
}

template <cAxisWish cFigure::*pAxis>
static int TakeTicks(cFigureOptions *pOptions, const std::string &Value)
{
    uint64_t nTicks;
    if (!ParseWholeNumber(Value, &nTicks) || nTicks < 2 || nTicks > kMostTicks)
        return 0;
    (pOptions->m_Figure.*pAxis).m_nTicks = static_cast<uint32_t>(nTicks);
    return 1;
}

static int TakeLog(cFigureOptions *pOptions, const std::string &Value)
{
    pOptions->m_Figure.m_X.m_Range.m_bLog = Value != "y";
    pOptions->m_Figure.m_Y.m_Range.m_bLog = Value != "x";
    return Value == "x" || Value == "y" || Value == "xy";
}

template <int cFigureOptions::*pFlag>
static int TakeFlag(cFigureOptions *pOptions, const std::string &)
{
    pOptions->*pFlag = 1;
    return 1;
}

template <int cFigure::*pFlag>
static int TakeFigureFlag(cFigureOptions *pOptions, const std::string &)
{
    pOptions->m_Figure.*pFlag = 1;
    return 1;
}

template <eLegendWish nWish> static int TakeLegend(cFigureOptions *pOptions, const std::string &)
{
    pOptions->m_Figure.m_nLegend = nWish;
    return 1;
}

static int TakePalette(cFigureOptions *pOptions, const std::string &Value)
{
    pOptions->m_Figure.m_pPalette = FindPalette(Value);
    return pOptions->m_Figure.m_pPalette != nullptr;
}

static int TakePixels(const std::string &Text, int *pnPixels)
{
    uint64_t nPixels;
    if (!ParseWholeNumber(Text, &nPixels) || nPixels < 1 || nPixels > kMostPictureSize)
        return 0;
    *pnPixels = static_cast<int>(nPixels);
    return 1;
}

static int TakeSize(cFigureOptions *pOptions, const std::string &Value)
{
    const size_t nCross = Value.find('x');
    return nCross != std::string::npos &&
           TakePixels(Value.substr(0, nCross), &pOptions->m_Figure.m_nWidth) &&
           TakePixels(Value.substr(nCross + 1), &pOptions->m_Figure.m_nHeight);
}

static int TakeScale(cFigureOptions *pOptions, const std::string &Value)
{
    return ParseNumber(Value, &pOptions->m_dScale) && pOptions->m_dScale >= kLeastScale &&
           pOptions->m_dScale <= kMostScale;
}

static int TakeFormat(cFigureOptions *pOptions, const std::string &Value)
{
    pOptions->m_nFormat = FormatOfWord(Value);
    return pOptions->m_nFormat.has_value();
}

// clang-format off
const cFigureOptionRow kFigureRows[kFigureOptions] =
{
    { "--title", "T", "a text of at most 100 bytes", TakeTitle,
      "title, instead of the file's" },
    { "--xlabel", "T", "a text of at most 100 bytes", TakeAxisLabel<&cFigure::m_X>,
      "label of the horizontal axis, instead of the\n"
      "file's" },
    { "--ylabel", "T", "a text of at most 100 bytes", TakeAxisLabel<&cFigure::m_Y>,
      "label of the vertical axis" },
    { "--xrange", "A:B", "A:B with two different numbers, of which one may be missing",
      TakeRange<&cFigure::m_X>,
      "horizontal range; without A or B as far as the\n"
      "data" },
    { "--yrange", "A:B", "A:B with two different numbers, of which one may be missing",
      TakeRange<&cFigure::m_Y>,
      "vertical range" },
    { "--xticks", "N", "a number of ticks from 2 to 26", TakeTicks<&cFigure::m_X>,
      "about N ticks on the horizontal axis, 2 to 26" },
    { "--yticks", "N", "a number of ticks from 2 to 26", TakeTicks<&cFigure::m_Y>,
      "about N ticks on the vertical axis" },
    { "--log", "AXES", "x, y or xy", TakeLog,
      "logarithmic axes: x, y or xy" },
    { "--grid", nullptr, nullptr, TakeFigureFlag<&cFigure::m_bGrid>,
      "grid lines" },
    { "--legend", nullptr, nullptr, TakeLegend<lwShown>,
      "a legend even for one data line" },
    { "--no-legend", nullptr, nullptr, TakeLegend<lwHidden>,
      "omit the legend" },
    { "--type", "[N:]TYPE", "plot, stairstep, scatter or stoop, after N: for data line N only",
      TakeType,
      "plot, stairstep, scatter or stoop; after N: of\n"
      "data line N (1, 2, ...), else of all" },
    { "--style", "[N:]STYLE",
      "solid, dash, dot, dash-dot, dash-dot-dot, circle, square, triangle, diamond, vertical "
      "or horizontal, after N: for data line N only",
      TakeStyle,
      "of lines: solid, dash, dot, dash-dot or\n"
      "dash-dot-dot; of markers: circle, square,\n"
      "triangle, diamond, vertical or horizontal" },
    { "--width", "[N:]W", "a width from 0.1 to 50 pixels, after N: for data line N only",
      TakeStroke<&cChosenLook::m_dWidth>,
      "width of lines in pixels, default 1.5" },
    { "--marker-size", "[N:]S", "a size from 0.1 to 50 pixels, after N: for data line N only",
      TakeStroke<&cChosenLook::m_dMarkerSize>,
      "size of markers in pixels, default 5" },
    { "--palette", "NAME", "default, bright or grey", TakePalette,
      "colours of the data lines: default, bright or\n"
      "grey" },
    { "--dark", nullptr, nullptr, TakeFigureFlag<&cFigure::m_bDark>,
      "SVG: other colours where the reader prefers dark\n"
      "pages" },
    { "--size", "WxH", "WxH, width and height from 1 to 16383 pixels", TakeSize,
      "size in pixels, default 640x480" },
    { "--scale", "F", "a factor from 0.01 to 100", TakeScale,
      "draw everything F times as large" },
    { "--format", "FORMAT", "svg, png or pdf", TakeFormat,
      "svg, png or pdf, whatever the file's name" },
    { "--window", nullptr, nullptr, TakeFlag<&cFigureOptions::m_bWindow>,
      "draw what the graph's window would show" },
    { "--nice", nullptr, nullptr, TakeFlag<&cFigureOptions::m_bNice>,
      "with --window: ticks at round numbers, as they\n"
      "are without it" },
};
// clang-format on

int TakeFigureOption(const cFigureOptionRow &Row, const std::string &Value,
                     cFigureOptions *pOptions)
{
    const size_t nFormer = pOptions->m_LineOptions.size();
    if (pOptions->m_FirstOption.empty())
        pOptions->m_FirstOption = Row.m_szName;
    const int bTaken = Row.m_pTake(pOptions, Value);
    for (size_t nOption = nFormer; nOption < pOptions->m_LineOptions.size(); nOption++)
        pOptions->m_LineOptions[nOption].m_Text.insert(0, std::string(Row.m_szName) + " ");
    return bTaken;
}

int ReportMissingLines(const cFigureOptions &Options, size_t nLines, const cStreams &Streams)
{
    int bAny = 0;
    for (const cLineOption &Option : Options.m_LineOptions)
    {
        if (Option.m_nLine < nLines)
            continue;
        ReportUsage(Streams, Option.m_Text + " is not used: there " +
                                 (nLines == 1 ? "is 1 data line"
                                              : "are " + std::to_string(nLines) + " data lines"));
        bAny = 1;
    }
    return bAny;
}

// Of an axis.
static std::string WhyNotLogarithmic(const cRangeWish &Range, const char *szOption)
{
    const int bBad =
        Range.m_bLog && (Range.m_dFrom.value_or(1.0) <= 0.0 || Range.m_dTo.value_or(1.0) <= 0.0);
    return bBad ? std::string(szOption) + " needs numbers above 0 with --log" : "";
}

// "" or why these options do not go together.
static std::string WhyNotTogether(const cFigureOptions &Options, ePictureFormat nFormat)
{
    const cFigure &Figure = Options.m_Figure;
    std::string    Error  = WhyNotLogarithmic(Figure.m_X.m_Range, "--xrange");
    if (Error.empty())
        Error = WhyNotLogarithmic(Figure.m_Y.m_Range, "--yrange");
    if (Error.empty() && Options.m_bWindow)
        Error = WhyNoWindow(Options);
    if (Error.empty() && Figure.m_bDark && nFormat != pfSvg)
        Error = "--dark is for SVG pictures";
    const double dMost = Options.m_dScale * std::max(Figure.m_nWidth, Figure.m_nHeight);
    if (Error.empty() && nFormat == pfPng && dMost > kMostPictureSize)
        Error = "--scale makes the picture larger than 16383 pixels";
    return Error;
}

int ChoosePicture(const cFigureOptions &Options, const std::string &Name, cPictureFile *pFile,
                  std::string *pError)
{
    std::optional<ePictureFormat> nFormat = Options.m_nFormat;
    if (!nFormat)
        nFormat = Name == kPictureToOutput ? pfSvg : FormatOfName(Name);
    if (!nFormat)
        *pError = "'" + Name + "' does not end in .svg, .png or .pdf; --format says what it is";
    else if (!CanDraw(*nFormat))
        *pError = "'" + Name + "': this vorstek-cli was built without cairo and draws SVG only";
    else
        *pError = WhyNotTogether(Options, *nFormat);
    if (!pError->empty())
        return 0;
    *pFile = {Name, *nFormat, Options.m_dScale};
    return 1;
}

// "the legend and the title"; "" if nothing is left out.
static std::string NamesOf(const cLeftOut &LeftOut)
{
    std::vector<std::string> Names;
    if (LeftOut.m_bLegend)
        Names.emplace_back("the legend");
    if (LeftOut.m_bTitle)
        Names.emplace_back("the title");
    if (LeftOut.m_bLabels)
        Names.emplace_back("the labels of the axes");
    if (LeftOut.m_bNumbers)
        Names.emplace_back("the numbers");
    std::string Text;
    for (size_t nName = 0; nName < Names.size(); nName++)
        Text += (nName == 0 ? "" : nName + 1 == Names.size() ? " and " : ", ") + Names[nName];
    return Text;
}

static void ReportNotes(const cFigureNotes &Notes, const cFigure &Figure, const cStreams &Streams)
{
    if (Notes.m_nWithoutPlace > 0)
        *Streams.m_pErr << "vorstek-cli: " << Notes.m_nWithoutPlace
                        << (Notes.m_nWithoutPlace == 1 ? " point is" : " points are")
                        << " not drawn: a logarithmic axis begins above 0\n";
    const std::string LeftOut = NamesOf(Notes.m_LeftOut);
    if (!LeftOut.empty())
        *Streams.m_pErr << "vorstek-cli: there is no room for " << LeftOut << " in "
                        << Figure.m_nWidth << "x" << Figure.m_nHeight << " pixels\n";
}

// nError is errno after saving.
static int ReportSaving(eSaving nSaving, int nError, const cPictureFile &File,
                        const cStreams &Streams)
{
    switch (nSaving)
    {
    case svDone:
        return kExitDone;
    case svIncomplete:
        return RefuseStrictly(Streams);
    case svUnreadable:
        return kExitUsage;  // the source has said why
    case svTooLarge:
        return ReportUsage(Streams,
                           "not enough memory for the picture " + ShownOutput(File.m_Name));
    default:
        return ReportUnwritable(Streams, File.m_Name, nError);
    }
}

int SaveFigurePicture(const cFigureOptions &Options, const cPictureFile &File,
                      cPointSource *pSource, const cStreams &Streams)
{
    cFigureNotes  Notes;
    const eSaving nSaving = SaveFigure(Options.m_Figure, pSource, File, &Notes);
    const int     nError  = errno;
    if (nSaving == svDone || nSaving == svIncomplete)
        ReportNotes(Notes, Options.m_Figure, Streams);
    return ReportSaving(nSaving, nError, File, Streams);
}

int SaveWindowPicture(const cFigureOptions &Options, const cPictureFile &File, cVantorPlot *pPlot,
                      const cStreams &Streams)
{
    ApplyToWindow(Options, pPlot);
    const cFigure &Figure = Options.m_Figure;
    const eSaving  nSaving =
        SaveWindowFigure(*pPlot, Figure.m_nWidth, Figure.m_nHeight, File, Figure.m_Name);
    return ReportSaving(nSaving, errno, File, Streams);
}
