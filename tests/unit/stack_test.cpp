#include <cmath>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

// The four levels, as numbers and as texts.
static void CheckStack(cCalculatorRig *pRig, double dX, double dY, double dZ, double dT)
{
    cCalculatorRig Expected;
    Expected.Set(dX, dY, dZ, dT);
    const cVorstekState &Is = pRig->State();
    CHECK(Is.m_dX == dX);
    CHECK(Is.m_dY == dY);
    CHECK(Is.m_dZ == dZ);
    CHECK(Is.m_dT == dT);
    CHECK_TEXT(Is.m_szX, Expected.State().m_szX);
    CHECK_TEXT(Is.m_szY, Expected.State().m_szY);
    CHECK_TEXT(Is.m_szZ, Expected.State().m_szZ);
    CHECK_TEXT(Is.m_szT, Expected.State().m_szT);
    CHECK_TEXT(Is.m_szDisplay, Expected.State().m_szDisplay);
}

TEST_CASE("a new calculator shows 0.00 everywhere and holds nothing but zeros")
{
    cCalculatorRig       Rig;
    const cVorstekState &Is = Rig.State();

    for (const char *const szText : {Is.m_szX, Is.m_szY, Is.m_szZ, Is.m_szT, Is.m_szDisplay})
        CHECK_TEXT(szText, "+0.00");
    for (const double dLevel : {Is.m_dX, Is.m_dY, Is.m_dZ, Is.m_dT, Is.m_dLastX})
        CHECK(dLevel == 0.0);
    for (const double dRegister : Is.m_dReg)
        CHECK(dRegister == 0.0);
    CHECK(std::size(Is.m_dReg) == 30);
}

TEST_CASE("a new calculator is in run mode, in degrees, with stack lift on")
{
    cCalculatorRig       Rig;
    const cVorstekState &Is = Rig.State();

    CHECK(Is.m_bStackLift == 1);
    CHECK(Is.m_nAngleMode == kAngleDeg);
    CHECK(Is.m_nCurLine == 0);
    CHECK(Is.m_bProgramMode == 0);
    CHECK(Is.m_bProgramRunning == 0);
    CHECK(Is.m_bParseOnly == 0);
    CHECK(Is.m_bProgramModified == 0);
    CHECK(Is.m_bSoundOff == 0);
    CHECK(Is.m_bShowStack == 0);
    for (const char *const szText : {Is.m_szEntry, Is.m_szExponent, Is.m_szMnemonic, Is.m_szOperand,
                                     Is.m_szKeystrokes, Is.m_szLastOp})
        CHECK_TEXT(szText, "");
}

