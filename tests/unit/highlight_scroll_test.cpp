#include "toolkit/highlight_scroll.h"

#include <doctest/doctest.h>

TEST_CASE("a highlighted line at the edge of the view or outside goes to its middle")
{
    // clang-format off
    static const struct { int nLine, nFirst, nLast, nMargin, nScroll; } s_Rows[] =
    {
        { 15, 10, 20, 0,   0 },     // in the middle
        { 11, 10, 20, 0,   0 },     // just below the first line
        { 19, 10, 20, 0,   0 },     // just above the last line
        { 10, 10, 20, 0,  -5 },     // the first line
        {  9, 10, 20, 0,  -6 },     // above the view
        {  0, 10, 20, 0, -15 },
        { 20, 10, 20, 0,   5 },     // the last line
        { 21, 10, 20, 0,   6 },     // below the view
        { 98, 10, 20, 0,  83 },
        { 10, 10, 21, 0,  -5 },     // the middle is rounded down
        { 21, 10, 21, 0,   6 },
        { 17, 10, 20, 2,   0 },     // a margin of two lines
        { 18, 10, 20, 2,   3 },
        { 19, 10, 20, 2,   4 },
        { 10, 10, 20, 2,  -5 },
        {  0,  0,  0, 0,   0 },     // a view of one line
        {  7,  3,  3, 0,   4 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nLine);
        CAPTURE(Row.nMargin);
        CHECK(HighlightScroll(Row.nLine, Row.nFirst, Row.nLast, Row.nMargin) == Row.nScroll);
    }
}
