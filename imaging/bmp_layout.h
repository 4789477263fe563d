// bmp_layout.h - the layout of a BMP file, byte by byte. The caller provides the
// pixels.

#ifndef IMAGING_BMP_LAYOUT_H
#define IMAGING_BMP_LAYOUT_H

#include <cstdint>

#include "imaging/byte_sink.h"

// Bytes of the head that each file begins with, before the information about
// the picture.
const uint32_t kBmpFileHead = 14;

// How pixels are stored: as they are, or with a mask for each channel.
const uint32_t kBmpPlainRgb  = 0;
const uint32_t kBmpBitFields = 3;

// Masks of red, green and blue, for 16 and for 32 bits a pixel.
const uint32_t kBmpMasks555[3] = {0x7C00, 0x03E0, 0x001F};
const uint32_t kBmpMasks888[3] = {0xFF0000, 0x00FF00, 0x0000FF};

struct cBmpDepth
{
    uint16_t m_nBits;     // per pixel: 1, 4, 8, 16, 24 or 32
    uint16_t m_nColours;  // entries of the colour table, 4 bytes each
    uint16_t m_nMasks;    // channel masks in its place, 4 bytes each
};

// Rounds a number of bits per pixel up to one that BMP files have: 2 gives 4
// bits and 16 colours, 9 gives 16 bits and 3 masks, anything above 24 gives 32.
// Returns 0 for 0 bits.
int ChooseBmpDepth(unsigned nBits, cBmpDepth *pDepth);

// Bytes of all rows, each padded to a multiple of 4. The size is not negative.
uint32_t BmpImageBytes(unsigned nBits, int32_t nWidth, int32_t nHeight);

struct cBmpImage
{
    int32_t        m_nWidth;
    int32_t        m_nHeight;
    cBmpDepth      m_Depth;
    uint32_t       m_nImageBytes;
    const uint8_t *m_pColours;  // m_nColours entries of blue, green, red, 0
    const uint8_t *m_pPixels;   // m_nImageBytes, rows from the bottom up
};

// Writes the file in three pieces: head, information with its table, pixels. At
// 16 bits the masks say 5-5-5, at 32 bits 8-8-8. Returns 0, and writes nothing
// more, once a write fails.
int WriteBmp(cByteSink *pSink, const cBmpImage &Image);

#endif
