#include "graph/float_scan.h"

#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

#include <doctest/doctest.h>

// How many characters the number at the start of szText takes up; 0 for none.
static size_t Used(const char *szText)
{
    const char *pEnd = SkipFloat(szText);
    return pEnd ? static_cast<size_t>(pEnd - szText) : 0;
}

static uint32_t BitsOf(float fValue)
{
    return std::bit_cast<uint32_t>(fValue);
}

TEST_CASE("a number is sign, digits with a point, and a complete exponent")
{
    // clang-format off
    static const struct { const char *szText; size_t nUsed; float fValue; } s_Rows[] =
    {
        { "0",            1, 0.0F     },
        { "12",           2, 12.0F    },
        { "-12",          3, -12.0F   },
        { "+12",          3, 12.0F    },
        { "1.25",         4, 1.25F    },
        { ".5",           2, 0.5F     },
        { "-.5",          3, -0.5F    },
        { "5.",           2, 5.0F     },
        { "1e3",          3, 1000.0F  },
        { "1E3",          3, 1000.0F  },
        { "1e+3",         4, 1000.0F  },
        { "25e-2",        5, 0.25F    },
        { "2.5e1",        5, 25.0F    },
        { "5.e1",         4, 50.0F    },
        { "007",          3, 7.0F     },
        { "1.2.3",        3, 1.2F     },
        { "1..2",         2, 1.0F     },
        { "1-2",          1, 1.0F     },
        { "1+2",          1, 1.0F     },
        { "1,5",          1, 1.0F     },
        { "1 2",          1, 1.0F     },
        { "1x",           1, 1.0F     },
        { "1e",           1, 1.0F     },
        { "1e+",          1, 1.0F     },
        { "1e-",          1, 1.0F     },
        { "1e x",         1, 1.0F     },
        { "1e5e5",        3, 1e5F     },
        { "1e2.5",        3, 100.0F   },
        { "0x10",         1, 0.0F     },
        { "1f",           1, 1.0F     },
        { "1d5",          1, 1.0F     },
        { " \t 7",        4, 7.0F     },
        { "\r\n\v\f7",    5, 7.0F     },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        float fValue = -77.0F;

        const char *pEnd = ReadFloat(Row.szText, &fValue);

        CHECK(pEnd == Row.szText + Row.nUsed);
        CHECK(Used(Row.szText) == Row.nUsed);
        CHECK(fValue == Row.fValue);
    }
}

TEST_CASE("where there is no number the value is left alone")
{
    // clang-format off
    static const char *const s_Texts[] =
    {
        "", " ", "\t", "\n", ".", "-", "+", "-.", "+-5", "-+5", "--5", "- 5", "+ 5",
        "e5", ".e5", "-e5", ",5", ",", "x", "inf", "-inf", "infinity", "nan", "NAN",
        "\"1\"", "#1", "\302\2401",
    };
    // clang-format on
    for (const char *szText : s_Texts)
    {
        CAPTURE(szText);
        float fValue = -77.0F;

        CHECK(!ReadFloat(szText, &fValue));
        CHECK(!SkipFloat(szText));
        CHECK(fValue == -77.0F);
    }
}

