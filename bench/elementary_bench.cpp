// elementary_bench.cpp - calls per second of the elementary functions, in turn with
// those of the C library, on random arguments of moderate size. Prints a line per
// function: its name, millions of calls a second of ours and of the library, and
// the median ratio.

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

template <typename cFunction>
static double MillionsPerSecond(const std::vector<double> &Arguments, cFunction Function)
{
    const auto Start = std::chrono::steady_clock::now();
    double     dSum  = 0.0;
    for (int i = 0; i < kRepeats; i++)
        for (const double dX : Arguments)
            dSum += Function(dX);
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
static void Compare(const char *szName, double dFrom, double dTo, cOurs Ours, cTheirs Theirs)
{
    std::mt19937_64                        Random(1);
    std::uniform_real_distribution<double> Numbers(dFrom, dTo);
    std::vector<double>                    Arguments(kArguments);
    for (double &dX : Arguments)
        dX = Numbers(Random);
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
        name, from, to, [](double x) { return ours; }, [](double x) { return theirs; })

int main()
{
    COMPARE("sin", -10.0, 10.0, Sin(x), std::sin(x));
    COMPARE("cos", -10.0, 10.0, Cos(x), std::cos(x));
    COMPARE("tan", -10.0, 10.0, Tan(x), std::tan(x));
    COMPARE("asin", -1.0, 1.0, ArcSin(x), std::asin(x));
    COMPARE("acos", -1.0, 1.0, ArcCos(x), std::acos(x));
    COMPARE("atan", -10.0, 10.0, ArcTan(x), std::atan(x));
    COMPARE("atan2", -10.0, 10.0, ArcTan2(x, 3.3), std::atan2(x, 3.3));
    COMPARE("exp", -20.0, 20.0, Exp(x), std::exp(x));
    COMPARE("exp10", -20.0, 20.0, Exp10(x), std::pow(10.0, x));
    COMPARE("log", 0.01, 100.0, Ln(x), std::log(x));
    COMPARE("log10", 0.01, 100.0, Log10(x), std::log10(x));
    COMPARE("pow", 0.01, 100.0, Pow(x, 2.7), std::pow(x, 2.7));
    COMPARE("pow-percent", 1.001, 1.1, Pow(x, 1000.0), std::pow(x, 1000.0));
    COMPARE("sin-large", -1e99, 1e99, Sin(x), std::sin(x));
}
