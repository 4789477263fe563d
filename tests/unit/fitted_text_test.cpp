#include "figure/fitted_text.h"

#include <doctest/doctest.h>

#include "tests/unit/figure_log.h"

// A character is 5 pixels wide.
static const cTextStyle kTenPixels = {10.0, 0, 0};

static std::vector<std::string> WrappedText(const std::string &Text, double dWidth, size_t nMost)
{
    return WrapText(cFigureLog(), Text, kTenPixels, dWidth, nMost);
}

TEST_CASE("a text that is too long ends in an ellipsis")
{
    const cFigureLog Canvas;
    CHECK(FitText(Canvas, "height", kTenPixels, 30.0) == "height");
    CHECK(FitText(Canvas, "height", kTenPixels, 29.0) == "heig…");
    CHECK(FitText(Canvas, "height", kTenPixels, 6.0) == "…");
    CHECK(FitText(Canvas, "", kTenPixels, 0.0).empty());
}

TEST_CASE("a text is broken at blanks, as late as possible")
{
    typedef std::vector<std::string> cWrappedLines;
    CHECK(WrappedText("", 10.0, 3).empty());
    CHECK(WrappedText("one line", 40.0, 3) == cWrappedLines{"one line"});
    CHECK(WrappedText("now in two lines", 50.0, 3) == cWrappedLines{"now in two", "lines"});
    CHECK(WrappedText("all of it is too long", 30.0, 2) == cWrappedLines{"all of", "it is…"});
    CHECK(WrappedText("Donaudampfschiff", 30.0, 3) == cWrappedLines{"Donau…"});
}
