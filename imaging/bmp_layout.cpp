#include "imaging/bmp_layout.h"

#include <cstring>

#include "imaging/dib_image.h"
#include "imaging/little_endian.h"

static const uint32_t kInfoHead    = 40;
static const uint32_t kMostColours = 256;

int ChooseBmpDepth(unsigned nBits, cBmpDepth *pDepth)
{
    static const struct
    {
        unsigned  m_nUpTo;
        cBmpDepth m_Depth;
    } s_Depths[] = {
        {1, {1, 2, 0}}, {4, {4, 16, 0}}, {8, {8, 256, 0}}, {16, {16, 0, 3}}, {24, {24, 0, 0}},
    };

    if (nBits == 0)
        return 0;
    *pDepth = {32, 0, 3};
    for (const auto &Row : s_Depths)
    {
        if (nBits > Row.m_nUpTo)
            continue;
        *pDepth = Row.m_Depth;
        break;
    }
    return 1;
}

uint32_t BmpImageBytes(unsigned nBits, int32_t nWidth, int32_t nHeight)
{
    return static_cast<uint32_t>(DibRowBytes(nWidth, nBits) * static_cast<size_t>(nHeight));
}

// File head:
//   0 u16 "BM"   2 u32 file size   6 u16 0   8 u16 0   10 u32 offset of the pixels
static int PutFileHead(cByteSink *pSink, uint32_t nInfoBytes, uint32_t nImageBytes)
{
    uint8_t Head[kBmpFileHead] = {'B', 'M'};
    StoreU32(Head + 2, kBmpFileHead + nInfoBytes + nImageBytes);
    StoreU32(Head + 10, kBmpFileHead + nInfoBytes);
    return pSink->Write(Head, sizeof Head);
}

static void StoreMasks(uint8_t *pTable, const uint32_t (&Masks)[3])
{
    for (const uint32_t nMask : Masks)
    {
        StoreU32(pTable, nMask);
        pTable += 4;
    }
}

// Information:
//   0 u32 size 40          4 i32 width     8 i32 height   12 u16 planes 1
//  14 u16 bits per pixel  16 u32 compression              20 u32 image size
//  24 i32 resolution 0    28 i32 resolution 0
//  32 u32 colours used    36 u32 important colours 0
// The colours or the masks follow.
static int PutInfo(cByteSink *pSink, const cBmpImage &Image, uint32_t nInfoBytes)
{
    uint8_t Info[kInfoHead + 4 * kMostColours] = {};
    StoreU32(Info + 0, kInfoHead);
    StoreU32(Info + 4, static_cast<uint32_t>(Image.m_nWidth));
    StoreU32(Info + 8, static_cast<uint32_t>(Image.m_nHeight));
    StoreU16(Info + 12, 1);
    StoreU16(Info + 14, Image.m_Depth.m_nBits);
    StoreU32(Info + 16, Image.m_Depth.m_nMasks ? kBmpBitFields : kBmpPlainRgb);
    StoreU32(Info + 20, Image.m_nImageBytes);
    StoreU32(Info + 32, Image.m_Depth.m_nColours);

    uint8_t *const pTable = Info + kInfoHead;
    if (Image.m_Depth.m_nColours)
        memcpy(pTable, Image.m_pColours, 4u * Image.m_Depth.m_nColours);
    if (Image.m_Depth.m_nMasks)
        StoreMasks(pTable, Image.m_Depth.m_nBits == 16 ? kBmpMasks555 : kBmpMasks888);
    return pSink->Write(Info, nInfoBytes);
}

int WriteBmp(cByteSink *pSink, const cBmpImage &Image)
{
    const uint32_t nInfoBytes =
        kInfoHead + 4u * (Image.m_Depth.m_nColours + Image.m_Depth.m_nMasks);
    return PutFileHead(pSink, nInfoBytes, Image.m_nImageBytes) &&
           PutInfo(pSink, Image, nInfoBytes) && pSink->Write(Image.m_pPixels, Image.m_nImageBytes);
}
