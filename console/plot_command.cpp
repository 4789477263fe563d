// plot_command.cpp - vorstek-cli plot: draws a data file as a picture.

#include "console/commands.h"
#include "console/plot_options.h"
#include "console/window_picture.h"
#include "figure/plot_source.h"
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

int PlotCommand(const std::vector<std::string> &Arguments, const cStreams &Streams)
{
    cPlotOptions Options;
    cPictureFile File;
    std::string  Error;
    if (!ParsePlotOptions(Arguments, &Options, &Error) ||
        !ChoosePicture(Options.m_Picture, Options.m_PictureFile, &File, &Error))
        return ReportUsage(Streams, Error);

    cQuietBoxes Boxes;
    cVantorPlot Plot(&Boxes);
    PrepareWindow(Options.m_Picture, &Plot);
    if (!OpenGraphFile(&Plot, &Boxes, Options.m_DataFile.c_str()))
        return ReportUsage(Streams, "cannot read '" + Options.m_DataFile + "'");
    if (Options.m_Picture.m_bWindow)
        return SaveWindowPicture(Options.m_Picture, File, &Plot, Streams);
    cPlotSource Source(Plot);
    return SaveFigurePicture(Options.m_Picture, File, &Source, Streams);
}
