#include "imaging/bmp_reader.h"

#include <random>
#include <string>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/memory_bytes.h"

namespace
{

// A BMP file to be changed before it is put together.
struct cTestFile
{
    uint32_t m_nHeadBytes   = 40;
    int32_t  m_nWidth       = 2;
    int32_t  m_nHeight      = 2;
    uint32_t m_nBits        = 24;
    uint32_t m_nCompression = 0;
    uint32_t m_nColours     = 0;
    cBytes   m_HeadRest;  // after the first 40 bytes of the head
    cBytes   m_Table;
    cBytes   m_Gap;  // between the table and the pixels
    cBytes   m_Pixels;
    int      m_nPixelsAt = -1;  // -1: where they are

    cBytes Bytes() const
    {
        cBytes Head = Join({
            Little(
                {m_nHeadBytes, static_cast<uint32_t>(m_nWidth), static_cast<uint32_t>(m_nHeight)},
                4),
            Little({1, m_nBits}, 2),
            Little({m_nCompression, 0, 0, 0, m_nColours, 0}, 4),
            m_HeadRest,
        });
        if (m_nHeadBytes == 12)
            Head = Join({Little({12}, 4), Little({static_cast<uint32_t>(m_nWidth),
                                                  static_cast<uint32_t>(m_nHeight), 1, m_nBits},
                                                 2)});
        if (m_nHeadBytes > Head.size() && m_nHeadBytes < 200)
            Head.resize(m_nHeadBytes);
        const uint32_t nPixelsAt =
            m_nPixelsAt >= 0
                ? static_cast<uint32_t>(m_nPixelsAt)
                : static_cast<uint32_t>(14 + Head.size() + m_Table.size() + m_Gap.size());
        return Join({{'B', 'M'}, Little({0, 0, nPixelsAt}, 4), Head, m_Table, m_Gap, m_Pixels});
    }
};

struct cReadBmp
{
    explicit cReadBmp(const cBytes &Bytes)
    {
        cMemorySource Source(Bytes);
        const char   *szError = "unset";
        m_bRead               = ReadBmp(&Source, &m_Picture, &szError);
        m_Error               = szError ? szError : "";
    }
    explicit cReadBmp(const cTestFile &File) : cReadBmp(File.Bytes()) {}

    // All of the rows as they are held.
    cBytes Pixels() const
    {
        const size_t nBytes = DibRowBytes(m_Picture.m_nWidth, m_Picture.m_nBits) *
                              static_cast<size_t>(m_Picture.m_nHeight);
        return cBytes(m_Picture.m_pPixels.get(), m_Picture.m_pPixels.get() + nBytes);
    }

    int         m_bRead;
    std::string m_Error;
    cBmpPicture m_Picture;
};

}  // namespace

// Small pictures of every kind that can be read.
static std::vector<cTestFile> GoodFiles()
{
    std::vector<cTestFile> Files;
    for (const uint32_t nBits : {1u, 4u, 8u, 16u, 24u, 32u})
        for (const uint32_t nHeadBytes : {12u, 40u, 52u, 56u, 64u, 108u, 124u})
            for (const int32_t nHeight : {3, -3})
            {
                cTestFile File;
                File.m_nBits      = nBits;
                File.m_nHeadBytes = nHeadBytes;
                File.m_nWidth     = 5;
                File.m_nHeight    = nHeadBytes == 12 ? 3 : nHeight;
                if (nBits <= 8)
                    File.m_Table.assign((nHeadBytes == 12 ? 3u : 4u) << nBits, 0x5A);
                File.m_Pixels.assign(3 * DibRowBytes(5, nBits), 0xA5);
                Files.push_back(File);
                if (nBits != 16 && nBits != 32)
                    continue;
                if (nHeadBytes == 12 || nHeadBytes == 64)
                    continue;
                const cBytes Masks  = Little({0xF00, 0x0F0, 0x00F, 0xF000}, 4);
                File.m_nCompression = nBits == 16 ? 3 : 6;
                if (nHeadBytes == 40)
                    File.m_Table = nBits == 16 ? Slice(Masks, 0, 12) : Masks;
                else
                    File.m_HeadRest = Slice(Masks, 0, 12);
                Files.push_back(File);
            }
    return Files;
}

