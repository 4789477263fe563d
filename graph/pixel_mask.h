// pixel_mask.h - the pixels that many small figures of one colour cover together,
// one bit each. What covers a pixel again costs next to nothing.
// Pure: no canvas, no device.

#ifndef GRAPH_PIXEL_MASK_H
#define GRAPH_PIXEL_MASK_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "graph/plot_canvas.h"

const int kStampSide = 32;  // pixels

// A figure of up to 32 by 32 pixels. Bit i of m_Rows[j] is the pixel (i, j) right of
// and below m_Offset, which is relative to the place of the figure.
struct cStamp
{
    cPoint   m_Offset;
    int      m_nRows;
    uint32_t m_Rows[kStampSide];
};

class cPixelMask
{
public:
    // A mask of the pixels of Area, none of them covered. 0 if memory is short or
    // Area is empty.
    int Create(const cRect &Area);

    const cRect &Area() const { return m_Area; }

    // Covers the pixels of the stamp at At that are in the area.
    void Stamp(const cStamp &Stamp, cPoint At);

    // Covers the pixels nLeft to nRight - 1 of row nY, at least one and all of them in
    // the area.
    void Cover(int nY, int nLeft, int nRight);

    // Covers the pixel, which is in the area, if nCovered is 1; 0 leaves it as it is.
    void CoverIf(uint32_t nCovered, int nX, int nY);

    // Calls Handle(nY, nLeft, nRight) for each run of covered pixels, nRight not
    // included, from the top down and from the left to the right.
    template <class cHandle> void ForEachRun(cHandle Handle) const;

private:
    static const unsigned kWordBits = 64;

    // Room beside the area, into which stamps may reach.
    static const int kMargin = 64;

    uint64_t *Row(int nY) const
    {
        return m_pWords.get() + static_cast<size_t>(nY - m_Area.m_nTop) * m_nRowWords;
    }

    // nBit is counted from the start of the row, which ends with an uncovered bit.
    static int EndOfBits(const uint64_t *pRow, int nBit, int nLastBit, uint64_t nInverted);

    cRect                       m_Area      = {};
    size_t                      m_nRowWords = 0;
    std::unique_ptr<uint64_t[]> m_pWords;
};

inline void cPixelMask::Cover(int nY, int nLeft, int nRight)
{
    const unsigned nFirst  = static_cast<unsigned>(nLeft - m_Area.m_nLeft + kMargin);
    unsigned       nLow    = nFirst % kWordBits;
    unsigned       nPixels = static_cast<unsigned>(nRight - nLeft);
    uint64_t      *pWord   = Row(nY) + nFirst / kWordBits;
    for (; nLow + nPixels > kWordBits; nLow = 0)
    {
        *pWord++ |= ~uint64_t(0) << nLow;
        nPixels -= kWordBits - nLow;
    }
    *pWord |= ~uint64_t(0) >> (kWordBits - nPixels) << nLow;
}

inline void cPixelMask::CoverIf(uint32_t nCovered, int nX, int nY)
{
    const unsigned nBit = static_cast<unsigned>(nX - m_Area.m_nLeft + kMargin);
    Row(nY)[nBit / kWordBits] |= uint64_t(nCovered) << nBit % kWordBits;
}

// The first bit from nBit on that is 1, after an exclusive or with nInverted; at most
// nLastBit.
inline int cPixelMask::EndOfBits(const uint64_t *pRow, int nBit, int nLastBit, uint64_t nInverted)
{
    while (nBit < nLastBit)
    {
        const uint64_t nWord = (pRow[nBit / kWordBits] ^ nInverted) >> nBit % kWordBits;
        if (nWord != 0)
        {
            nBit += std::countr_zero(nWord);
            break;
        }
        nBit += kWordBits - nBit % kWordBits;
    }
    return nBit < nLastBit ? nBit : nLastBit;
}

template <class cHandle> void cPixelMask::ForEachRun(cHandle Handle) const
{
    const int nShift = m_Area.m_nLeft - kMargin;
    const int nLast  = m_Area.m_nRight - nShift;
    for (int nY = m_Area.m_nTop; nY < m_Area.m_nBottom; nY++)
    {
        const uint64_t *const pRow = Row(nY);
        for (int nBit = kMargin;;)
        {
            nBit = EndOfBits(pRow, nBit, nLast, 0);
            if (nBit == nLast)
                break;
            const int nAfter = EndOfBits(pRow, nBit, nLast, ~uint64_t(0));
            Handle(nY, nBit + nShift, nAfter + nShift);
            nBit = nAfter;
        }
    }
}

#endif
