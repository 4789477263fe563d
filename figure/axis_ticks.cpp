#include "figure/axis_ticks.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "graph/plot_range.h"

static const char *const kMinus = "\xE2\x88\x92";
static const char *const kTimes = "\xC3\x97";

// A blank at the beginning of a part of a text, which some viewers leave out.
static const char *const kNoBreakBlank = "\xC2\xA0";

// Values of so many digits before the point, or zeros after it, have a factor: the
// thousands and thousandths of the SI.
static const int kMostExponent  = 5;
static const int kLeastExponent = -3;

// Labels that need more digits show the distance from an offset.
static const int kMostDigits = 6;

// Powers of ten are written out while they are short: 0.001 to 10000.
static const int kMostPlainPower  = 4;
static const int kLeastPlainPower = -3;

static int FloorLog10(double dValue)
{
    return static_cast<int>(std::floor(std::log10(dValue)));
}

static int FloorDivide(int nValue, int nBy)
{
    return nValue / nBy - (nValue % nBy < 0 ? 1 : 0);
}

static std::string WithSign(int64_t nValue)
{
    return (nValue < 0 ? kMinus : "") + std::to_string(std::llabs(nValue));
}

double DecimalValue(int64_t nDigits, int nExponent)
{
    const auto dDigits = static_cast<double>(nDigits);
    if (nExponent < 0)
        return nExponent < -300 ? dDigits / 1e300 / std::pow(10.0, -300 - nExponent)
                                : dDigits / std::pow(10.0, -nExponent);
    return dDigits * std::pow(10.0, nExponent);
}

std::string DecimalText(int64_t nDigits, int nExponent)
{
    std::string Text = std::to_string(std::llabs(nDigits));
    if (nExponent > 0 && nDigits != 0)
        Text.append(static_cast<size_t>(nExponent), '0');
    if (nExponent < 0)
    {
        const auto nDecimals = static_cast<size_t>(-nExponent);
        if (Text.size() <= nDecimals)
            Text.insert(0, nDecimals + 1 - Text.size(), '0');
        Text.insert(Text.size() - nDecimals, ".");
    }
    return (nDigits < 0 ? kMinus : "") + Text;
}

// How many steps of a tick's distance the range is.
static double CountSteps(double dHalf, const cRoundStep &Step)
{
    return dHalf / DecimalValue(Step.m_nDigit, Step.m_nExponent) * 2;
}

cRoundStep ChooseStep(double dHalf, uint32_t nWanted)
{
    static const int s_Digits[] = {1, 2, 5};

    // The whole range may be more than a double holds.
    const double dMost   = std::numeric_limits<double>::max();
    const double dWanted = std::max(nWanted, 2U) - 1.0;
    const int    nPower  = FloorLog10(std::min(dHalf / dWanted, dMost / 2) * 2);
    cRoundStep   Best    = {1, nPower};
    for (int nExponent = nPower; nExponent <= nPower + 1; nExponent++)
        for (const int nDigit : s_Digits)
        {
            const cRoundStep Step = {nDigit, nExponent};
            if (std::fabs(std::log(CountSteps(dHalf, Step) / dWanted)) <
                std::fabs(std::log(CountSteps(dHalf, Best) / dWanted)))
                Best = Step;
        }
    return Best;
}

namespace
{

// The ticks of a linear axis: multiples nFirst to nLast of a round step.
class cLinearTicks
{
public:
    cLinearTicks(double dLeast, double dMost, uint32_t nWanted)
        : m_Step(ChooseStep(dMost / 2 - dLeast / 2, nWanted))
    {
        const double dStep = DecimalValue(m_Step.m_nDigit, m_Step.m_nExponent);
        // What rounding may have moved out of the range is still within it.
        m_nFirst = std::llround(std::ceil(dLeast / dStep - 1e-9));
        m_nLast  = std::llround(std::floor(dMost / dStep + 1e-9));
        FindOffset();
        FindFactor();
    }

