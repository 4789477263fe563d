#include "imaging/lzw_encoder.h"

#include <algorithm>
#include <cstring>

#include "imaging/little_endian.h"
#include "toolkit/hash_slot.h"

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

// Of a slot, below prefix and suffix.
static const unsigned kCodeBits = 12;
static const uint32_t kCodeMask = (1u << kCodeBits) - 1;

cLzwEncoder::cLzwEncoder(cLzwRecord *pRecords, uint32_t *pSlots, unsigned nMinimumSize,
                         cByteSink *pSink)
    : m_pRecords(pRecords), m_pSlots(pSlots), m_nMinimumSize(nMinimumSize),
      m_nClearCode(1u << nMinimumSize), m_Out(pSink)
{
    m_nSize = m_nMinimumSize + 1;
    Restart();
}

// Sends a clear code in the current size and forgets all strings of two pixels and more.
void cLzwEncoder::Restart()
{
    m_Out.Put(m_nClearCode, m_nSize);
    memset(m_pSlots, 0, kLzwSlots * sizeof *m_pSlots);
    std::fill_n(m_pRecords, m_nClearCode + 1, cLzwRecord{kNoSuffix, 0});
    m_nSize     = m_nMinimumSize + 1;
    m_nLimit    = 1u << m_nSize;
    m_nNextCode = m_nClearCode + 1;
    m_nCode     = m_nClearCode;
}

// Sends the code of the current string, nPrefix; the next code stands for that
// string followed by nSuffix. Returns the code of the string that is current then.
inline uint32_t cLzwEncoder::TakeCode(uint32_t *pSlot, uint32_t nPrefix, uint8_t nSuffix)
{
    m_Out.Put(nPrefix, m_nSize);
    m_nNextCode++;
    *pSlot                  = (nPrefix << 8 | nSuffix) << kCodeBits | m_nNextCode;
    m_pRecords[nPrefix]     = {nSuffix, m_nNextCode};
    m_pRecords[m_nNextCode] = {kNoSuffix, 0};
    if (m_nNextCode == m_nLimit)
    {
        m_nSize++;
        m_nLimit *= 2;
    }
    if (m_nNextCode < kRestartCode)
        return nSuffix;
    m_Out.Put(nSuffix, m_nSize);
    Restart();
    return m_nCode;
}

// The code of the string that is current after nSuffix has followed nPrefix: the
// longer string's, or, if it has none yet, that of a new string.
inline uint32_t cLzwEncoder::Extend(uint32_t nPrefix, uint8_t nSuffix)
{
    if (nPrefix == m_nClearCode)
        return nSuffix;
    const uint32_t nKey  = nPrefix << 8 | nSuffix;
    uint32_t      *pSlot = m_pSlots + HashSlot(nKey, kLzwSlots);
    while (*pSlot)
    {
        const uint32_t nCode = *pSlot ^ nKey << kCodeBits;
        if (nCode <= kCodeMask)
        {
            m_pRecords[nPrefix] = {nSuffix, nCode};
            return nCode;
        }
        if (++pSlot == m_pSlots + kLzwSlots)
            pSlot = m_pSlots;
    }
    return TakeCode(pSlot, nPrefix, nSuffix);
}

int cLzwEncoder::Add(const uint8_t *pPixels, size_t nPixels)
{
    const uint8_t *const pEnd  = pPixels + nPixels;
    uint32_t             nCode = m_nCode;
    while (pPixels < pEnd)
    {
        const uint8_t    nPixel = *pPixels++;
        const cLzwRecord Last   = m_pRecords[nCode];
        nCode                   = Last.m_nSuffix == nPixel ? Last.m_nCode : Extend(nCode, nPixel);
    }
    m_nCode = nCode;
    return !m_Out.HasFailed();
}

int cLzwEncoder::Finish()
{
    if (m_nCode != m_nClearCode)
    {
        m_Out.Put(m_nCode, m_nSize);
        // A reader also assigns a code to the string that has just ended.
        if (m_nNextCode + 1 == m_nLimit)
            m_nSize++;
    }
    const uint32_t nEndCode = m_nClearCode + 1;
    m_Out.Put(nEndCode, m_nSize);
    m_Out.Finish();
    return !m_Out.HasFailed();
}
