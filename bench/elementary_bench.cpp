// elementary_bench.cpp - calls per second of the elementary functions, in turn with
// those of the C library, on random arguments of moderate size. Prints a line per
// function: its name, millions of calls a second of ours and of the library, and
// the median ratio. Where the library has no exp10, which is no part of C++, its peer
// is pow(10, x).

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "engine/elementary/elementary.h"

static const int kArguments = 4096;
static const int kRepeats   = 2;
static const int kRounds    = 301;

// Where the compiler must believe that the sum is used.
static volatile double s_dSum;

struct cArguments
{
    double m_dX;
    double m_dY;
};

// Numbers are evenly distributed between these two.
struct cSpan
{
    double m_dFrom;
    double m_dTo;
};

#ifdef __GLIBC__
static double LibraryExp10(double dX)
{
    return exp10(dX);
}
#else
static double LibraryExp10(double dX)
{
    return std::pow(10.0, dX);
}
#endif

template <typename cFunction>
static double MillionsPerSecond(const std::vector<cArguments> &Arguments, cFunction Function)
{
    const auto Start = std::chrono::steady_clock::now();
    double     dSum  = 0.0;
    for (int i = 0; i < kRepeats; i++)
        for (const cArguments &Each : Arguments)
            dSum += Function(Each.m_dX, Each.m_dY);
    s_dSum = dSum;
    const double dDuration =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
    return kRepeats * kArguments / dDuration / 1e6;
}

static double Median(std::vector<double> Values)
{
    std::nth_element(Values.begin(), Values.begin() + kRounds / 2, Values.end());
    return Values[kRounds / 2];
}

template <typename cOurs, typename cTheirs>
static void Compare(const char *szName, cSpan X, cSpan Y, cOurs Ours, cTheirs Theirs)
{
    std::mt19937_64                        Random(1);
    std::uniform_real_distribution<double> NumbersX(X.m_dFrom, X.m_dTo);
    std::uniform_real_distribution<double> NumbersY(Y.m_dFrom, Y.m_dTo);
    std::vector<cArguments>                Arguments(kArguments);
    for (cArguments &Each : Arguments)
        Each = {NumbersX(Random), NumbersY(Random)};
    std::vector<double> OurRates, TheirRates, Ratios;
    for (int i = 0; i < kRounds; i++)
    {
        OurRates.push_back(MillionsPerSecond(Arguments, Ours));
        TheirRates.push_back(MillionsPerSecond(Arguments, Theirs));
        Ratios.push_back(OurRates.back() / TheirRates.back());
    }
    printf("%s %.1f %.1f %.2f\n", szName, Median(OurRates), Median(TheirRates), Median(Ratios));
}

#define COMPARE(name, from, to, ours, theirs)                                                      \
    Compare(                                                                                       \
        name, {from, to}, {0.0, 1.0}, [](double x, double) { return ours; },                       \
        [](double x, double) { return theirs; })

#define COMPARE2(name, from, to, from_y, to_y, ours, theirs)                                       \
    Compare(                                                                                       \
        name, {from, to}, {from_y, to_y}, [](double x, double y) { return ours; },                 \
        [](double x, double y) { return theirs; })

int main()
{
    COMPARE("sin", -10.0, 10.0, Sin(x), std::sin(x));
    COMPARE("cos", -10.0, 10.0, Cos(x), std::cos(x));
    COMPARE("tan", -10.0, 10.0, Tan(x), std::tan(x));
    COMPARE("asin", -1.0, 1.0, ArcSin(x), std::asin(x));
    COMPARE("acos", -1.0, 1.0, ArcCos(x), std::acos(x));
    COMPARE("atan", -10.0, 10.0, ArcTan(x), std::atan(x));
    COMPARE2("atan2", -10.0, 10.0, -10.0, 10.0, ArcTan2(x, y), std::atan2(x, y));
    COMPARE("exp", -20.0, 20.0, Exp(x), std::exp(x));
    COMPARE("exp10", -20.0, 20.0, Exp10(x), LibraryExp10(x));
    COMPARE("log", 0.01, 100.0, Ln(x), std::log(x));
    COMPARE("log10", 0.01, 100.0, Log10(x), std::log10(x));
    COMPARE2("pow", 0.01, 100.0, -10.0, 10.0, Pow(x, y), std::pow(x, y));
    COMPARE2("pow-percent", 1.001, 1.1, 1.0, 1000.0, Pow(x, y), std::pow(x, y));
    COMPARE("sin-large", -1e99, 1e99, Sin(x), std::sin(x));
}
