#include <cmath>
#include <random>
#include <vector>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

// n and the sums of x, x squared, y, y squared, xy; LASTx 9.
static void SetSums(cCalculatorRig *pRig, const std::vector<double> &Sums)
{
    for (unsigned i = 0; i < Sums.size(); i++)
        pRig->SetReg(kRegisterN + i, Sums[i]);
    pRig->m_Engine.Raw().m_dLastX = 9;
    pRig->m_Engine.RefreshViews();
}

static void CheckSums(cCalculatorRig *pRig, const std::vector<double> &Sums)
{
    for (unsigned i = 0; i < Sums.size(); i++)
    {
        CAPTURE(i);
        CHECK(pRig->State().m_dReg[kRegisterN + i] == Sums[i]);
    }
}

static void AddPoint(cCalculatorRig *pRig, double dX, double dY)
{
    pRig->Set(dX, dY);
    CHECK(pRig->Run("Sum+") == 1);
}

TEST_CASE("Sum+ adds the point to six sums and shows n")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {10, 20, 30, 40, 50, 60});
    Rig.Set(2, 3, 5, 7);

    CHECK(Rig.Run("Sum+") == 1);

    CheckSums(&Rig, {11, 22, 34, 43, 59, 66});
    CHECK(Rig.X() == 11);
    CHECK(Rig.Y() == 3);
    CHECK(Rig.Z() == 5);
    CHECK(Rig.T() == 7);
    CHECK_TEXT(Rig.Display(), "+11.00");
    CHECK(Rig.State().m_dLastX == 2);
    CHECK(Rig.State().m_bStackLift == 0);
}

TEST_CASE("Sum- takes the point out again, and n below 0 too")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {0, 20, 30, 40, 50, 60});
    Rig.Set(2, 3, 5, 7);

    CHECK(Rig.Run("Sum-") == 1);

    CheckSums(&Rig, {-1, 18, 26, 37, 41, 54});
    CHECK(Rig.X() == -1);
    CHECK(Rig.Y() == 3);
    CHECK(Rig.State().m_dLastX == 2);
    CHECK(Rig.State().m_bStackLift == 0);
}

TEST_CASE("Sum+ and Sum- write six lines of the registers box and select that of n")
{
    for (const char *const szMnemonic : {"Sum+", "Sum-"})
    {
        cCalculatorRig Rig;
        SetSums(&Rig, {1, 2, 4, 3, 9, 6});
        Rig.Set(-2, 3);

        Rig.Run(szMnemonic);

        const int bPlus = szMnemonic[3] == '+';
        CHECK_TEXT(Rig.RegisterLine(10), bPlus ? "Reg[10] = +2.00" : "Reg[10] = +0.00");
        CHECK_TEXT(Rig.RegisterLine(11), bPlus ? "Reg[11] = +0.00" : "Reg[11] = +4.00");
        CHECK_TEXT(Rig.RegisterLine(12), bPlus ? "Reg[12] = +8.00" : "Reg[12] = +0.00");
        CHECK_TEXT(Rig.RegisterLine(13), bPlus ? "Reg[13] = +6.00" : "Reg[13] = +0.00");
        CHECK_TEXT(Rig.RegisterLine(14), bPlus ? "Reg[14] = +18.00" : "Reg[14] = +0.00");
        CHECK_TEXT(Rig.RegisterLine(15), bPlus ? "Reg[15] = +0.00" : "Reg[15] = +12.00");
        CHECK_TEXT(Rig.RegisterLine(30), "LASTx   = -2.00");
        CHECK(Rig.m_Registers.HighlightedLine() == 10);
    }
}

TEST_CASE("each sum is clamped")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {1, 9e99, -9e99, 9e99, 0, 1e-99});
    Rig.Set(9e99, -9e99);
    Rig.Run("Sum+");
    CheckSums(&Rig, {2, kMost, kMost, 0, kMost, -kMost});

    SetSums(&Rig, {1, 1, 1, 1, 1, 1.5e-99});
    Rig.Set(1e-49, 1e-50);
    Rig.Run("Sum-");
    CheckSums(&Rig, {0, 1 - 1e-49, 1 - 1e-98, 1 - 1e-50, 1, 0});
}

