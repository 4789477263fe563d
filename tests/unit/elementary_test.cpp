#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <doctest/doctest.h>

#include "engine/elementary/elementary.h"
#include "engine/elementary/wide_number.h"
#include "tests/unit/special_numbers.h"

static const double kInf        = std::numeric_limits<double>::infinity();
static const double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// Zeros differ by their sign.
static int IsIdentical(double dA, double dB)
{
    if (std::isnan(dB))
        return std::isnan(dA);
    return dA == dB && std::signbit(dA) == std::signbit(dB);
}

TEST_CASE("whole powers of ten are what is written for them")
{
    for (int nPower = -323; nPower <= 308; nPower++)
    {
        CAPTURE(nPower);
        const std::string Text     = "1e" + std::to_string(nPower);
        double            dWritten = 0.0;
        std::from_chars(Text.data(), Text.data() + Text.size(), dWritten);

        CHECK(Exp10(nPower) == dWritten);
        CHECK(Pow(10.0, nPower) == dWritten);
        if (nPower >= 0 && nPower <= 22)
            CHECK(Log10(dWritten) == nPower);
    }
}

TEST_CASE("functions of zeros, infinities, NaN and what they do not take follow the C standard")
{
    // clang-format off
    static const struct { double (*pFunction)(double); double dX; double dResult; } s_Rows[] =
    {
        { Sin,    -0.0,        -0.0        }, { Sin,    kInf,        kNotANumber },
        { Sin,    0.0,         0.0         }, { Sin,    kNotANumber, kNotANumber },
        { Cos,    -0.0,        1.0         }, { Cos,    -kInf,       kNotANumber },
        { Cos,    kNotANumber, kNotANumber }, { Tan,    kInf,        kNotANumber },
        { Tan,    -0.0,        -0.0        }, { Tan,    kNotANumber, kNotANumber },
        { ArcSin, -0.0,        -0.0        }, { ArcSin, 1.5,         kNotANumber },
        { ArcSin, 1.0,         kPi / 2     }, { ArcSin, -1.0,        -kPi / 2    },
        { ArcSin, -kInf,       kNotANumber }, { ArcSin, kNotANumber, kNotANumber },
        { ArcCos, 1.0,         0.0         }, { ArcCos, -1.0,        kPi         },
        { ArcCos, -0.0,        kPi / 2     }, { ArcCos, -1.5,        kNotANumber },
        { ArcCos, kInf,        kNotANumber }, { ArcCos, kNotANumber, kNotANumber },
        { ArcTan, -0.0,        -0.0        }, { ArcTan, kInf,        kPi / 2     },
        { ArcTan, -kInf,       -kPi / 2    }, { ArcTan, kNotANumber, kNotANumber },
        { Exp,    -0.0,        1.0         }, { Exp,    kInf,        kInf        },
        { Exp,    -kInf,       0.0         }, { Exp,    kNotANumber, kNotANumber },
        { Exp,    1e300,       kInf        }, { Exp,    -1e300,      0.0         },
        { Exp10,  -0.0,        1.0         }, { Exp10,  kInf,        kInf        },
        { Exp10,  -kInf,       0.0         }, { Exp10,  kNotANumber, kNotANumber },
        { Exp10,  1e300,       kInf        }, { Exp10,  -1e300,      0.0         },
        { Ln,     0.0,         -kInf       }, { Ln,     -0.0,        -kInf       },
        { Ln,     1.0,         0.0         }, { Ln,     -1.0,        kNotANumber },
        { Ln,     kInf,        kInf        }, { Ln,     -kInf,       kNotANumber },
        { Ln,     kNotANumber, kNotANumber }, { Log10,  kNotANumber, kNotANumber },
        { Log10,  0.0,         -kInf       }, { Log10,  -0.0,        -kInf       },
        { Log10,  1.0,         0.0         }, { Log10,  -1.0,        kNotANumber },
        { Log10,  kInf,        kInf        }, { Log10,  -kInf,       kNotANumber },
        { Sqrt,   -0.0,        -0.0        }, { Sqrt,   -1.0,        kNotANumber },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dX);
        CAPTURE(Row.dResult);
        CHECK(IsIdentical(Row.pFunction(Row.dX), Row.dResult));
    }
}

