// palette.h - colours of data lines that nobody has chosen.
// Pure: a table, and what a test calculates from it.

#ifndef FIGURE_PALETTE_H
#define FIGURE_PALETTE_H

#include <cstdint>
#include <span>
#include <string_view>

// A colour on a white page and on a dark one, 0x00BBGGRR.
struct cInk
{
    uint32_t m_crLight;
    uint32_t m_crDark;
};

struct cPalette
{
    const char           *m_szName;
    std::span<const cInk> m_Inks;
};

std::span<const cPalette> Palettes();
const cPalette           &DefaultPalette();

// Null if there is none of this name.
const cPalette *FindPalette(std::string_view Name);

// Of everything but the data lines.
extern const cInk kGround;
extern const cInk kInk;  // texts, frame and ticks
extern const cInk kGrid;

#endif
