#include "tests/elementary/tested_functions.h"

#include <cmath>

#include "engine/elementary/double_bits.h"
#include "engine/elementary/elementary.h"

// What the distributions of the standard library give differs between libraries.

static uint64_t Below(cChance &Chance, uint64_t nEnd)
{
    return Chance() % nEnd;
}

static double Between(cChance &Chance, double dFrom, double dTo)
{
    return dFrom + (dTo - dFrom) * (static_cast<double>(Chance() >> 11) * 0x1p-53);
}

static int Whole(cChance &Chance, int nFrom, int nTo)
{
    return nFrom + static_cast<int>(Below(Chance, static_cast<uint64_t>(nTo - nFrom + 1)));
}

// 2 to the nExponent, -1022 to 1023.
static double TwoTo(int nExponent)
{
    return FromBits(static_cast<uint64_t>(nExponent + kExponentOfOne) << 52);
}

// A random significand, sign and an exponent of the range.
static double OfSize(cChance &Chance, int nFrom, int nTo)
{
    const uint64_t nExponent = static_cast<uint64_t>(Whole(Chance, nFrom, nTo) + kExponentOfOne);
    return FromBits((Chance() & (kSignBit | kSignificand)) | nExponent << 52);
}

static cArguments One(double dX)
{
    return {dX, 0.0};
}

// --- one argument

static cArguments AnyBits(cChance &Chance)
{
    return One(FromBits(Chance()));
}

static cArguments Subnormal(cChance &Chance)
{
    return One(FromBits((Chance() & (kSignBit | kSignificand)) >> Below(Chance, 52)));
}

static cArguments Moderate(cChance &Chance)
{
    return One(Between(Chance, -64.0, 64.0));
}

static cArguments Positive(cChance &Chance)
{
    return One(Between(Chance, 0.0, 100.0));
}

static cArguments Unit(cChance &Chance)
{
    return One(Between(Chance, -1.0, 1.0));
}

static cArguments Small(cChance &Chance)
{
    return One(OfSize(Chance, -70, -1));
}

// Up to 1e99, as far as the calculator goes.
static cArguments Large(cChance &Chance)
{
    return One(OfSize(Chance, 0, 328));
}

static cArguments PositiveOfAnySize(cChance &Chance)
{
    return One(Magnitude(OfSize(Chance, -1022, 1023)));
}

static cArguments Huge(cChance &Chance)
{
    return One(OfSize(Chance, 0, 1023));
}

static cArguments NearOne(cChance &Chance)
{
    const double dDistance = OfSize(Chance, -53, -1);
    return One(1.0 + dDistance);
}

static cArguments NearEitherOne(cChance &Chance)
{
    return One(NearOne(Chance).m_dX * (Below(Chance, 2) ? 1.0 : -1.0));
}

static cArguments WholeNumber(cChance &Chance)
{
    return One(Whole(Chance, -1100, 1100));
}

