// window_picture.h - the options about a picture as the settings of a plot, whose
// window draws it: --window.

#ifndef CONSOLE_WINDOW_PICTURE_H
#define CONSOLE_WINDOW_PICTURE_H

#include <string>

#include "console/figure_options.h"

// "" or which option the window has nothing for.
std::string WhyNoWindow(const cFigureOptions &Options);

// What the automatic range depends on, for a plot that has no data yet.
void PrepareWindow(const cFigureOptions &Options, cVantorPlot *pPlot);

// Texts, range, ticks and looks, for a plot with its data.
void ApplyToWindow(const cFigureOptions &Options, cVantorPlot *pPlot);

#endif
