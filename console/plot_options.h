// plot_options.h - what stands behind "vorstek-cli plot".

#ifndef CONSOLE_PLOT_OPTIONS_H
#define CONSOLE_PLOT_OPTIONS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "graph/vantor_plot.h"

// The coordinates of a drawn point are within the 16 bits of the platform's
// drawing calls; a picture is no larger.
const int kMostPictureSize = 16383;

struct cPlotOptions
{
    std::string                m_DataFile;
    std::string                m_PictureFile;
    std::optional<std::string> m_Title;  // else that of the file
    std::optional<std::string> m_Label;
    uint32_t                   m_nType   = gtPlot;
    int                        m_bGrid   = 0;
    int                        m_bLegend = 1;
    int                        m_nWidth  = kPlotWidth;  // pixels
    int                        m_nHeight = kPlotHeight;
};

// 1, or 0 with what is wrong, in one line.
int ParsePlotOptions(const std::vector<std::string> &Arguments, cPlotOptions *pOptions,
                     std::string *pError);

#endif
