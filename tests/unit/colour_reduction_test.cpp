#include "imaging/colour_reduction.h"

#include <algorithm>
#include <map>
#include <random>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/memory_bytes.h"

namespace
{

// 0xRRGGBB.
typedef std::vector<uint32_t> cColours;

}  // namespace

// One row of 24 bits, padded.
static cBytes Row24(const cColours &Colours)
{
    cBytes Row = Little(Colours, 3);
    Row.resize(DibRowBytes(static_cast<int32_t>(Colours.size()), 24));
    return Row;
}

static cBytes Expanded(const cDibImage &Image, int32_t nRow)
{
    cBytes Row(3 * static_cast<size_t>(Image.m_nWidth));
    ExpandTo24(Image, nRow, Row.data());
    return Row;
}

namespace
{

// A reduced picture of one row.
struct cReducedRow
{
    explicit cReducedRow(const cColours &Colours) : m_Pixels(Row24(Colours))
    {
        const int32_t nWidth = static_cast<int32_t>(Colours.size());
        REQUIRE(ReduceColours({nWidth, 1, 24, 0, nullptr, m_Pixels.data()}, &m_Reduced) == 1);
    }

    uint32_t PaletteColour(unsigned nIndex) const
    {
        const uint8_t *const pRgb = m_Reduced.m_Palette + 3 * nIndex;
        return static_cast<uint32_t>(pRgb[0] << 16 | pRgb[1] << 8 | pRgb[2]);
    }
    uint8_t  Index(size_t nX) const { return m_Reduced.m_pPixels[nX]; }
    uint32_t Shown(size_t nX) const { return PaletteColour(Index(nX)); }

    cBytes        m_Pixels;
    cReducedImage m_Reduced;
};

}  // namespace

// nColours different colours, spread over the whole space.
static cColours Distinct(unsigned nColours)
{
    cColours Colours;
    for (unsigned i = 0; i < nColours; i++)
        Colours.push_back(i * 5039 % 0x1000000);
    return Colours;
}

static cColours Noise(size_t nPixels, uint32_t nMask, unsigned nSeed)
{
    std::mt19937 Random(nSeed);
    cColours     Colours(nPixels);
    for (uint32_t &nColour : Colours)
        nColour = Random() & nMask & 0xFFFFFF;
    return Colours;
}

static uint32_t Distance(uint32_t nLeft, uint32_t nRight)
{
    uint32_t nSum = 0;
    for (int nShift = 0; nShift < 24; nShift += 8)
    {
        const int nBetween =
            static_cast<int>(nLeft >> nShift & 0xFF) - static_cast<int>(nRight >> nShift & 0xFF);
        nSum += static_cast<uint32_t>(nBetween * nBetween);
    }
    return nSum;
}

namespace
{

// Reduction worked out the slow way: sorted instead of picked, searched instead
// of hashed. Gives the palette and the indices.
struct cReductionModel
{
    explicit cReductionModel(const cColours &Colours) : m_nMask(0xFFFFFF)
    {
        static const uint32_t s_Dropped[] = {0x000001, 0x010000, 0x000100};  // blue, red, green
        unsigned              nDropped    = 0;
        while (!CountColours(Colours))
        {
            m_nMask &= ~(s_Dropped[nDropped % 3] << nDropped / 3);
            nDropped++;
        }
        std::vector<size_t> Order(m_Found.size());
        for (size_t i = 0; i < Order.size(); i++)
            Order[i] = i;
        std::stable_sort(Order.begin(), Order.end(), [&](size_t nLeft, size_t nRight) {
            return m_Counts[nLeft] > m_Counts[nRight];
        });
        Order.resize(std::min<size_t>(Order.size(), 256));
        for (const size_t nEntry : Order)
            m_Palette.push_back(m_Found[nEntry]);
        m_Palette.resize(256, 0x808080);
        std::map<uint32_t, uint8_t> Nearests;
        for (const uint32_t nColour : m_Found)
            Nearests[nColour] = Nearest(nColour);
        for (const uint32_t nColour : Colours)
            m_Indices.push_back(Nearests[nColour & m_nMask]);
    }

    int CountColours(const cColours &Colours)
    {
        std::map<uint32_t, size_t> Entries;
        m_Found.clear();
        m_Counts.clear();
        for (const uint32_t nColour : Colours)
        {
            const auto [Entry, bNew] = Entries.emplace(nColour & m_nMask, m_Found.size());
            if (bNew)
            {
                m_Found.push_back(nColour & m_nMask);
                m_Counts.push_back(0);
            }
            m_Counts[Entry->second]++;
        }
        return m_Found.size() <= 2049;
    }

