// bmp_reader.h - reads BMP files of other programs: 1, 4, 8, 16, 24 and 32 bits,
// not compressed, with or without channel masks, from the bottom up or from the
// top down, with the Windows headers of 40 bytes and more or the OS/2 ones.

#ifndef IMAGING_BMP_READER_H
#define IMAGING_BMP_READER_H

#include <cstdint>
#include <memory>

#include "imaging/byte_source.h"
#include "imaging/dib_image.h"

// No side of a picture is longer, because a GIF could not store it.
const int32_t kLongestSide = 65535;

// A picture that owns its bytes.
struct cBmpPicture
{
    int32_t                    m_nWidth  = 0;
    int32_t                    m_nHeight = 0;
    unsigned                   m_nBits   = 0;  // 1, 4, 8, 16 or 24
    int                        m_b555    = 0;
    uint8_t                    m_Colours[3 * 256];
    std::unique_ptr<uint8_t[]> m_pPixels;

    // A view of this object, as input of the reduction.
    cDibImage Dib() const
    {
        return {m_nWidth, m_nHeight, m_nBits, m_b555, m_Colours, m_pPixels.get()};
    }
};

// Reads a picture, whatever the bytes are. Pixels of 32 bits, and of 16 bits with
// masks other than 5-5-5 and 5-6-5, become 24 bits: of a wider channel the upper
// 8 bits are kept, of a narrower one the low bits are 0. Transparency is ignored.
// An index beyond the end of the colour table is black. In addition to the result
// one row is allocated, and nothing for pixels that the source does not have.
//
// Returns 1, or 0 and an error in *pszError, such as "is compressed", to be
// appended to the file's name.
int ReadBmp(cByteSource *pSource, cBmpPicture *pPicture, const char **pszError);

#endif
