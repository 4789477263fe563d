#include "graph/vantor_data_set.h"

#include <cfloat>
#include <cmath>
#include <limits>
#include <string>

#include <doctest/doctest.h>

TEST_CASE("a double outside the range of a float is narrowed to the largest float")
{
    // clang-format off
    static const struct { double dValue; float fStored; } s_Rows[] =
    {
        { 0.0,                    0.0F          },
        { 1.5,                    1.5F          },
        { 0.1,                    0.1F          },
        { 3.4028234663852886e38,  FLT_MAX       },
        { 3.4028235e38,           FLT_MAX       },
        { 3.4028236e38,           FLT_MAX       },
        { 9.999999999e99,         FLT_MAX       },
        { 1e308,                  FLT_MAX       },
        { -3.4028236e38,          -FLT_MAX      },
        { -9.999999999e99,        -FLT_MAX      },
        { 1e-99,                  0.0F          },
        { 1.401298464324817e-45,  FLT_TRUE_MIN  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dValue);
        CHECK(NarrowToFloat(Row.dValue) == Row.fStored);
    }
    CHECK(NarrowToFloat(std::numeric_limits<double>::infinity()) == FLT_MAX);
    CHECK(NarrowToFloat(-std::numeric_limits<double>::infinity()) == -FLT_MAX);
    CHECK(std::isnan(NarrowToFloat(std::numeric_limits<double>::quiet_NaN())));
    CHECK(std::signbit(NarrowToFloat(-0.0)));
}

TEST_CASE("the five line styles carry the values of the platform's pens")
{
    // clang-format off
    static const char *const s_Names[] =
        { "solid", "dash", "dot", "dash-dot", "dash-dot-dot" };
    // clang-format on
    for (uint32_t nStyle = 0; nStyle < 5; nStyle++)
    {
        CHECK(kLineStyles[nStyle].m_nValue == nStyle);
        CHECK(std::string(kLineStyles[nStyle].m_szName) == s_Names[nStyle]);
    }
    CHECK(sizeof kLineStyles / sizeof kLineStyles[0] == 5);
}

TEST_CASE("the five markers are numbered from 0")
{
    // clang-format off
    static const char *const s_Names[] =
        { "triangle", "square", "diamond", "vert line", "horz line" };
    // clang-format on
    for (uint32_t nStyle = 0; nStyle < 5; nStyle++)
    {
        CHECK(kMarkerStyles[nStyle].m_nValue == nStyle);
        CHECK(std::string(kMarkerStyles[nStyle].m_szName) == s_Names[nStyle]);
    }
    CHECK(sizeof kMarkerStyles / sizeof kMarkerStyles[0] == 5);
}

TEST_CASE("colours have red in their lowest byte")
{
    CHECK(MakeColour(255, 0, 0) == 0x0000FF);
    CHECK(MakeColour(0, 255, 0) == 0x00FF00);
    CHECK(MakeColour(0, 0, 255) == 0xFF0000);
    CHECK(kWhite == 0xFFFFFF);
    CHECK(kBlack == 0);
}

TEST_CASE("the default label fits for the largest line number")
{
    char szLabel[kDefaultLabel];

    FormatDefaultLabel(1, szLabel);
    CHECK(std::string(szLabel) == "data line # 1");

    FormatDefaultLabel(4294967295U, szLabel);
    CHECK(std::string(szLabel) == "data line # 4294967295");
}

TEST_CASE("a set without x values has its indices as x")
{
    cVantorDataSet Set;
    Set.m_pY        = std::make_unique<float[]>(3);
    Set.m_nCapacity = 3;

    Set.Append(50.0F, 7.0F);
    Set.Append(60.0F, -7.0F);

    CHECK(Set.X(0) == 0.0F);
    CHECK(Set.X(1) == 1.0F);
    CHECK(Set.m_nPoints == 2);
    CHECK(Set.m_fXMin == 0.0F);
    CHECK(Set.m_fXMax == 1.0F);
    CHECK(Set.m_fYMin == -7.0F);
    CHECK(Set.m_fYMax == 7.0F);
}
