// fitted_text.h - texts in as much room as there is.

#ifndef FIGURE_FITTED_TEXT_H
#define FIGURE_FITTED_TEXT_H

#include <string>
#include <vector>

#include "figure/figure_canvas.h"

// The text, or as much of its beginning as fits into dWidth pixels with an ellipsis.
std::string FitText(const cFigureCanvas &Canvas, const std::string &CleanedText,
                    const cTextStyle &Style, double dWidth);

// The text in lines of at most dWidth pixels, broken at blanks; the last of nMost
// lines ends in an ellipsis if the text is longer. No lines for an empty text.
std::vector<std::string> WrapText(const cFigureCanvas &Canvas, const std::string &CleanedText,
                                  const cTextStyle &Style, double dWidth, size_t nMost);

#endif
