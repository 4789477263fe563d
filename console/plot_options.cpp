#include "console/plot_options.h"

#include "console/arguments.h"

// At most as long as the plot's buffer.
static int IsPlotText(const std::string &Value)
{
    return Value.size() < kPlotText;
}

static int TakeTitle(cPlotOptions *pOptions, const std::string &Value)
{
    pOptions->m_Title = Value;
    return IsPlotText(Value);
}

static int TakeLabel(cPlotOptions *pOptions, const std::string &Value)
{
    pOptions->m_Label = Value;
    return IsPlotText(Value);
}

static int TakeType(cPlotOptions *pOptions, const std::string &Value)
{
    // clang-format off
    static const struct { const char *m_szName; uint32_t m_nType; } s_Types[] =
    {
        { "plot",      gtPlot      },
        { "stairstep", gtStairStep },
        { "scatter",   gtScatter   },
        { "stoop",     gtStoop     },
    };
    // clang-format on
    for (const auto &Row : s_Types)
        if (Value == Row.m_szName)
        {
            pOptions->m_nType = Row.m_nType;
            return 1;
        }
    return 0;
}

static int TakePixels(const std::string &Text, int *pnPixels)
{
    uint64_t nPixels;
    if (!ParseWholeNumber(Text, &nPixels) || nPixels < 1 || nPixels > kMostPictureSize)
        return 0;
    *pnPixels = static_cast<int>(nPixels);
    return 1;
}

static int TakeSize(cPlotOptions *pOptions, const std::string &Value)
{
    const size_t nCross = Value.find('x');
    return nCross != std::string::npos &&
           TakePixels(Value.substr(0, nCross), &pOptions->m_nWidth) &&
           TakePixels(Value.substr(nCross + 1), &pOptions->m_nHeight);
}

// clang-format off
static const cOptionRow s_PlotRows[] =
{
    { "--title", "T", "a text of at most 100 bytes", Take<cPlotOptions, TakeTitle>,
      "title, instead of the file's" },
    { "--label", "T", "a text of at most 100 bytes", Take<cPlotOptions, TakeLabel>,
      "label of the horizontal axis, instead of the file's" },
    { "--type", "TYPE", "plot, stairstep, scatter or stoop", Take<cPlotOptions, TakeType>,
      "plot, stairstep, scatter or stoop" },
    { "--grid", nullptr, nullptr, SetFlag<cPlotOptions, &cPlotOptions::m_bGrid>,
      "grid lines instead of ticks" },
    { "--no-legend", nullptr, nullptr, SetFlag<cPlotOptions, &cPlotOptions::m_bLegend, 0>,
      "omit the legend" },
    { "--size", "WxH", "WxH, width and height from 1 to 16383 pixels",
      Take<cPlotOptions, TakeSize>, "size in pixels, default 640x480" },
};
// clang-format on

std::span<const cOptionRow> PlotOptionRows()
{
    return s_PlotRows;
}

int ParsePlotOptions(const std::vector<std::string> &Arguments, cPlotOptions *pOptions,
                     std::string *pError)
{
    std::vector<std::string> Words;
    if (!ReadOptions(s_PlotRows, Arguments, pOptions, &Words, pError))
        return 0;
    if (Words.size() < 2 || Words[0].empty() || Words[1].empty())
        *pError = "plot needs two file names, a data file and a picture";
    else if (Words.size() > 2)
        *pError =
            "unexpected argument '" + Words[2] + "': plot takes one data file and one picture";
    else
    {
        pOptions->m_DataFile    = Words[0];
        pOptions->m_PictureFile = Words[1];
    }
    return pError->empty();
}
