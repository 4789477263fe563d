// plot_command.cpp - vorstek-cli plot: draws a data file as a picture.

#include "console/commands.h"
#include "console/input_file.h"
#include "console/plot_options.h"
#include "console/table_input.h"
#include "console/window_picture.h"
#include "graph/graph_file_commands.h"

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

static int PlotTables(const cPlotOptions &Options, const cPictureFile &File,
                      const cStreams &Streams)
{
    cTableInput Tables(Options.m_Tables, Streams,
                       HasScatter(Options.m_Picture.m_Figure) ? kMostKeptWithMarkers
                                                              : kMostKeptValues);
    const int   nExitCode = Tables.Load(Options.m_DataFiles);
    if (nExitCode != kExitDone)
        return nExitCode;
    if (ReportMissingLines(Options.m_Picture, Tables.Lines(), Streams) &&
        Options.m_Tables.m_bStrict)
        return RefuseStrictly(Streams);
    return SaveFigurePicture(Options.m_Picture, File, &Tables, Streams);
}

// As the window opens and draws a data file.
static int PlotWindow(const cPlotOptions &Options, const cPictureFile &File,
                      const cStreams &Streams)
{
    const std::string &Name = Options.m_DataFiles[0];
    cQuietBoxes        Boxes;
    cVantorPlot        Plot(&Boxes);
    PrepareWindow(Options.m_Picture, &Plot);
    if (!IsRegularInput(Name, Streams))
        return kExitUsage;
    if (!OpenGraphFile(&Plot, &Boxes, Name.c_str()))
        return ReportUsage(Streams, "cannot read '" + Name + "'");
    static_cast<void>(ReportMissingLines(Options.m_Picture, Plot.Count(), Streams));
    return SaveWindowPicture(Options.m_Picture, File, &Plot, Streams);
}

int PlotCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cPlotOptions Options;
    cPictureFile File;
    std::string  Error;
    if (!ParsePlotOptions(Arguments, &Options, &Error) ||
        !ChoosePicture(Options.m_Picture, Options.m_PictureFile, &File, &Error))
        return ReportUsage(Streams, Error);
    if (!IsNoInput(Options.m_PictureFile, Options.m_DataFiles, Streams))
        return kExitUsage;
    NameFigure(Options.m_DataFiles, &Options.m_Picture);
    Options.m_Picture.m_Figure.m_bStrict = Options.m_Tables.m_bStrict;
    return Options.m_Picture.m_bWindow ? PlotWindow(Options, File, Streams)
                                       : PlotTables(Options, File, Streams);
}
