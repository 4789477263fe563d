#include "engine/number_format.h"

#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/exact_decimal.h"
#include "tests/unit/special_numbers.h"

// Smallest magnitudes shown in fixed notation, FIX 0 to FIX 9.
static const double kFixMin[] = {0.5, 0.05, 0.005, 0.0005, 0.00005, 5e-6, 5e-7, 5e-8, 5e-9, 5e-10};

static std::string Formatted(double dValue, const cNumberFormat &Format, unsigned nCode = 0)
{
    char szText[kStackText];
    CHECK(FormatNumber(dValue, Format, szText) == nCode);
    CHECK(strlen(szText) < sizeof szText);
    return szText;
}

// nCode: the code that is reported for it.
static std::string Shown(const char *szMode, unsigned nDigits, double dValue, unsigned nCode = 0)
{
    return Formatted(dValue, FormatOf(szMode, nDigits), nCode);
}

// --- the same texts from exact digits

static const char *SignOf(double dValue)
{
    return std::signbit(dValue) ? "-" : "+";
}

static std::string ExponentText(int nExponent)
{
    const std::string Digits = std::to_string(std::abs(nExponent));
    return (nExponent < 0 ? "e-" : "e+") + std::string(Digits.size() < 2 ? 1 : 0, '0') + Digits;
}

static std::string ExpectedFixed(double dValue, int nPlaces)
{
    const cExactDecimal Exact = ExactDecimal(dValue);
    cExactDecimal       Round = Rounded(Exact, Exact.m_nPoint + nPlaces);
    if (Round.m_nPoint < 1)
        Round = {std::string(static_cast<size_t>(1 - Round.m_nPoint), '0') + Round.m_Digits, 1};
    Round.m_Digits.resize(static_cast<size_t>(Round.m_nPoint + nPlaces), '0');
    if (nPlaces > 0)
        Round.m_Digits.insert(static_cast<size_t>(Round.m_nPoint), ".");
    return (SignOf(dValue) + Round.m_Digits).substr(0, 12);
}

// nDigits significant digits, a zero as 0.000 x 10^1.
static cExactDecimal Significant(double dValue, int nDigits)
{
    cExactDecimal Round = Rounded(ExactDecimal(dValue), nDigits);
    Round.m_Digits.resize(static_cast<size_t>(nDigits), '0');
    if (dValue == 0.0)
        Round.m_nPoint = 1;
    return Round;
}

static std::string ExpectedScientific(double dValue, int nPlaces)
{
    cExactDecimal Round = Significant(dValue, nPlaces + 1);
    if (nPlaces > 0)
        Round.m_Digits.insert(1, ".");
    return SignOf(dValue) + Round.m_Digits + ExponentText(Round.m_nPoint - 1);
}

static std::string ExpectedEngineering(double dValue, int nDigits)
{
    cExactDecimal Round    = Significant(dValue, nDigits + 1);
    const int     nThrees  = static_cast<int>(std::floor((Round.m_nPoint - 1) / 3.0));
    const size_t  nInteger = static_cast<size_t>(Round.m_nPoint - 3 * nThrees);
    Round.m_Digits.resize(std::max(Round.m_Digits.size(), nInteger), '0');
    Round.m_Digits.insert(nInteger, ".");
    if (Round.m_Digits.rfind("10.", 0) == 0)
        return ExpectedScientific(dValue, 9);
    return SignOf(dValue) + Round.m_Digits + ExponentText(3 * nThrees);
}

static std::string Expected(double dValue, const char *szMode, int nDigits)
{
    if (strcmp(szMode, "ENG") == 0)
        return ExpectedEngineering(dValue, nDigits);
    const double dMagnitude = std::fabs(dValue);
    const int    bFits = dMagnitude == 0.0 || (dMagnitude >= kFixMin[nDigits] && dMagnitude < 1e10);
    return strcmp(szMode, "FIX") == 0 && bFits ? ExpectedFixed(dValue, nDigits)
                                               : ExpectedScientific(dValue, nDigits);
}

