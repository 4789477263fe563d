#include "figure/palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include <doctest/doctest.h>

namespace
{

typedef std::array<double, 3>  cTriple;
typedef std::array<cTriple, 3> cMatrix;

}  // namespace

// Vision without red and without green receptors, on linear light: Machado, Oliveira
// and Fernandes, IEEE TVCG 15 (2009) 1291, severity 1.
static const cMatrix kNormal       = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
static const cMatrix kProtanopia   = {{{0.152286, 1.052583, -0.204868},
                                       {0.114503, 0.786281, 0.099216},
                                       {-0.003882, -0.048116, 1.051998}}};
static const cMatrix kDeuteranopia = {{{0.367322, 0.860646, -0.227968},
                                       {0.280085, 0.672501, 0.047413},
                                       {-0.011820, 0.042940, 0.968881}}};

// Linear light to CIE XYZ (sRGB, IEC 61966-2-1), white being 1, 1, 1.
static const cMatrix kToXyz = {{{0.4124564 / 0.95047, 0.3575761 / 0.95047, 0.1804375 / 0.95047},
                                {0.2126729, 0.7151522, 0.0721750},
                                {0.0193339 / 1.08883, 0.1191920 / 1.08883, 0.9503041 / 1.08883}}};

static cTriple Times(const cMatrix &Matrix, const cTriple &Triple)
{
    cTriple Product = {};
    for (size_t nRow = 0; nRow < 3; nRow++)
        for (size_t n = 0; n < 3; n++)
            Product[nRow] += Matrix[nRow][n] * Triple[n];
    return Product;
}

static double LinearLight(uint32_t nByte)
{
    const double dPart = nByte / 255.0;
    return dPart <= 0.04045 ? dPart / 12.92 : std::pow((dPart + 0.055) / 1.055, 2.4);
}

static cTriple LightOf(uint32_t crColour)
{
    return {LinearLight(crColour & 0xFF), LinearLight(crColour >> 8 & 0xFF),
            LinearLight(crColour >> 16 & 0xFF)};
}

// WCAG 2.1: 1 for equal colours, 21 for black and white.
static double Contrast(uint32_t crFirst, uint32_t crSecond)
{
    const double dFirst  = Times(kToXyz, LightOf(crFirst))[1] + 0.05;
    const double dSecond = Times(kToXyz, LightOf(crSecond))[1] + 0.05;
    return std::max(dFirst, dSecond) / std::min(dFirst, dSecond);
}

static double LabPart(double dValue)
{
    return dValue > 216.0 / 24389 ? std::cbrt(dValue) : (24389.0 / 27 * dValue + 16) / 116;
}

static cTriple LabOf(uint32_t crColour, const cMatrix &Eye)
{
    cTriple Light = Times(Eye, LightOf(crColour));
    for (double &dPart : Light)
        dPart = std::clamp(dPart, 0.0, 1.0);
    const cTriple Xyz = Times(kToXyz, Light);
    const double  dX  = LabPart(Xyz[0]);
    const double  dY  = LabPart(Xyz[1]);
    const double  dZ  = LabPart(Xyz[2]);
    return {116 * dY - 16, 500 * (dX - dY), 200 * (dY - dZ)};
}

static double Distance(const cTriple &First, const cTriple &Second)
{
    return std::hypot(First[0] - Second[0], First[1] - Second[1], First[2] - Second[2]);
}

static double LeastDistance(const std::vector<uint32_t> &Colours, const cMatrix &Eye)
{
    double dLeast = 1e9;
    for (size_t nFirst = 0; nFirst < Colours.size(); nFirst++)
        for (size_t nSecond = 0; nSecond < nFirst; nSecond++)
            dLeast = std::min(dLeast,
                              Distance(LabOf(Colours[nFirst], Eye), LabOf(Colours[nSecond], Eye)));
    return dLeast;
}

static std::vector<uint32_t> ColoursOf(const cPalette &Palette, uint32_t cInk::*pPage)
{
    std::vector<uint32_t> Colours;
    for (const cInk &Ink : Palette.m_Inks)
        Colours.push_back(Ink.*pPage);
    return Colours;
}

TEST_CASE("all colours have a contrast of 3:1 to the ground")
{
    CHECK(Contrast(0x000000, 0xFFFFFF) == doctest::Approx(21.0));
    CHECK(Contrast(0x00FFFF, 0xFFFFFF) == doctest::Approx(1.07).epsilon(0.01));  // yellow
    for (const cPalette &Palette : Palettes())
        for (const cInk &Ink : Palette.m_Inks)
        {
            CAPTURE(Palette.m_szName);
            CAPTURE(Ink.m_crLight);
            CHECK(Contrast(Ink.m_crLight, kGround.m_crLight) >= 3.0);
            CHECK(Contrast(Ink.m_crDark, kGround.m_crDark) >= 3.0);
        }
    CHECK(Contrast(kInk.m_crLight, kGround.m_crLight) >= 7.0);
    CHECK(Contrast(kInk.m_crDark, kGround.m_crDark) >= 7.0);
}

// A distance of 2.3 is just noticeable; thin lines need several times that.
TEST_CASE("colours differ for every eye, with and without red-green blindness")
{
    const std::vector<uint32_t> RedAndGreen = {0x0040C0, 0x307080};
    CHECK(LeastDistance(RedAndGreen, kNormal) > 45.0);
    CHECK(LeastDistance(RedAndGreen, kDeuteranopia) < 20.0);
    for (const cPalette &Palette : Palettes())
        for (uint32_t cInk::*const pPage : {&cInk::m_crLight, &cInk::m_crDark})
            for (const cMatrix *const pEye : {&kNormal, &kProtanopia, &kDeuteranopia})
            {
                const double dWanted = std::string(Palette.m_szName) == "grey" ? 19.0 : 26.0;
                CAPTURE(Palette.m_szName);
                CHECK(LeastDistance(ColoursOf(Palette, pPage), *pEye) >= dWanted);
            }
}

TEST_CASE("palettes are found by their names")
{
    for (const cPalette &Palette : Palettes())
        CHECK(FindPalette(Palette.m_szName) == &Palette);
    CHECK(FindPalette("default") == &DefaultPalette());
    CHECK(FindPalette("Default") == nullptr);
    CHECK(FindPalette("") == nullptr);
}
