// figure_about.h - what a figure says about itself to those who cannot see it.

#ifndef FIGURE_FIGURE_ABOUT_H
#define FIGURE_FIGURE_ABOUT_H

#include "figure/figure.h"
#include "figure/figure_canvas.h"
#include "figure/figure_extents.h"
#include "figure/figure_texts.h"
#include "figure/point_source.h"

// Title and description, without a style. A figure without a title is called after its
// labels, "height, speed over seconds"; without these by its name; and else a plot.
cFigureAbout AboutFigure(const cFigure &Figure, const cPointSource &Source,
                         const cFigureTexts &Texts, const cFigureExtents &Extents);

#endif
