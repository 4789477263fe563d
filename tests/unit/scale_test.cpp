#include "toolkit/scale.h"

#include <doctest/doctest.h>

TEST_CASE("lengths keep their size at 96 dots per inch")
{
    for (int nLength = -700; nLength <= 700; nLength++)
    {
        CHECK(cScale().Length(nLength) == nLength);
        CHECK(cScale().Usual(nLength) == nLength);
    }
}

TEST_CASE("lengths are scaled to the nearest pixel, halves away from zero")
{
    static const struct
    {
        int nDpi;
        int nLength;
        int nScaled;
    } s_Rows[] = {{120, 39, 49},   {120, 74, 93},    {120, 2, 3},       {120, -2, -3},
                  {144, 35, 53},   {144, -35, -53},  {144, 1, 2},       {144, 0, 0},
                  {168, 306, 536}, {192, 567, 1134}, {288, 1158, 3474}, {192, 40000000, 80000000}};

    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nDpi);
        CAPTURE(Row.nLength);
        CHECK(cScale(Row.nDpi).Length(Row.nLength) == Row.nScaled);
    }
}

TEST_CASE("a length survives the way to a finer screen and back")
{
    for (const int nDpi : {96, 120, 144, 168, 192, 240, 288})
        for (int nLength = -50; nLength <= 800; nLength++)
        {
            CHECK(cScale(nDpi).Usual(cScale(nDpi).Length(nLength)) == nLength);
            CHECK(cScale(nDpi).From(cScale(), nLength) == cScale(nDpi).Length(nLength));
        }
    CHECK(cScale(192).From(cScale(144), 300) == 400);
}
