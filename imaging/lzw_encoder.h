// lzw_encoder.h - the compressed pixels of a GIF: variable-length LZW codes,
// packed into sub-blocks.

#ifndef IMAGING_LZW_ENCODER_H
#define IMAGING_LZW_ENCODER_H

#include <cstddef>
#include <cstdint>

#include "imaging/byte_sink.h"

// Packs codes, the least significant bit first, and sends them out in sub-blocks
// of a length byte and up to 255 bytes.
class cSubBlockWriter
{
public:
    explicit cSubBlockWriter(cByteSink *pSink);

    // nCode has nSize bits, at most 12. HasFailed reports failed writes.
    void Put(uint32_t nCode, unsigned nSize)
    {
        m_nPending |= static_cast<uint64_t>(nCode) << m_nPendingBits;
        m_nPendingBits += nSize;
        if (m_nPendingBits >= 32)
            StorePending(4);
    }

    // Sends the rest, the last byte padded with zero bits, and the empty
    // sub-block that ends the data.
    void Finish();

    int HasFailed() const { return m_bFailed; }

private:
    void StorePending(unsigned nBytes);
    void WriteBlock(unsigned nBytes);

    cByteSink *m_pSink;
    int        m_bFailed;
    uint64_t   m_nPending;      // codes that do not fill a word yet
    unsigned   m_nPendingBits;  // below 32 between two calls
    unsigned   m_nBytes;        // of the block so far, without its length byte
    uint8_t    m_Block[1 + 255 + 4];
};

// A string of pixels that has a code: a shorter string plus one pixel.
struct cLzwRecord
{
    uint32_t m_nPrefix;  // code of the shorter string
    uint8_t  m_nSuffix;
};

const unsigned kLzwRecords = 4096;   // 32768 bytes, indexed by code
const unsigned kLzwSlots   = 17777;  // a prime; 71108 bytes

class cLzwEncoder
{
public:
    // The caller provides the memory: kLzwRecords records and kLzwSlots slots.
    // nMinimumSize is the GIF's minimum code size, 2 to 8.
    cLzwEncoder(cLzwRecord *pRecords, uint32_t *pSlots, unsigned nMinimumSize, cByteSink *pSink);

    // Encodes the next pixels, each below 2^nMinimumSize. Strings continue from
    // one call to the next. Returns 0 once a write has failed.
    int Add(const uint8_t *pPixels, size_t nPixels);

    // Ends the data. Returns 0 if any write has failed.
    int Finish();

private:
    void      Restart();
    uint32_t *FindSlot(uint32_t nHash, uint32_t nPrefix, uint8_t nSuffix) const;
    void      TakeCode(uint32_t *pSlot, uint32_t nPrefix, uint8_t nSuffix);

    cLzwRecord     *m_pRecords;
    uint32_t       *m_pSlots;  // codes; 0 is an empty slot
    unsigned        m_nMinimumSize;
    cSubBlockWriter m_Out;

    unsigned m_nSize;      // current size of a code in bits
    uint32_t m_nLimit;     // 2^m_nSize
    uint32_t m_nNextCode;  // the last one assigned

    // The current string: its code, its hash, its pixels (0: there is none).
    uint32_t m_nCode;
    uint32_t m_nHash;
    uint32_t m_nLength;
};

#endif
