// mathematics.cpp - arithmetic, logarithms, trigonometry and conversions.
// Domain errors are found before anything changes. LASTx, the clamp and the
// ending stand in the instruction table.

#include <cmath>

#include "engine/vorstek_engine.h"

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

int cVorstekEngine::OnAdd(unsigned)
{
    m_dX = m_dY + m_dX;
    Drop();
    return 1;
}

int cVorstekEngine::OnSubtract(unsigned)
{
    m_dX = m_dY - m_dX;
    Drop();
    return 1;
}

int cVorstekEngine::OnMultiply(unsigned)
{
    m_dX = m_dY * m_dX;
    Drop();
    return 1;
}

int cVorstekEngine::OnDivide(unsigned)
{
    if (m_dX == 0.0)
        return ShowUserError("Error: divide by 0");
    m_dX = m_dY / m_dX;
    Drop();
    return 1;
}

int cVorstekEngine::OnPower(unsigned)
{
    if (m_dY == 0.0 && m_dX <= 0.0)
        return ShowUserError("Error: impossible");
    if (m_dY < 0.0 && m_dX != std::trunc(m_dX))
        return ShowUserError("Error: impossible");
    m_dX = std::pow(m_dY, m_dX);
    Drop();
    return 1;
}

// Y stays where it is.
int cVorstekEngine::OnPercent(unsigned)
{
    m_dX = m_dY * m_dX * 0.01;
    return 1;
}

int cVorstekEngine::OnSin(unsigned)
{
    m_dX = std::sin(ToRadians(m_dX, m_nAngleMode));
    return 1;
}

int cVorstekEngine::OnCos(unsigned)
{
    m_dX = std::cos(ToRadians(m_dX, m_nAngleMode));
    return 1;
}

int cVorstekEngine::OnTan(unsigned)
{
    m_dX = std::tan(ToRadians(m_dX, m_nAngleMode));
    return 1;
}

int cVorstekEngine::OnArcSin(unsigned)
{
    if (std::fabs(m_dX) > 1.0)
        return ShowUserError("Error: impossible");
    m_dX = FromRadians(std::asin(m_dX), m_nAngleMode);
    return 1;
}

int cVorstekEngine::OnArcCos(unsigned)
{
    if (std::fabs(m_dX) > 1.0)
        return ShowUserError("Error: impossible");
    m_dX = FromRadians(std::acos(m_dX), m_nAngleMode);
    return 1;
}

int cVorstekEngine::OnArcTan(unsigned)
{
    m_dX = FromRadians(std::atan(m_dX), m_nAngleMode);
    return 1;
}

int cVorstekEngine::OnLn(unsigned)
{
    if (m_dX <= 0.0)
        return ShowUserError("Error: ln of x <= 0");
    m_dX = std::log(m_dX);
    return 1;
}

int cVorstekEngine::OnLog(unsigned)
{
    if (m_dX <= 0.0)
        return ShowUserError("Error: log of x <= 0");
    m_dX = std::log10(m_dX);
    return 1;
}

int cVorstekEngine::OnExp(unsigned)
{
    m_dX = std::exp(m_dX);
    return 1;
}

int cVorstekEngine::OnTenToX(unsigned)
{
    m_dX = std::pow(10.0, m_dX);
    return 1;
}

int cVorstekEngine::OnSqrt(unsigned)
{
    if (m_dX < 0.0)
        return ShowUserError("Error: sqrt of x < 0");
    m_dX = std::sqrt(m_dX);
    return 1;
}

int cVorstekEngine::OnSquare(unsigned)
{
    m_dX = m_dX * m_dX;
    return 1;
}

int cVorstekEngine::OnReciprocal(unsigned)
{
    if (m_dX == 0.0)
        return ShowUserError("Error: divide by 0");
    m_dX = 1.0 / m_dX;
    return 1;
}

// Both parts keep X's sign where they are 0, which not every C library sees to.
int cVorstekEngine::OnInt(unsigned)
{
    m_dX = std::copysign(std::trunc(m_dX), m_dX);
    return 1;
}

int cVorstekEngine::OnFrac(unsigned)
{
    double       dInteger;
    const double dFraction = std::modf(m_dX, &dInteger);
    m_dX                   = std::copysign(dFraction, m_dX);
    return 1;
}

int cVorstekEngine::OnAbs(unsigned)
{
    m_dX = std::fabs(m_dX);
    return 1;
}

// 1.5 hours are 1.30: 1 hour 30 minutes.
int cVorstekEngine::OnToHms(unsigned)
{
    const double dAbs          = std::fabs(m_dX);
    const double dHours        = std::floor(dAbs + kFloorGuard);
    const double dMinutes      = (dAbs - dHours) * 60.0;
    const double dWholeMinutes = std::floor(dMinutes + kFloorGuard);
    const double dResult =
        dHours + dWholeMinutes * 0.01 + (dMinutes - dWholeMinutes) * 60.0 * 0.0001;
    m_dX = std::copysign(dResult, m_dX);
    return 1;
}

int cVorstekEngine::OnToHours(unsigned)
{
    const double dAbs          = std::fabs(m_dX);
    const double dHours        = std::floor(dAbs + kFloorGuard);
    const double dMinutes      = (dAbs - dHours) * 100.0;
    const double dWholeMinutes = std::floor(dMinutes + kFloorGuard);
    const double dResult       = dHours + dWholeMinutes * 0.016666666666666666 +
                           (dMinutes - dWholeMinutes) * 100.0 * 0.0002777777777777778;
    m_dX = std::copysign(dResult, m_dX);
    return 1;
}

// X is the radius, Y the angle; they become x and y.
int cVorstekEngine::OnToRectangular(unsigned)
{
    const double dRadius  = m_dX;
    const double dRadians = ToRadians(m_dY, m_nAngleMode);
    m_dX                  = dRadius * std::cos(dRadians);
    m_dY                  = dRadius * std::sin(dRadians);
    return 1;
}

// The origin has no angle: there, only LASTx is set and even a number being
// keyed in goes on.
int cVorstekEngine::OnToPolar(unsigned)
{
    if (m_dX == 0.0 && m_dY == 0.0)
        return 1;
    const double dRadius = std::sqrt(m_dX * m_dX + m_dY * m_dY);
    m_dY                 = Clamp(FromRadians(std::atan2(m_dY, m_dX), m_nAngleMode));
    m_dX                 = Clamp(dRadius);
    return EndOperation(enLift);
}

int cVorstekEngine::OnRad(unsigned)
{
    m_nAngleMode = kAngleRad;
    return 1;
}

int cVorstekEngine::OnDeg(unsigned)
{
    m_nAngleMode = kAngleDeg;
    return 1;
}

int cVorstekEngine::OnGrd(unsigned)
{
    m_nAngleMode = kAngleGrd;
    return 1;
}