TEST_CASE("movements of the stack take the texts along")
{
    // clang-format off
    static const struct
    {
        const char *szMnemonic;
        double     dX;
        double     dY;
        double     dZ;
        double     dT;
    } s_Rows[] =
    {
        { "ENTER",    1,   1, 2, 3 },
        { "x<>y",     2,   1, 3, 4 },
        { "Rolldown", 2,   3, 4, 1 },
        { "CLX",      0,   2, 3, 4 },
        { "CHS",      -1,  2, 3, 4 },
        { "LASTx",    9,   1, 2, 3 },
        { "pi",       kPi, 1, 2, 3 },
        { "RCL",      8,   1, 2, 3 },
        { "RCL i",    8,   2, 3, 4 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(std::string(Row.szMnemonic));
        cCalculatorRig Rig;
        Rig.SetReg(0, 8);
        Rig.SetReg(8, 8);
        Rig.Set(9);
        Rig.Run("1/x");
        Rig.Set(1, 2, 3, 4);

        CHECK(Rig.Run(Row.szMnemonic) == 1);

        CheckStack(&Rig, Row.dX, Row.dY, Row.dZ, Row.dT);
        CHECK(Rig.State().m_dLastX == 9);
    }
}

TEST_CASE("ENTER copies X, and the next number overwrites the copy")
{
    cCalculatorRig Rig;

    Rig.Type("5 ENTER");
    CHECK(Rig.X() == 5);
    CHECK(Rig.Y() == 5);
    CHECK_TEXT(Rig.State().m_szX, "+5.00");
    CHECK_TEXT(Rig.State().m_szY, "+5.00");

    Rig.Type("3");
    CHECK(Rig.X() == 3);
    CHECK(Rig.Y() == 5);
    CHECK(Rig.Z() == 0);
    CHECK_TEXT(Rig.State().m_szX, "+3.");
}

TEST_CASE("after Sum+ a number overwrites X")
{
    cCalculatorRig Rig;
    Rig.Set(4, 2, 3, 9);
    Rig.Run("Sum+");
    CHECK(Rig.X() == 1);

    Rig.Type("7");

    CHECK(Rig.X() == 7);
    CHECK(Rig.Y() == 2);
    CHECK(Rig.Z() == 3);
}

TEST_CASE("RCL, LASTx and pi push only if stack lift is on, RCL i never")
{
    for (const char *const szMnemonic : {"RCL", "LASTx", "pi", "RCL i"})
    {
        CAPTURE(std::string(szMnemonic));
        cCalculatorRig Rig;
        Rig.Set(1, 2, 3, 4);
        Rig.m_Engine.Raw().m_bStackLift = 0;

        Rig.Run(szMnemonic);

        CHECK(Rig.X() != 1);
        CHECK(Rig.Y() == 2);
        CHECK(Rig.Z() == 3);
        CHECK(Rig.T() == 4);
        CHECK(Rig.State().m_bStackLift == 1);
    }
}

TEST_CASE("CHS on a finished number leaves LASTx and stack lift alone")
{
    for (const int bStackLift : {0, 1})
    {
        cCalculatorRig Rig;
        Rig.Set(9);
        Rig.Run("sqrt");
        Rig.m_Engine.Raw().m_bStackLift = bStackLift;

        Rig.Run("CHS");

        CHECK(Rig.X() == -3);
        CHECK_TEXT(Rig.Display(), "-3.00");
        CHECK(Rig.State().m_dLastX == 9);
        CHECK(Rig.State().m_bStackLift == bStackLift);
    }
}

TEST_CASE("CHS of 0 is a negative zero")
{
    cCalculatorRig Rig;

    Rig.Run("CHS");

    CHECK(std::signbit(Rig.X()));
    CHECK_TEXT(Rig.Display(), "-0.00");
}

TEST_CASE("drop keeps T")
{
    cCalculatorRig Rig;
    Rig.Set(1, 2, 3, 4);

    Rig.Run("+");
    CheckStack(&Rig, 3, 3, 4, 4);

    Rig.Run("+");
    CheckStack(&Rig, 6, 4, 4, 4);
}

TEST_CASE("LASTx brings back what the last calculation consumed")
{
    cCalculatorRig Rig;
    Rig.Type("7 ENTER 2 - ");
    CHECK(Rig.X() == 5);

    Rig.Type("f . +");  // LASTx

    CHECK(Rig.X() == 7);
    CHECK(Rig.State().m_dLastX == 2);
    CHECK_TEXT(Rig.RegisterLine(30), "LASTx   = +2.00");
}

TEST_CASE("results are held within the range and away from denormal numbers")
{
    const double kLeast = 1e-99;
    const struct
    {
        double      dResult;
        double      dHeld;
        const char *szShown;
    } Rows[] = {
        {kMost, kMost, "+9.999999999e+99"},
        {std::nextafter(kMost, 1e300), kMost, "+9.999999999e+99"},
        {1e100, kMost, "+9.999999999e+99"},
        {1e308, kMost, "+9.999999999e+99"},
        {-kMost, -kMost, "-9.999999999e+99"},
        {-1e100, -kMost, "-9.999999999e+99"},
        {9.9e99, 9.9e99, "+9.90e+99"},
        {kLeast, kLeast, "+1.00e-99"},
        {-kLeast, -kLeast, "-1.00e-99"},
        {std::nextafter(kLeast, 0.0), 0.0, "+0.00"},
        {std::nextafter(-kLeast, 0.0), 0.0, "+0.00"},
        {5e-324, 0.0, "+0.00"},
        {-0.0, 0.0, "+0.00"},
        {kNan, kNan, "+nan"},
    };
    for (const auto &Row : Rows)
    {
        CAPTURE(Row.dResult);
        cCalculatorRig Rig;
        Rig.m_Engine.Raw().m_dX = 1.0;
        Rig.m_Engine.Raw().m_dY = Row.dResult;

        Rig.Run("*");

        CHECK((Rig.X() == Row.dHeld || (std::isnan(Rig.X()) && std::isnan(Row.dHeld))));
        CHECK((std::isnan(Row.dHeld) || std::signbit(Rig.X()) == std::signbit(Row.dHeld)));
        CHECK_TEXT(Rig.Display(), Row.szShown);
        CHECK(Rig.m_Host.m_Boxes.empty());
    }
}

TEST_CASE("1e60 times 1e60 is the largest number, 1e-60 times 1e-60 is 0")
{
    cCalculatorRig Rig;

    Rig.Type("EEX 60 ENTER *");
    CHECK(Rig.X() == 9.999999999e99);
    CHECK_TEXT(Rig.Display(), "+9.999999999e+99");

    Rig.Type("EEX 60 CHS ENTER *");
    CHECK(Rig.X() == 0.0);
    CHECK_TEXT(Rig.Display(), "+0.00");
}

TEST_CASE("levels and registers are set within their limits")
{
    cCalculatorRig Rig;
    Rig.Type("12");

    CHECK(Rig.m_Engine.SetStackLevel(0, 1e100) == 1);
    CHECK(Rig.m_Engine.SetStackLevel(3, -1e-100) == 1);
    CHECK(Rig.m_Engine.SetStackLevel(4, 5) == 0);
    CHECK(Rig.m_Engine.SetRegister(29, -1e100) == 1);
    CHECK(Rig.m_Engine.SetRegister(30, 5) == 0);

    CheckStack(&Rig, 9.999999999e99, 0, 0, 0);
    CHECK(Rig.State().m_dReg[29] == -9.999999999e99);
    CHECK_TEXT(Rig.State().m_szEntry, "");
}
