#include "imaging/lzw_encoder.h"

#include <algorithm>
#include <random>

#include <doctest/doctest.h>

#include "tests/unit/lzw_model.h"

// The encoder's data for pixels that come in pieces of nPiece.
static cBytes Encoded(const cBytes &Pixels, unsigned nMinimumSize, size_t nPiece = 1000000)
{
    std::vector<cLzwRecord> Records(kLzwRecords);
    std::vector<uint32_t>   Slots(kLzwSlots, 0xABCD);
    cMemorySink             Sink;
    cLzwEncoder             Encoder(Records.data(), Slots.data(), nMinimumSize, &Sink);
    for (size_t nAt = 0; nAt < Pixels.size(); nAt += nPiece)
        CHECK(Encoder.Add(Pixels.data() + nAt, std::min(nPiece, Pixels.size() - nAt)) == 1);
    CHECK(Encoder.Finish() == 1);
    return Sink.m_Bytes;
}

static cBytes RandomPixels(size_t nPixels, unsigned nColours, unsigned nSeed)
{
    std::mt19937 Random(nSeed);
    cBytes       Pixels(nPixels);
    for (uint8_t &nPixel : Pixels)
        nPixel = static_cast<uint8_t>(Random() % nColours);
    return Pixels;
}

TEST_CASE("the encoder's work memory has its fixed sizes")
{
    CHECK(sizeof(cLzwRecord) * kLzwRecords == 32768);
    CHECK(sizeof(uint32_t) * kLzwSlots == 71108);
}

TEST_CASE("one pixel is a clear code, the pixel and an end code")
{
    // 3 bits each, the lowest first: 100, 001, 101.
    CHECK(Encoded({1}, 2) == cBytes{2, 0x4C, 0x01, 0});
    // 9 bits each: 256, 7, 257.
    CHECK(Encoded({7}, 8) == cBytes{4, 0x00, 0x0F, 0x04, 0x04, 0});
}

TEST_CASE("a repeated pixel becomes longer and longer strings")
{
    // Codes 4, 1, 6, 7 of 3 bits, then 8 is taken and codes have 4 bits: 5.
    const std::vector<cLzwCode> Codes = {{4, 3}, {1, 3}, {6, 3}, {7, 3}, {5, 4}};

    const cBytes Data = Encoded({1, 1, 1, 1, 1, 1}, 2);

    CHECK(ModelCodes({1, 1, 1, 1, 1, 1}, 2) == Codes);
    CHECK(Data == ModelBlocks(ModelPacked(Codes)));
}

TEST_CASE("the end code grows with the code that a reader takes for the last string")
{
    // Two strings have been taken, 6 and 7; the reader is about to take 8.
    const std::vector<cLzwCode> Codes = {{4, 3}, {0, 3}, {1, 3}, {2, 3}, {5, 4}};

    CHECK(Encoded({0, 1, 2}, 2) == ModelBlocks(ModelPacked(Codes)));
}

TEST_CASE("strings and codes are those of the slow model")
{
    static const struct
    {
        size_t   nPixels;
        unsigned nColours;
        unsigned nMinimumSize;
    } s_Rows[] = {
        {2, 2, 2},       {3, 2, 2},      {100, 2, 2},    {5000, 2, 2},   {200000, 2, 2},
        {1, 16, 4},      {1000, 16, 4},  {60000, 16, 4}, {300, 256, 8},  {4000, 256, 8},
        {60000, 256, 8}, {200000, 3, 8}, {500000, 1, 8}, {500000, 1, 4}, {500000, 1, 2},
    };

    unsigned nSeed = 0;
    for (const auto &Row : s_Rows)
    {
        const cBytes Pixels = RandomPixels(Row.nPixels, Row.nColours, nSeed++);
        CAPTURE(Row.nPixels);
        CAPTURE(Row.nColours);
        CHECK(Encoded(Pixels, Row.nMinimumSize) == ModelLzw(Pixels, Row.nMinimumSize));
    }
}

// Pixel nX of row nY in pictures 211 pixels wide, with 16 colours.
static cBytes PatternPixels(unsigned (*pPixel)(unsigned nX, unsigned nY))
{
    const unsigned nWidth = 211;
    cBytes         Pixels;
    for (unsigned nAt = 0; nAt < 400 * nWidth; nAt++)
        Pixels.push_back(static_cast<uint8_t>(pPixel(nAt % nWidth, nAt / nWidth) % 16));
    return Pixels;
}

