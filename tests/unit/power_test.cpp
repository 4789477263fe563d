#include "engine/power.h"

#include <cmath>
#include <limits>

#include <doctest/doctest.h>

TEST_CASE("integer powers are exact where doubles are")
{
    CHECK(Power(10.0, -2) == 0.01);
    CHECK(Power(10.0, 0) == 1.0);
    CHECK(Power(10.0, 1) == 10.0);
    CHECK(Power(10.0, 15) == 1e15);
    CHECK(Power(10.0, -9) == 1e-9);
    CHECK(Power(2.0, 30) == 1073741824.0);
    CHECK(Power(2.0, -10) == 0.0009765625);
    CHECK(Power(-3.0, 3) == -27.0);
    CHECK(Power(-0.5, -2) == 4.0);
    CHECK(Power(0.0, 0) == 1.0);
    CHECK(Power(1.0, std::numeric_limits<int>::min()) == 1.0);
    for (int n = -300; n <= 300; n++)
        CHECK(Power(1.7, n) == doctest::Approx(std::exp(n * std::log(1.7))).epsilon(1e-12));
}
