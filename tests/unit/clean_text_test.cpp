#include "figure/clean_text.h"

#include <doctest/doctest.h>

TEST_CASE("texts of any bytes become valid UTF-8 without control characters")
{
    CHECK(CleanText("Höhe <&> \xF0\x9F\x93\x88") == "Höhe <&> \xF0\x9F\x93\x88");
    CHECK(CleanText("a\tb\nc\x7F") == "a b\xEF\xBF\xBD"
                                      "c\xEF\xBF\xBD");
    CHECK(CleanText("\xFF\xC3") == "\xEF\xBF\xBD\xEF\xBF\xBD");
    CHECK(CleanText("\xED\xA0\x80") == "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");  // a surrogate
    CHECK(CleanText("\xEF\xBF\xBE\xC2\x85") == "\xEF\xBF\xBD\xEF\xBF\xBD");
    CHECK(CleanText(std::string_view("\0", 1)) == "\xEF\xBF\xBD");
    CHECK(CleanText("").empty());
}

TEST_CASE("a text is cut between characters")
{
    CHECK(LengthInCharacters("Höhe") == 4);
    CHECK(Elided("Höhe", 2) == "Hö…");
    CHECK(Elided("Free fall", 5) == "Free…");
    CHECK(Elided("ab", 9) == "ab…");
    CHECK(Elided("ab", 0) == "…");
}
