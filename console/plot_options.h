// plot_options.h - the arguments of "vorstek-cli plot".

#ifndef CONSOLE_PLOT_OPTIONS_H
#define CONSOLE_PLOT_OPTIONS_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "console/option_table.h"
#include "graph/vantor_plot.h"

// Coordinates of drawn points fit the 16 bits of the platform's drawing
// functions; no picture is larger.
const int kMostPictureSize = 16383;

struct cPlotOptions
{
    std::string                m_DataFile;
    std::string                m_PictureFile;
    std::optional<std::string> m_Title;  // default: the file's
    std::optional<std::string> m_Label;
    uint32_t                   m_nType   = gtPlot;
    int                        m_bGrid   = 0;
    int                        m_bLegend = 1;
    int                        m_nWidth  = kPlotWidth;  // pixels
    int                        m_nHeight = kPlotHeight;
};

std::span<const cOptionRow> PlotOptionRows();

// 1, or 0 with a one-line error.
int ParsePlotOptions(const std::vector<std::string> &Arguments, cPlotOptions *pOptions,
                     std::string *pError);

#endif
