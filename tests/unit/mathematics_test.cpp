#include <cmath>
#include <random>
#include <string>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

static double Held(double dValue)
{
    if (std::fabs(dValue) > kMost)
        return dValue > 0 ? kMost : -kMost;
    return std::fabs(dValue) < 1e-99 ? 0.0 : dValue;
}

// A number of any size that the stack can hold.
static double AnyNumber(std::mt19937_64 *pRandom)
{
    std::uniform_real_distribution<double> Mantissas(-9.99, 9.99);
    std::uniform_int_distribution<int>     Exponents(-90, 99);
    std::uniform_int_distribution<int>     Modest(-3, 4);
    const int nExponent = (*pRandom)() % 2 ? Exponents(*pRandom) : Modest(*pRandom);
    return Held(Mantissas(*pRandom) * std::pow(10.0, nExponent));
}

TEST_CASE("functions of X give its image, keep the stack and save X")
{
    // clang-format off
    static const struct { const char *szMnemonic; double dX; double dResult; } s_Rows[] =
    {
        { "ln",      0.5,     -0.6931471805599453   },
        { "ln",      1e50,    115.12925464970229    },
        { "ln",      3.5e-40, -90.85064075126645    },
        { "log",     2.0,     0.3010299956639812    },
        { "log",     1e50,    50.0                  },
        { "log",     3.5e-40, -39.455931955649724   },
        { "e^x",     1.0,     2.718281828459045     },
        { "e^x",     -2.5,    0.0820849986238988    },
        { "e^x",     200.0,   7.225973768125749e86  },
        { "10^x",    0.3,     1.9952623149688795    },
        { "10^x",    -2.5,    0.0031622776601683794 },
        { "10^x",    2.0,     100.0                 },
        { "sqrt",    2.0,     1.4142135623730951    },
        { "sqrt",    3.5e-40, 1.8708286933869707e-20},
        { "sqrt",    0.0,     0.0                   },
        { "x^2",     -1.5,    2.25                  },
        { "x^2",     3.5e-40, 1.2250000000000002e-79},
        { "1/x",     -4.0,    -0.25                 },
        { "1/x",     3.5e-40, 2.8571428571428571e39 },
        { "INT",     3.7,     3.0                   },
        { "INT",     -3.7,    -3.0                  },
        { "INT",     1e20,    1e20                  },
        { "FRAC",    3.75,    0.75                  },
        { "FRAC",    -3.75,   -0.75                 },
        { "FRAC",    1e20,    0.0                   },
        { "ABS",     -3.7,    3.7                   },
        { "ABS",     3.7,     3.7                   },
        { "->H.MS",  1.5,     1.30                  },
        { "->H.MS",  -1.5,    -1.30                 },
        { "->H.MS",  2.3,     2.18                  },
        { "->H.MS",  2.51,    2.3036                },
        { "->H.MS",  0.25,    0.15                  },
        { "->H.MS",  0.0,     0.0                   },
        { "->H.MS",  2.9999999999999996, 3.0                   },
        { "->H",     1.3,     1.5                   },
        { "->H",     -1.3,    -1.5                  },
        { "->H",     1.2,     1.3333333333333333    },
        { "->H",     2.3036,  2.51                  },
        { "->H",     1.5959,  1.9997222222222226    },
        { "->H",     2.9999999999999996, 2.9999999999999987    },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        CAPTURE(Row.dX);
        cCalculatorRig Rig;
        Rig.Set(Row.dX, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;

        CHECK(Rig.Run(Row.szMnemonic) == 1);

        CHECK(Rig.X() == Row.dResult);
        CHECK(Rig.Y() == 2);
        CHECK(Rig.Z() == 3);
        CHECK(Rig.T() == 4);
        CHECK(Rig.State().m_dLastX == Row.dX);
        CHECK(Rig.State().m_bStackLift == 1);
        CHECK_TEXT(Rig.Display(), Rig.State().m_szX);
    }
}

TEST_CASE("trigonometry works in radians, degrees and grads")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        double     dX;
        double     dRad;
        double     dDeg;
        double     dGrd;
    } s_Rows[] =
    {
        { "sin",    30.0,  -0.9880316240928618,    0.49999999999999994,    0.4539904997395468    },
        { "cos",    30.0,  0.15425144988758405,    0.8660254037844387,     0.8910065241883679    },
        { "tan",    30.0,  -6.405331196646276,     0.5773502691896257,     0.5095254494944289    },
        { "sin",    -75.0, 0.38778163540943045,    -0.9659258262890683,    -0.9238795325112867   },
        { "cos",    -75.0, 0.9217512697247493,     0.25881904510252074,    0.38268343236508984   },
        { "tan",    -75.0, 0.42070095062112434,    -3.7320508075688776,    -2.414213562373095    },
        { "sin",    0.5,   0.479425538604203,      0.008726535498373935,   0.007853900888711334  },
        { "tan",    0.5,   0.5463024898437905,     0.00872686779075879,    0.00785414312898359   },
        { "cos",    400.0, -0.525296338642536,     0.7660444431189781,     1.0                   },
        { "sin^-1", 0.5,   0.5235987755982989,     30.000000000000004,     33.33333333333334     },
        { "cos^-1", 0.5,   1.0471975511965979,     60.00000000000001,      66.66666666666669     },
        { "tan^-1", 0.5,   0.4636476090008061,     26.56505117707799,      29.516723530086658    },
        { "sin^-1", -0.25, -0.25268025514207865,   -14.477512185929925,    -16.08612465103325    },
        { "cos^-1", -0.25, 1.8234765819369754,     104.47751218592994,     116.08612465103326    },
        { "tan^-1", -0.25, -0.24497866312686414,   -14.036243467926479,    -15.595826075473866   },
        { "sin^-1", 1.0,   1.5707963267948966,     90.0,                   100.0                 },
        { "cos^-1", -1.0,  3.141592653589793,      180.0,                  200.0                 },
        { "tan^-1", 1e90,  1.5707963267948966,     90.0,                   100.0                 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        CAPTURE(Row.dX);
        cCalculatorRig Rig;
        const auto     Result = [&](const char *szAngleMode) {
            Rig.Run(szAngleMode);
            Rig.Set(Row.dX, 2);
            CHECK(Rig.Run(Row.szMnemonic) == 1);
            CHECK(Rig.Y() == 2);
            CHECK(Rig.State().m_dLastX == Row.dX);
            return Rig.X();
        };

        CHECK(Result("RAD") == Row.dRad);
        CHECK(Result("DEG") == Row.dDeg);
        CHECK(Result("GRD") == Row.dGrd);
    }
}

