#include "graph/svg_font.h"

#include <string>

#include <doctest/doctest.h>

TEST_CASE("texts are as wide as the advance widths of their characters")
{
    // clang-format off
    static const struct { const char *szText; int nWidth; } s_Rows[] =
    {
        { "",                  0 },
        { " ",                 4 },   // 569 / 2048 * 14 = 3.89
        { "M",                12 },   // 11.66
        { "0123456789",       78 },   // 77.86: rounded once, not digit by digit
        { "-2.5",             24 },
        { "~",                 8 },
        { "\x7F",              8 },   // as a digit
        { "\xC3\xA4",          8 },   // a with dots
        { "\xC3\x96",         11 },   // O with dots
        { "\xC2\xA0",          4 },
        { "\xC2\x80",          8 },   // no character of the table
        { "\xE2\x82\xAC",      8 },
        { "\xFF\xFF",         16 },   // two bytes that are none
        { "\xE6\x97\xA5",     14 },   // a square
        { "\xED\x95\x9C",     14 },
        { "\xF0\x9F\x98\x80", 14 },
        { "\xE2\x80\xA6",     14 },   // an ellipsis
        { "\xD0\x96",         11 },   // a Cyrillic capital
        { "\xCF\x80",          8 },   // pi
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        CHECK(SvgTextWidth(Row.szText) == Row.nWidth);
    }
}

TEST_CASE("a longer text is never narrower")
{
    std::string Text;
    int         nFormer = 0;
    for (int nByte = 1; nByte < 256; nByte++)
    {
        Text += static_cast<char>(nByte);
        CHECK(SvgTextWidth(Text.c_str()) >= nFormer);
        nFormer = SvgTextWidth(Text.c_str());
    }
}

TEST_CASE("widths in parts of the size are not rounded")
{
    CHECK(SvgTextEms("") == 0.0);
    CHECK(SvgTextEms("0123456789") == doctest::Approx(5.561).epsilon(1e-3));
    CHECK(SvgTextEms("M") == doctest::Approx(0.833).epsilon(1e-3));
}
