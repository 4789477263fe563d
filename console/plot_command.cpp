// plot_command.cpp - vorstek-cli plot: draws a data file as a picture.

#include "console/commands.h"
#include "console/plot_options.h"
#include "graph/graph_file_commands.h"
#include "graph/svg_file.h"

// The exit code reports a failure; questions are answered with Cancel.
class cQuietBoxes : public cMessageBoxes
{
public:
    eAnswer Ask(const char *, const char *, eButtons nButtons, eIcon) override
    {
        return nButtons == bnOk ? anOk : anCancel;
    }
    void PostQuit(int) override {}
};

// The settings that determine the automatic range, before the data is loaded.
static void SetUp(const cPlotOptions &Options, cVantorPlot *pPlot)
{
    pPlot->SetClientSize(Options.m_nWidth, Options.m_nHeight);
    pPlot->SetLegend(Options.m_bLegend);
    pPlot->SetGrid(Options.m_bGrid, Options.m_bGrid);
}

// Texts and type given as options replace those of the file.
static void Reformat(const cPlotOptions &Options, cVantorPlot *pPlot)
{
    if (Options.m_Title)
        pPlot->SetTitle(Options.m_Title->c_str());
    if (Options.m_Label)
        pPlot->SetHorzLabel(Options.m_Label->c_str());
    for (uint32_t nLine = 1; nLine <= pPlot->Count(); nLine++)
    {
        const cVantorDataSet &Set = *pPlot->DataSet(nLine);
        cVantorLineFormat     Format;
        Format.m_nGraphType = Options.m_nType;
        Format.m_crColor    = Set.m_crColor;
        Format.m_nWidth     = Set.m_nWidth;
        Format.m_nStyle     = Set.m_nStyle;
        pPlot->FormatDataSet(nLine, Format, Set.m_fMultiplier, Set.m_fOffset);
    }
}

int PlotCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cPlotOptions Options;
    std::string  Error;
    if (!ParsePlotOptions(Arguments, &Options, &Error))
        return ReportUsage(Streams, Error);

    cQuietBoxes Boxes;
    cVantorPlot Plot(&Boxes);
    SetUp(Options, &Plot);
    if (!OpenGraphFile(&Plot, &Boxes, Options.m_DataFile.c_str()))
        return ReportUsage(Streams, "cannot read '" + Options.m_DataFile + "'");
    Reformat(Options, &Plot);
    if (!SaveSvgFile(Plot, Options.m_nWidth, Options.m_nHeight, Options.m_PictureFile.c_str()))
        return ReportUsage(Streams, "cannot write '" + Options.m_PictureFile + "'");
    return kExitDone;
}