TEST_CASE("FIX, SCI and ENG build their formats")
{
    cCalculatorRig       Rig;
    const cNumberFormat &Format = Rig.State();

    CHECK(Format.m_nDisplayMode == kModeFix);
    CHECK(Format.m_nDisplayDigits == 2);
    CHECK_TEXT(Format.m_szFixFormat, "%+.2lf");
    CHECK_TEXT(Format.m_szSciFormat, "%+.2le");
    CHECK(Format.m_dFixMin == 0.005);
    CHECK(Format.m_dFixMax == 1e10);

    Rig.Run("SCI", 5);
    CHECK(Format.m_nDisplayMode == kModeSci);
    CHECK(Format.m_nDisplayDigits == 5);
    CHECK_TEXT(Format.m_szFixFormat, "%+.2lf");
    CHECK_TEXT(Format.m_szSciFormat, "%+.5le");
    CHECK(Format.m_dFixMin == 0.005);

    Rig.Run("ENG", 7);
    CHECK(Format.m_nDisplayMode == kModeEng);
    CHECK(Format.m_nDisplayDigits == 7);
    CHECK_TEXT(Format.m_szFixFormat, "%+.2lf");
    CHECK_TEXT(Format.m_szSciFormat, "%+.5le");
    CHECK(Format.m_dFixMin == 0.005);

    Rig.Run("FIX", 0);
    CHECK(Format.m_nDisplayMode == kModeFix);
    CHECK_TEXT(Format.m_szFixFormat, "%+.0lf");
    CHECK_TEXT(Format.m_szSciFormat, "%+.0le");
    CHECK(Format.m_dFixMin == 0.5);
    CHECK(Format.m_dFixMax == 1e10);
}

TEST_CASE("FIX shows a number with its places, or as SCI where that would not do")
{
    // clang-format off
    static const struct { unsigned nDigits; double dValue; const char *szShown; } s_Rows[] =
    {
        { 2, 0.0,                "+0.00"             },
        { 2, -0.0,               "-0.00"             },
        { 2, 1.0,                "+1.00"             },
        { 2, -1.0,               "-1.00"             },
        { 2, 1234567.891,        "+1234567.89"       },
        { 2, 12345678901.0,      "+1.23e+10"         },
        { 2, -0.001,             "-1.00e-03"         },
        { 2, 0.004,              "+4.00e-03"         },
        { 2, 0.005,              "+0.01"             },
        { 2, -0.005,             "-0.01"             },
        { 2, 0.0049999999999999, "+5.00e-03"         },
        { 2, 1e10,               "+1.00e+10"         },
        { 2, -1e10,              "-1.00e+10"         },
        { 2, 9999999999.0,       "+9999999999."      },
        { 2, 9999999999.99,      "+9999999999."      },
        { 2, 9999999999.999,     "+10000000000"      },
        { 2, 0.125,              "+0.12"             },
        { 2, 0.375,              "+0.38"             },
        { 2, 1.005,              "+1.00"             },
        { 2, 99.995,             "+100.00"           },
        { 2, 99.994,             "+99.99"            },
        { 2, 1e99,               "+1.00e+99"         },
        { 2, 9.994e99,           "+9.99e+99"         },
        { 2, 9.999999999e99,     "+9.999999999e+99"  },
        { 2, -9.999999999e99,    "-9.999999999e+99"  },
        { 2, 1e-99,              "+1.00e-99"         },
        { 2, -1e-99,             "-1.00e-99"         },
        { 0, 0.0,                "+0"                },
        { 0, -0.0,               "-0"                },
        { 0, 0.5,                "+0"                },
        { 0, 1.5,                "+2"                },
        { 0, 2.5,                "+2"                },
        { 0, 3.5,                "+4"                },
        { 0, -2.5,               "-2"                },
        { 0, 0.49,               "+5e-01"            },
        { 0, 9999999999.0,       "+9999999999"       },
        { 0, 9999999999.75,      "+10000000000"      },
        { 0, 1e10,               "+1e+10"            },
        { 1, 0.05,               "+0.1"              },
        { 1, 0.25,               "+0.2"              },
        { 1, 0.35,               "+0.3"              },
        { 4, 3.14159265,         "+3.1416"           },
        { 9, 1.0 / 3.0,          "+0.333333333"      },
        { 9, -1.0 / 3.0,         "-0.333333333"      },
        { 9, 123456.123456789,   "+123456.1234"      },
        { 9, 123456.123499999,   "+123456.1234"      },
        { 9, 1234567890.5,       "+1234567890."      },
        { 9, 9999999999.5,       "+9999999999."      },
        { 9, 0.0,                "+0.000000000"      },
        { 9, 1e-9,               "+0.000000001"      },
        { 9, 4e-10,              "+4.000000000e-10"  },
        { 9, 1e10,               "+1.000000000e+10"  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nDigits);
        CAPTURE(Row.dValue);
        CHECK_TEXT(Shown("FIX", Row.nDigits, Row.dValue), Row.szShown);
    }
}

TEST_CASE("FIX 2 shows seven integer digits, and gives way to SCI above and below its range")
{
    CHECK_TEXT(Shown("FIX", 2, 1234567.891), "+1234567.89");
    CHECK_TEXT(Shown("FIX", 2, 12345678901.0), "+1.23e+10");
    CHECK_TEXT(Shown("FIX", 2, -0.001), "-1.00e-03");
}

TEST_CASE("FIX 9 shows a third with twelve characters")
{
    cCalculatorRig Rig;
    Rig.Type("f SST 9 1 ENTER 3 /");

    CHECK_TEXT(Rig.Display(), "+0.333333333");
}

