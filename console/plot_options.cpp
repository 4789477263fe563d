#include "console/plot_options.h"

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
    return Rows;
}

std::span<const cOptionRow> PlotOptionRows()
{
    static const std::vector<cOptionRow> s_Rows = MakeRows();
    return s_Rows;
}

int ParsePlotOptions(const std::vector<std::string> &Arguments, cPlotOptions *pOptions,
                     std::string *pError)
{
    std::vector<std::string> Words;
    if (!ReadOptions(PlotOptionRows(), Arguments, pOptions, &Words, pError))
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