TEST_CASE("powers of zeros, infinities and NaN follow the C standard")
{
    // clang-format off
    static const struct { double dBase; double dPower; double dResult; } s_Rows[] =
    {
        { 0.0,   3.0,   0.0   }, { -0.0,  3.0,   -0.0  }, { 0.0,   2.5,   0.0  },
        { -0.0,  2.5,   0.0   }, { -0.0,  4.0,   0.0   }, { 0.0,   -3.0,  kInf },
        { -0.0,  -3.0,  -kInf }, { -0.0,  -2.5,  kInf  }, { -0.0,  -4.0,  kInf },
        { 0.0,   -kInf, kInf  }, { -0.0,  kInf,  0.0   }, { -0.0,  1e300, 0.0  },
        { -1.0,  kInf,  1.0   }, { -1.0,  -kInf, 1.0   }, { 0.5,   -kInf, kInf },
        { -0.5,  kInf,  0.0   }, { 2.0,   kInf,  kInf  }, { -2.0,  -kInf, 0.0  },
        { -kInf, -3.0,  -0.0  }, { -kInf, -2.0,  0.0   }, { -kInf, 3.0,   -kInf},
        { -kInf, 2.5,   kInf  }, { kInf,  -1.0,  0.0   }, { kInf,  0.5,   kInf },
        { -8.0,  3.0,   -512. }, { -8.0,  4.0,   4096. }, { -1.0,  1e300, 1.0  },
        { -1.0, 9007199254740991.0, -1.0 },
        { kNotANumber, 0.0, 1.0 }, { 1.0, kNotANumber, 1.0 }, { kInf, -0.0, 1.0 },
        { kNotANumber, 1.0, kNotANumber }, { 2.0, kNotANumber, kNotANumber },
        { -8.0, 0.5, kNotANumber }, { -8.0, -1.5, kNotANumber },
        { 2.0, 1024.0, kInf }, { 2.0, -1075.0, 0.0 }, { -2.0, 1025.0, -kInf },
        { -2.0, -1077.0, -0.0 }, { 2.0, -1074.0, 4.9406564584124654e-324 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dBase);
        CAPTURE(Row.dPower);
        CHECK(IsIdentical(Pow(Row.dBase, Row.dPower), Row.dResult));
    }
}

TEST_CASE("a power exactly in the middle between two doubles becomes the even one")
{
    const uint64_t nSquare = uint64_t{134217727} * 134217727;
    const uint64_t nCube   = uint64_t{262139} * 262139 * 262139;

    CHECK(Pow(134217727.0, 2.0) == static_cast<double>(nSquare));
    CHECK(Pow(134217723.0, 2.0) == static_cast<double>(uint64_t{134217723} * 134217723));
    CHECK(Pow(262139.0, 3.0) == static_cast<double>(nCube));
    CHECK(Pow(262139.0 * 262139.0, 1.5) == static_cast<double>(nCube));
    CHECK(Pow(3.0, 34.0) == 16677181699666569.0);
    CHECK(Pow(4.0, -537.5) == 0.0);
    CHECK(Pow(4.0, -536.5) == 4.9406564584124654e-324 * 2);
}