// As they are keyed: 12.5, 0.001.
static cArguments Decimal(cChance &Chance)
{
    static const double s_Powers[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    return One(Whole(Chance, -999999, 999999) / s_Powers[Below(Chance, 10)]);
}

static cArguments PowerOfTen(cChance &Chance)
{
    const double dPower = Exp10(Whole(Chance, -307, 308));
    return One(FromBits(BitsOf(dPower) + Below(Chance, 5) - 2));
}

static cArguments Degrees(cChance &Chance)
{
    return One(Whole(Chance, -36000, 36000) * 0.1 * 0.017453292519943295);
}

// Multiples of pi/2 and their neighbours.
static cArguments NearRightAngle(cChance &Chance)
{
    const uint64_t nSteps = Chance() >> (11 + Below(Chance, 53));
    const double   dAngle = static_cast<double>(nSteps) * 1.5707963267948966;
    return One(FromBits(BitsOf(dAngle) + Below(Chance, 5)));
}

static cArguments HardAngle(cChance &Chance)
{
    static const double s_Angles[] = {
#include "tests/elementary/hard_angles.inc"
    };
    const double dAngle = s_Angles[Below(Chance, sizeof s_Angles / sizeof *s_Angles)];
    return One(Below(Chance, 2) ? dAngle : -dAngle);
}

// From underflow to overflow of e^x and 10^x, and about the ends.
static cArguments PowerOfE(cChance &Chance)
{
    return One(Between(Chance, -750.0, 712.0));
}

static cArguments LastPowerOfE(cChance &Chance)
{
    static const double s_Ends[] = {709.782712893384, -708.3964185322641, -745.1332191019412};
    return One(s_Ends[Below(Chance, 3)] + OfSize(Chance, -43, 2));
}

static cArguments PowerOfTen10(cChance &Chance)
{
    return One(Between(Chance, -326.0, 310.0));
}

static cArguments LastPowerOf10(cChance &Chance)
{
    static const double s_Ends[] = {308.25471555991674, -307.6526555685888, -323.6072453387798};
    return One(s_Ends[Below(Chance, 3)] + OfSize(Chance, -43, 2));
}

// --- two arguments

static cArguments BothModerate(cChance &Chance)
{
    const double dX = Between(Chance, -10.0, 10.0);
    return {dX, Between(Chance, -10.0, 10.0)};
}

static cArguments BaseAndPower(cChance &Chance)
{
    const double dX = Between(Chance, 0.0, 100.0);
    return {dX, Between(Chance, -20.0, 20.0)};
}

static cArguments BothAnyBits(cChance &Chance)
{
    const double dX = FromBits(Chance());
    return {dX, FromBits(Chance())};
}

static cArguments WholePower(cChance &Chance)
{
    const double dX = Whole(Chance, -1000, 1000);
    return {dX, static_cast<double>(Whole(Chance, -50, 50))};
}

static cArguments HalfPower(cChance &Chance)
{
    const double dX = Decimal(Chance).m_dX;
    return {Magnitude(dX), Whole(Chance, -60, 60) / 2.0};
}

// Results that are exact, or lie in the middle between two doubles.
static cArguments ExactPower(cChance &Chance)
{
    const int nRoots = Whole(Chance, 0, 3);
    double    dX     = static_cast<double>(1 + (Chance() >> (11 + Below(Chance, 52))));
    for (int i = 0; i < nRoots; i++)
    {
        dX = NearestInteger(Sqrt(dX));
        dX = dX * dX;
    }
    return {dX, Whole(Chance, 0, 80) / TwoTo(nRoots)};
}

// The power of a number next to 1 is next to the middle between two doubles.
static cArguments PowerNearMiddle(cChance &Chance)
{
    const double dX = 1.0 + Whole(Chance, -64, 64) * 0x1p-53;
    return {dX, Whole(Chance, -256, 256) / 32.0};
}

static cArguments PowerOfNearOne(cChance &Chance)
{
    const double dX = NearOne(Chance).m_dX;
    return {dX, OfSize(Chance, -10, 60)};
}

// 2^-161 to 2^-139 away from the middle between two doubles.
static cArguments HardestPower(cChance &Chance)
{
    static const cArguments s_Powers[] = {
        {0x1.ffffffffffffdp-1, -0x1.5555555555554p-2},
        {0x1.fffffffffffffp-1, -0x1.fffffffffffffp-1},
        {0x1.ffffffffffffap-1, -0x1.5555555555553p-3},
        {0x1.ffffffffffff9p-1, -0x1.249249249249p-3},
        {0x1.ffffffffffff7p-1, -0x1.c71c71c71c718p-4},
        {0x1.0000000000003p0, 0x1.5555555555557p-3},
        {0x1.ffffffffffff5p-1, 0x1.745d1745d1742p-5},
        {0x1.ffffffffffff4p-1, -0x1.5555555555551p-4},
        {0x1.ffffffffffff2p-1, -0x1.249249249248ep-4},
        {0x1.0000000000006p0, 0x1.5555555555559p-4},
        {0x1.000000000000bp0, -0x1.745d1745d174ep-6},
        {0x1.00000000000a9p0, 0x1.d28e63f9f0e19p-3},
    };
    return s_Powers[Below(Chance, sizeof s_Powers / sizeof *s_Powers)];
}

// The power of a number next to 1 that is nearest to a middle. Sometimes one of the
// hardest.
static cArguments PowerNextToMiddle(cChance &Chance)
{
    if (Below(Chance, 64) == 0)
        return HardestPower(Chance);
    const double   dUnit     = OfSize(Chance, -54, -30);
    const double   dX        = 1.0 + Whole(Chance, 1, 3000) * dUnit;
    const uint64_t nOdd      = 2 * (Chance() >> (44 + Below(Chance, 20))) + 1;
    const double   dDistance = static_cast<double>(nOdd) * (Below(Chance, 2) ? 0x1p-53 : -0x1p-54);
    const double   dLn       = dDistance * (1.0 - dDistance * (0.5 - dDistance * (1.0 / 3)));
    const double   dBase     = dX == 1.0 ? 1.0 + 0x1p-52 : dX;
    return {dBase, FromBits(BitsOf(dLn / Ln(dBase)) + Below(Chance, 3) - 1)};
}

// About the first middles on both sides of 1, more often below it, where they are
// nearer.
static cArguments LeastPower(cChance &Chance)
{
    const double dX    = PositiveOfAnySize(Chance).m_dX;
    const double dSize = Below(Chance, 4) == 0 ? 0x1p-53 : -0x1p-54;
    return {dX, FromBits(BitsOf(dSize / Ln(dX)) + Below(Chance, 3) - 1)};
}

static cArguments PowerOfTwo(cChance &Chance)
{
    const double dX = TwoTo(Whole(Chance, -40, 40));
    return {dX, Whole(Chance, -512, 512) / 8.0};
}

// Results near overflow and underflow, subnormal ones among them.
static cArguments LastPower(cChance &Chance)
{
    const double dX   = Magnitude(OfSize(Chance, -40, 40));
    const double dEnd = LastPowerOfE(Chance).m_dX;
    return {dX, dEnd / Ln(dX)};
}

static cArguments TinyPower(cChance &Chance)
{
    const double dX = PositiveOfAnySize(Chance).m_dX;
    return {dX, OfSize(Chance, -80, -20)};
}

static cArguments Point(cChance &Chance)
{
    const double dX = OfSize(Chance, -328, 328);
    return {dX, dX * OfSize(Chance, -80, 80)};
}

static cArguments WholePoint(cChance &Chance)
{
    const double dX = Whole(Chance, -9, 9);
    return {dX, static_cast<double>(Whole(Chance, -9, 9))};
}

// Quotients that are subnormal, or in the middle of two such numbers.
static cArguments TinyRatio(cChance &Chance)
{
    const double dX = FromBits(Below(Chance, 1000)) * (Below(Chance, 2) ? 1.0 : -1.0);
    return {dX, OfSize(Chance, -20, 20)};
}

static cArguments WholeTinyRatio(cChance &Chance)
{
    return {FromBits(Below(Chance, 200)), static_cast<double>(Whole(Chance, -16, 16))};
}

// --- the list

const std::vector<cTestedFunction> &TestedFunctions()
{
    static const std::vector<cArgumentKind> s_Angles = {
        Moderate, AnyBits,  Small,   Large,          Huge,      WholeNumber, Decimal,
        Degrees,  Moderate, NearOne, NearRightAngle, HardAngle, HardAngle,   Subnormal};
    static const std::vector<cArgumentKind> s_Ratios   = {Unit, AnyBits, Small,       NearEitherOne,
                                                          Unit, Decimal, WholeNumber, Subnormal};
    static const std::vector<cArgumentKind> s_Tangents = {
        Moderate, AnyBits, Small, Large, Unit, NearEitherOne, Decimal, WholeNumber, Subnormal};
    static const std::vector<cArgumentKind> s_Values = {
        Positive, AnyBits,    NearOne, PositiveOfAnySize, Positive, Decimal,
        Positive, PowerOfTen, NearOne, WholeNumber,       Subnormal};
    static const std::vector<cTestedFunction> s_Functions = {
        {"sin", [](const cArguments &A) { return Sin(A.m_dX); }, s_Angles},
        {"cos", [](const cArguments &A) { return Cos(A.m_dX); }, s_Angles},
        {"tan", [](const cArguments &A) { return Tan(A.m_dX); }, s_Angles},
        {"asin", [](const cArguments &A) { return ArcSin(A.m_dX); }, s_Ratios},
        {"acos", [](const cArguments &A) { return ArcCos(A.m_dX); }, s_Ratios},
        {"atan", [](const cArguments &A) { return ArcTan(A.m_dX); }, s_Tangents},
        {"atan2",
         [](const cArguments &A) { return ArcTan2(A.m_dX, A.m_dY); },
         {BothModerate, BothAnyBits, Point, WholePoint, BothModerate, TinyRatio, WholeTinyRatio}},
        {"exp",
         [](const cArguments &A) { return Exp(A.m_dX); },
         {Moderate, AnyBits, Small, PowerOfE, LastPowerOfE, WholeNumber, Decimal, Subnormal}},
        {"exp10",
         [](const cArguments &A) { return Exp10(A.m_dX); },
         {Moderate, AnyBits, Small, PowerOfTen10, LastPowerOf10, WholeNumber, Decimal, Subnormal}},
        {"log", [](const cArguments &A) { return Ln(A.m_dX); }, s_Values},
        {"log10", [](const cArguments &A) { return Log10(A.m_dX); }, s_Values},
        {"pow",
         [](const cArguments &A) { return Pow(A.m_dX, A.m_dY); },
         {BaseAndPower, BothAnyBits, WholePower, HalfPower, ExactPower, PowerNearMiddle,
          PowerOfNearOne, PowerOfTwo, LastPower, TinyPower, BothModerate, PowerNextToMiddle,
          PowerNextToMiddle, LeastPower}},
    };
    return s_Functions;
}

std::vector<cArguments> ArgumentsFor(const cTestedFunction &Function, size_t nCount, uint64_t nSeed)
{
    cChance                 Chance(nSeed);
    std::vector<cArguments> Arguments;
    Arguments.reserve(nCount);
    for (size_t i = 0; i < nCount; i++)
        Arguments.push_back(Function.m_Kinds[i % Function.m_Kinds.size()](Chance));
    return Arguments;
}