TEST_CASE("rows of a BMP are held from the bottom up, whichever way they are stored")
{
    cTestFile File;
    File.m_Pixels = {1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0};

    const cReadBmp Upwards(File);
    File.m_nHeight = -2;
    const cReadBmp Downwards(File);

    REQUIRE(Upwards.m_bRead == 1);
    CHECK(Upwards.m_Error == "");
    CHECK(Upwards.m_Picture.m_nWidth == 2);
    CHECK(Upwards.m_Picture.m_nHeight == 2);
    CHECK(Upwards.m_Picture.m_nBits == 24);
    CHECK(Upwards.Pixels() == File.m_Pixels);
    REQUIRE(Downwards.m_bRead == 1);
    CHECK(Downwards.m_Picture.m_nHeight == 2);
    CHECK(Downwards.Pixels() == Join({Slice(File.m_Pixels, 8, 8), Slice(File.m_Pixels, 0, 8)}));
}

TEST_CASE("colours of a BMP come from its table")
{
    cTestFile File;
    File.m_nBits    = 8;
    File.m_Table    = Little({0x112233, 0xFF445566, 0x778899}, 4);
    File.m_nColours = 2;
    File.m_Pixels   = {0, 1, 0, 0, 1, 200, 0, 0};

    const cReadBmp Read(File);

    REQUIRE(Read.m_bRead == 1);
    CHECK(Read.m_Picture.m_nBits == 8);
    CHECK(cBytes(Read.m_Picture.m_Colours, Read.m_Picture.m_Colours + 9) ==
          cBytes{0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0, 0, 0});
    CHECK(Read.Pixels() == File.m_Pixels);
}

TEST_CASE("the colour table of a BMP ends at its pixels and at 2^bits entries")
{
    cTestFile File;
    File.m_nBits   = 1;
    File.m_nHeight = 1;
    File.m_Table   = Little({0x010203, 0x040506, 0x070809}, 4);
    File.m_Pixels  = {0x40, 0, 0, 0};
    for (const uint32_t nColours : {0u, 2u, 3u, 4000000000u})
    {
        File.m_nColours = nColours;
        const cReadBmp Read(File);
        REQUIRE(Read.m_bRead == 1);
        CHECK(cBytes(Read.m_Picture.m_Colours, Read.m_Picture.m_Colours + 9) ==
              cBytes{1, 2, 3, 4, 5, 6, 0, 0, 0});
    }

    File.m_Table    = Little({0x010203}, 4);
    File.m_Gap      = {9, 9, 9};
    File.m_nColours = 2;
    const cReadBmp Short(File);
    REQUIRE(Short.m_bRead == 1);
    CHECK(cBytes(Short.m_Picture.m_Colours, Short.m_Picture.m_Colours + 6) ==
          cBytes{1, 2, 3, 0, 0, 0});
    CHECK(Short.Pixels() == File.m_Pixels);
}

TEST_CASE("the oldest BMP head has short sizes and colours of three bytes")
{
    cTestFile File;
    File.m_nHeadBytes = 12;
    File.m_nBits      = 4;
    File.m_Table      = {3, 2, 1, 6, 5, 4};
    File.m_Pixels     = {0x01, 0, 0, 0, 0x10, 0, 0, 0};

    const cReadBmp Read(File);

    REQUIRE(Read.m_bRead == 1);
    CHECK(cBytes(Read.m_Picture.m_Colours, Read.m_Picture.m_Colours + 9) ==
          cBytes{1, 2, 3, 4, 5, 6, 0, 0, 0});
    CHECK(Read.Pixels() == File.m_Pixels);
}

TEST_CASE("pixels of 16 bits stay as they are in the two usual layouts")
{
    static const struct
    {
        uint32_t nCompression;
        cBytes   Masks;
        int      b555;
    } s_Rows[] = {
        {0, {}, 1},
        {3, Little({0x7C00, 0x03E0, 0x001F}, 4), 1},
        {3, Little({0xF800, 0x07E0, 0x001F}, 4), 0},
    };
    for (const auto &Row : s_Rows)
    {
        cTestFile File;
        File.m_nBits        = 16;
        File.m_nCompression = Row.nCompression;
        File.m_Table        = Row.Masks;
        File.m_Pixels       = {1, 2, 3, 4, 5, 6, 7, 8};
        const cReadBmp Read(File);
        REQUIRE(Read.m_bRead == 1);
        CHECK(Read.m_Picture.m_nBits == 16);
        CHECK(Read.m_Picture.m_b555 == Row.b555);
        CHECK(Read.Pixels() == File.m_Pixels);
    }
}

