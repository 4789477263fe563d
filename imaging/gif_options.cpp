#include "imaging/gif_options.h"

#include <cstring>

// The text after the keyword's first occurrence, or null.
static const char *FindOption(const char *szOptions, const char *szKeyword)
{
    const char *const pFound = strstr(szOptions, szKeyword);
    return pFound ? pFound + strlen(szKeyword) : nullptr;
}

// The number at pText modulo 2^32.
static uint32_t NumberAt(const char *pText)
{
    const int bNegative = *pText == '-';
    if (*pText == '-' || *pText == '+')
        pText++;
    uint32_t nValue = 0;
    for (; *pText >= '0' && *pText <= '9'; pText++)
        nValue = 10 * nValue + static_cast<uint32_t>(*pText - '0');
    return bNegative ? 0 - nValue : nValue;
}

static uint32_t NumberOption(const char *szOptions, const char *szKeyword, uint32_t nDefault)
{
    const char *const pText = FindOption(szOptions, szKeyword);
    return pText ? NumberAt(pText) : nDefault;
}

// The bottom left pixel is the first of the pixel data.
static uint8_t EdgeColour(const cDibImage &Image)
{
    return Image.m_nBits == 8 ? Image.m_pPixels[0] : PackedPixel(Image.m_pPixels, 0, Image.m_nBits);
}

cGifOptions ParseGifOptions(const char *szOptions, const cDibImage &Image)
{
    const auto Number = [szOptions](const char *szKeyword, int32_t nDefault) {
        return NumberOption(szOptions, szKeyword, static_cast<uint32_t>(nDefault));
    };
    cGifOptions Options     = {};
    Options.m_bInterlaced   = FindOption(szOptions, "ilace") != nullptr;
    Options.m_nScreenWidth  = static_cast<uint16_t>(Number("xscreen=", Image.m_nWidth));
    Options.m_nScreenHeight = static_cast<uint16_t>(Number("yscreen=", Image.m_nHeight));
    Options.m_nBackground   = static_cast<uint8_t>(Number("background=", 0));
    Options.m_nLeft         = static_cast<uint16_t>(Number("xpos=", 0));
    Options.m_nTop          = static_cast<uint16_t>(Number("ypos=", 0));

    const char *const pTransparent = FindOption(szOptions, "transcol=");
    if (!pTransparent)
        return Options;
    Options.m_bTransparent = 1;
    Options.m_nTransparent = strncmp(pTransparent, "edge", 4) == 0
                                 ? EdgeColour(Image)
                                 : static_cast<uint8_t>(NumberAt(pTransparent));
    return Options;
}
