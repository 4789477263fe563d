#include <cmath>
#include <random>
#include <string>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

static std::string BoxLine(unsigned nRegister, const char *szValue)
{
    return std::string(nRegister < 10 ? "Reg[ " : "Reg[") + std::to_string(nRegister) +
           "] = " + szValue;
}

TEST_CASE("the registers box lists thirty registers and LASTx")
{
    cCalculatorRig Rig;

    CHECK(Rig.m_Registers.CountLines() == 31);
    for (unsigned nRegister = 0; nRegister < 30; nRegister++)
        CHECK_TEXT(Rig.RegisterLine(nRegister), BoxLine(nRegister, "+0.00"));
    CHECK_TEXT(Rig.RegisterLine(30), "LASTx   = +0.00");
}

TEST_CASE("STO and RCL reach registers 0 to 20")
{
    for (unsigned nRegister = 0; nRegister <= 20; nRegister++)
    {
        CAPTURE(nRegister);
        cCalculatorRig Rig;
        Rig.Set(6.25, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;

        CHECK(Rig.Run("STO", nRegister) == 1);
        for (unsigned nOther = 0; nOther < kRegisters; nOther++)
            CHECK(Rig.State().m_dReg[nOther] == (nOther == nRegister ? 6.25 : 0));
        CHECK(Rig.X() == 6.25);
        CHECK(Rig.State().m_bStackLift == 1);
        CHECK_TEXT(Rig.RegisterLine(nRegister), BoxLine(nRegister, "+6.25"));
        CHECK(Rig.m_Registers.HighlightedLine() == nRegister);

        Rig.Set(1, 2, 3, 4);
        CHECK(Rig.Run("RCL", nRegister) == 1);
        CHECK(Rig.X() == 6.25);
        CHECK(Rig.Y() == 1);
        CHECK(Rig.Z() == 2);
        CHECK(Rig.T() == 3);
        CHECK(Rig.State().m_dLastX == 0);
    }
}

TEST_CASE("register arithmetic changes the register and keeps the stack")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        double     dRegister;
        double     dX;
        double     dResult;
        const char *szShown;
    } s_Rows[] =
    {
        { "STO+", 10.0,  4.0,   14.0,  "+14.00"           },
        { "STO-", 10.0,  4.0,   6.0,   "+6.00"            },
        { "STO*", 10.0,  4.0,   40.0,  "+40.00"           },
        { "STO/", 10.0,  4.0,   2.5,   "+2.50"            },
        { "STO+", 0.0,   -4.0,  -4.0,  "-4.00"            },
        { "STO*", 10.0,  0.0,   0.0,   "+0.00"            },
        { "STO*", -10.0, 0.0,   0.0,   "+0.00"            },
        { "STO+", 9e99,  9e99,  kMost, "+9.999999999e+99" },
        { "STO-", -9e99, 9e99,  -kMost, "-9.999999999e+99" },
        { "STO*", 1e60,  1e60,  kMost, "+9.999999999e+99" },
        { "STO/", 1e60,  1e-60, kMost, "+9.999999999e+99" },
        { "STO*", 1e-60, 1e-60, 0.0,   "+0.00"            },
        { "STO/", 1e-60, -1e60, 0.0,   "+0.00"            },
        { "STO-", 2e-99, 1.5e-99, 0.0, "+0.00"            },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
        for (const int bIndirect : {false, true})
        {
            CAPTURE(std::string(Row.szMnemonic));
            CAPTURE(bIndirect);
            cCalculatorRig Rig;
            Rig.SetReg(0, 7);
            Rig.SetReg(7, Row.dRegister);
            Rig.Set(Row.dX, 2, 3, 4);
            Rig.m_Engine.RefreshViews();
            Rig.m_Engine.Raw().m_bStackLift = 0;

            const std::string Mnemonic = Row.szMnemonic + std::string(bIndirect ? " i" : "");
            CHECK(Rig.Run(Mnemonic.c_str(), bIndirect ? 0 : 7) == 1);

            CHECK(Rig.State().m_dReg[7] == Row.dResult);
            CHECK_FALSE((Row.dResult == 0 && std::signbit(Rig.State().m_dReg[7])));
            CHECK_TEXT(Rig.RegisterLine(7), BoxLine(7, Row.szShown));
            CHECK(Rig.m_Registers.HighlightedLine() == 7);
            CHECK(Rig.X() == Row.dX);
            CHECK(Rig.Y() == 2);
            CHECK(Rig.State().m_dLastX == 0);
            CHECK(Rig.State().m_bStackLift == 1);
        }
}