    uint8_t Nearest(uint32_t nColour) const
    {
        const auto Best = std::min_element(
            m_Palette.begin(), m_Palette.end(), [nColour](uint32_t nLeft, uint32_t nRight) {
                return Distance(nColour, nLeft) < Distance(nColour, nRight);
            });
        return static_cast<uint8_t>(Best - m_Palette.begin());
    }

    uint32_t              m_nMask;
    cColours              m_Found;
    std::vector<unsigned> m_Counts;
    cColours              m_Palette;
    cBytes                m_Indices;
};

}  // namespace

static void CheckAgainstModel(const cColours &Colours)
{
    const cReducedRow     Row(Colours);
    const cReductionModel Model(Colours);
    for (unsigned nIndex = 0; nIndex < 256; nIndex++)
        REQUIRE(Row.PaletteColour(nIndex) == Model.m_Palette[nIndex]);
    CHECK(cBytes(Row.m_Reduced.m_pPixels.get(), Row.m_Reduced.m_pPixels.get() + Colours.size()) ==
          Model.m_Indices);
}

TEST_CASE("pixels of a palette take their colour from the table")
{
    cBytes Colours(3 * 256);
    for (size_t i = 0; i < Colours.size(); i++)
        Colours[i] = static_cast<uint8_t>(i);
    const cBytes Pixels1 = {0xA0, 0, 0, 0, 0x40, 0, 0, 0};
    const cBytes Pixels4 = {0x1F, 0x20, 0, 0};
    const cBytes Pixels8 = {1, 15, 2, 0};

    CHECK(Expanded({3, 2, 1, 0, Colours.data(), Pixels1.data()}, 0) ==
          cBytes{5, 4, 3, 2, 1, 0, 5, 4, 3});
    CHECK(Expanded({3, 2, 1, 0, Colours.data(), Pixels1.data()}, 1) ==
          cBytes{2, 1, 0, 5, 4, 3, 2, 1, 0});
    CHECK(Expanded({3, 1, 4, 0, Colours.data(), Pixels4.data()}, 0) ==
          cBytes{5, 4, 3, 47, 46, 45, 8, 7, 6});
    CHECK(Expanded({3, 1, 8, 0, Colours.data(), Pixels8.data()}, 0) ==
          cBytes{5, 4, 3, 47, 46, 45, 8, 7, 6});
}

TEST_CASE("pixels of 16 bits are split by the flag and keep their low bits 0")
{
    static const struct
    {
        uint32_t nPixel;
        int      b555;
        uint32_t nColour;
    } s_Rows[] = {
        {0x7FFF, 1, 0xF8F8F8}, {0xFFFF, 1, 0xF8F8F8}, {0x8000, 1, 0x000000}, {0x7C00, 1, 0xF80000},
        {0x03E0, 1, 0x00F800}, {0x001F, 1, 0x0000F8}, {0x0421, 1, 0x080808}, {0xFFFF, 0, 0xF8FCF8},
        {0xF800, 0, 0xF80000}, {0x07E0, 0, 0x00FC00}, {0x001F, 0, 0x0000F8}, {0x0821, 0, 0x080408},
    };
    for (const auto &Row : s_Rows)
    {
        const cBytes Pixels = Little({Row.nPixel, 0}, 2);
        CAPTURE(Row.nPixel);
        CHECK(Expanded({1, 1, 16, Row.b555, nullptr, Pixels.data()}, 0) ==
              Little({Row.nColour}, 3));
    }
}

TEST_CASE("a picture of 24 bits is left as it is")
{
    const cBytes    Pixels = {1, 2, 3, 0, 4, 5, 6, 0};
    const cDibImage Image  = {1, 2, 24, 0, nullptr, Pixels.data()};

    CHECK(ExpandTo24(Image, 0, nullptr) == Pixels.data());
    CHECK(ExpandTo24(Image, 1, nullptr) == Pixels.data() + 4);
}