TEST_CASE("other channel masks are taken apart into 24 bits")
{
    static const struct
    {
        uint32_t              nBits;
        uint32_t              nCompression;
        std::vector<uint32_t> Masks;
        uint32_t              nPixel;
        uint32_t              nColour;
    } s_Rows[] = {
        {32, 0, {}, 0xAA123456, 0x123456},
        {32, 3, {0xFF0000, 0xFF00, 0xFF}, 0xAA123456, 0x123456},
        {32, 3, {0xFF, 0xFF00, 0xFF0000}, 0xAA123456, 0x563412},
        {32, 3, {0xFF000000, 0xFF0000, 0xFF00}, 0x123456AA, 0x123456},
        {32, 6, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, 0xAA123456, 0x123456},
        {32, 3, {0x3FF00000, 0xFFC00, 0x3FF}, 0x3FF803FC, 0xFF80FF},
        {32, 3, {0xFFFFFFFF, 0, 0}, 0x87654321, 0x870000},
        {16, 3, {0xF00, 0xF0, 0xF}, 0xF5A1, 0x50A010},
        {16, 3, {0x1F, 0x7E0, 0xF800}, 0xF81F, 0xF800F8},
        {16, 3, {0x8000, 0, 1}, 0x8001, 0x800080},
    };
    for (const auto &Row : s_Rows)
    {
        cTestFile File;
        File.m_nWidth       = 1;
        File.m_nHeight      = 1;
        File.m_nBits        = Row.nBits;
        File.m_nCompression = Row.nCompression;
        File.m_Table        = Little(Row.Masks, 4);
        File.m_Pixels       = Little({Row.nPixel}, 4);
        const cReadBmp Read(File);
        CAPTURE(Row.nPixel);
        REQUIRE(Read.m_bRead == 1);
        CHECK(Read.m_Picture.m_nBits == 24);
        CHECK(Read.Pixels() == Little({Row.nColour}, 4));
    }
}

TEST_CASE("masks in a longer head are used")
{
    cTestFile File;
    File.m_nHeadBytes   = 56;
    File.m_HeadRest     = Little({0xFF, 0xFF00, 0xFF0000, 0}, 4);
    File.m_nCompression = 3;
    File.m_nBits        = 32;
    File.m_nWidth       = 1;
    File.m_nHeight      = 1;
    File.m_Pixels       = {0x12, 0x34, 0x56, 0};

    const cReadBmp Read(File);

    REQUIRE(Read.m_bRead == 1);
    CHECK(Slice(Read.Pixels(), 0, 3) == cBytes{0x56, 0x34, 0x12});
}

TEST_CASE("every kind of BMP can be read, with a gap before the pixels too")
{
    const std::vector<cTestFile> Files = GoodFiles();
    CHECK(Files.size() > 90);
    for (cTestFile File : Files)
    {
        CAPTURE(File.m_nHeadBytes);
        CAPTURE(File.m_nBits);
        CAPTURE(File.m_nCompression);
        const cReadBmp Read(File);
        CHECK(Read.m_Error == "");
        REQUIRE(Read.m_bRead == 1);
        File.m_Gap.assign(9999, 0x77);
        File.m_nColours = File.m_nBits <= 8 ? 1u << File.m_nBits : 0;
        const cReadBmp Gap(File);
        REQUIRE(Gap.m_bRead == 1);
        CHECK(Gap.Pixels() == Read.Pixels());
    }
}