TEST_CASE("strings and codes of pictures with a pattern are those of the slow model")
{
    static const struct
    {
        const char *szName;
        unsigned (*pPixel)(unsigned nX, unsigned nY);
    } s_Patterns[] = {
        {"colour 0", [](unsigned, unsigned) { return 0u; }},
        {"stripes", [](unsigned nX, unsigned) { return nX % 2; }},
        {"shades to the right", [](unsigned nX, unsigned) { return nX / 13; }},
        {"shades downwards", [](unsigned, unsigned nY) { return nY / 25; }},
        {"shades both ways", [](unsigned nX, unsigned nY) { return nX + nY; }},
        {"a grid", [](unsigned nX, unsigned nY) { return nX % 20 == 0 || nY % 20 == 0 ? 1u : 0u; }},
        {"a curve", [](unsigned nX, unsigned nY) { return nX * nX / 100 == nY ? 3u : 15u; }},
    };
    for (const auto &Pattern : s_Patterns)
        for (const unsigned nMinimumSize : {4u, 8u})
        {
            CAPTURE(Pattern.szName);
            CAPTURE(nMinimumSize);
            const cBytes Pixels = PatternPixels(Pattern.pPixel);
            CHECK(Encoded(Pixels, nMinimumSize) == ModelLzw(Pixels, nMinimumSize));
        }
}

TEST_CASE("short pictures of every length end as the slow model does")
{
    for (const unsigned nMinimumSize : {2u, 4u, 8u})
        for (size_t nPixels = 0; nPixels < 1200; nPixels++)
        {
            const cBytes Pixels = RandomPixels(nPixels, 1u << std::min(nMinimumSize, 4u), 77);
            REQUIRE(Encoded(Pixels, nMinimumSize) == ModelLzw(Pixels, nMinimumSize));
        }
}

TEST_CASE("strings run on from one row to the next")
{
    const cBytes Pixels = RandomPixels(20000, 4, 5);

    const cBytes Whole = Encoded(Pixels, 8);

    CHECK(Encoded(Pixels, 8, 1) == Whole);
    CHECK(Encoded(Pixels, 8, 7) == Whole);
    CHECK(Encoded(Pixels, 8, 1600) == Whole);
}

TEST_CASE("the encoder starts again when code 4094 has been taken")
{
    const cBytes                Pixels = RandomPixels(20000, 256, 9);
    const std::vector<cLzwCode> Codes  = ModelCodes(Pixels, 8);

    // 3837 strings, 258 to 4094, then the current pixel and the clear code.
    const auto Clear = std::find(Codes.begin() + 1, Codes.end(), cLzwCode{256, 12});
    REQUIRE(Clear != Codes.end());
    CHECK(Clear - Codes.begin() == 1 + 3837 + 1);
    CHECK((Clear - 1)->m_nCode < 256);
    CHECK((Clear + 1)->m_nSize == 9);
    CHECK(Encoded(Pixels, 8) == ModelBlocks(ModelPacked(Codes)));
}

TEST_CASE("a picture that ends at the restart has no current string")
{
    // Take pixels until the model restarts with the last one of them.
    cBytes     Pixels   = RandomPixels(20000, 256, 9);
    size_t     nLow     = 0;
    size_t     nHigh    = Pixels.size();
    const auto Restarts = [&](size_t nPixels) {
        const std::vector<cLzwCode> Codes = ModelCodes(Slice(Pixels, 0, nPixels), 8);
        return std::count(Codes.begin(), Codes.end(), cLzwCode{256, 12}) > 0;
    };
    while (nHigh - nLow > 1)
        (Restarts((nLow + nHigh) / 2) ? nHigh : nLow) = (nLow + nHigh) / 2;
    Pixels.resize(nHigh);

    const std::vector<cLzwCode> Codes = ModelCodes(Pixels, 8);
    REQUIRE(Codes[Codes.size() - 2] == cLzwCode{256, 12});
    CHECK(Codes.back() == cLzwCode{257, 9});
    CHECK(Encoded(Pixels, 8) == ModelBlocks(ModelPacked(Codes)));
}

TEST_CASE("data of a multiple of 255 bytes ends with full sub-blocks and the empty one")
{
    unsigned nFull = 0;
    for (size_t nPixels = 1; nPixels < 2000; nPixels++)
    {
        const cBytes Pixels = RandomPixels(nPixels, 256, 3);
        const cBytes Packed = ModelPacked(ModelCodes(Pixels, 8));
        if (Packed.size() % 255 != 0)
            continue;
        nFull++;
        const cBytes Data = Encoded(Pixels, 8);
        REQUIRE(Data.size() == Packed.size() / 255 * 256 + 1);
        for (size_t nAt = 0; nAt + 1 < Data.size(); nAt += 256)
            CHECK(Data[nAt] == 255);
        CHECK(Data.back() == 0);
    }
    CHECK(nFull > 2);
}

TEST_CASE("a failed write ends the encoding")
{
    const cBytes            Pixels = RandomPixels(5000, 256, 1);
    std::vector<cLzwRecord> Records(kLzwRecords);
    std::vector<uint32_t>   Slots(kLzwSlots);
    cMemorySink             Sink(2);
    cLzwEncoder             Encoder(Records.data(), Slots.data(), 8, &Sink);

    CHECK(Encoder.Add(Pixels.data(), Pixels.size()) == 0);
    CHECK(Encoder.Finish() == 0);

    CHECK(Sink.m_nCalls == 3);
}