TEST_CASE("RAD, DEG and GRD change nothing but the angle mode")
{
    static const struct
    {
        const char *szMnemonic;
        int         nAngleMode;
    } s_Rows[] = {{"RAD", 0}, {"DEG", 1}, {"GRD", 2}};
    for (const auto &Row : s_Rows)
    {
        cCalculatorRig Rig;
        Rig.Set(1, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;

        CHECK(Rig.Run(Row.szMnemonic) == 1);

        CHECK(Rig.State().m_nAngleMode == Row.nAngleMode);
        CHECK(Rig.X() == 1);
        CHECK(Rig.Y() == 2);
        CHECK(Rig.State().m_dLastX == 0);
        CHECK(Rig.State().m_bStackLift == 1);
    }
}

TEST_CASE("arithmetic takes Y and X, drops the stack and saves X")
{
    // clang-format off
    static const struct { const char *szMnemonic; double dY; double dX; double dResult; } s_Rows[] =
    {
        { "+",   7.0,   2.0,   9.0                   },
        { "-",   7.0,   2.0,   5.0                   },
        { "*",   7.0,   2.0,   14.0                  },
        { "/",   7.0,   2.0,   3.5                   },
        { "/",   0.0,   -2.0,  0.0                   },
        { "y^x", 2.0,   10.0,  1024.0                },
        { "y^x", 3.0,   0.5,   1.7320508075688772    },
        { "y^x", 2.0,   -3.5,  0.08838834764831845  },
        { "y^x", 1.1,   100.0, 13780.61233982238     },
        { "y^x", -8.0,  3.0,   -512.0                },
        { "y^x", -2.0,  -3.0,  -0.125                },
        { "y^x", -2.0,  0.0,   1.0                   },
        { "y^x", 5.0,   0.0,   1.0                   },
        { "y^x", 0.0,   2.5,   0.0                   },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;
        Rig.Set(Row.dX, Row.dY, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;

        CHECK(Rig.Run(Row.szMnemonic) == 1);

        CHECK(Rig.X() == Row.dResult);
        CHECK(Rig.Y() == 3);
        CHECK(Rig.Z() == 4);
        CHECK(Rig.T() == 4);
        CHECK(Rig.State().m_dLastX == Row.dX);
        CHECK(Rig.State().m_bStackLift == 1);
    }
}

TEST_CASE("percent keeps Y and drops nothing")
{
    cCalculatorRig Rig;
    Rig.Set(15, 200, 3, 4);

    CHECK(Rig.Run("%") == 1);

    CHECK(Rig.X() == 30);
    CHECK(Rig.Y() == 200);
    CHECK(Rig.Z() == 3);
    CHECK(Rig.T() == 4);
    CHECK(Rig.State().m_dLastX == 15);
}

TEST_CASE("arithmetic on random numbers rounds once and is clamped")
{
    std::mt19937_64 Random(14);
    cCalculatorRig  Rig;
    for (int i = 0; i < 20000; i++)
    {
        const double dY     = AnyNumber(&Random);
        const double dX     = AnyNumber(&Random);
        const auto   Result = [&](const char *szMnemonic) {
            Rig.Set(dX, dY, 3, 4);
            REQUIRE(Rig.Run(szMnemonic) == 1);
            REQUIRE(Rig.State().m_dLastX == dX);
            return Rig.X();
        };

        CHECK(Result("+") == Held(dY + dX));
        CHECK(Result("-") == Held(dY - dX));
        CHECK(Result("*") == Held(dY * dX));
        CHECK(Result("/") == Held(dY / dX));
        CHECK(Rig.Y() == 3);
        CHECK(Result("x^2") == Held(dX * dX));
        CHECK(Result("1/x") == Held(1.0 / dX));
        CHECK(Result("%") == Held(dY * dX * 0.01));
        CHECK(Rig.Y() == dY);
    }
}

TEST_CASE("integer and fractional part add up to the number")
{
    std::mt19937_64 Random(15);
    cCalculatorRig  Rig;
    for (int i = 0; i < 5000; i++)
    {
        const double dX = AnyNumber(&Random);

        Rig.Set(dX);
        Rig.Run("INT");
        const double dInteger = Rig.X();
        Rig.Set(dX);
        Rig.Run("FRAC");

        CHECK(dInteger == std::trunc(dX));
        CHECK(dInteger + Rig.X() == dX);
        CHECK(std::signbit(dInteger) == std::signbit(dX));
        CHECK(std::signbit(Rig.X()) == std::signbit(dX));
    }
}

TEST_CASE("polar and rectangular coordinates follow the angle mode")
{
    // clang-format off
    static const struct
    {
        const char *szAngle;
        const char *szMnemonic;
        double     dX;
        double     dY;
        double     dNewX;
        double     dNewY;
    } s_Rows[] =
    {
        { "DEG", "->R", 5.0,  30.0, 4.330127018922194,   2.4999999999999996  },
        { "DEG", "->R", -2.0, 0.0,  -2.0,                0.0                 },
        { "RAD", "->R", 2.0,  0.5,  1.7551651237807455,  0.958851077208406   },
        { "GRD", "->R", 1.0,  30.0, 0.8910065241883679,  0.4539904997395468  },
        { "DEG", "->P", 3.0,  4.0,  5.0,                 53.13010235415598   },
        { "DEG", "->P", -3.0, -4.0, 5.0,                 -126.86989764584402 },
        { "DEG", "->P", 0.0,  2.0,  2.0,                 90.0                },
        { "DEG", "->P", -2.0, 0.0,  2.0,                 180.0               },
        { "GRD", "->P", 3.0,  4.0,  5.0,                 59.033447060173316  },
        { "RAD", "->P", 3.0,  4.0,  5.0,                 0.9272952180016122  },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        CAPTURE(Row.dX);
        cCalculatorRig Rig;
        Rig.Run(Row.szAngle);
        Rig.Set(Row.dX, Row.dY, 3, 4);

        CHECK(Rig.Run(Row.szMnemonic) == 1);

        CHECK(Rig.X() == Row.dNewX);
        CHECK(Rig.Y() == Row.dNewY);
        CHECK(Rig.Z() == 3);
        CHECK(Rig.T() == 4);
        CHECK(Rig.State().m_dLastX == Row.dX);
        CHECK_TEXT(Rig.Display(), Rig.State().m_szX);
    }
}

TEST_CASE("coordinates go to polar and back, hours to minutes and back")
{
    std::mt19937                           Random(16);
    std::uniform_real_distribution<double> Numbers(-100.0, 100.0);
    for (const char *const szAngle : {"RAD", "DEG", "GRD"})
    {
        cCalculatorRig Rig;
        Rig.Run(szAngle);
        for (int i = 0; i < 2000; i++)
        {
            const double dX = Numbers(Random);
            const double dY = Numbers(Random);
            Rig.Set(dX, dY);
            Rig.Run("->P");
            CHECK(IsNear(Rig.X(), std::hypot(dX, dY)));
            Rig.Run("->R");
            CHECK(std::fabs(Rig.X() - dX) < 1e-12);
            CHECK(std::fabs(Rig.Y() - dY) < 1e-12);

            Rig.Set(dX);
            Rig.Run("->H.MS");
            CHECK(std::fabs(Rig.X()) <= std::fabs(dX) + 1e-9);
            Rig.Run("->H");
            CHECK(std::fabs(Rig.X() - dX) < 1e-9);
        }
    }
}

TEST_CASE("hours of whole seconds become their hours, minutes and seconds")
{
    cCalculatorRig Rig;
    for (int nSeconds = 0; nSeconds < 3 * 3600; nSeconds += 7)
    {
        const int nHms = nSeconds / 3600 * 10000 + nSeconds / 60 % 60 * 100 + nSeconds % 60;

        Rig.Set(nSeconds / 3600.0);
        Rig.Run("->H.MS");
        CHECK(std::fabs(Rig.X() - nHms / 10000.0) < 1e-12);

        Rig.Set(nHms / 10000.0);
        Rig.Run("->H");
        CHECK(std::fabs(Rig.X() - nSeconds / 3600.0) < 1e-12);
    }
}

TEST_CASE("polar coordinates of the origin only set LASTx")
{
    for (const int bStackLift : {0, 1})
    {
        cCalculatorRig Rig;
        Rig.Set(25);
        Rig.Run("sqrt");
        Rig.Set(1, 0, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;
        Rig.Type("0");
        Rig.m_Engine.Raw().m_bStackLift = bStackLift;

        CHECK(Rig.Run("->P") == 1);

        CHECK(Rig.State().m_dLastX == 0);
        CHECK_TEXT(Rig.RegisterLine(30), "LASTx   = +0.00");
        CHECK_TEXT(Rig.Display(), "+0.");
        CHECK_TEXT(Rig.State().m_szEntry, "+0");
        CHECK(Rig.State().m_bStackLift == bStackLift);
        CHECK(Rig.Z() == 3);

        Rig.Type("5");
        CHECK_TEXT(Rig.Display(), "+05.");
    }
}

TEST_CASE("2 ENTER 0 / shows the error and leaves X and Y")
{
    cCalculatorRig Rig;
    Rig.Type("2 ENTER 0 /");

    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
    CHECK(Rig.X() == 0);
    CHECK(Rig.Y() == 2);
}

TEST_CASE("powers of negative bases need integer exponents, powers of 0 positive ones")
{
    cCalculatorRig Rig;
    Rig.Set(3, -8);
    CHECK(Rig.Run("y^x") == 1);
    CHECK(Rig.X() == -512);

    static const struct
    {
        double dY;
        double dX;
    } s_Impossible[] = {{-8, 0.5}, {-8, -0.5}, {-1e-99, 1e-99}, {0, 0},
                        {0, -1},   {0, -0.5},  {-8, kNan}};
    for (const auto &Row : s_Impossible)
    {
        Rig.Set(Row.dX, Row.dY);
        CHECK(Rig.Run("y^x") == 0);
        CHECK_TEXT(Rig.Display(), "Error: impossible");
        CHECK(Rig.Y() == Row.dY);
    }
}

TEST_CASE("1.5 hours are 1.30, in either direction and with either sign")
{
    cCalculatorRig Rig;

    Rig.Set(1.5);
    Rig.Run("->H.MS");
    CHECK_TEXT(Rig.Display(), "+1.30");

    Rig.Set(1.3);
    Rig.Run("->H");
    CHECK_TEXT(Rig.Display(), "+1.50");

    Rig.Set(-1.5);
    Rig.Run("->H.MS");
    CHECK_TEXT(Rig.Display(), "-1.30");
}

TEST_CASE("the arc sine of 1 is 90 degrees, that of a little more impossible")
{
    cCalculatorRig Rig;
    Rig.Type("1 g 4");
    CHECK(Rig.X() == 90);
    CHECK_TEXT(Rig.Display(), "+90.00");

    Rig.Type("1.0000001 g 4");
    CHECK_TEXT(Rig.Display(), "Error: impossible");
    CHECK(Rig.X() == 1.0000001);
}

TEST_CASE("1e99 times 1e99 is the largest number")
{
    cCalculatorRig Rig;
    Rig.Type("EEX 99 ENTER EEX 99 *");

    CHECK_TEXT(Rig.Display(), "+9.999999999e+99");
    CHECK(Rig.X() == kMost);
}

TEST_CASE("an operation with a NaN gives a NaN, without an error")
{
    for (const char *const szMnemonic :
         {"ln",  "log", "e^x", "10^x", "sqrt",   "x^2",    "1/x",    "INT",    "FRAC",
          "ABS", "sin", "cos", "tan",  "sin^-1", "cos^-1", "tan^-1", "->H.MS", "->H",
          "CHS", "+",   "-",   "*",    "/",      "%",      "y^x",    "->R",    "->P"})
    {
        CAPTURE(std::string(szMnemonic));
        cCalculatorRig Rig;
        Rig.Set(kNan, 2);

        CHECK(Rig.Run(szMnemonic) == 1);

        CHECK(std::isnan(Rig.X()));
        CHECK_TEXT(Rig.Display(), "+nan");
        CHECK(Rig.m_Host.m_Boxes.empty());
        CHECK(Rig.m_Host.m_Sounds.empty());
    }
}

TEST_CASE("negative zeros follow the formulas, but not through the clamp")
{
    // clang-format off
    static const struct { const char *szMnemonic; double dX; const char *szShown; } s_Rows[] =
    {
        { "INT",    -0.5, "-0.00" },
        { "FRAC",   -3.0, "-0.00" },
        { "sqrt",   -0.0, "-0.00" },
        { "sin",    -0.0, "-0.00" },
        { "ABS",    -0.0, "+0.00" },
        { "tan",    -0.0, "+0.00" },
        { "x^2",    -0.0, "+0.00" },
        { "->H.MS", -0.0, "+0.00" },
        { "CHS",    -0.0, "+0.00" },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;
        Rig.m_Engine.Raw().m_dX = Row.dX;

        Rig.Run(Row.szMnemonic);

        CHECK_TEXT(Rig.Display(), Row.szShown);
    }
}
