// lzw_model.h - what the encoder's data must be, worked out the slow way: strings
// are looked up in an ordered map, codes are listed before they are packed.

#ifndef TESTS_UNIT_LZW_MODEL_H
#define TESTS_UNIT_LZW_MODEL_H

#include <algorithm>
#include <map>
#include <vector>

#include "tests/unit/memory_bytes.h"

struct cLzwCode
{
    unsigned m_nCode;
    unsigned m_nSize;

    bool operator==(const cLzwCode &) const = default;
};

// The codes in the order in which they are written.
inline std::vector<cLzwCode> ModelCodes(const cBytes &Pixels, unsigned nMinimumSize)
{
    const unsigned               nClear = 1u << nMinimumSize;
    const unsigned               nEnd   = nClear + 1;
    std::vector<cLzwCode>        Codes  = {{nClear, nMinimumSize + 1}};
    std::map<unsigned, unsigned> Strings;  // by the code before the last pixel, and that
    unsigned                     nSize   = nMinimumSize + 1;
    unsigned                     nNext   = nEnd;
    int                          nInHand = -1;
    for (const uint8_t nPixel : Pixels)
    {
        if (nInHand < 0)
        {
            nInHand = nPixel;
            continue;
        }
        const unsigned nString = static_cast<unsigned>(nInHand) * 256 + nPixel;
        const auto     Known   = Strings.find(nString);
        if (Known != Strings.end())
        {
            nInHand = static_cast<int>(Known->second);
            continue;
        }
        Codes.push_back({static_cast<unsigned>(nInHand), nSize});
        Strings[nString] = ++nNext;
        nInHand          = nPixel;
        if (nNext == 1u << nSize)
            nSize++;
        else if (nNext == 4094)
        {
            Codes.push_back({nPixel, nSize});
            Codes.push_back({nClear, nSize});
            Strings.clear();
            nSize   = nMinimumSize + 1;
            nNext   = nEnd;
            nInHand = -1;
        }
    }
    if (nInHand >= 0)
    {
        Codes.push_back({static_cast<unsigned>(nInHand), nSize});
        if (nNext + 1 == 1u << nSize)
            nSize++;
    }
    Codes.push_back({nEnd, nSize});
    return Codes;
}

// Bit by bit, the lowest bit of a code first.
inline cBytes ModelPacked(const std::vector<cLzwCode> &Codes)
{
    size_t nAll = 0;
    for (const cLzwCode &Code : Codes)
        nAll += Code.m_nSize;
    cBytes   Packed((nAll + 7) / 8);
    uint8_t *pPacked = Packed.data();
    size_t   nBits   = 0;
    for (const cLzwCode &Code : Codes)
        for (unsigned nBit = 0; nBit < Code.m_nSize; nBit++, nBits++)
            if (Code.m_nCode >> nBit & 1)
                pPacked[nBits / 8] = static_cast<uint8_t>(pPacked[nBits / 8] | 1 << nBits % 8);
    return Packed;
}

// In sub-blocks, with the empty one at the end.
inline cBytes ModelBlocks(const cBytes &Packed)
{
    cBytes Blocks;
    for (size_t nAt = 0; nAt < Packed.size(); nAt += 255)
    {
        const cBytes Block = Slice(Packed, nAt, std::min<size_t>(255, Packed.size() - nAt));
        Blocks.push_back(static_cast<uint8_t>(Block.size()));
        Blocks.insert(Blocks.end(), Block.begin(), Block.end());
    }
    Blocks.push_back(0);
    return Blocks;
}

inline cBytes ModelLzw(const cBytes &Pixels, unsigned nMinimumSize)
{
    return ModelBlocks(ModelPacked(ModelCodes(Pixels, nMinimumSize)));
}

#endif
