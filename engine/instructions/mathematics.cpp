// mathematics.cpp - arithmetic, logarithms, trigonometry and conversions.
// Domain errors are found before anything changes. LASTx, the clamp and the
// ending are in the instruction table.

#include <cmath>

#include "engine/calculator.h"
#include "engine/elementary/elementary.h"
#include "engine/instructions/handlers.h"
#include "engine/range.h"

static const double kDegToRad = 0.017453292519943295;
static const double kRadToDeg = 57.29577951308232;
static const double kGrdToRad = 0.015707963267948967;
static const double kRadToGrd = 63.66197723675814;

// 1e-11 lifts a value that rounding left just under an integer.
static const double kFloorGuard = 1e-11;

static double ToRadians(double dAngle, int nAngleMode)
{
    if (nAngleMode == kAngleDeg)
        return dAngle * kDegToRad;
    return nAngleMode == kAngleGrd ? dAngle * kGrdToRad : dAngle;
}

static double FromRadians(double dRadians, int nAngleMode)
{
    if (nAngleMode == kAngleDeg)
        return dRadians * kRadToDeg;
    return nAngleMode == kAngleGrd ? dRadians * kRadToGrd : dRadians;
}

int OnAdd(cCalculator &c, unsigned)
{
    c.m_dX = c.m_dY + c.m_dX;
    c.Drop();
    return 1;
}

int OnSubtract(cCalculator &c, unsigned)
{
    c.m_dX = c.m_dY - c.m_dX;
    c.Drop();
    return 1;
}

int OnMultiply(cCalculator &c, unsigned)
{
    c.m_dX = c.m_dY * c.m_dX;
    c.Drop();
    return 1;
}

int OnDivide(cCalculator &c, unsigned)
{
    if (c.m_dX == 0.0)
        return c.ShowUserError("Error: divide by 0");
    c.m_dX = c.m_dY / c.m_dX;
    c.Drop();
    return 1;
}

int OnPower(cCalculator &c, unsigned)
{
    if (c.m_dY == 0.0 && c.m_dX <= 0.0)
        return c.ShowUserError("Error: impossible");
    if (c.m_dY < 0.0 && c.m_dX != std::trunc(c.m_dX))
        return c.ShowUserError("Error: impossible");
    c.m_dX = Pow(c.m_dY, c.m_dX);
    c.Drop();
    return 1;
}

// Y stays where it is.
int OnPercent(cCalculator &c, unsigned)
{
    c.m_dX = c.m_dY * c.m_dX * 0.01;
    return 1;
}

int OnSin(cCalculator &c, unsigned)
{
    c.m_dX = Sin(ToRadians(c.m_dX, c.m_nAngleMode));
    return 1;
}

int OnCos(cCalculator &c, unsigned)
{
    c.m_dX = Cos(ToRadians(c.m_dX, c.m_nAngleMode));
    return 1;
}

int OnTan(cCalculator &c, unsigned)
{
    c.m_dX = Tan(ToRadians(c.m_dX, c.m_nAngleMode));
    return 1;
}

int OnArcSin(cCalculator &c, unsigned)
{
    if (std::fabs(c.m_dX) > 1.0)
        return c.ShowUserError("Error: impossible");
    c.m_dX = FromRadians(ArcSin(c.m_dX), c.m_nAngleMode);
    return 1;
}

int OnArcCos(cCalculator &c, unsigned)
{
    if (std::fabs(c.m_dX) > 1.0)
        return c.ShowUserError("Error: impossible");
    c.m_dX = FromRadians(ArcCos(c.m_dX), c.m_nAngleMode);
    return 1;
}

int OnArcTan(cCalculator &c, unsigned)
{
    c.m_dX = FromRadians(ArcTan(c.m_dX), c.m_nAngleMode);
    return 1;
}

int OnLn(cCalculator &c, unsigned)
{
    if (c.m_dX <= 0.0)
        return c.ShowUserError("Error: ln of x <= 0");
    c.m_dX = Ln(c.m_dX);
    return 1;
}

int OnLog(cCalculator &c, unsigned)
{
    if (c.m_dX <= 0.0)
        return c.ShowUserError("Error: log of x <= 0");
    c.m_dX = Log10(c.m_dX);
    return 1;
}

