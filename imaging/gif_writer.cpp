#include "imaging/gif_writer.h"

#include <algorithm>
#include <memory>
#include <new>

#include "imaging/gif_options.h"
#include "imaging/little_endian.h"
#include "imaging/lzw_encoder.h"

static const struct
{
    int32_t m_nStart;
    int32_t m_nStep;
} s_Passes[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}, {0, 1}};

static const unsigned kLastPass = 3;
static const unsigned kOnlyPass = 4;

cGifRows::cGifRows(int32_t nHeight, int bInterlaced)
    : m_nHeight(nHeight), m_nRow(0), m_nPass(bInterlaced ? 0 : kOnlyPass)
{
}

int32_t cGifRows::Next()
{
    while (m_nRow >= m_nHeight && m_nPass < kLastPass)
        m_nRow = s_Passes[++m_nPass].m_nStart;
    if (m_nRow >= m_nHeight)
        return -1;
    const int32_t nRow = m_nRow;
    m_nRow += s_Passes[m_nPass].m_nStep;
    return nRow;
}

// "GIF87a", or "GIF89a" if a feature needs that version. Logical screen:
//   0 u16 width   2 u16 height   4 u8 flags   5 u8 background   6 u8 aspect 0
// flags: 0x80 a colour table follows, bits - 1 twice: of a colour, of the table
static int PutHead(cByteSink *pSink, const cDibImage &Image, const cGifOptions &Options)
{
    uint8_t Screen[7] = {};
    StoreU16(Screen + 0, Options.m_nScreenWidth);
    StoreU16(Screen + 2, Options.m_nScreenHeight);
    Screen[4] = static_cast<uint8_t>(0x80 | (Image.m_nBits - 1) * 16 | (Image.m_nBits - 1));
    Screen[5] = Options.m_nBackground;
    return pSink->Write(Options.m_bTransparent ? "GIF89a" : "GIF87a", 6) &&
           pSink->Write(Screen, sizeof Screen) &&
           pSink->Write(Image.m_pColours, size_t(3) << Image.m_nBits);
}

// Graphic control extension:
//   0 u8 0x21   1 u8 0xF9   2 u8 size 4   3 u8 flags: 1 a colour is transparent
//   4 u16 delay 0   6 u8 transparent colour   7 u8 end 0
static int PutTransparency(cByteSink *pSink, const cGifOptions &Options)
{
    if (!Options.m_bTransparent)
        return 1;
    const uint8_t Extension[8] = {0x21, 0xF9, 4, 1, 0, 0, Options.m_nTransparent, 0};
    return pSink->Write(Extension, sizeof Extension);
}

// Image descriptor:
//   0 u8 0x2C   1 u16 left   3 u16 top   5 u16 width   7 u16 height   9 u8 flags
// flags: 0x40 interlaced. The low bits are the size of a table that would follow
// if 0x80 were set; they are filled in although none does, and readers ignore
// them. The minimum code size follows, which is never 1.
static int PutImageHead(cByteSink *pSink, const cDibImage &Image, const cGifOptions &Options,
                        unsigned nMinimumSize)
{
    uint8_t Head[11] = {0x2C};
    StoreU16(Head + 1, Options.m_nLeft);
    StoreU16(Head + 3, Options.m_nTop);
    StoreU16(Head + 5, static_cast<uint32_t>(Image.m_nWidth));
    StoreU16(Head + 7, static_cast<uint32_t>(Image.m_nHeight));
    Head[9]  = static_cast<uint8_t>((Image.m_nBits - 1) | (Options.m_bInterlaced ? 0x40 : 0));
    Head[10] = static_cast<uint8_t>(nMinimumSize);
    return pSink->Write(Head, sizeof Head);
}

// Feeds a row of 1 or 4 bits, unpacked piece by piece.
static int AddPackedRow(cLzwEncoder *pEncoder, const cDibImage &Image, const uint8_t *pRow)
{
    uint8_t Pixels[512];
    int     bWritten = 1;
    for (int32_t nX = 0; nX < Image.m_nWidth && bWritten;)
    {
        const int32_t nPixels = std::min<int32_t>(sizeof Pixels, Image.m_nWidth - nX);
        for (int32_t i = 0; i < nPixels; i++)
            Pixels[i] = PackedPixel(pRow, nX + i, Image.m_nBits);
        bWritten = pEncoder->Add(Pixels, static_cast<size_t>(nPixels));
        nX += nPixels;
    }
    return bWritten;
}

static int PutPixels(cLzwEncoder *pEncoder, const cDibImage &Image, int bInterlaced)
{
    cGifRows Rows(Image.m_nHeight, bInterlaced);
    for (int32_t nRow = Rows.Next(); nRow >= 0; nRow = Rows.Next())
    {
        const uint8_t *const pRow     = StoredRow(Image, Image.m_nHeight - 1 - nRow);
        const int            bWritten = Image.m_nBits == 8
                                            ? pEncoder->Add(pRow, static_cast<size_t>(Image.m_nWidth))
                                            : AddPackedRow(pEncoder, Image, pRow);
        if (!bWritten)
            return 0;
    }
    return pEncoder->Finish();
}

eGifResult WriteGifFile(cByteSink *pSink, const cDibImage &Image, const char *szOptions)
{
    if (Image.m_nBits != 1 && Image.m_nBits != 4 && Image.m_nBits != 8)
        return grBadDepth;
    const std::unique_ptr<cLzwRecord[]> pRecords(new (std::nothrow) cLzwRecord[kLzwRecords]);
    if (!pRecords)
        return grNoWorkBuffer;
    const std::unique_ptr<uint32_t[]> pSlots(new (std::nothrow) uint32_t[kLzwSlots]);
    if (!pSlots)
        return grFailed;

    const cGifOptions Options      = ParseGifOptions(szOptions, Image);
    const unsigned    nMinimumSize = Image.m_nBits == 1 ? 2 : Image.m_nBits;
    if (!PutHead(pSink, Image, Options) || !PutTransparency(pSink, Options) ||
        !PutImageHead(pSink, Image, Options, nMinimumSize))
        return grFailed;
    cLzwEncoder Encoder(pRecords.get(), pSlots.get(), nMinimumSize, pSink);
    if (!PutPixels(&Encoder, Image, Options.m_bInterlaced))
        return grFailed;
    const uint8_t kTrailer = 0x3B;
    return pSink->Write(&kTrailer, 1) ? grWritten : grFailed;
}
