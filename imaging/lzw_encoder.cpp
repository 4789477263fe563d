#include "imaging/lzw_encoder.h"

#include <algorithm>
#include <cstring>

#include "imaging/little_endian.h"

static const unsigned kBlockBytes = 255;

// One code less than 12 bits can hold, on purpose.
static const uint32_t kRestartCode = 4094;

cSubBlockWriter::cSubBlockWriter(cByteSink *pSink)
    : m_pSink(pSink), m_bFailed(0), m_nPending(0), m_nPendingBits(0), m_nBytes(0), m_Block{}
{
}

void cSubBlockWriter::StorePending(unsigned nBytes)
{
    StoreU32(m_Block + 1 + m_nBytes, static_cast<uint32_t>(m_nPending));
    m_nPending >>= 32;
    m_nPendingBits -= std::min(m_nPendingBits, 8 * nBytes);
    m_nBytes += nBytes;
    if (m_nBytes < kBlockBytes)
        return;
    WriteBlock(kBlockBytes);
    m_nBytes -= kBlockBytes;
    memmove(m_Block + 1, m_Block + 1 + kBlockBytes, m_nBytes);
}

void cSubBlockWriter::WriteBlock(unsigned nBytes)
{
    m_Block[0] = static_cast<uint8_t>(nBytes);
    if (!m_bFailed && !m_pSink->Write(m_Block, 1 + nBytes))
        m_bFailed = 1;
}

void cSubBlockWriter::Finish()
{
    StorePending((m_nPendingBits + 7) / 8);
    if (m_nBytes > 0)
        WriteBlock(m_nBytes);
    WriteBlock(0);
}

// Hash of a string of one pixel. Each pixel and the length are added to it, so it
// depends on the complete string and not only on its last pair.
static uint32_t FirstHash(uint32_t nPixel)
{
    return (nPixel + 3) * 301;
}

static uint32_t NextHash(uint32_t nHash, uint32_t nPixel, uint32_t nLength)
{
    return (nPixel + nLength + 4) * nHash % kLzwSlots;
}

cLzwEncoder::cLzwEncoder(cLzwRecord *pRecords, uint32_t *pSlots, unsigned nMinimumSize,
                         cByteSink *pSink)
    : m_pRecords(pRecords), m_pSlots(pSlots), m_nMinimumSize(nMinimumSize), m_Out(pSink)
{
    m_nSize = m_nMinimumSize + 1;
    Restart();
}

// Sends a clear code in the current size and forgets all strings.
void cLzwEncoder::Restart()
{
    const uint32_t nClearCode = 1u << m_nMinimumSize;
    m_Out.Put(nClearCode, m_nSize);
    memset(m_pSlots, 0, kLzwSlots * sizeof *m_pSlots);
    m_nSize     = m_nMinimumSize + 1;
    m_nLimit    = 1u << m_nSize;
    m_nNextCode = nClearCode + 1;
    m_nCode     = 0;
    m_nHash     = 0;
    m_nLength   = 0;
}

// The slot of the current string extended by nSuffix, or the empty slot where it
// belongs.
inline uint32_t *cLzwEncoder::FindSlot(uint32_t nHash, uint32_t nPrefix, uint8_t nSuffix) const
{
    uint32_t *pSlot = m_pSlots + nHash;
    while (*pSlot &&
           (m_pRecords[*pSlot].m_nPrefix != nPrefix || m_pRecords[*pSlot].m_nSuffix != nSuffix))
        if (++pSlot == m_pSlots + kLzwSlots)
            pSlot = m_pSlots;
    return pSlot;
}

// Sends the code of the current string; the next code stands for that string
// followed by nSuffix.
void cLzwEncoder::TakeCode(uint32_t *pSlot, uint32_t nPrefix, uint8_t nSuffix)
{
    m_Out.Put(nPrefix, m_nSize);
    m_nNextCode++;
    m_pRecords[m_nNextCode] = {nPrefix, nSuffix};
    *pSlot                  = m_nNextCode;
    if (m_nNextCode == m_nLimit)
    {
        m_nSize++;
        m_nLimit *= 2;
    }
}

int cLzwEncoder::Add(const uint8_t *pPixels, size_t nPixels)
{
    const uint8_t *const pEnd    = pPixels + nPixels;
    uint32_t             nCode   = m_nCode;
    uint32_t             nHash   = m_nHash;
    uint32_t             nLength = m_nLength;
    while (pPixels < pEnd)
    {
        const uint8_t nPixel = *pPixels++;
        if (nLength == 0)
        {
            nCode   = nPixel;
            nHash   = FirstHash(nPixel);
            nLength = 1;
            continue;
        }
        nLength++;
        nHash                 = NextHash(nHash, nPixel, nLength);
        uint32_t *const pSlot = FindSlot(nHash, nCode, nPixel);
        if (*pSlot)
        {
            nCode = *pSlot;
            continue;
        }
        TakeCode(pSlot, nCode, nPixel);
        nCode   = nPixel;
        nHash   = FirstHash(nPixel);
        nLength = 1;
        if (m_nNextCode == kRestartCode)
        {
            m_Out.Put(nCode, m_nSize);
            Restart();
            nLength = 0;
        }
    }
    m_nCode   = nCode;
    m_nHash   = nHash;
    m_nLength = nLength;
    return !m_Out.HasFailed();
}

int cLzwEncoder::Finish()
{
    if (m_nLength > 0)
    {
        m_Out.Put(m_nCode, m_nSize);
        // A reader also assigns a code to the string that has just ended.
        if (m_nNextCode + 1 == m_nLimit)
            m_nSize++;
    }
    const uint32_t nEndCode = (1u << m_nMinimumSize) + 1;
    m_Out.Put(nEndCode, m_nSize);
    m_Out.Finish();
    return !m_Out.HasFailed();
}
