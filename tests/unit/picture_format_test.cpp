#include "figure/picture_format.h"

#include <doctest/doctest.h>

TEST_CASE("a picture's format comes from the ending of its name")
{
    CHECK(FormatOfName("fall.svg") == pfSvg);
    CHECK(FormatOfName("folder.pdf/fall.PNG") == pfPng);
    CHECK(FormatOfName("a.svg.Pdf") == pfPdf);
    for (const char *const szName :
         {"", "svg", "fall", "fall.svg2", "fall.", "fall.txt", "a.pdf/b"})
        CHECK_FALSE(FormatOfName(szName).has_value());
}

TEST_CASE("a picture's format may be named")
{
    CHECK(FormatOfWord("svg") == pfSvg);
    CHECK(FormatOfWord("PDF") == pfPdf);
    CHECK_FALSE(FormatOfWord(".svg").has_value());
    CHECK_FALSE(FormatOfWord("jpeg").has_value());
}

TEST_CASE("SVG pictures can be drawn by any build")
{
    CHECK(CanDraw(pfSvg) == 1);
    CHECK(CanDraw(pfPng) == CanDraw(pfPdf));
}
