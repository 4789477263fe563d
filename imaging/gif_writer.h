// gif_writer.h - a GIF file of one picture with 2, 16 or 256 colours.

#ifndef IMAGING_GIF_WRITER_H
#define IMAGING_GIF_WRITER_H

#include <cstdint>

#include "imaging/byte_sink.h"
#include "imaging/dib_image.h"

enum eGifResult
{
    grWritten      = 0,
    grNoWorkBuffer = 1,  // 32768 bytes could not be allocated
    grBadDepth     = 2,  // bits per pixel are not 1, 4 or 8
    grFailed       = 8   // a write failed, or 71108 bytes could not be allocated
};

// Writes the picture as a complete GIF file. szOptions is described in
// gif_options.h; "" gives a GIF87a file, not interlaced, with nothing
// transparent. Sizes keep their low 16 bits. After a failed write nothing more
// is written; the caller closes and removes the file.
eGifResult WriteGifFile(cByteSink *pSink, const cDibImage &Image, const char *szOptions);

// Enumerates the rows of a picture in the order in which they are written. When
// interlaced, 10 rows are written in the order 0 8 4 2 6 1 3 5 7 9.
class cGifRows
{
public:
    cGifRows(int32_t nHeight, int bInterlaced);

    // The next row, 0 is the top of the picture; -1 after the last.
    int32_t Next();

private:
    int32_t  m_nHeight;
    int32_t  m_nRow;   // the next one
    unsigned m_nPass;  // of interlacing, 0 to 3; 4: not interlaced
};

#endif
