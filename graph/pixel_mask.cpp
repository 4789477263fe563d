#include "graph/pixel_mask.h"

#include <algorithm>
#include <new>

int cPixelMask::Create(const cRect &Area)
{
    m_pWords.reset();
    m_Area = {};
    if (Area.IsEmpty())
        return 0;
    const size_t nBits = static_cast<size_t>(Area.Width()) + 2 * kMargin;
    m_nRowWords        = nBits / kWordBits + 1;
    m_pWords.reset(new (std::nothrow) uint64_t[m_nRowWords * static_cast<size_t>(Area.Height())]());
    if (!m_pWords)
        return 0;
    m_Area = Area;
    return 1;
}

void cPixelMask::Stamp(const cStamp &Stamp, cPoint At)
{
    const int nX = At.m_nX + Stamp.m_Offset.m_nX;
    const int nY = At.m_nY + Stamp.m_Offset.m_nY;
    if (nX <= m_Area.m_nLeft - kStampSide || nX >= m_Area.m_nRight)
        return;
    const int nBit   = nX - m_Area.m_nLeft + kMargin;
    const int nFirst = std::max(m_Area.m_nTop - nY, 0);
    const int nAfter = std::min(m_Area.m_nBottom - nY, Stamp.m_nRows);
    for (int nRow = nFirst; nRow < nAfter; nRow++)
    {
        uint64_t *const pWord = Row(nY + nRow) + nBit / kWordBits;
        const uint64_t  nBits = Stamp.m_Rows[nRow];
        const int       nLow  = nBit % kWordBits;
        pWord[0] |= nBits << nLow;
        pWord[1] |= nBits >> 1 >> (kWordBits - 1 - nLow);
    }
}
