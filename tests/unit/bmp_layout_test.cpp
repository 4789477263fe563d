#include "imaging/bmp_layout.h"

#include <doctest/doctest.h>

#include "imaging/dib_image.h"
#include "tests/unit/memory_bytes.h"

namespace
{

struct cTestBmp
{
    cTestBmp(unsigned nBits, int32_t nWidth, int32_t nHeight)
    {
        m_Bmp.m_nWidth  = nWidth;
        m_Bmp.m_nHeight = nHeight;
        REQUIRE(ChooseBmpDepth(nBits, &m_Bmp.m_Depth) == 1);
        m_Bmp.m_nImageBytes = BmpImageBytes(m_Bmp.m_Depth.m_nBits, nWidth, nHeight);
        m_Colours.resize(4u * m_Bmp.m_Depth.m_nColours);
        for (size_t i = 0; i < m_Colours.size(); i++)
            m_Colours[i] = static_cast<uint8_t>(i * 7);
        m_Pixels.resize(m_Bmp.m_nImageBytes);
        for (size_t i = 0; i < m_Pixels.size(); i++)
            m_Pixels[i] = static_cast<uint8_t>(i * 11 + 1);
        m_Bmp.m_pColours = m_Colours.data();
        m_Bmp.m_pPixels  = m_Pixels.data();
    }
    cTestBmp(const cTestBmp &)            = delete;
    cTestBmp &operator=(const cTestBmp &) = delete;

    cBmpImage m_Bmp = {};
    cBytes    m_Colours;
    cBytes    m_Pixels;
};

}  // namespace

static cBytes Written(const cBmpImage &Bmp)
{
    cMemorySink Sink;
    CHECK(WriteBmp(&Sink, Bmp) == 1);
    return Sink.m_Bytes;
}

TEST_CASE("a depth is rounded up to one that BMP files have")
{
    static const struct
    {
        unsigned nFrom;
        unsigned nTo;
        unsigned nBits;
        unsigned nColours;
        unsigned nMasks;
    } s_Rows[] = {
        {1, 1, 1, 2, 0},   {2, 4, 4, 16, 0},   {5, 8, 8, 256, 0},
        {9, 16, 16, 0, 3}, {17, 24, 24, 0, 0}, {25, 100, 32, 0, 3},
    };
    for (const auto &Row : s_Rows)
        for (unsigned nRequested = Row.nFrom; nRequested <= Row.nTo; nRequested++)
        {
            cBmpDepth Depth = {};
            CAPTURE(nRequested);
            CHECK(ChooseBmpDepth(nRequested, &Depth) == 1);
            CHECK(Depth.m_nBits == Row.nBits);
            CHECK(Depth.m_nColours == Row.nColours);
            CHECK(Depth.m_nMasks == Row.nMasks);
        }
    cBmpDepth Depth = {};
    CHECK(ChooseBmpDepth(4000000000u, &Depth) == 1);
    CHECK(Depth.m_nBits == 32);
}

TEST_CASE("there is no BMP of 0 bits")
{
    cBmpDepth Depth = {};
    CHECK(ChooseBmpDepth(0, &Depth) == 0);
}

TEST_CASE("rows of a BMP are padded to multiples of 4 bytes")
{
    static const struct
    {
        unsigned nBits;
        int32_t  nWidth;
        uint32_t nRowBytes;
    } s_Rows[] = {
        {1, 1, 4},  {1, 32, 4}, {1, 33, 8}, {4, 8, 4},   {4, 9, 8},   {8, 4, 4},   {8, 5, 8},
        {16, 2, 4}, {16, 3, 8}, {24, 1, 4}, {24, 4, 12}, {24, 5, 16}, {32, 3, 12}, {24, 1600, 4800},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nBits);
        CAPTURE(Row.nWidth);
        CHECK(BmpImageBytes(Row.nBits, Row.nWidth, 7) == 7 * Row.nRowBytes);
        CHECK(Row.nRowBytes == (Row.nBits * static_cast<uint32_t>(Row.nWidth) + 31) / 8 / 4 * 4);
    }
}

TEST_CASE("a BMP file is head, information, table and pixels, for each depth")
{
    static const struct
    {
        unsigned              nRequested;
        uint32_t              nBits;
        uint32_t              nCompression;
        uint32_t              nColours;
        std::vector<uint32_t> Masks;
        uint32_t              nPixelsAt;
    } s_Rows[] = {
        {1, 1, 0, 2, {}, 62},     {4, 4, 0, 16, {}, 118},
        {8, 8, 0, 256, {}, 1078}, {16, 16, 3, 0, {0x7C00, 0x03E0, 0x001F}, 66},
        {24, 24, 0, 0, {}, 54},   {32, 32, 3, 0, {0xFF0000, 0x00FF00, 0x0000FF}, 66},
    };
    for (const auto &Row : s_Rows)
    {
        const cTestBmp Test(Row.nRequested, 13, 3);
        const uint32_t nImageBytes = static_cast<uint32_t>(DibRowBytes(13, Row.nBits)) * 3;

        CAPTURE(Row.nBits);
        CHECK(Written(Test.m_Bmp) ==
              Join({
                  {'B', 'M'},
                  Little({Row.nPixelsAt + nImageBytes, 0, Row.nPixelsAt, 40, 13, 3}, 4),
                  Little({1, Row.nBits}, 2),
                  Little({Row.nCompression, nImageBytes, 0, 0, Row.nColours, 0}, 4),
                  Test.m_Colours,
                  Little(Row.Masks, 4),
                  Test.m_Pixels,
              }));
    }
}

TEST_CASE("2 bits per pixel are written as 4 bits with 16 colours")
{
    const cBytes Bytes = Written(cTestBmp(2, 5, 5).m_Bmp);

    CHECK(Slice(Bytes, 28, 2) == cBytes{4, 0});
    CHECK(Slice(Bytes, 46, 4) == cBytes{16, 0, 0, 0});
    CHECK(Slice(Bytes, 10, 4) == cBytes{118, 0, 0, 0});
}

TEST_CASE("pixels of 16 bits start after three masks, those of 24 bits at once")
{
    const cBytes Bytes16 = Written(cTestBmp(16, 2, 2).m_Bmp);
    const cBytes Bytes24 = Written(cTestBmp(24, 2, 2).m_Bmp);

    CHECK(Slice(Bytes16, 30, 4) == cBytes{3, 0, 0, 0});
    CHECK(Slice(Bytes16, 10, 4) == cBytes{66, 0, 0, 0});
    CHECK(Slice(Bytes24, 30, 4) == cBytes{0, 0, 0, 0});
    CHECK(Slice(Bytes24, 10, 4) == cBytes{54, 0, 0, 0});
}

TEST_CASE("a BMP is written in three pieces and ends with the first that fails")
{
    const cTestBmp Test(8, 4, 4);
    cMemorySink    Whole;
    REQUIRE(WriteBmp(&Whole, Test.m_Bmp) == 1);
    REQUIRE(Whole.m_Pieces.size() == 3);
    CHECK(Whole.m_Pieces[0].size() == 14);
    CHECK(Whole.m_Pieces[1].size() == 40 + 1024);
    CHECK(Whole.m_Pieces[2] == Test.m_Pixels);

    for (int nWrites = 0; nWrites < 3; nWrites++)
    {
        cMemorySink Sink(nWrites);
        CHECK(WriteBmp(&Sink, Test.m_Bmp) == 0);
        CHECK(Sink.m_nCalls == nWrites + 1);
    }
}