TEST_CASE("a power next to such a middle becomes the nearest double")
{
    // clang-format off
    static const struct { double dBase; double dPower; double dResult; } s_Rows[] =
    {
        { 1.0000000000000007,    0.16666666666666671,     1.0000000000000002    },
        { 0x1.00000000000a9p0,   0x1.d28e63f9f0e19p-3,    0x1.0000000000027p0   },
        { 0x1.ffffffffffffdp-1,  -0x1.5555555555554p-2,   1.0                   },
        { 0x1.10caed54f7b0dp-390, 0x1.e4fa5727a3a1ap-63,  0x1.fffffffffffffp-1  },
        { 0x1.f2b4726e28ca8p370, -0x1.fdbf5370f61f3p-63,  0x1.fffffffffffffp-1  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dBase);
        CAPTURE(Row.dPower);
        CHECK(Pow(Row.dBase, Row.dPower) == Row.dResult);
    }
}

TEST_CASE("angles of points on the axes and at infinity follow the C standard")
{
    // clang-format off
    static const struct { double dY; double dX; double dResult; } s_Rows[] =
    {
        { 0.0,  0.0,   0.0     }, { -0.0, 0.0,   -0.0         }, { 0.0,   -0.0,  kPi          },
        { -0.0, -0.0,  -kPi    }, { 0.0,  2.0,   0.0          }, { -0.0,  -2.0,  -kPi         },
        { 2.0,  0.0,   kPi / 2 }, { -2.0, -0.0,  -kPi / 2     }, { 2.0,   kInf,  0.0          },
        { -2.0, kInf,  -0.0    }, { 2.0,  -kInf, kPi          }, { kInf,  2.0,   kPi / 2      },
        { kInf, kInf,  kPi / 4 }, { kInf, -kInf, 3 * kPi / 4  }, { -kInf, -kInf, -3 * kPi / 4 },
        { 0.0,  -kInf, kPi     }, { -kInf, 0.0,  -kPi / 2     }, { kNotANumber, 1.0, kNotANumber },
        { 1.0, kNotANumber, kNotANumber }, { 1.0, -1.0, 3 * kPi / 4 }, { 1.0, 1.0, kPi / 4 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dY);
        CAPTURE(Row.dX);
        CHECK(IsIdentical(ArcTan2(Row.dY, Row.dX), Row.dResult));
    }
}

TEST_CASE("angles of any size are reduced exactly")
{
    CHECK(Sin(1e22) == -0.8522008497671888);
    CHECK(Cos(1e22) == 0.523214785395139);
    CHECK(Tan(1e22) == -1.6287782256068988);
    CHECK(Sin(9.999999999e99) == -0.7673703659622557);
    CHECK(Sin(kPi) == 1.2246467991473532e-16);
    CHECK(Cos(kPi / 2) == 6.123233995736766e-17);
    CHECK(Tan(kPi / 2) == 16331239353195370.0);
}

TEST_CASE("functions never fall where they should rise, between the rows of their tables")
{
    std::mt19937_64 Random(5);
    for (double (*const pFunction)(double) : {Exp, Exp10, Ln, Log10, ArcTan})
        for (int i = 0; i < 20000; i++)
        {
            const double dRow  = std::ldexp(static_cast<double>(Random() % 1024 + 1), -8);
            const double dX    = dRow * (1.0 + std::ldexp(static_cast<double>(Random() % 64), -52));
            const double dNext = std::nextafter(dX, kInf);
            CHECK(pFunction(dX) <= pFunction(dNext));
        }
}

// Integers of 52 bits have roots below 2^26, whose last place is 2^-27.
TEST_CASE("square roots are the nearest doubles")
{
    std::mt19937_64 Random(6);
    for (int i = 0; i < 20000; i++)
    {
        const uint64_t nValue = (uint64_t{1} << 51) + (Random() >> 13);

        const double dRoot = Sqrt(static_cast<double>(nValue));

        const auto     nHalves   = static_cast<cUint128>(std::ldexp(dRoot, 28));
        const cUint128 nSquare   = static_cast<cUint128>(nValue) << 56;
        const int      bNotAbove = (nHalves - 1) * (nHalves - 1) < nSquare;
        const int      bNotBelow = (nHalves + 1) * (nHalves + 1) > nSquare;
        CHECK(bNotAbove);
        CHECK(bNotBelow);
    }
}