TEST_CASE("the mean of x and y multiplies by the reciprocal of n")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {49, 49, 0, 98, 0, 0});
    Rig.Set(1, 2, 3, 4);

    CHECK(Rig.Run("Mean") == 1);

    const double dReciprocal = 1.0 / 49.0;
    CHECK(dReciprocal * 49.0 != 1.0);
    CHECK(Rig.X() == dReciprocal * 49.0);
    CHECK(Rig.Y() == dReciprocal * 98.0);
    CHECK(Rig.Z() == 3);
    CHECK(Rig.T() == 4);
    CHECK(Rig.State().m_dLastX == 1);
    CHECK(Rig.State().m_bStackLift == 1);
}

TEST_CASE("mean, deviation and regression agree with their textbook forms")
{
    std::mt19937                           Random(40);
    std::uniform_real_distribution<double> Numbers(-50.0, 50.0);
    for (size_t nPoints = 2; nPoints < 60; nPoints++)
    {
        CAPTURE(nPoints);
        cCalculatorRig      Rig;
        std::vector<double> Xs(nPoints);
        std::vector<double> Ys(nPoints);
        double              dMeanX = 0;
        double              dMeanY = 0;
        const double        dCount = static_cast<double>(nPoints);
        for (size_t i = 0; i < nPoints; i++)
        {
            Xs[i] = Numbers(Random);
            Ys[i] = 3 * Xs[i] + Numbers(Random);
            AddPoint(&Rig, Xs[i], Ys[i]);
            dMeanX += Xs[i] / dCount;
            dMeanY += Ys[i] / dCount;
        }
        double dXX = 0;
        double dYY = 0;
        double dXY = 0;
        for (size_t i = 0; i < nPoints; i++)
        {
            dXX += (Xs[i] - dMeanX) * (Xs[i] - dMeanX);
            dYY += (Ys[i] - dMeanY) * (Ys[i] - dMeanY);
            dXY += (Xs[i] - dMeanX) * (Ys[i] - dMeanY);
        }

        Rig.Set(7, 8, 5, 6);
        CHECK(Rig.Run("Mean") == 1);
        CHECK(std::fabs(Rig.X() - dMeanX) < 1e-11);
        CHECK(std::fabs(Rig.Y() - dMeanY) < 1e-11);

        CHECK(Rig.Run("StdDev") == 1);
        CHECK(IsNear(Rig.X(), std::sqrt(dXX / (dCount - 1)), 1e-9));
        CHECK(IsNear(Rig.Y(), std::sqrt(dYY / (dCount - 1)), 1e-9));

        CHECK(Rig.Run("LR") == 1);
        CHECK(IsNear(Rig.X(), dXY / dXX, 1e-9));
        CHECK(std::fabs(Rig.Y() - (dMeanY - dXY / dXX * dMeanX)) < 1e-7);
        CHECK(Rig.Z() == 5);
        CHECK(Rig.T() == 6);
    }
}

TEST_CASE("points that are taken out leave no trace in sums of integers")
{
    std::mt19937                       Random(41);
    std::uniform_int_distribution<int> Numbers(-1000, 1000);
    cCalculatorRig                     Rig;
    AddPoint(&Rig, 3, 4);
    std::vector<std::pair<int, int>> Points;
    for (int i = 0; i < 200; i++)
    {
        Points.emplace_back(Numbers(Random), Numbers(Random));
        AddPoint(&Rig, Points.back().first, Points.back().second);
    }

    for (const auto &Point : Points)
    {
        Rig.Set(Point.first, Point.second);
        Rig.Run("Sum-");
    }

    CheckSums(&Rig, {1, 3, 9, 4, 16, 12});
}

TEST_CASE("the standard deviation needs two points")
{
    cCalculatorRig Rig;
    AddPoint(&Rig, 5, 6);

    CHECK(Rig.Run("StdDev") == 0);
    CHECK_TEXT(Rig.Display(), "Error: npts <= 1");
    CHECK(Rig.X() == 1);

    AddPoint(&Rig, 8, 10);
    CHECK(Rig.Run("StdDev") == 1);
    CHECK(IsNear(Rig.X(), std::sqrt(4.5)));
    CHECK(IsNear(Rig.Y(), std::sqrt(8.0)));
}

TEST_CASE("the regression of points with equal x is a bad summation")
{
    cCalculatorRig Rig;
    AddPoint(&Rig, 5, 6);
    AddPoint(&Rig, 5, 8);

    CHECK(Rig.Run("LR") == 0);

    CHECK_TEXT(Rig.Display(), "Error: bad summation");
    CHECK(Rig.X() == 2);
    CHECK(Rig.Y() == 8);
}

