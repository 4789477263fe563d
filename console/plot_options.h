// plot_options.h - the arguments of "vorstek-cli plot".

#ifndef CONSOLE_PLOT_OPTIONS_H
#define CONSOLE_PLOT_OPTIONS_H

#include <span>
#include <string>
#include <vector>

#include "console/figure_options.h"
#include "console/option_table.h"
#include "console/table_options.h"

struct cPlotOptions
{
    std::vector<std::string> m_DataFiles;    // "-" is standard input
    std::string              m_PictureFile;  // "-" is standard output
    cFigureOptions           m_Picture;
    cTableOptions            m_Tables;
};

std::span<const cOptionRow> PlotOptionRows();

// 1, or 0 with a one-line error.
int ParsePlotOptions(const std::vector<std::string> &Arguments, cPlotOptions *pOptions,
                     std::string *pError);

#endif
