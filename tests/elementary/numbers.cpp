// numbers.cpp - compares the elementary functions with MPFR: elementary-numbers
// COUNT [FUNCTION...]. Prints a line per function: arguments, the largest error in
// units of the last place, and how many results are not the nearest double. To
// its arguments come some whose result is close to the middle between two doubles.
// Returns 1 if any result is not the nearest.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include <mpfr.h>

#include "engine/elementary/double_bits.h"
#include "tests/elementary/tested_functions.h"

static const uint64_t kSeed = 20;

namespace
{

// The values of MPFR, and of the processor's extended precision as a quick hint.
struct cReference
{
    const char *m_szName;
    int (*m_pOne)(mpfr_t, const mpfr_t, mpfr_rnd_t);
    int (*m_pTwo)(mpfr_t, const mpfr_t, const mpfr_t, mpfr_rnd_t);
    long double (*m_pHint)(const cArguments &Arguments);
};

struct cScore
{
    size_t     m_nResults   = 0;
    size_t     m_nOthers    = 0;  // than the nearest
    double     m_dMostError = 0.0;
    cArguments m_Worst      = {0.0, 0.0};
    cArguments m_Wrong      = {0.0, 0.0};
};

class cExact
{
public:
    explicit cExact(mpfr_prec_t nBits)
    {
        mpfr_init2(m_Result, nBits);
        mpfr_init2(m_X, nBits);
        mpfr_init2(m_Y, nBits);
    }
    ~cExact()
    {
        mpfr_clear(m_Result);
        mpfr_clear(m_X);
        mpfr_clear(m_Y);
    }
    cExact(const cExact &)            = delete;
    cExact &operator=(const cExact &) = delete;

    void Compute(const cReference &Reference, const cArguments &Arguments)
    {
        mpfr_set_d(m_X, Arguments.m_dX, MPFR_RNDN);
        mpfr_set_d(m_Y, Arguments.m_dY, MPFR_RNDN);
        if (Reference.m_pOne)
            Reference.m_pOne(m_Result, m_X, MPFR_RNDN);
        else
            Reference.m_pTwo(m_Result, m_X, m_Y, MPFR_RNDN);
    }

    double Nearest() const { return mpfr_get_d(m_Result, MPFR_RNDN); }

    // Whether the bits after those of a double leave no doubt about its rounding.
    int IsCertain()
    {
        mpfr_set(m_X, m_Result, MPFR_RNDN);
        mpfr_set(m_Y, m_Result, MPFR_RNDN);
        mpfr_nextabove(m_X);
        mpfr_nextbelow(m_Y);
        return mpfr_get_d(m_X, MPFR_RNDN) == mpfr_get_d(m_Y, MPFR_RNDN);
    }

    // In units of the last place of the nearest double.
    double ErrorOf(double dResult)
    {
        const double dNearest = Nearest();
        const int    nField   = ExponentField(dNearest);
        mpfr_sub_d(m_X, m_Result, dResult, MPFR_RNDN);
        mpfr_mul_2si(m_X, m_X, 1075 - (nField ? nField : 1), MPFR_RNDN);
        return std::fabs(mpfr_get_d(m_X, MPFR_RNDN));
    }

private:
    mpfr_t m_Result;
    mpfr_t m_X;
    mpfr_t m_Y;
};

}  // namespace

static const cReference kReferences[] = {
    {"sin", mpfr_sin, nullptr, [](const cArguments &A) { return std::sin(A.m_dX + 0.0L); }},
    {"cos", mpfr_cos, nullptr, [](const cArguments &A) { return std::cos(A.m_dX + 0.0L); }},
    {"tan", mpfr_tan, nullptr, [](const cArguments &A) { return std::tan(A.m_dX + 0.0L); }},
    {"asin", mpfr_asin, nullptr, [](const cArguments &A) { return std::asin(A.m_dX + 0.0L); }},
    {"acos", mpfr_acos, nullptr, [](const cArguments &A) { return std::acos(A.m_dX + 0.0L); }},
    {"atan", mpfr_atan, nullptr, [](const cArguments &A) { return std::atan(A.m_dX + 0.0L); }},
    {"atan2", nullptr, mpfr_atan2,
     [](const cArguments &A) { return std::atan2(A.m_dX + 0.0L, A.m_dY + 0.0L); }},
    {"exp", mpfr_exp, nullptr, [](const cArguments &A) { return std::exp(A.m_dX + 0.0L); }},
    {"exp10", mpfr_exp10, nullptr,
     [](const cArguments &A) { return std::pow(10.0L, A.m_dX + 0.0L); }},
    {"log", mpfr_log, nullptr, [](const cArguments &A) { return std::log(A.m_dX + 0.0L); }},
    {"log10", mpfr_log10, nullptr, [](const cArguments &A) { return std::log10(A.m_dX + 0.0L); }},
    {"pow", nullptr, mpfr_pow,
     [](const cArguments &A) { return std::pow(A.m_dX + 0.0L, A.m_dY + 0.0L); }},
};