TEST_CASE("register arithmetic on random numbers rounds once")
{
    std::mt19937                           Random(50);
    std::uniform_real_distribution<double> Numbers(-1e6, 1e6);
    cCalculatorRig                         Rig;
    for (int i = 0; i < 2000; i++)
    {
        const double   dRegister = Numbers(Random);
        const double   dX        = Numbers(Random);
        const unsigned nRegister = static_cast<unsigned>(i) % 21;
        const auto     Result    = [&](const char *szMnemonic) {
            Rig.SetReg(nRegister, dRegister);
            Rig.Set(dX);
            Rig.Run(szMnemonic, nRegister);
            return Rig.State().m_dReg[nRegister];
        };

        CHECK(Result("STO+") == dRegister + dX);
        CHECK(Result("STO-") == dRegister - dX);
        CHECK(Result("STO*") == dRegister * dX);
        CHECK(Result("STO/") == dRegister / dX);
    }
}

TEST_CASE("STO does not clamp")
{
    cCalculatorRig Rig;
    Rig.Type("12 EEX CHS 99 CHS");
    REQUIRE(Rig.X() == 1.2e100);

    Rig.Type("STO 3");
    CHECK(Rig.State().m_dReg[3] == 1.2e100);

    Rig.Set(-0.0);
    Rig.m_Engine.Raw().m_dX = -0.0;
    Rig.Run("STO", 4);
    CHECK(std::signbit(Rig.State().m_dReg[4]));
}

TEST_CASE("STO .5 is the sum of products, to which Sum+ adds")
{
    cCalculatorRig Rig;
    Rig.Type("100 STO . 5");
    CHECK(Rig.State().m_dReg[15] == 100);

    Rig.Set(2, 3);
    Rig.Run("Sum+");

    CHECK(Rig.State().m_dReg[15] == 106);
}

TEST_CASE("the index register names the integer part of its magnitude")
{
    // clang-format off
    static const struct { double dIndex; unsigned nRegister; } s_Rows[] =
    {
        { 0.0,   0  }, { 0.99,  0  }, { -0.5,  0  }, { 1.0,   1  }, { -3.7,  3  },
        { 9.0,   9  }, { 10.0,  10 }, { 19.9,  19 }, { 20.0,  20 }, { 25.0,  25 },
        { 29.0,  29 }, { 29.999999, 29 }, { -29.9, 29 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.dIndex);
        cCalculatorRig Rig;
        Rig.SetReg(0, Row.dIndex);
        Rig.Set(6.25);
        Rig.m_Engine.RefreshViews();

        CHECK(Rig.Run("STO i") == 1);
        CHECK(Rig.State().m_dReg[Row.nRegister] == 6.25);
        CHECK(Rig.State().m_dReg[0] == (Row.nRegister ? Row.dIndex : 6.25));
        CHECK_TEXT(Rig.RegisterLine(Row.nRegister), BoxLine(Row.nRegister, "+6.25"));

        Rig.Set(1, 2, 3, 4);
        if (Row.nRegister)
        {
            CHECK(Rig.Run("RCL i") == 1);
            CHECK(Rig.X() == 6.25);
            CHECK(Rig.Y() == 2);
        }
    }
}

TEST_CASE("with -3.7 in the index register STO i stores into register 3")
{
    cCalculatorRig Rig;
    Rig.Type("3.7 CHS STO 0 8 STO i");

    CHECK(Rig.State().m_dReg[3] == 8);
    CHECK(Rig.State().m_dReg[0] == -3.7);
}

TEST_CASE("with 25 or -29.9 in the index register STO+ i adds to register 25 or 29")
{
    cCalculatorRig Rig;
    Rig.SetReg(25, 100);
    Rig.SetReg(29, 200);
    Rig.Set(8);

    Rig.SetReg(0, 25);
    Rig.Run("STO+ i");
    CHECK(Rig.State().m_dReg[25] == 108);

    Rig.SetReg(0, -29.9);
    Rig.Run("STO+ i");
    CHECK(Rig.State().m_dReg[29] == 208);
}

TEST_CASE("an index of 30 and more names no register")
{
    for (const char *const szMnemonic : {"STO i", "RCL i", "STO+ i", "STO- i", "STO* i", "STO/ i"})
        for (const double dIndex : {30.0, -30.0, 30.5, 1e10, 4294967296.0, -1e50, kMost, kNan})
        {
            CAPTURE(std::string(szMnemonic));
            CAPTURE(dIndex);
            cCalculatorRig Rig;
            Rig.SetReg(0, dIndex);
            Rig.Set(5, 6, 7, 8);
            const std::string Before = Rig.Snapshot();

            CHECK(Rig.Run(szMnemonic) == 0);

            CHECK_TEXT(Rig.Display(), "Error: no such reg");
            CHECK(Rig.LastSound() == 10052);
            CHECK_TEXT(Rig.Snapshot(), Before);
        }
}