TEST_CASE("colours are counted in the order in which they are met")
{
    const cBytes     Row = Little({0x010203, 0x040506, 0x010203, 0x010203, 0xFFFFFF}, 3);
    cColourHistogram Histogram;

    CHECK(Histogram.Add(Row.data(), 5) == 1);
    CHECK(Histogram.Add(Row.data(), 1) == 1);

    REQUIRE(Histogram.Count() == 3);
    CHECK(Histogram.Entry(0).m_nColour == 0x010203);
    CHECK(Histogram.Entry(0).m_nCount == 4);
    CHECK(Histogram.Entry(1).m_nColour == 0x040506);
    CHECK(Histogram.Entry(1).m_nCount == 1);
    CHECK(Histogram.Entry(2).m_nColour == 0xFFFFFF);
    CHECK(&Histogram.Find(0x040506) == &Histogram.Entry(1));
}

TEST_CASE("2049 colours can be counted and one more cannot")
{
    const cBytes Row = Little(Distinct(2050), 3);

    cColourHistogram Enough;
    CHECK(Enough.Add(Row.data(), 2049) == 1);
    CHECK(Enough.Add(Row.data(), 2049) == 1);
    CHECK(Enough.Count() == 2049);
    CHECK(Enough.Add(Row.data() + size_t(3) * 2049, 1) == 0);
}

TEST_CASE("colours that share a slot are distinguished, also across the end of the table")
{
    // The first slot searched is the same for each order of the channels. Many
    // colours begin at the last three slots and run on at the first ones.
    cColours Colours;
    for (const uint32_t nColour :
         {0x102030u, 0x103020u, 0x201030u, 0x203010u, 0x301020u, 0x302010u})
        Colours.push_back(nColour);
    for (uint32_t nRed = 0; nRed < 256; nRed++)
        for (uint32_t nGreen = 0; nGreen < 256; nGreen += 3)
            for (uint32_t nBlue = 0; nBlue < 256; nBlue += 5)
                if ((nRed + nBlue) * (nGreen + nBlue) * (nGreen + nRed) % 5191 >= 5189)
                    Colours.push_back(nRed << 16 | nGreen << 8 | nBlue);
    Colours.resize(std::min<size_t>(Colours.size(), 256));
    REQUIRE(Colours.size() > 20);

    const cReducedRow Row(Colours);

    for (size_t nX = 0; nX < Colours.size(); nX++)
        CHECK(Row.Shown(nX) == Colours[nX]);
}

TEST_CASE("coarsening drops bits of blue, red and green in turn")
{
    static const uint32_t s_Masks[] = {0xFFFFFF, 0xFFFFFE, 0xFEFFFE, 0xFEFEFE, 0xFEFEFC,
                                       0xFCFEFC, 0xFCFCFC, 0xFCFCF8, 0xF8FCF8, 0xF8F8F8};
    const cBytes          Row       = Little({0x123456}, 3);
    cColourHistogram      Histogram;
    for (const uint32_t nMask : s_Masks)
    {
        CHECK(Histogram.Mask() == nMask);
        CHECK(Histogram.Add(Row.data(), 1) == 1);
        CHECK(Histogram.Entry(0).m_nColour == (0x123456 & nMask));
        CHECK(&Histogram.Find(0x123456) == &Histogram.Entry(0));
        Histogram.Coarsen();
        CHECK(Histogram.Count() == 0);
    }
}

TEST_CASE("the most frequent colours come first, of equals the one met first")
{
    const cReducedRow Row({0x111111, 0x222222, 0x333333, 0x333333, 0x222222, 0x444444, 0x333333});

    CHECK(Row.PaletteColour(0) == 0x333333);
    CHECK(Row.PaletteColour(1) == 0x222222);
    CHECK(Row.PaletteColour(2) == 0x111111);
    CHECK(Row.PaletteColour(3) == 0x444444);
    CHECK(Row.Index(0) == 2);
    CHECK(Row.Index(6) == 0);
}

TEST_CASE("a picture of fewer than 256 colours keeps each, and grey fills the palette")
{
    const cColours    Colours = Distinct(255);
    const cReducedRow Row(Colours);

    for (size_t nX = 0; nX < Colours.size(); nX++)
        CHECK(Row.Shown(nX) == Colours[nX]);
    CHECK(Row.PaletteColour(254) == Colours[254]);
    CHECK(Row.PaletteColour(255) == 0x808080);
}