    cAxisTicks Ticks() const
    {
        cAxisTicks Ticks;
        for (int64_t n = m_nFirst; n <= m_nLast; n++)
        {
            const int64_t nDigits = n * m_Step.m_nDigit;
            const int64_t nShown  = nDigits - m_nOffset;
            Ticks.m_Ticks.push_back({DecimalValue(nDigits, m_Step.m_nExponent),
                                     {{DecimalText(nShown, m_Step.m_nExponent - m_nFactor)}}});
        }
        Ticks.m_Factor = Factor();
        return Ticks;
    }

private:
    int64_t FirstDigits() const { return m_nFirst * m_Step.m_nDigit; }
    int64_t LastDigits() const { return m_nLast * m_Step.m_nDigit; }

    int64_t MostDigits() const
    {
        return std::max(std::llabs(FirstDigits() - m_nOffset),
                        std::llabs(LastDigits() - m_nOffset));
    }

    // In units of the step's power of ten. Values on both sides of 0 need no offset.
    void FindOffset()
    {
        if (m_nFirst > m_nLast || static_cast<double>(m_nFirst) * static_cast<double>(m_nLast) <= 0)
            return;
        const auto nLength = static_cast<int>(std::to_string(MostDigits()).size());
        if (nLength <= kMostDigits)
            return;
        int64_t nUnit = 10;
        while (nUnit < LastDigits() - FirstDigits())
            nUnit *= 10;
        m_nOffset = (m_nFirst > 0 ? FirstDigits() : LastDigits()) / nUnit * nUnit;
    }

    void FindFactor()
    {
        if (m_nFirst > m_nLast || MostDigits() == 0)
            return;
        const int nPower =
            static_cast<int>(std::to_string(MostDigits()).size()) - 1 + m_Step.m_nExponent;
        if (nPower > kMostExponent || nPower < kLeastExponent)
            m_nFactor = 3 * FloorDivide(nPower, 3);
    }

    cFigureText Factor() const
    {
        cFigureText Text;
        if (m_nFactor != 0)
        {
            Text.push_back({std::string(kTimes) + "10"});
            Text.push_back({WithSign(m_nFactor), 1});
        }
        if (m_nOffset != 0)
            AppendOffset(&Text);
        return Text;
    }

    // "+ 1", "+ 1700000000", "- 1.5x10^20".
    void AppendOffset(cFigureText *pText) const
    {
        int64_t nDigits   = std::llabs(m_nOffset);
        int     nExponent = m_Step.m_nExponent;
        for (; nDigits % 10 == 0; nDigits /= 10)
            nExponent++;
        const auto nLength = static_cast<int>(std::to_string(nDigits).size());

        std::string Sign = m_nOffset < 0 ? kMinus : "+";
        Sign += pText->empty() ? "" : " ";
        if (!pText->empty())
            Sign.insert(0, kNoBreakBlank);
        const int bPlain = nExponent <= 9 && nExponent >= -12 && nExponent + nLength <= 13;
        if (bPlain)
        {
            pText->push_back({Sign + DecimalText(nDigits, nExponent)});
            return;
        }
        pText->push_back({Sign + DecimalText(nDigits, 1 - nLength) + kTimes + "10"});
        pText->push_back({WithSign(nExponent + nLength - 1), 1});
    }

    cRoundStep m_Step;
    int64_t    m_nFirst  = 0;  // multiples of the step
    int64_t    m_nLast   = 0;
    int64_t    m_nOffset = 0;  // in units of the step's power of ten
    int        m_nFactor = 0;  // a power of ten
};

}  // namespace

// 10^nPower times nDigit.
static cFigureText LogLabel(int nDigit, int nPower, int bPlain)
{
    if (bPlain)
        return {{DecimalText(nDigit, nPower)}};
    const std::string Ten = nDigit == 1 ? "10" : std::to_string(nDigit) + kTimes + "10";
    return {{Ten}, {WithSign(nPower), 1}};
}

