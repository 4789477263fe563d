#include "console/plot_options.h"

#include <algorithm>

#include "console/input_file.h"

// Another name of --xlabel.
static int TakeLabel(cPlotOptions *pOptions, const std::string &Value)
{
    pOptions->m_Picture.m_Figure.m_X.m_Label = Value;
    return Value.size() < kPlotText;
}

static std::vector<cOptionRow> MakeRows()
{
    std::vector<cOptionRow> Rows;
    AppendFigureRows<cPlotOptions>(&Rows);
    Rows.push_back({"--label", "T", "a text of at most 100 bytes", Take<cPlotOptions, TakeLabel>,
                    "the same as --xlabel"});
    AppendTableRows<cPlotOptions>(&Rows);
    return Rows;
}

std::span<const cOptionRow> PlotOptionRows()
{
    static const std::vector<cOptionRow> s_Rows = MakeRows();
    return s_Rows;
}

// "" or why the window's own reader cannot read this.
static std::string WhyNoWindowTable(const cPlotOptions &Options)
{
    if (!Options.m_Tables.m_LastGiven.empty())
        return Options.m_Tables.m_LastGiven + " does not go with --window";
    if (Options.m_DataFiles.size() > 1)
        return "--window draws one data file";
    return Options.m_DataFiles[0] == kStandardInput ? "--window draws no standard input" : "";
}

int ParsePlotOptions(const std::vector<std::string> &Arguments, cPlotOptions *pOptions,
                     std::string *pError)
{
    std::vector<std::string> Words;
    if (!ReadOptions(PlotOptionRows(), Arguments, pOptions, &Words, pError))
        return 0;
    if (Words.size() < 2 || std::find(Words.begin(), Words.end(), "") != Words.end())
    {
        *pError = "plot needs two file names, a data file and a picture";
        return 0;
    }
    pOptions->m_PictureFile = Words.back();
    Words.pop_back();
    pOptions->m_DataFiles = Words;
    *pError               = pOptions->m_Picture.m_bWindow ? WhyNoWindowTable(*pOptions)
                                                          : WhyNoTable(pOptions->m_Tables);
    return pError->empty();
}
