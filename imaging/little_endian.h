// little_endian.h - numbers in the byte order of GIF and BMP files, on every
// processor and at any address.

#ifndef IMAGING_LITTLE_ENDIAN_H
#define IMAGING_LITTLE_ENDIAN_H

#include <cstdint>

// Stores the low 16 bits of nValue at pBytes: 0x0102 as 02 01.
inline void StoreU16(uint8_t *pBytes, uint32_t nValue)
{
    pBytes[0] = static_cast<uint8_t>(nValue);
    pBytes[1] = static_cast<uint8_t>(nValue >> 8);
}

inline void StoreU32(uint8_t *pBytes, uint32_t nValue)
{
    pBytes[0] = static_cast<uint8_t>(nValue);
    pBytes[1] = static_cast<uint8_t>(nValue >> 8);
    pBytes[2] = static_cast<uint8_t>(nValue >> 16);
    pBytes[3] = static_cast<uint8_t>(nValue >> 24);
}

inline uint32_t LoadU16(const uint8_t *pBytes)
{
    return pBytes[0] | static_cast<uint32_t>(pBytes[1]) << 8;
}

inline uint32_t LoadU24(const uint8_t *pBytes)
{
    return LoadU16(pBytes) | static_cast<uint32_t>(pBytes[2]) << 16;
}

inline uint32_t LoadU32(const uint8_t *pBytes)
{
    return LoadU24(pBytes) | static_cast<uint32_t>(pBytes[3]) << 24;
}

#endif
