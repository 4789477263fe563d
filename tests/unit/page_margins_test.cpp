#include "toolkit/page_margins.h"

#include <doctest/doctest.h>

TEST_CASE("metric margins are hundredths of a millimetre, truncated")
{
    const cPageMargins Metric = MetricMargins({1000, 333, 1, 0});

    CHECK(Metric.m_nLeft == 2540);
    CHECK(Metric.m_nTop == 845);  // 845.82
    CHECK(Metric.m_nRight == 2);  // 2.54
    CHECK(Metric.m_nBottom == 0);
}

TEST_CASE("metric margins are rounded when they are read back")
{
    const cPageMargins Inch = InchMargins({2540, 845, 2, 1});

    CHECK(Inch.m_nLeft == 1000);
    CHECK(Inch.m_nTop == 333);   // 332.68
    CHECK(Inch.m_nRight == 1);   // 0.79
    CHECK(Inch.m_nBottom == 0);  // 0.39
}

TEST_CASE("metric margins that were only displayed keep their value")
{
    for (int nMargin = 0; nMargin <= 20000; nMargin++)
    {
        const cPageMargins Read = InchMargins(MetricMargins({nMargin, nMargin, nMargin, nMargin}));
        REQUIRE(Read.m_nLeft == nMargin);
        REQUIRE(Read.m_nTop == nMargin);
        REQUIRE(Read.m_nRight == nMargin);
        REQUIRE(Read.m_nBottom == nMargin);
    }
}
