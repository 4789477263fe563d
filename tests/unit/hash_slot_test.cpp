#include "toolkit/hash_slot.h"

#include <algorithm>
#include <vector>

#include <doctest/doctest.h>

// Puts nKeys keys, each nStep above the last, into an empty table. Returns how many
// slots have been searched for the key that was hardest to place; nSlots for a slot
// that there is not.
static uint32_t LongestSearch(uint32_t nFirst, uint32_t nStep, uint32_t nKeys, uint32_t nSlots)
{
    std::vector<int> Taken(nSlots);
    uint32_t         nLongest = 0;
    for (uint32_t i = 0; i < nKeys; i++)
    {
        uint32_t nSlot     = HashSlot(nFirst + i * nStep, nSlots);
        uint32_t nSearched = 1;
        if (nSlot >= nSlots)
            return nSlots;
        for (; Taken[nSlot]; nSearched++)
            nSlot = (nSlot + 1) % nSlots;
        Taken[nSlot] = 1;
        nLongest     = std::max(nLongest, nSearched);
    }
    return nLongest;
}

TEST_CASE("strings of one colour, of any length, are found at once")
{
    for (uint32_t nColour = 0; nColour < 256; nColour++)
    {
        CAPTURE(nColour);
        CHECK(LongestSearch(nColour, 256, 4094, 17777) <= 4);
    }
}

TEST_CASE("strings of two colours are found at once")
{
    for (uint32_t nColour = 0; nColour < 256; nColour++)
    {
        CAPTURE(nColour);
        CHECK(LongestSearch(256 * nColour, 1, 256, 17777) <= 4);
    }
}

TEST_CASE("shades of one colour or of grey are found at once")
{
    for (const uint32_t nStep :
         {0x000001u, 0x000100u, 0x010000u, 0x010100u, 0x000101u, 0x010001u, 0x010101u})
    {
        CAPTURE(nStep);
        CHECK(LongestSearch(0, nStep, 256, 5191) <= 4);
    }
}

TEST_CASE("the keys of a table that is two fifths full are found soon")
{
    for (const uint32_t nStep : {1u, 2u, 3u, 4u, 8u, 16u, 255u, 257u, 4096u})
    {
        CAPTURE(nStep);
        CHECK(LongestSearch(0, nStep, 2049, 5191) <= 16);
    }
}

TEST_CASE("a table of one slot has slot 0 for every key")
{
    CHECK(HashSlot(0, 1) == 0);
    CHECK(HashSlot(0xFFFFFFFF, 1) == 0);
}
