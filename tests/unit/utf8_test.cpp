#include "toolkit/utf8.h"

#include <string>
#include <string_view>

#include <doctest/doctest.h>

using namespace std::string_view_literals;

TEST_CASE("a character is as long as its valid sequence, or nothing")
{
    // clang-format off
    static const struct { std::string_view Text; size_t nLength; } s_Rows[] =
    {
        { ""sv,                 0 },
        { "a"sv,                1 },
        { "\0a"sv,              1 },
        { "\x7F"sv,             1 },
        { "\x80"sv,             0 },
        { "\xC1\xBF"sv,         0 },  // overlong
        { "\xC2\x80"sv,         2 },
        { "\xDF\xBF\xBF"sv,     2 },
        { "\xDF"sv,             0 },
        { "\xE0\x9F\xBF"sv,     0 },  // overlong
        { "\xE0\xA0\x80"sv,     3 },
        { "\xED\x9F\xBF"sv,     3 },
        { "\xED\xA0\x80"sv,     0 },  // surrogate
        { "\xEF\xBF\xBF"sv,     3 },
        { "\xEF\xBF"sv,         0 },
        { "\xEF\xBFz"sv,        0 },
        { "\xF0\x90\x80\x80"sv, 4 },
        { "\xF0\x8F\x80\x80"sv, 0 },  // overlong
        { "\xF4\x8F\xBF\xBF"sv, 4 },
        { "\xF4\x90\x80\x80"sv, 0 },  // beyond U+10FFFF
        { "\xF5\x80\x80\x80"sv, 0 },
        { "\xF0\x90\x80"sv,     0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nLength);
        CHECK(Utf8Length(Row.Text) == Row.nLength);
    }
}
