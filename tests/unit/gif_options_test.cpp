#include "imaging/gif_options.h"

#include <doctest/doctest.h>

// A picture of 300 x 200 whose bottom left pixel has colour 13, or 1.
static cGifOptions ParsedOptions(const char *szOptions, unsigned nBits = 8)
{
    static const uint8_t s_First1[] = {0x80};
    static const uint8_t s_First4[] = {0xD5};
    static const uint8_t s_First8[] = {13};
    const cDibImage      Image      = {
                  300, 200, nBits, 0, nullptr, nBits == 1 ? s_First1 : nBits == 4 ? s_First4 : s_First8};
    return ParseGifOptions(szOptions, Image);
}

TEST_CASE("without options the screen is the image and nothing is special")
{
    const cGifOptions Options = ParsedOptions("");

    CHECK(Options.m_bInterlaced == 0);
    CHECK(Options.m_nScreenWidth == 300);
    CHECK(Options.m_nScreenHeight == 200);
    CHECK(Options.m_nBackground == 0);
    CHECK(Options.m_nLeft == 0);
    CHECK(Options.m_nTop == 0);
    CHECK(Options.m_bTransparent == 0);
}

TEST_CASE("each GIF option sets what it names")
{
    const cGifOptions Options =
        ParsedOptions("ypos=6 xpos=5,background=3;yscreen=480xscreen=640 ilace transcol=9");

    CHECK(Options.m_bInterlaced == 1);
    CHECK(Options.m_nScreenWidth == 640);
    CHECK(Options.m_nScreenHeight == 480);
    CHECK(Options.m_nBackground == 3);
    CHECK(Options.m_nLeft == 5);
    CHECK(Options.m_nTop == 6);
    CHECK(Options.m_bTransparent == 1);
    CHECK(Options.m_nTransparent == 9);
}

TEST_CASE("numbers of GIF options end at the first other character and keep their low bits")
{
    static const struct
    {
        const char *szOptions;
        unsigned    nLeft;
        unsigned    nBackground;
    } s_Rows[] = {
        {"xpos=12a3 background=12a3", 12, 12},
        {"xpos=+7 background=+7", 7, 7},
        {"xpos=-1 background=-1", 65535, 255},
        {"xpos=-+1 background=+-1", 0, 0},
        {"xpos= background=", 0, 0},
        {"xpos= 5 background=\t5", 0, 0},
        {"xpos=x background=x", 0, 0},
        {"xpos=65536 background=256", 0, 0},
        {"xpos=65537 background=257", 1, 1},
        {"xpos=4294967298 background=4294967298", 2, 2},
        {"xpos=99999999999999999999 background=99999999999999999999", 0xFFFF, 0xFF},
        {"xpos=0x10 background=010", 0, 10},
    };
    for (const auto &Row : s_Rows)
    {
        const cGifOptions Options = ParsedOptions(Row.szOptions);
        CAPTURE(Row.szOptions);
        CHECK(Options.m_nLeft == Row.nLeft);
        CHECK(Options.m_nBackground == Row.nBackground);
    }
}

TEST_CASE("the first of two equal GIF options counts, and case matters")
{
    CHECK(ParsedOptions("xpos=1 xpos=2").m_nLeft == 1);
    CHECK(ParsedOptions("XPOS=1 xpos=2").m_nLeft == 2);
    CHECK(ParsedOptions("transcol=4 transcol=edge").m_nTransparent == 4);
    CHECK(ParsedOptions("Ilace ILACE").m_bInterlaced == 0);
    CHECK(ParsedOptions("xpos 1").m_nLeft == 0);
}

TEST_CASE("edge makes the bottom left pixel's colour transparent")
{
    CHECK(ParsedOptions("transcol=edge", 8).m_nTransparent == 13);
    CHECK(ParsedOptions("transcol=edge", 4).m_nTransparent == 13);
    CHECK(ParsedOptions("transcol=edge", 1).m_nTransparent == 1);
    CHECK(ParsedOptions("transcol=edges", 8).m_nTransparent == 13);
    CHECK(ParsedOptions("transcol=edg", 8).m_nTransparent == 0);
    CHECK(ParsedOptions("transcol=Edge", 8).m_nTransparent == 0);
    CHECK(ParsedOptions("transcol=edge", 8).m_bTransparent == 1);
}

TEST_CASE("colour 0 can be transparent")
{
    CHECK(ParsedOptions("transcol=0").m_bTransparent == 1);
    CHECK(ParsedOptions("transcol=0").m_nTransparent == 0);
    CHECK(ParsedOptions("transcol=").m_bTransparent == 1);
    CHECK(ParsedOptions("transcol=257").m_nTransparent == 1);
}