TEST_CASE("a colour beyond the 256 most frequent takes the nearest, of equals the first")
{
    // Greys 0, 2, 4 ... twice each fill 128 entries; reds the rest.
    cColours Colours;
    for (uint32_t nGrey = 0; nGrey < 256; nGrey += 2)
        Colours.insert(Colours.end(), 2, nGrey * 0x010101);
    for (uint32_t nRed = 0; nRed < 128; nRed++)
        Colours.insert(Colours.end(), 2, 0x800000 + nRed * 0x010000);
    Colours.push_back(0x040405);
    Colours.push_back(0x050505);

    const cReducedRow Row(Colours);

    CHECK(Row.Shown(Colours.size() - 2) == 0x040404);
    CHECK(Row.Shown(Colours.size() - 1) == 0x040404);
}

TEST_CASE("a picture of 3000 colours is counted with less blue, then red, then green")
{
    cColours Colours;
    for (uint32_t i = 0; i < 3000; i++)
        Colours.push_back(i);
    CHECK(cReductionModel(Colours).m_nMask == 0xFFFFFE);
    CheckAgainstModel(Colours);

    // Each combination of these bits occurs.
    static const struct
    {
        uint32_t nBits;
        uint32_t nMask;  // that counting ends with
    } s_Rows[] = {
        {0x0F0F0F, 0xFFFFFE}, {0x1F0F0F, 0xFEFFFE}, {0x1F1F0F, 0xFEFEFE},
        {0x1F1F1F, 0xFEFEFC}, {0x3F1F1F, 0xFCFEFC},
    };
    for (const auto &Row : s_Rows)
    {
        Colours = Noise(100000, Row.nBits, 2);
        CHECK(cReductionModel(Colours).m_nMask == Row.nMask);
        CheckAgainstModel(Colours);
    }
}

TEST_CASE("reduction is that of the slow model")
{
    static const struct
    {
        size_t   nPixels;
        uint32_t nMask;
    } s_Rows[] = {
        {1, 0xFFFFFF},     {300, 0xFFFFFF},   {257, 0xFFFFFF},   {2049, 0xFFFFFF},
        {2050, 0xFFFFFF},  {3000, 0xFFFFFF},  {20000, 0xF0F0F0}, {20000, 0xFF0000},
        {20000, 0x0F1F3F}, {40000, 0xFFFFFF},
    };
    unsigned nSeed = 0;
    for (const auto &Row : s_Rows)
        CheckAgainstModel(Noise(Row.nPixels, Row.nMask, nSeed++));
}

TEST_CASE("colours are counted from the bottom row up, without the padding")
{
    // The padding is not black, and not in the palette.
    const cBytes    Pixels = {1, 1, 1, 99, 2, 2, 2, 99};
    const cDibImage Image  = {1, 2, 24, 0, nullptr, Pixels.data()};
    cReducedImage   Reduced;

    REQUIRE(ReduceColours(Image, &Reduced) == 1);

    CHECK(Slice(cBytes(Reduced.m_Palette, Reduced.m_Palette + 9), 0, 9) ==
          cBytes{1, 1, 1, 2, 2, 2, 128, 128, 128});
    CHECK(cBytes(Reduced.m_pPixels.get(), Reduced.m_pPixels.get() + 8) ==
          cBytes{0, 0, 0, 0, 1, 0, 0, 0});
}

TEST_CASE("every depth is reduced to a picture of 8 bits")
{
    const cBytes Colours = {10, 20, 30, 40, 50, 60};
    const cBytes Pixels  = {0x40, 0, 0, 0};

    cReducedImage Reduced;
    REQUIRE(ReduceColours({2, 1, 1, 0, Colours.data(), Pixels.data()}, &Reduced) == 1);

    const cDibImage Dib = Reduced.Dib();
    CHECK(Dib.m_nWidth == 2);
    CHECK(Dib.m_nHeight == 1);
    CHECK(Dib.m_nBits == 8);
    CHECK(cBytes(Dib.m_pColours, Dib.m_pColours + 6) == cBytes{10, 20, 30, 40, 50, 60});
    CHECK(cBytes(Dib.m_pPixels, Dib.m_pPixels + 4) == cBytes{0, 1, 0, 0});
}

TEST_CASE("reduction without memory returns 0")
{
    const cBytes    Pixels = {1, 2, 3, 0};
    const cDibImage Image  = {1, 1, 24, 0, nullptr, Pixels.data()};
    for (int nSucceed = 0; nSucceed < 3; nSucceed++)
    {
        cReducedImage        Reduced;
        const cFailingMemory Short(nSucceed, 1);
        CHECK(ReduceColours(Image, &Reduced) == 0);
        CHECK(Short.FailuresLeft() == 0);
    }
}
