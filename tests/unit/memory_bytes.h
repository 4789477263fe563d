// memory_bytes.h - bytes in memory where the imaging code writes or reads a file.

#ifndef TESTS_UNIT_MEMORY_BYTES_H
#define TESTS_UNIT_MEMORY_BYTES_H

#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "imaging/byte_sink.h"
#include "imaging/byte_source.h"

typedef std::vector<uint8_t> cBytes;

// Keeps what is written. Accepts nWrites writes; all after them fail.
class cMemorySink : public cByteSink
{
public:
    explicit cMemorySink(int nWrites = std::numeric_limits<int>::max()) : m_nWritesLeft(nWrites) {}

    int Write(const void *pBytes, size_t nBytes) override
    {
        m_nCalls++;
        if (m_nWritesLeft == 0)
            return 0;
        m_nWritesLeft--;
        const uint8_t *const pFirst = static_cast<const uint8_t *>(pBytes);
        m_Pieces.emplace_back(pFirst, pFirst + nBytes);
        m_Bytes.insert(m_Bytes.end(), pFirst, pFirst + nBytes);
        return 1;
    }

    cBytes              m_Bytes;
    std::vector<cBytes> m_Pieces;  // one for each write
    int                 m_nCalls = 0;

private:
    int m_nWritesLeft;
};

// Hands out bytes.
class cMemorySource : public cByteSource
{
public:
    explicit cMemorySource(cBytes Bytes) : m_Bytes(std::move(Bytes)), m_nRead(0) {}

    uint64_t Length() const override { return m_Bytes.size(); }

    int Read(void *pBytes, size_t nBytes) override
    {
        if (nBytes > m_Bytes.size() - m_nRead)
            return 0;
        memcpy(pBytes, m_Bytes.data() + m_nRead, nBytes);
        m_nRead += nBytes;
        return 1;
    }

private:
    cBytes m_Bytes;
    size_t m_nRead;
};

// bytes of the numbers, little-endian: Little({1, 2}, 2) is 01 00 02 00.
inline cBytes Little(const std::vector<uint32_t> &Numbers, unsigned nBytesEach)
{
    cBytes Bytes;
    for (const uint32_t nNumber : Numbers)
        for (unsigned i = 0; i < nBytesEach; i++)
            Bytes.push_back(static_cast<uint8_t>(nNumber >> (8 * i)));
    return Bytes;
}

inline cBytes Join(const std::vector<cBytes> &Parts)
{
    cBytes All;
    for (const cBytes &Part : Parts)
        All.insert(All.end(), Part.begin(), Part.end());
    return All;
}

// nBytes bytes of Bytes from nAt on.
inline cBytes Slice(const cBytes &Bytes, size_t nAt, size_t nBytes)
{
    if (nAt > Bytes.size() || nBytes > Bytes.size() - nAt)
        return {};
    return cBytes(Bytes.begin() + static_cast<std::ptrdiff_t>(nAt),
                  Bytes.begin() + static_cast<std::ptrdiff_t>(nAt + nBytes));
}

#endif
