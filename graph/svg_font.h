// svg_font.h - the width of texts in an SVG file. The viewer draws them, but the
// layout has to know before. The figures are the advance widths of
// Liberation Sans, in units of 2048 to the em; Arial and Helvetica have the same.
// Pure: no canvas, no file.

#ifndef GRAPH_SVG_FONT_H
#define GRAPH_SVG_FONT_H

#include <string_view>

const char *const kSvgFontFamily = "Liberation Sans, Arial, Helvetica, sans-serif";

// Pixels.
const int kSvgFontSize   = 14;
const int kSvgTextHeight = 16;  // of a line
const int kSvgAscent     = 13;  // from the top of a line to its base line

// The width of a text in UTF-8, rounded to whole pixels: "M" is 12 wide, "-2.5"
// 24. Characters beyond Latin-1 have a common width for each script, at least that of
// a digit; those of Chinese, Japanese and Korean fill a square. Invalid bytes count as
// wide as a digit.
int SvgTextWidth(const char *szText);

// The same, not rounded, in parts of the size of the font: "M" is 0.833 wide.
double SvgTextEms(std::string_view Text);

#endif
