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

// Of the strings that extend a string by one pixel, the one that was found or made
// last. Most often it is the next one too: in a flat area nothing else is needed.
struct cLzwRecord
{
    uint32_t m_nSuffix;  // the pixel that it adds; kNoSuffix: there is none
    uint32_t m_nCode;    // its code
};

const unsigned kLzwRecords = 4096;   // 32768 bytes, indexed by code
const unsigned kLzwSlots   = 17777;  // 71108 bytes, at most a quarter in use
const uint32_t kNoSuffix   = 256;

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
    void     Restart();
    uint32_t Extend(uint32_t nPrefix, uint8_t nSuffix);
    uint32_t TakeCode(uint32_t *pSlot, uint32_t nPrefix, uint8_t nSuffix);

    cLzwRecord     *m_pRecords;
    uint32_t       *m_pSlots;  // strings: prefix << 20 | suffix << 12 | code; 0 is an empty slot
    unsigned        m_nMinimumSize;
    uint32_t        m_nClearCode;
    cSubBlockWriter m_Out;

    unsigned m_nSize;      // current size of a code in bits
    uint32_t m_nLimit;     // 2^m_nSize
    uint32_t m_nNextCode;  // the last one assigned
    uint32_t m_nCode;      // of the current string; m_nClearCode: there is none
};

#endif
