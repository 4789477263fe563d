#include "figure/marker_grid.h"

#include <limits>

#include <doctest/doctest.h>

TEST_CASE("each quarter of a pixel has one marker")
{
    cMarkerGrid Grid({0.5, 0.5, 100.5, 50.5});
    CHECK(Grid.Take({10.0, 10.0}) == 1);
    CHECK(Grid.Take({10.0, 10.0}) == 0);
    CHECK(Grid.Take({10.1, 10.1}) == 0);
    CHECK(Grid.Take({10.3, 10.0}) == 1);
    CHECK(Grid.Take({10.0, 10.3}) == 1);
}

TEST_CASE("markers beyond the frame are left out, those on its edges are not")
{
    cMarkerGrid Grid({0.5, 0.5, 100.5, 50.5});
    CHECK(Grid.Take({0.5, 0.5}) == 1);
    CHECK(Grid.Take({100.5, 50.5}) == 1);
    CHECK(Grid.Take({100.6, 20.0}) == 0);
    CHECK(Grid.Take({20.0, 0.4}) == 0);
    CHECK(Grid.Take({std::numeric_limits<double>::quiet_NaN(), 20.0}) == 0);
}

TEST_CASE("a large frame has coarser places")
{
    cMarkerGrid Grid({0.0, 0.0, 16383.0, 16383.0});
    CHECK(Grid.Take({16383.0, 16383.0}) == 1);
    CHECK(Grid.Take({10.0, 10.0}) == 1);
    CHECK(Grid.Take({10.3, 10.0}) == 0);
    CHECK(Grid.Take({14.5, 10.0}) == 1);
}
