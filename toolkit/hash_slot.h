// hash_slot.h - where the search in a hash table begins.

#ifndef TOOLKIT_HASH_SLOT_H
#define TOOLKIT_HASH_SLOT_H

#include <cstdint>

// The slot for nKey, below nSlots: the high part of a multiple of the golden ratio.
// Keys that differ in a few neighbouring bits, such as the shades of one colour, lie
// far apart.
//
// On purpose this is not a product of pixels modulo the number of slots: once such a
// product is 0, all keys share slot 0, and the table is searched from end to end.
// For the shades of red the factor 0 is green plus blue; in a table of
// 17777 = 29 * 613 slots, a product that grows pixel by pixel soon contains both 29
// and 613, and stays 0.
inline uint32_t HashSlot(uint32_t nKey, uint32_t nSlots)
{
    const uint32_t nHash = nKey * 2654435769u;  // 2^32 / 1.618...
    return static_cast<uint32_t>(static_cast<uint64_t>(nHash) * nSlots >> 32);
}

#endif
