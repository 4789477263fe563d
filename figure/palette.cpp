#include "figure/palette.h"

#include <algorithm>

#include "graph/vantor_data_set.h"

const cInk kGround = {kWhite, MakeColour(0x16, 0x18, 0x1D)};
const cInk kInk    = {MakeColour(0x22, 0x22, 0x22), MakeColour(0xDD, 0xDD, 0xDD)};
const cInk kGrid   = {MakeColour(0xDD, 0xDD, 0xDD), MakeColour(0x3C, 0x40, 0x48)};

// 0xRRGGBB, as usual.
static constexpr cInk Ink(uint32_t nLight, uint32_t nDark)
{
    return {MakeColour(nLight >> 16, nLight >> 8 & 0xFF, nLight & 0xFF),
            MakeColour(nDark >> 16, nDark >> 8 & 0xFF, nDark & 0xFF)};
}

// Found by a random search that began at the colours of Wong, Nature Methods 8
// (2011) 441, and raised the least distance between two colours in CIELAB, as seen
// without and with either kind of red-green blindness (Machado, Oliveira and
// Fernandes, IEEE TVCG 15 (2009) 1291), while each kept a contrast of 3:1 to the
// ground (WCAG 2.1, 1.4.11). The yellow and the light blue that are usual in such
// palettes cannot have that on white.
static constexpr cInk s_Default[] = {
    Ink(0x14548A, 0x736CFA), Ink(0xA93200, 0xC86F1F), Ink(0x049962, 0x49795F),
    Ink(0xD28100, 0xECEA1D), Ink(0x238EE7, 0x97B5FB), Ink(0xAC86A9, 0xBBDBD6),
    Ink(0x222222, 0xFDFFB2),
};

// By the same search from saturated colours.
static constexpr cInk s_Bright[] = {
    Ink(0x2539FF, 0x7569F9), Ink(0xB90825, 0xFC6348), Ink(0x22A778, 0x58F4A8),
    Ink(0x7B0898, 0xAF7BC8), Ink(0xF6670E, 0xFBD11A), Ink(0x00A2B6, 0x81FFFF),
};

// For print without colours: evenly spaced in lightness, then dashes.
static constexpr cInk s_Grey[] = {
    Ink(0x000000, 0xFFFFFF),
    Ink(0x595959, 0xA6A6A6),
    Ink(0x8C8C8C, 0x747474),
};

static const cPalette s_Palettes[] = {
    {"default", s_Default}, {"bright", s_Bright}, {"grey", s_Grey}};

std::span<const cPalette> Palettes()
{
    return s_Palettes;
}

const cPalette &DefaultPalette()
{
    return s_Palettes[0];
}

const cPalette *FindPalette(std::string_view Name)
{
    const auto *const pFound =
        std::find_if(std::begin(s_Palettes), std::end(s_Palettes),
                     [Name](const cPalette &Palette) { return Name == Palette.m_szName; });
    return pFound == std::end(s_Palettes) ? nullptr : pFound;
}