TEST_CASE("the regression finds slope and intercept of a line")
{
    cCalculatorRig Rig;
    for (const double dX : {1.0, 2.0, 5.0, 11.0})
        AddPoint(&Rig, dX, 1.5 * dX - 4);
    Rig.Set(7, 8, 5, 6);

    CHECK(Rig.Run("LR") == 1);

    CHECK(IsNear(Rig.X(), 1.5));
    CHECK(IsNear(Rig.Y(), -4));
    CHECK(Rig.State().m_dLastX == 7);
    CHECK(Rig.State().m_bStackLift == 1);
}

TEST_CASE("the intercept comes from the slope before its clamp")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {1, 1e-60, 1e-50, 5, 0, 9e99});

    CHECK(Rig.Run("LR") == 1);

    CHECK(Rig.X() == kMost);
    CHECK(IsNear(Rig.Y(), -9e89, 1e-9));
}

TEST_CASE("mean, deviation and regression are clamped")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {0.01, 9e99, 0, -9e99, 0, 0});
    Rig.Run("Mean");
    CHECK(Rig.X() == kMost);
    CHECK(Rig.Y() == -kMost);

    SetSums(&Rig, {1e10, 1e-95, 0, -1e-95, 0, 0});
    Rig.Run("Mean");
    CHECK(Rig.X() == 0);
    CHECK(Rig.Y() == 0);
    CHECK_FALSE(std::signbit(Rig.Y()));

    SetSums(&Rig, {9e99, 0, 1e-99, 0, 9e99, 0});
    Rig.Run("StdDev");
    CHECK(Rig.X() == 0);
    CHECK(IsNear(Rig.Y(), 1));

    SetSums(&Rig, {9e99, 0, 9e99, 0, 1e-99, 0});
    Rig.Run("StdDev");
    CHECK(IsNear(Rig.X(), 1));
    CHECK(Rig.Y() == 0);

    SetSums(&Rig, {1e-50, 0, 1e-40, -9e60, 0, -9e99});
    Rig.Run("LR");
    CHECK(Rig.X() == -kMost);
    CHECK(Rig.Y() == -kMost);
}

TEST_CASE("the deviation of impossible sums is not a number")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {2, 10, 1, 0, 8, 0});

    CHECK(Rig.Run("StdDev") == 1);

    CHECK_TEXT(Rig.Display(), "+nan");
    CHECK(IsNear(Rig.Y(), std::sqrt(8.0)));
}

TEST_CASE("RCL Sum+ brings the sums of x and y without a push")
{
    cCalculatorRig Rig;
    SetSums(&Rig, {10, 20, 30, 40, 50, 60});
    Rig.Set(1, 2, 3, 4);
    Rig.m_Engine.Raw().m_bStackLift = 0;

    CHECK(Rig.Run("RCLSum+") == 1);

    CHECK(Rig.X() == 20);
    CHECK(Rig.Y() == 40);
    CHECK(Rig.Z() == 3);
    CHECK(Rig.T() == 4);
    CHECK(Rig.State().m_dLastX == 1);
    CHECK(Rig.State().m_bStackLift == 1);
}

TEST_CASE("ClearSum clears the statistics registers and no others")
{
    cCalculatorRig Rig;
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        Rig.SetReg(nRegister, nRegister + 1);
    Rig.Set(1, 2, 3, 4);
    Rig.m_Engine.RefreshViews();

    CHECK(Rig.Run("ClearSum") == 1);

    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
    {
        const int bSum = nRegister >= 10 && nRegister <= 15;
        CHECK(Rig.State().m_dReg[nRegister] == (bSum ? 0 : nRegister + 1));
        if (bSum)
            CHECK_TEXT(Rig.RegisterLine(nRegister),
                       "Reg[" + std::to_string(nRegister) + "] = +0.00");
    }
    CHECK(Rig.X() == 1);
    CHECK(Rig.Y() == 2);
}

TEST_CASE("ClearREG clears all thirty registers but not LASTx")
{
    cCalculatorRig Rig;
    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        Rig.SetReg(nRegister, nRegister + 1);
    Rig.Set(16);
    Rig.Run("sqrt");
    Rig.m_Engine.RefreshViews();

    CHECK(Rig.Run("ClearREG") == 1);

    for (unsigned nRegister = 0; nRegister < kRegisters; nRegister++)
        CHECK(Rig.State().m_dReg[nRegister] == 0);
    CHECK_TEXT(Rig.RegisterLine(0), "Reg[ 0] = +0.00");
    CHECK_TEXT(Rig.RegisterLine(29), "Reg[29] = +0.00");
    CHECK(Rig.State().m_dLastX == 16);
    CHECK(Rig.X() == 4);
}