TEST_CASE("STO/ by 0 is an error, STO/ i by 0 fails in silence")
{
    cCalculatorRig Rig;
    Rig.SetReg(0, 7);
    Rig.SetReg(7, 70);
    Rig.Type("0");
    CHECK(Rig.Run("STO/", 7) == 0);
    CHECK_TEXT(Rig.Display(), "Error: divide by 0");
    CHECK(Rig.LastSound() == 10052);
    CHECK(Rig.State().m_dReg[7] == 70);

    Rig.Type("0");
    Rig.Forget();
    CHECK(Rig.Run("STO/ i") == 0);
    CHECK_TEXT(Rig.Display(), "+0.");
    CHECK_TEXT(Rig.State().m_szX, "+0.00");
    CHECK_TEXT(Rig.State().m_szEntry, "");
    CHECK(Rig.m_Host.m_Sounds.empty());
    CHECK(Rig.State().m_dReg[7] == 70);
}

TEST_CASE("STO/ i looks at the index before it looks at X")
{
    cCalculatorRig Rig;
    Rig.SetReg(0, 30);
    Rig.Set(0);

    CHECK(Rig.Run("STO/ i") == 0);

    CHECK_TEXT(Rig.Display(), "Error: no such reg");
    CHECK(Rig.LastSound() == 10052);
}

TEST_CASE("RCL i overwrites X whatever the stack lift says, and turns it on")
{
    for (const int bStackLift : {0, 1})
    {
        cCalculatorRig Rig;
        Rig.SetReg(0, 25);
        Rig.SetReg(25, 6.25);
        Rig.Set(1, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = bStackLift;

        CHECK(Rig.Run("RCL i") == 1);

        CHECK(Rig.X() == 6.25);
        CHECK(Rig.Y() == 2);
        CHECK(Rig.Z() == 3);
        CHECK(Rig.State().m_bStackLift == 1);
    }
}

TEST_CASE("a register's line keeps the format in which it was last written")
{
    cCalculatorRig Rig;
    Rig.Type("5 STO 3");
    Rig.Run("1/x");
    Rig.Run("SCI", 4);
    CHECK_TEXT(Rig.RegisterLine(3), "Reg[ 3] = +5.00");
    CHECK_TEXT(Rig.RegisterLine(30), "LASTx   = +5.00");

    Rig.Run("STO", 4);
    Rig.Run("ENG", 2);
    CHECK_TEXT(Rig.RegisterLine(3), "Reg[ 3] = +5.00");
    CHECK_TEXT(Rig.RegisterLine(4), "Reg[ 4] = +2.0000e-01");

    Rig.Run("STO", 3);
    CHECK_TEXT(Rig.RegisterLine(3), "Reg[ 3] = +200.e-03");
}

TEST_CASE("RCL and arithmetic select no register")
{
    cCalculatorRig Rig;
    Rig.Run("STO", 3);
    Rig.RegisterLine(0);
    Rig.Run("RCL", 7);
    Rig.Run("STO", 3);
    Rig.Run("+");
    Rig.Run("STO+", 4);
    Rig.Run("RCL", 7);
    Rig.RegisterLine(0);

    CHECK(Rig.m_Registers.HighlightedLine() == 4);
}

TEST_CASE(
    "a line that is written after that of a store leaves none selected, seen at once or later")
{
    cCalculatorRig Rig;
    Rig.Run("STO", 3);
    Rig.Run("sqrt");
    Rig.RegisterLine(0);
    CHECK(Rig.m_Registers.HighlightedLine() == 0);

    Rig.Run("STO", 3);
    Rig.Run("Sum+");
    Rig.RegisterLine(0);
    CHECK(Rig.m_Registers.HighlightedLine() == 10);
}

TEST_CASE("clearing and counting rewrite their lines and select none")
{
    for (const char *const szMnemonic : {"ClearREG", "ClearSum", "DSZ", "ISZ"})
    {
        CAPTURE(std::string(szMnemonic));
        cCalculatorRig Rig;
        Rig.Set(5);
        Rig.Run("STO", 3);
        Rig.RegisterLine(3);

        Rig.Run(szMnemonic);
        Rig.RegisterLine(0);

        CHECK(Rig.m_Registers.HighlightedLine() == 3);
    }
}
