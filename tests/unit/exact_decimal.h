// exact_decimal.h - the exact decimal digits of a double, by long
// multiplication, and their rounding. Numbers and texts of the calculator are
// checked with it instead of with a library that might err in the same way.

#ifndef TESTS_UNIT_EXACT_DECIMAL_H
#define TESTS_UNIT_EXACT_DECIMAL_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

// 0.DIGITS x 10^m_nPoint, without zeros at either end; "" for 0.
struct cExactDecimal
{
    std::string m_Digits;
    int         m_nPoint;
};

// nMantissa x 2^nExponent.
inline cExactDecimal ExactDecimal(uint64_t nMantissa, int nExponent)
{
    const uint32_t        kBase = 1000000000;
    std::vector<uint32_t> Limbs;  // lowest first
    for (; nMantissa; nMantissa /= kBase)
        Limbs.push_back(static_cast<uint32_t>(nMantissa % kBase));

    // m x 2^-n is m x 5^n with the point moved n places.
    const uint64_t nFactor = nExponent < 0 ? 5 : 2;
    for (int nLeft = std::abs(nExponent); nLeft > 0; nLeft -= 12)
    {
        uint64_t nTimes = 1;
        for (int i = 0; i < std::min(nLeft, 12); i++)
            nTimes *= nFactor;
        uint64_t nCarry = 0;
        for (uint32_t &nLimb : Limbs)
        {
            nCarry += nLimb * nTimes;
            nLimb = static_cast<uint32_t>(nCarry % kBase);
            nCarry /= kBase;
        }
        if (nCarry)
            Limbs.push_back(static_cast<uint32_t>(nCarry));
    }

    std::string Digits;
    for (auto pLimb = Limbs.rbegin(); pLimb != Limbs.rend(); ++pLimb)
    {
        const std::string Limb = std::to_string(*pLimb);
        Digits += std::string(9 - Limb.size(), '0') + Limb;
    }
    Digits.erase(0, Digits.find_first_not_of('0'));
    const int nPoint = static_cast<int>(Digits.size()) + std::min(nExponent, 0);
    Digits.erase(Digits.find_last_not_of('0') + 1);
    return {Digits, nPoint};
}

// |dValue|, which is finite.
inline cExactDecimal ExactDecimal(double dValue)
{
    int          nExponent;
    const double dMantissa = std::frexp(std::fabs(dValue), &nExponent);
    return ExactDecimal(static_cast<uint64_t>(std::ldexp(dMantissa, 53)), nExponent - 53);
}

// The first nDigits digits, filled up with zeros, ties to even. A carry out of
// them makes one digit more.
inline cExactDecimal Rounded(cExactDecimal Decimal, int nDigits)
{
    if (nDigits < 0)
        return {"", 0};
    const size_t      nKeep  = static_cast<size_t>(nDigits);
    std::string      &Digits = Decimal.m_Digits;
    const std::string Rest   = Digits.substr(std::min(nKeep, Digits.size()));
    Digits.resize(nKeep, '0');
    const int bOdd = nKeep > 0 && (Digits.back() - '0') % 2 == 1;
    if (Rest < "5" || (Rest == "5" && !bOdd))
        return Decimal;
    size_t nDigit = nKeep;
    while (nDigit > 0 && Digits[nDigit - 1] == '9')
        Digits[--nDigit] = '0';
    if (nDigit > 0)
        Digits[nDigit - 1]++;
    else
    {
        Digits.insert(0, 1, '1');
        Decimal.m_nPoint++;
    }
    return Decimal;
}

#endif
