// figure_texts.h - what is written in a figure, beside numbers.

#ifndef FIGURE_FIGURE_TEXTS_H
#define FIGURE_FIGURE_TEXTS_H

#include <string>
#include <vector>

#include "figure/figure.h"
#include "figure/point_source.h"

// The texts of a figure, clean UTF-8.
struct cFigureTexts
{
    std::string              m_Title;  // "" for none, as the two below
    std::string              m_XLabel;
    std::string              m_YLabel;
    std::vector<std::string> m_LineLabels;
};

// What the figure says, of its own and of the source's texts. A single data line's
// label is that of the vertical axis.
cFigureTexts TextsOfFigure(const cFigure &Figure, const cPointSource &Source);

#endif