TEST_CASE("a BMP that cannot be read is refused with what is wrong")
{
    static const struct
    {
        const char *szError;
        void (*pSpoil)(cTestFile *);
    } s_Rows[] = {
        {"has an unknown kind of header", [](cTestFile *p) { p->m_nHeadBytes = 41; }},
        {"has an unknown kind of header", [](cTestFile *p) { p->m_nHeadBytes = 0; }},
        {"has an unknown kind of header", [](cTestFile *p) { p->m_nHeadBytes = 0xFFFFFFFF; }},
        {"is an empty picture", [](cTestFile *p) { p->m_nWidth = 0; }},
        {"is an empty picture", [](cTestFile *p) { p->m_nWidth = -2; }},
        {"is an empty picture", [](cTestFile *p) { p->m_nHeight = 0; }},
        {"is larger than 65535 x 65535 pixels", [](cTestFile *p) { p->m_nWidth = 65536; }},
        {"is larger than 65535 x 65535 pixels", [](cTestFile *p) { p->m_nHeight = -65536; }},
        {"is larger than 65535 x 65535 pixels",
         [](cTestFile *p) { p->m_nHeight = std::numeric_limits<int32_t>::min(); }},
        {"does not have 1, 4, 8, 16, 24 or 32 bits per pixel",
         [](cTestFile *p) { p->m_nBits = 2; }},
        {"is compressed", [](cTestFile *p) { p->m_nCompression = 1; }},
        {"is compressed", [](cTestFile *p) { p->m_nCompression = 4; }},
        {"is compressed",
         [](cTestFile *p) {
             p->m_nHeadBytes   = 64;
             p->m_nCompression = 3;
         }},
        {"has channel masks but not 16 or 32 bits per pixel",
         [](cTestFile *p) { p->m_nCompression = 3; }},
        {"has channel masks with gaps",
         [](cTestFile *p) {
             p->m_nCompression = 3;
             p->m_nBits        = 32;
             p->m_Table        = Little({0xFF0000, 0x00FD00, 0x0000FF}, 4);
         }},
        {"has pixels that overlap its header", [](cTestFile *p) { p->m_nPixelsAt = 53; }},
        {"has pixels that overlap its header",
         [](cTestFile *p) {
             p->m_nCompression = 6;
             p->m_nBits        = 32;
             p->m_Table        = Little({0xFF0000, 0x00FF00, 0x0000FF, 0xFF000000}, 4);
             p->m_nPixelsAt    = 14 + 40 + 15;
         }},
        {"is an incomplete BMP file", [](cTestFile *p) { p->m_nPixelsAt = 55; }},
        {"is an incomplete BMP file", [](cTestFile *p) { p->m_nPixelsAt = 0x7FFFFFFF; }},
        {"is an incomplete BMP file", [](cTestFile *p) { p->m_Pixels.pop_back(); }},
        {"is an incomplete BMP file", [](cTestFile *p) { p->m_nWidth = p->m_nHeight = 65535; }},
    };
    for (const auto &Row : s_Rows)
    {
        cTestFile File;
        File.m_Pixels.assign(16, 1);
        REQUIRE(cReadBmp(File).m_bRead == 1);
        Row.pSpoil(&File);
        const cReadBmp Read(File);
        CHECK(Read.m_bRead == 0);
        CHECK(Read.m_Error == Row.szError);
    }
    CHECK(cReadBmp(cBytes{}).m_Error == "is an incomplete BMP file");
    CHECK(cReadBmp(cBytes(100, 'M')).m_Error == "is not a BMP file");
}

TEST_CASE("a BMP cut off anywhere is refused")
{
    for (const cTestFile &File : GoodFiles())
    {
        const cBytes Bytes = File.Bytes();
        for (size_t nBytes = 0; nBytes < Bytes.size(); nBytes++)
        {
            const cReadBmp Read(Slice(Bytes, 0, nBytes));
            REQUIRE(Read.m_bRead == 0);
            REQUIRE(Read.m_Error == "is an incomplete BMP file");
        }
    }
}

TEST_CASE("no memory is asked for pixels that a BMP does not have")
{
    cTestFile File;
    File.m_Pixels.assign(16, 1);
    File.m_nWidth      = 65535;
    File.m_nHeight     = 65535;
    const cBytes Bytes = File.Bytes();

    const cFailingMemory Never(0, 1);
    CHECK(cReadBmp(Bytes).m_Error == "is an incomplete BMP file");
    CHECK(Never.FailuresLeft() == 1);
}

TEST_CASE("a picture that memory is short for is refused")
{
    cTestFile File;
    File.m_Pixels.assign(16, 1);
    const cBytes Bytes = File.Bytes();
    for (int nSucceed = 0; nSucceed < 2; nSucceed++)
    {
        const cFailingMemory Short(nSucceed, 1);
        CHECK(cReadBmp(Bytes).m_Error == "does not fit into memory");
    }
}

TEST_CASE("whatever becomes of its bytes, a BMP is read or refused")
{
    static const uint8_t s_Edges[] = {0, 1, 2, 3, 4, 8, 12, 16, 24, 32, 40, 54, 64, 127, 128, 255};
    std::mt19937         Random(2026);
    unsigned             nRead    = 0;
    unsigned             nRefused = 0;
    for (const cTestFile &File : GoodFiles())
        for (int nRound = 0; nRound < 400; nRound++)
        {
            cBytes Bytes = File.Bytes();
            for (unsigned nChanges = 1 + Random() % 4; nChanges > 0; nChanges--)
            {
                const size_t nWhere = Random() % 4 ? Random() % 70 : Random() % Bytes.size();
                Bytes[nWhere % Bytes.size()] = Random() % 2 ? s_Edges[Random() % sizeof s_Edges]
                                                            : static_cast<uint8_t>(Random());
            }
            if (Random() % 8 == 0)
                Bytes.resize(Random() % Bytes.size());
            const cReadBmp Read(Bytes);
            (Read.m_bRead ? nRead : nRefused)++;
            REQUIRE(Read.m_bRead == (Read.m_Error == ""));
            if (Read.m_bRead)
                REQUIRE(Read.Pixels().size() <= Bytes.size());
        }
    CHECK(nRead > 1000);
    CHECK(nRefused > 1000);
}