TEST_CASE("ENG 2 shows 10 with nine places and no engineering exponent")
{
    cCalculatorRig Rig;
    Rig.Type("f GTO 2 10 ENTER");

    CHECK_TEXT(Rig.Display(), "+1.000000000e+01");
}

TEST_CASE("FIX begins at half a unit of the last place")
{
    for (unsigned nDigits = 0; nDigits <= 9; nDigits++)
    {
        const cNumberFormat Format = FormatOf("FIX", nDigits);
        const double        dMin   = kFixMin[nDigits];
        CAPTURE(nDigits);

        CHECK(Format.m_dFixMin == dMin);
        CHECK(Formatted(dMin, Format).find('e') == std::string::npos);
        CHECK(Formatted(std::nextafter(dMin, 0.0), Format).find('e') != std::string::npos);
        CHECK(Formatted(std::nextafter(1e10, 0.0), Format).find('e') == std::string::npos);
        CHECK(Formatted(1e10, Format).find('e') != std::string::npos);
    }
}

TEST_CASE("SCI shows one digit, the places and two digits of the exponent")
{
    // clang-format off
    static const struct { unsigned nDigits; double dValue; const char *szShown; } s_Rows[] =
    {
        { 2, 123456.0,        "+1.23e+05"        },
        { 2, 0.0,             "+0.00e+00"        },
        { 2, -0.0,            "-0.00e+00"        },
        { 2, -12345.0,        "-1.23e+04"        },
        { 2, 0.00099951,      "+1.00e-03"        },
        { 2, 9.995,           "+9.99e+00"        },
        { 2, 1.125,           "+1.12e+00"        },
        { 2, 1.375,           "+1.38e+00"        },
        { 0, 5.0,             "+5e+00"           },
        { 0, 2.5,             "+2e+00"           },
        { 0, 3.5,             "+4e+00"           },
        { 0, 95.0,            "+1e+02"           },
        { 0, 1e-99,           "+1e-99"           },
        { 9, 1.0 / 3.0,       "+3.333333333e-01" },
        { 9, 9.999999999e99,  "+9.999999999e+99" },
        { 9, -1e-99,          "-1.000000000e-99" },
        { 8, 9.999999999e99,  "+9.999999999e+99" },
        { 0, 9.6e99,          "+9.600000000e+99" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nDigits);
        CAPTURE(Row.dValue);
        CHECK_TEXT(Shown("SCI", Row.nDigits, Row.dValue), Row.szShown);
    }
}

TEST_CASE("an exponent that needs three digits loses the first and reports code 106")
{
    // clang-format off
    static const struct { const char *szMode; double dValue; const char *szShown; } s_Rows[] =
    {
        { "FIX", 1e100,           "+1.000000000e+00" },
        { "FIX", -1.2e100,        "-1.200000000e+00" },
        { "FIX", 5e-100,          "+5.000000000e-00" },
        { "SCI", 1.5e123,         "+1.500000000e+23" },
        { "SCI", -1.5e-123,       "-1.500000000e-23" },
        { "SCI", 9.9999999999e99, "+1.000000000e+00" },
        { "SCI", 1.7976931348623157e308, "+1.797693135e+08" },
        { "SCI", 5e-324,          "+4.940656458e-24" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dValue);
        CHECK_TEXT(Shown(Row.szMode, 2, Row.dValue, kCodeExponent), Row.szShown);
    }
}

TEST_CASE("ENG shows one to three integer digits and an exponent divisible by three")
{
    // clang-format off
    static const struct { unsigned nDigits; double dValue; const char *szShown; } s_Rows[] =
    {
        { 2, 0.0,             "+0.00e+00"         },
        { 2, -0.0,            "-0.00e+00"         },
        { 0, 0.0,             "+0.e+00"           },
        { 0, -0.0,            "-0.e+00"           },
        { 9, 0.0,             "+0.000000000e+00"  },
        { 2, 12345.0,         "+12.3e+03"         },
        { 2, 0.00012,         "+120.e-06"         },
        { 2, 1.0,             "+1.00e+00"         },
        { 2, -1.0,            "-1.00e+00"         },
        { 2, 100.0,           "+100.e+00"         },
        { 2, 999.0,           "+999.e+00"         },
        { 2, 999.4,           "+999.e+00"         },
        { 2, 999.6,           "+1.00e+03"         },
        { 2, 1000.0,          "+1.00e+03"         },
        { 2, 0.5,             "+500.e-03"         },
        { 2, 0.05,            "+50.0e-03"         },
        { 2, 0.005,           "+5.00e-03"         },
        { 2, 0.0005,          "+500.e-06"         },
        { 2, 0.00005,         "+50.0e-06"         },
        { 2, 0.9999,          "+1.00e+00"         },
        { 1, 123.0,           "+120.e+00"         },
        { 1, 0.123,           "+120.e-03"         },
        { 1, 12.0,            "+12.e+00"          },
        { 0, 5.0,             "+5.e+00"           },
        { 0, 56.0,            "+60.e+00"          },
        { 0, 567.0,           "+600.e+00"         },
        { 0, 123.0,           "+100.e+00"         },
        { 0, 2.5,             "+2.e+00"           },
        { 0, 3.5,             "+4.e+00"           },
        { 1, 1.25,            "+1.2e+00"          },
        { 9, 123.456789012,   "+123.4567890e+00"  },
        { 9, 1e-99,           "+1.000000000e-99"  },
        { 9, 9.999999999e99,  "+9.999999999e+99"  },
        { 3, 1e-98,           "+1.000000000e-98"  },
        { 3, 1.25e-97,        "+125.0e-99"        },
        { 3, 1.25e100,        "+12.50e+99"        },
        { 2, 5e-100,          "+500.e-102"        },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nDigits);
        CAPTURE(Row.dValue);
        CHECK_TEXT(Shown("ENG", Row.nDigits, Row.dValue), Row.szShown);
    }
}

