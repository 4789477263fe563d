#include "imaging/gif_writer.h"

#include <memory>
#include <random>
#include <string>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/lzw_model.h"

namespace
{

// A picture with the bytes that it looks at.
struct cTestImage
{
    cTestImage(int32_t nWidth, int32_t nHeight, unsigned nBits, unsigned nSeed = 1)
        : m_Colours(size_t(3) << nBits), m_Pixels(DibRowBytes(nWidth, nBits) * nHeight)
    {
        std::mt19937 Random(nSeed);
        for (uint8_t &nByte : m_Colours)
            nByte = static_cast<uint8_t>(Random());
        for (uint8_t &nByte : m_Pixels)
            nByte = static_cast<uint8_t>(Random());
        m_Image = {nWidth, nHeight, nBits, 0, m_Colours.data(), m_Pixels.data()};
    }
    cTestImage(const cTestImage &)            = delete;
    cTestImage &operator=(const cTestImage &) = delete;

    uint8_t Pixel(int32_t nX, int32_t nRowFromTop) const
    {
        const uint8_t *const pRow = StoredRow(m_Image, m_Image.m_nHeight - 1 - nRowFromTop);
        switch (m_Image.m_nBits)
        {
        case 1:
            return static_cast<uint8_t>((pRow[nX / 8] & (0x80 >> nX % 8)) != 0);
        case 4:
            return static_cast<uint8_t>(nX % 2 == 0 ? pRow[nX / 2] / 16 : pRow[nX / 2] % 16);
        default:
            return pRow[nX];
        }
    }

    // The pixels of the rows, counted from the top, one row after the other.
    cBytes Rows(const std::vector<int32_t> &Order) const
    {
        cBytes Pixels;
        for (const int32_t nRow : Order)
            for (int32_t nX = 0; nX < m_Image.m_nWidth; nX++)
                Pixels.push_back(Pixel(nX, nRow));
        return Pixels;
    }

    cBytes    m_Colours;
    cBytes    m_Pixels;
    cDibImage m_Image;
};

}  // namespace

static cBytes Written(const cDibImage &Image, const char *szOptions)
{
    cMemorySink Sink;
    CHECK(WriteGifFile(&Sink, Image, szOptions) == grWritten);
    return Sink.m_Bytes;
}

static cBytes Text(const std::string &Characters)
{
    return cBytes(Characters.begin(), Characters.end());
}

static std::vector<int32_t> RowOrder(int32_t nHeight, int bInterlaced)
{
    std::vector<int32_t> Order;
    cGifRows             Rows(nHeight, bInterlaced);
    for (int32_t nRow = Rows.Next(); nRow >= 0; nRow = Rows.Next())
        Order.push_back(nRow);
    return Order;
}

TEST_CASE("a GIF file is its parts in order, for each depth")
{
    static const struct
    {
        unsigned nBits;
        uint8_t  nScreenFlags;
        uint8_t  nImageFlags;
        uint8_t  nMinimumSize;
    } s_Rows[] = {{1, 0x80, 0x00, 2}, {4, 0xB3, 0x03, 4}, {8, 0xF7, 0x07, 8}};
    for (const auto &Row : s_Rows)
    {
        const cTestImage Image(13, 3, Row.nBits);
        const cBytes     Expected = Join({
                Text("GIF87a"),
                {13, 0, 3, 0, Row.nScreenFlags, 0, 0},
                Image.m_Colours,
                {0x2C, 0, 0, 0, 0, 13, 0, 3, 0, Row.nImageFlags, Row.nMinimumSize},
                ModelLzw(Image.Rows({0, 1, 2}), Row.nMinimumSize),
                {0x3B},
        });

        CHECK(Written(Image.m_Image, "") == Expected);
    }
}

TEST_CASE("every option of a GIF file has its place in it")
{
    const cTestImage Image(5, 9, 8);
    const cBytes     Expected = Join({
            Text("GIF89a"),
            {0x80, 0x02, 0xE0, 0x01, 0xF7, 77, 0},
            Image.m_Colours,
            {0x21, 0xF9, 4, 1, 0, 0, 200, 0},
            {0x2C, 0x0A, 0x01, 0x14, 0x02, 5, 0, 9, 0, 0x47, 8},
            ModelLzw(Image.Rows({0, 8, 4, 2, 6, 1, 3, 5, 7}), 8),
            {0x3B},
    });

    CHECK(Written(Image.m_Image, "ilace xscreen=640 yscreen=480 background=77 xpos=266 ypos=532 "
                                 "transcol=200") == Expected);
}

TEST_CASE("a transparent colour makes it a GIF89a, colour 0 too")
{
    const cTestImage Image(4, 4, 4);

    CHECK(Slice(Written(Image.m_Image, ""), 0, 6) == Text("GIF87a"));
    CHECK(Slice(Written(Image.m_Image, ""), 13 + 48, 1) == cBytes{0x2C});
    CHECK(Slice(Written(Image.m_Image, "transcol=0"), 0, 6) == Text("GIF89a"));
    CHECK(Slice(Written(Image.m_Image, "transcol=0"), 13 + 48, 9) ==
          cBytes{0x21, 0xF9, 4, 1, 0, 0, 0, 0, 0x2C});
}