static const cReference *FindReference(const char *szName)
{
    for (const cReference &Reference : kReferences)
        if (strcmp(Reference.m_szName, szName) == 0)
            return &Reference;
    return nullptr;
}

static int IsSame(double dA, double dB)
{
    return (std::isnan(dA) && std::isnan(dB)) || BitsOf(dA) == BitsOf(dB);
}

static void Count(const cReference &Reference, const cArguments &Arguments, double dResult,
                  cScore *pScore)
{
    static cExact s_Exact(96);
    static cExact s_MoreExact(320);
    static cExact s_MostExact(2400);  // a tiny arc is below its tangent by 2^-2100 of it
    cExact       *pExact = &s_Exact;
    pExact->Compute(Reference, Arguments);
    for (cExact *pNext : {&s_MoreExact, &s_MostExact})
        if (!pExact->IsCertain())
        {
            pExact = pNext;
            pExact->Compute(Reference, Arguments);
        }
    pScore->m_nResults++;
    if (!IsSame(dResult, pExact->Nearest()) && pScore->m_nOthers++ == 0)
        pScore->m_Wrong = Arguments;
    if (!std::isfinite(dResult) || !std::isfinite(pExact->Nearest()))
        return;
    const double dError = pExact->ErrorOf(dResult);
    if (dError > pScore->m_dMostError)
    {
        pScore->m_dMostError = dError;
        pScore->m_Worst      = Arguments;
    }
}

// Whether the 11 bits that extended precision has more are about half a unit.
static int IsNearMiddle(long double dHint)
{
    const auto dNearest = static_cast<double>(dHint);
    if (std::numeric_limits<long double>::digits != 64 || !std::isnormal(dNearest))
        return 0;
    const double dUnit = FromBits(BitsOf(dNearest) & ~kSignificand) * 0x1p-52;
    const auto   dRest = static_cast<double>(dHint - static_cast<long double>(dNearest));
    return std::fabs(std::fabs(dRest) / dUnit - 0.5) < 0x1p-10;
}

static cScore Compare(const cTestedFunction &Function, const cReference &Reference, size_t nCount)
{
    cScore       Score;
    const size_t kBlock = 100000;
    for (size_t nDone = 0; nDone < nCount; nDone += kBlock)
        for (const cArguments &Arguments :
             ArgumentsFor(Function, std::min(kBlock, nCount - nDone), kSeed + nDone))
            Count(Reference, Arguments, Function.m_pCall(Arguments), &Score);
    for (const cArguments &Arguments : ArgumentsFor(Function, 4 * kBlock, kSeed - 1))
        if (IsNearMiddle(Reference.m_pHint(Arguments)))
            Count(Reference, Arguments, Function.m_pCall(Arguments), &Score);
    return Score;
}

// Returns 0 if a result is not the nearest double.
static int Report(const cTestedFunction &Function, size_t nCount)
{
    const cScore Score = Compare(Function, *FindReference(Function.m_szName), nCount);
    printf("%-6s %9zu arguments, error at most %.9f ulp at (%a, %a), not the nearest double: %zu\n",
           Function.m_szName, Score.m_nResults, Score.m_dMostError, Score.m_Worst.m_dX,
           Score.m_Worst.m_dY, Score.m_nOthers);
    if (Score.m_nOthers)
        printf("       the first of them at (%a, %a)\n", Score.m_Wrong.m_dX, Score.m_Wrong.m_dY);
    fflush(stdout);
    return Score.m_nOthers == 0;
}

static int IsWanted(const char *szName, int nNames, char **ppNames)
{
    int bWanted = nNames == 0;
    for (int i = 0; i < nNames; i++)
        bWanted |= strcmp(ppNames[i], szName) == 0;
    return bWanted;
}

int main(int nArguments, char **ppArguments)
{
    size_t nCount = 0;
    if (nArguments > 1)
        std::from_chars(ppArguments[1], ppArguments[1] + strlen(ppArguments[1]), nCount);
    int bAllNearest = 1;
    int nCompared   = 0;
    for (const cTestedFunction &Function : TestedFunctions())
        if (nCount && IsWanted(Function.m_szName, nArguments - 2, ppArguments + 2))
        {
            bAllNearest &= Report(Function, nCount);
            nCompared++;
        }
    if (nCompared == 0)
        fprintf(stderr, "usage: elementary-numbers COUNT [FUNCTION...]\n");
    return nCompared == 0 || !bAllNearest;
}
