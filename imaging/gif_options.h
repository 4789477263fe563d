// gif_options.h - the option string of the GIF encoder.

#ifndef IMAGING_GIF_OPTIONS_H
#define IMAGING_GIF_OPTIONS_H

#include <cstdint>

#include "imaging/dib_image.h"

struct cGifOptions
{
    int      m_bInterlaced;
    uint16_t m_nScreenWidth;
    uint16_t m_nScreenHeight;
    uint8_t  m_nBackground;  // index of a colour
    uint16_t m_nLeft;        // of the image on the screen
    uint16_t m_nTop;
    int      m_bTransparent;
    uint8_t  m_nTransparent;  // index of a colour; 0 if none is transparent
};

// Searches szOptions for keywords, in any order and with anything between them:
//
//     "ilace"          the rows are interlaced
//     "xscreen=640"    width of the screen; default: the image's
//     "yscreen=480"    height of the screen
//     "background=7"   index of the background colour
//     "xpos=10"        left edge of the image on the screen
//     "ypos=10"        top edge
//     "transcol=3"     index of the transparent colour
//     "transcol=edge"  the colour of the image's bottom left pixel
//
// Small letters only; the first occurrence of a keyword counts. A number
// is decimal, may have a sign, ends at the first other character and keeps its
// low 16 or 8 bits: "xpos=-1" is 65535, "xpos=x" is 0.
cGifOptions ParseGifOptions(const char *szOptions, const cDibImage &Image);

#endif