int OnExp(cCalculator &c, unsigned)
{
    c.m_dX = Exp(c.m_dX);
    return 1;
}

int OnTenToX(cCalculator &c, unsigned)
{
    c.m_dX = Exp10(c.m_dX);
    return 1;
}

int OnSqrt(cCalculator &c, unsigned)
{
    if (c.m_dX < 0.0)
        return c.ShowUserError("Error: sqrt of x < 0");
    c.m_dX = Sqrt(c.m_dX);
    return 1;
}

int OnSquare(cCalculator &c, unsigned)
{
    c.m_dX = c.m_dX * c.m_dX;
    return 1;
}

int OnReciprocal(cCalculator &c, unsigned)
{
    if (c.m_dX == 0.0)
        return c.ShowUserError("Error: divide by 0");
    c.m_dX = 1.0 / c.m_dX;
    return 1;
}

// Both parts keep X's sign where they are 0, which not every C library ensures.
int OnInt(cCalculator &c, unsigned)
{
    c.m_dX = std::copysign(std::trunc(c.m_dX), c.m_dX);
    return 1;
}

int OnFrac(cCalculator &c, unsigned)
{
    double       dInteger;
    const double dFraction = std::modf(c.m_dX, &dInteger);
    c.m_dX                 = std::copysign(dFraction, c.m_dX);
    return 1;
}

int OnAbs(cCalculator &c, unsigned)
{
    c.m_dX = std::fabs(c.m_dX);
    return 1;
}

// 1.5 hours are 1.30: 1 hour 30 minutes.
int OnToHms(cCalculator &c, unsigned)
{
    const double dAbs          = std::fabs(c.m_dX);
    const double dHours        = std::floor(dAbs + kFloorGuard);
    const double dMinutes      = (dAbs - dHours) * 60.0;
    const double dWholeMinutes = std::floor(dMinutes + kFloorGuard);
    const double dResult =
        dHours + dWholeMinutes * 0.01 + (dMinutes - dWholeMinutes) * 60.0 * 0.0001;
    c.m_dX = std::copysign(dResult, c.m_dX);
    return 1;
}

int OnToHours(cCalculator &c, unsigned)
{
    const double dAbs          = std::fabs(c.m_dX);
    const double dHours        = std::floor(dAbs + kFloorGuard);
    const double dMinutes      = (dAbs - dHours) * 100.0;
    const double dWholeMinutes = std::floor(dMinutes + kFloorGuard);
    const double dResult       = dHours + dWholeMinutes * 0.016666666666666666 +
                           (dMinutes - dWholeMinutes) * 100.0 * 0.0002777777777777778;
    c.m_dX = std::copysign(dResult, c.m_dX);
    return 1;
}

// X is the radius, Y the angle; they become x and y.
int OnToRectangular(cCalculator &c, unsigned)
{
    const double dRadius  = c.m_dX;
    const double dRadians = ToRadians(c.m_dY, c.m_nAngleMode);
    c.m_dX                = dRadius * Cos(dRadians);
    c.m_dY                = dRadius * Sin(dRadians);
    return 1;
}

// The origin has no angle: there, only LASTx is set and even a number being
// keyed in continues.
int OnToPolar(cCalculator &c, unsigned)
{
    if (c.m_dX == 0.0 && c.m_dY == 0.0)
        return 1;
    const double dRadius = Sqrt(c.m_dX * c.m_dX + c.m_dY * c.m_dY);
    c.m_dY               = Clamp(FromRadians(ArcTan2(c.m_dY, c.m_dX), c.m_nAngleMode));
    c.m_dX               = Clamp(dRadius);
    return c.EndOperation(enLift);
}

int OnRad(cCalculator &c, unsigned)
{
    c.m_nAngleMode = kAngleRad;
    return 1;
}

int OnDeg(cCalculator &c, unsigned)
{
    c.m_nAngleMode = kAngleDeg;
    return 1;
}

int OnGrd(cCalculator &c, unsigned)
{
    c.m_nAngleMode = kAngleGrd;
    return 1;
}
