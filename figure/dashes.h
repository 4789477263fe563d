// dashes.h - the line styles of a figure.

#ifndef FIGURE_DASHES_H
#define FIGURE_DASHES_H

#include <cstdint>
#include <span>

// Drawn and left out, in turn, in widths of the line. Empty for a solid line and
// for styles that there are none of.
std::span<const double> DashesOfStyle(uint32_t nStyle);

#endif