TEST_CASE("ENG shows an engineering mantissa that begins with 10 as SCI 9")
{
    // clang-format off
    static const struct { unsigned nDigits; double dValue; const char *szShown; } s_Rows[] =
    {
        { 2, 10.0,        "+1.000000000e+01" },
        { 2, -10.0,       "-1.000000000e+01" },
        { 2, 10500.0,     "+1.050000000e+04" },
        { 0, 12.0,        "+1.200000000e+01" },
        { 0, 12000.0,     "+1.200000000e+04" },
        { 0, 16.0,        "+20.e+00"         },
        { 2, 10.94,       "+1.094000000e+01" },
        { 1, 10.94,       "+11.e+00"         },
        { 2, 9.996,       "+9.996000000e+00" },
        { 2, 0.0101,      "+1.010000000e-02" },
        { 9, 10.5,        "+1.050000000e+01" },
        { 2, 100.0,       "+100.e+00"        },
        { 2, 1.0,         "+1.00e+00"        },
        { 2, 9.999999999e99, "+9.999999999e+99" },
        { 2, 1e100,       "+1.000000000e+00" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nDigits);
        CAPTURE(Row.dValue);
        CHECK_TEXT(Shown("ENG", Row.nDigits, Row.dValue), Row.szShown);
    }
}

TEST_CASE("a NaN shows +nan in every mode and infinities keep their sign")
{
    for (const char *const szMode : {"FIX", "SCI", "ENG"})
        for (unsigned nDigits = 0; nDigits <= 9; nDigits++)
        {
            CAPTURE(std::string(szMode));
            CHECK_TEXT(Shown(szMode, nDigits, kNan), "+nan");
            CHECK_TEXT(Shown(szMode, nDigits, -kNan), "+nan");
            CHECK_TEXT(Shown(szMode, nDigits, kInfinity), "+inf");
            CHECK_TEXT(Shown(szMode, nDigits, -kInfinity), "-inf");
        }
}

TEST_CASE("texts in FIX, SCI and ENG agree with the exact digits of 100000 numbers")
{
    std::mt19937_64                        Random(12);
    std::uniform_real_distribution<double> Mantissas(-10.0, 10.0);
    std::uniform_int_distribution<int>     Exponents(-15, 15);
    std::uniform_int_distribution<int>     FarExponents(-90, 98);
    std::uniform_int_distribution<int>     Digits(0, 9);
    std::uniform_int_distribution<int>     Eighths(-80000, 80000);

    for (const char *const szMode : {"FIX", "SCI", "ENG"})
    {
        cNumberFormat Formats[10];
        for (unsigned nDigits = 0; nDigits <= 9; nDigits++)
            Formats[nDigits] = FormatOf(szMode, nDigits);

        for (int i = 0; i < 100000; i++)
        {
            const int nDigits = Digits(Random);
            double    dValue  = Eighths(Random) / 8.0;  // many ties
            if (i % 4 > 0)
                dValue = Mantissas(Random) * std::pow(10.0, Exponents(Random));
            if (i % 4 > 2)
                dValue = Mantissas(Random) * std::pow(10.0, FarExponents(Random));
            const std::string Text = Formatted(dValue, Formats[nDigits]);
            if (Text != Expected(dValue, szMode, nDigits))
            {
                CAPTURE(std::string(szMode));
                CAPTURE(nDigits);
                CAPTURE(ExpectedScientific(dValue, 17));
                CHECK_TEXT(Text, Expected(dValue, szMode, nDigits));
            }
        }
    }
}
