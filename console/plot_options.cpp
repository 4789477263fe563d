#include "console/plot_options.h"

#include "console/arguments.h"

// Each stores an option's value; 0 if the value is invalid.
typedef int (*cTakePlotValue)(cPlotOptions *, const std::string &);

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
static const struct
{
    const char *m_szName;
    cTakePlotValue  m_pTake;
    const char *m_szWanted;
} s_PlotOptions[] =
{
    { "--title", TakeTitle, "a text of at most 100 bytes"             },
    { "--label", TakeLabel, "a text of at most 100 bytes"             },
    { "--type",  TakeType,  "plot, stairstep, scatter or stoop"       },
    { "--size",  TakeSize,  "WxH, width and height from 1 to 16383 pixels" },
};
// clang-format on

static int TakeFlag(const std::string &Name, cPlotOptions *pOptions)
{
    if (Name == "--grid")
        pOptions->m_bGrid = 1;
    else if (Name == "--no-legend")
        pOptions->m_bLegend = 0;
    else
        return 0;
    return 1;
}

// Stores the option at *pnAt and its value; advances *pnAt to the value.
static int TakeOption(const std::vector<std::string> &Arguments, size_t *pnAt,
                      cPlotOptions *pOptions, std::string *pError)
{
    const std::string &Name = Arguments[*pnAt];
    for (const auto &Row : s_PlotOptions)
    {
        if (Name != Row.m_szName)
            continue;
        if (++*pnAt < Arguments.size() && Row.m_pTake(pOptions, Arguments[*pnAt]))
            return 1;
        *pError = Name + " needs " + Row.m_szWanted;
        return 0;
    }
    *pError = UnknownOption(Name);
    return 0;
}

// The first name is the data file, the second the picture.
static int TakeFileName(const std::string &Word, cPlotOptions *pOptions, std::string *pError)
{
    if (pOptions->m_DataFile.empty())
        pOptions->m_DataFile = Word;
    else if (pOptions->m_PictureFile.empty())
        pOptions->m_PictureFile = Word;
    else
    {
        *pError = "unexpected argument '" + Word + "': plot takes one data file and one picture";
        return 0;
    }
    return 1;
}

int ParsePlotOptions(const std::vector<std::string> &Arguments, cPlotOptions *pOptions,
                     std::string *pError)
{
    int bOptions = 1;
    for (size_t nAt = 0; nAt < Arguments.size(); nAt++)
    {
        const std::string &Word = Arguments[nAt];
        if (bOptions && Word == kEndOfOptions)
            bOptions = 0;
        else if (!bOptions || !Word.starts_with("--"))
        {
            if (!TakeFileName(Word, pOptions, pError))
                return 0;
        }
        else if (!TakeFlag(Word, pOptions) && !TakeOption(Arguments, &nAt, pOptions, pError))
            return 0;
    }
    if (!pOptions->m_PictureFile.empty())
        return 1;
    *pError = "plot needs two file names, a data file and a picture";
    return 0;
}
