// dib_image.h - a picture in the layout of a device-independent bitmap, which
// screens, BMP files and the GIF encoder share.

#ifndef IMAGING_DIB_IMAGE_H
#define IMAGING_DIB_IMAGE_H

#include <cstddef>
#include <cstdint>

// A view that does not own the bytes.
struct cDibImage
{
    int32_t  m_nWidth;   // pixels, at least 1
    int32_t  m_nHeight;  // at least 1
    unsigned m_nBits;    // per pixel: 1, 4, 8, 16 or 24
    int      m_b555;     // at 16 bits: 1 for 5-5-5, 0 for 5-6-5

    // 2^bits entries of red, green, blue; none (null) at 16 and 24 bits.
    const uint8_t *m_pColours;

    // Rows from the bottom of the picture upwards, each DibRowBytes long. At 1
    // bit the first pixel is the top bit of the first byte, at 4 bits its high
    // nibble; 24 bits are blue, green, red.
    const uint8_t *m_pPixels;
};

// Bytes of a row, a multiple of 4: 5 pixels of 8 bits take 8 bytes. nWidth is
// not negative.
inline size_t DibRowBytes(int32_t nWidth, unsigned nBits)
{
    return (static_cast<size_t>(nWidth) * nBits + 31) / 32 * 4;
}

// Row nRow as it is stored: 0 is the bottom of the picture.
inline const uint8_t *StoredRow(const cDibImage &Image, int32_t nRow)
{
    return Image.m_pPixels + static_cast<size_t>(nRow) * DibRowBytes(Image.m_nWidth, Image.m_nBits);
}

// Pixel nX of a row of 1 or 4 bits.
inline uint8_t PackedPixel(const uint8_t *pRow, int32_t nX, unsigned nBits)
{
    if (nBits == 1)
        return static_cast<uint8_t>(pRow[nX / 8] >> (7 - nX % 8) & 1);
    return static_cast<uint8_t>(nX % 2 ? pRow[nX / 2] & 15 : pRow[nX / 2] >> 4);
}

#endif