TEST_CASE("edge takes the bottom left pixel's colour")
{
    for (const unsigned nBits : {1u, 4u, 8u})
        for (unsigned nSeed = 0; nSeed < 8; nSeed++)
        {
            const cTestImage Image(3, 5, nBits, nSeed);
            const size_t     nAt = 13 + Image.m_Colours.size() + 6;
            CHECK(Written(Image.m_Image, "transcol=edge")[nAt] == Image.Pixel(0, 4));
        }
}

TEST_CASE("a picture of 1 bit has minimum code size 2 and starts with codes of 3 bits")
{
    const cTestImage Image(1, 1, 1);

    const cBytes Bytes = Written(Image.m_Image, "");

    const uint8_t nPixel = Image.Pixel(0, 0);
    const cBytes  Data   = ModelBlocks(ModelPacked({{4, 3}, {nPixel, 3}, {5, 3}}));
    CHECK(Slice(Bytes, 13 + 6 + 10, 1 + Data.size()) == Join({{2}, Data}));
}

TEST_CASE("rows leave from the top, interlaced in four passes")
{
    static const struct
    {
        int32_t              nHeight;
        std::vector<int32_t> Order;
    } s_Rows[] = {
        {1, {0}},
        {2, {0, 1}},
        {3, {0, 2, 1}},
        {4, {0, 2, 1, 3}},
        {5, {0, 4, 2, 1, 3}},
        {8, {0, 4, 2, 6, 1, 3, 5, 7}},
        {9, {0, 8, 4, 2, 6, 1, 3, 5, 7}},
        {10, {0, 8, 4, 2, 6, 1, 3, 5, 7, 9}},
    };
    for (const auto &Row : s_Rows)
        CHECK(RowOrder(Row.nHeight, 1) == Row.Order);
    CHECK(RowOrder(5, 0) == std::vector<int32_t>{0, 1, 2, 3, 4});
}

TEST_CASE("wide rows of 1 and 4 bits are unpacked to their end")
{
    for (const unsigned nBits : {1u, 4u})
        for (const int32_t nWidth : {511, 512, 513, 1025})
        {
            const cTestImage Image(nWidth, 2, nBits);
            const unsigned   nMinimumSize = nBits == 1 ? 2 : 4;
            const cBytes     Data         = ModelLzw(Image.Rows({0, 1}), nMinimumSize);
            CHECK(Slice(Written(Image.m_Image, ""), 13 + Image.m_Colours.size() + 11,
                        Data.size()) == Data);
        }
}

TEST_CASE("sizes of a GIF keep their low 16 bits")
{
    const cTestImage Image(65538, 1, 1);

    const cBytes Bytes = Written(Image.m_Image, "");

    CHECK(Slice(Bytes, 6, 4) == cBytes{2, 0, 1, 0});
    CHECK(Slice(Bytes, 13 + 6 + 5, 4) == cBytes{2, 0, 1, 0});
}

TEST_CASE("other depths than 1, 4 and 8 bits are refused")
{
    cMemorySink Sink;
    for (const unsigned nBits : {0u, 2u, 3u, 5u, 7u, 9u, 16u, 24u, 32u})
    {
        cTestImage Image(2, 2, 8);
        Image.m_Image.m_nBits = nBits;
        CHECK(WriteGifFile(&Sink, Image.m_Image, "") == 2);
    }
    CHECK(Sink.m_nCalls == 0);
}

TEST_CASE("a GIF that memory is short for says which piece was missing")
{
    const cTestImage Image(2, 2, 8);
    cMemorySink      Sink;
    {
        const cFailingMemory NoWorkBuffer(0, 1);
        CHECK(WriteGifFile(&Sink, Image.m_Image, "") == 1);
    }
    {
        const cFailingMemory NoStringTable(1, 1);
        CHECK(WriteGifFile(&Sink, Image.m_Image, "") == 8);
    }
    CHECK(WriteGifFile(&Sink, Image.m_Image, "") == 0);
}

TEST_CASE("whichever write of a GIF fails, the result is 8 and nothing follows")
{
    const cTestImage Image(40, 40, 8);
    cMemorySink      Whole;
    REQUIRE(WriteGifFile(&Whole, Image.m_Image, "transcol=1") == 0);
    REQUIRE(Whole.m_nCalls > 8);

    for (int nWrites = 0; nWrites < Whole.m_nCalls; nWrites++)
    {
        cMemorySink Sink(nWrites);
        CHECK(WriteGifFile(&Sink, Image.m_Image, "transcol=1") == 8);
        CHECK(Sink.m_nCalls == nWrites + 1);
    }
}