TEST_CASE("numbers beyond the range of a float saturate or vanish")
{
    // clang-format off
    static const struct { const char *szText; float fValue; } s_Rows[] =
    {
        { "3.4028235e38",                        FLT_MAX            },
        { "3.40282346638528859811704183484516925440e38", FLT_MAX    },
        { "3.4028235677973366e38",               FLT_MAX            },
        { "3.5e38",                              FLT_MAX            },
        { "-3.5e38",                             -FLT_MAX           },
        { "9.999999999e99",                      FLT_MAX            },
        { "-9.999999999e+99",                    -FLT_MAX           },
        { "1e999",                               FLT_MAX            },
        { "1e999999999999999999999999",          FLT_MAX            },
        { "-1e999999999999999999999999",         -FLT_MAX           },
        { "1000000000000000000000000000000000000000", FLT_MAX       },
        { "0.00000000000000000001e60",           FLT_MAX            },
        { "000000000000000000000000000000000000000000000000.1e60", FLT_MAX },
        { "1e-45",                               FLT_TRUE_MIN       },
        { "1.1754943508222875e-38",              FLT_MIN            },
        { "0.7007e-45",                          FLT_TRUE_MIN       },
        { "0.7e-45",                             0.0F               },
        { "-0.7e-45",                            -0.0F              },
        { "1e-99",                               0.0F               },
        { "-1e-99",                              -0.0F              },
        { "1e-999999999999999999999999",         0.0F               },
        { "0.0000000000000000000000000000000000000000000000001", 0.0F },
        { "10000000000000000000000000000000000e-99", 0.0F           },
        { "0.0000000000000000000000000000000000000000000000001e3", 0.0F },
        { "0e999999999999999999",                0.0F               },
        { "-0",                                  -0.0F              },
        { "-0.000e-999999999",                   -0.0F              },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        float fValue = -77.0F;

        const char *pEnd = ReadFloat(Row.szText, &fValue);

        CHECK(pEnd == Row.szText + strlen(Row.szText));
        CHECK(BitsOf(fValue) == BitsOf(Row.fValue));
    }
}

TEST_CASE("a number is rounded once, straight to a float")
{
    // Slightly above the middle between 1 and the next float. As a double it
    // would be the middle itself and then go down to the even 1.
    float fValue = 0.0F;

    ReadFloat("1.000000059604644775390625000000000001", &fValue);
    CHECK(fValue == std::nextafter(1.0F, 2.0F));

    ReadFloat("1.000000059604644775390625", &fValue);
    CHECK(fValue == 1.0F);

    ReadFloat("1.000000178813934326171875", &fValue);
    CHECK(fValue == std::nextafter(std::nextafter(1.0F, 2.0F), 2.0F));
}

TEST_CASE("every float reads back from its digits")
{
    std::mt19937                       Random(31415);
    std::uniform_int_distribution<int> Precision(8, 30);
    for (int i = 0; i < 100000; i++)
    {
        const float fValue = std::bit_cast<float>(static_cast<uint32_t>(Random()));
        if (!std::isfinite(fValue))
            continue;
        char       szText[64];
        const auto Result = std::to_chars(szText, szText + sizeof szText - 1, fValue,
                                          std::chars_format::scientific, Precision(Random));
        *Result.ptr       = '\0';
        float fRead       = -77.0F;

        const char *pEnd = ReadFloat(szText, &fRead);

        if (pEnd != Result.ptr || BitsOf(fRead) != BitsOf(fValue))
        {
            CAPTURE(szText);
            REQUIRE(pEnd == Result.ptr);
            REQUIRE(BitsOf(fRead) == BitsOf(fValue));
        }
    }
}

TEST_CASE("numbers of a million digits are read")
{
    const std::string Zeros(1000000, '0');
    float             fValue = -77.0F;

    CHECK(ReadFloat(("1" + Zeros).c_str(), &fValue));
    CHECK(fValue == FLT_MAX);

    CHECK(ReadFloat(("0." + Zeros + "1").c_str(), &fValue));
    CHECK(fValue == 0.0F);

    CHECK(ReadFloat(("0." + Zeros + "25e1000001").c_str(), &fValue));
    CHECK(fValue == 2.5F);

    CHECK(ReadFloat(("0." + Zeros + "1e999900").c_str(), &fValue));
    CHECK(fValue == 0.0F);

    CHECK(ReadFloat(("0." + Zeros + "1e1000100").c_str(), &fValue));
    CHECK(fValue == FLT_MAX);

    CHECK(ReadFloat(("5" + Zeros + "e-1000001").c_str(), &fValue));
    CHECK(fValue == 0.5F);
}