namespace
{

// The ticks of a logarithmic axis.
class cLogTicks
{
public:
    cLogTicks(double dLeast, double dMost, uint32_t nWanted)
        : m_dLeast(dLeast * (1 - 1e-12)), m_dMost(std::min(dMost * (1 + 1e-12), DBL_MAX)),
          m_nWanted(nWanted), m_nFirst(FloorLog10(dLeast)), m_nLast(FloorLog10(dMost) + 1)
    {
    }

    // How many labels there are with 1 (1), 1, 2 and 5 (3) of each decade.
    uint32_t CountLabels(int nOfDecade) const
    {
        uint32_t nCount = 0;
        for (int nPower = m_nFirst; nPower <= m_nLast; nPower++)
            for (int nDigit = 1; nDigit < 10; nDigit++)
                nCount += IsLabelled(nDigit, nPower, nOfDecade) && IsShown(nDigit, nPower);
        return nCount;
    }

    cAxisTicks Ticks(int nOfDecade) const
    {
        cAxisTicks Ticks;
        const int  nStride = Stride(nOfDecade);
        const int  bPlain  = m_nFirst >= kLeastPlainPower && m_nLast <= kMostPlainPower + 1;
        for (int nPower = m_nFirst; nPower <= m_nLast; nPower++)
            for (int nDigit = 1; nDigit < 10; nDigit++)
            {
                // Decades between labelled ones are the short ticks of a long axis.
                if (!IsShown(nDigit, nPower) || (nDigit > 1 && nStride > 1))
                    continue;
                const int bLabel = IsLabelled(nDigit, nPower, nOfDecade) && nPower % nStride == 0;
                Ticks.m_Ticks.push_back(
                    {DecimalValue(nDigit, nPower),
                     bLabel ? LogLabel(nDigit, nPower, bPlain) : cFigureText()});
            }
        return Ticks;
    }

private:
    static int IsLabelled(int nDigit, int, int nOfDecade)
    {
        return nDigit == 1 || (nOfDecade == 3 && (nDigit == 2 || nDigit == 5));
    }

    int IsShown(int nDigit, int nPower) const
    {
        const double dValue = DecimalValue(nDigit, nPower);
        return dValue >= m_dLeast && dValue <= m_dMost;
    }

    // Every decade is labelled, every second, ...; two of them in any case.
    int Stride(int nOfDecade) const
    {
        const uint32_t nLabels = CountLabels(nOfDecade);
        if (nOfDecade == 3 || nLabels < 2)
            return 1;
        return static_cast<int>(std::min((nLabels + m_nWanted - 1) / m_nWanted, nLabels / 2));
    }

    double   m_dLeast;
    double   m_dMost;
    uint32_t m_nWanted;
    int      m_nFirst;
    int      m_nLast;
};

}  // namespace

// Two ticks at least: a single one would not show a scale.
static cAxisTicks FindLinearTicks(double dLeast, double dMost, uint32_t nWanted)
{
    cAxisTicks Ticks = cLinearTicks(dLeast, dMost, nWanted).Ticks();
    for (uint32_t nMore = nWanted + 1; Ticks.m_Ticks.size() < 2 && nMore < kMostTicks; nMore++)
        Ticks = cLinearTicks(dLeast, dMost, nMore).Ticks();
    return Ticks;
}

static cAxisTicks FindLogTicks(double dLeast, double dMost, uint32_t nWanted)
{
    const cLogTicks Ticks(dLeast, dMost, std::max(nWanted, 2U));
    if (Ticks.CountLabels(1) >= 3 || (Ticks.CountLabels(1) == 2 && dMost / dLeast >= 50.0))
        return Ticks.Ticks(1);
    if (Ticks.CountLabels(3) >= 3)
        return Ticks.Ticks(3);
    return FindLinearTicks(dLeast, dMost, nWanted);
}

cAxisTicks FindTicks(const cAxisRange &Range, uint32_t nWanted)
{
    const double dLeast = std::min(Range.m_dFrom, Range.m_dTo);
    const double dMost  = std::max(Range.m_dFrom, Range.m_dTo);
    if (Range.m_bLog)
        return FindLogTicks(dLeast, dMost, nWanted);
    return FindLinearTicks(dLeast, dMost, nWanted);
}
