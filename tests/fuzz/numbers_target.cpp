// numbers_target.cpp - reads the input as the text of a number and compares with the
// C library; takes its first 8 bytes as a number, prints it and reads it back.

#include <algorithm>
#include <bit>
#include <cctype>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "console/json.h"
#include "engine/decimal.h"
#include "engine/number_format.h"
#include "graph/float_scan.h"
#include "tests/fuzz/fuzz_calculator.h"
#include "tests/fuzz/fuzz_target.h"

static int SameBits(double dA, double dB)
{
    return std::bit_cast<uint64_t>(dA) == std::bit_cast<uint64_t>(dB);
}

// What the C library reads beyond a decimal number: blanks before it, "inf", "nan"
// and hexadecimal digits.
static int IsForLibraryOnly(const char *szText)
{
    const char *const szFirst = szText + strspn(szText, "+-");
    return isspace(static_cast<unsigned char>(*szText)) || strchr("iInN", *szFirst) ||
           szFirst[1] == 'x' || szFirst[1] == 'X';
}

static void CheckParsing(const std::string &Text)
{
    const char *const szText  = Text.c_str();
    const size_t      nLength = DecimalLength(szText);
    const std::string Number  = Text.substr(0, nLength);
    double            dParsed;
    const int         bAll = ParseDecimal(szText, &dParsed);

    FUZZ_CHECK(bAll == (nLength > 0 && szText[nLength] == 0));
    FUZZ_CHECK(SameBits(dParsed, strtod(Number.c_str(), nullptr)));
    if (IsForLibraryOnly(szText))
        return;
    char *pEnd;
    strtod(szText, &pEnd);
    FUZZ_CHECK(pEnd == szText + nLength);
}

// Of a float, what is beyond the range is the largest one.
static void CheckScanning(const std::string &Text)
{
    const char *const szText  = Text.c_str();
    const char *const szFirst = szText + strspn(szText, " \t\n\v\f\r");
    const size_t      nLength = DecimalLength(szFirst);
    float             fRead   = -77.0F;
    const char *const pEnd    = ReadFloat(szText, &fRead);

    FUZZ_CHECK(pEnd == SkipFloat(szText));
    FUZZ_CHECK(pEnd == (nLength > 0 ? szFirst + nLength : nullptr));
    float fExpected = nLength > 0 ? strtof(std::string(szFirst, nLength).c_str(), nullptr) : -77.0F;
    if (std::isinf(fExpected))
        fExpected = std::copysign(FLT_MAX, fExpected);
    FUZZ_CHECK(SameBits(static_cast<double>(fRead), static_cast<double>(fExpected)));
}

static void CheckPrinting(double dValue)
{
    for (unsigned nDigits = 0; nDigits <= 9; nDigits++)
        for (const char cConversion : {'f', 'e'})
        {
            char szFormat[12];
            char szText[400];
            char szExpected[400];
            BuildFormat(nDigits, cConversion, szFormat);
            PrintNumber(szFormat, dValue, szText, sizeof szText);
            snprintf(szExpected, sizeof szExpected, cConversion == 'f' ? "%+.*f" : "%+.*e",
                     static_cast<int>(nDigits), dValue);
            FUZZ_CHECK_TEXT(szText, szExpected);
        }
}

// What the calculator shows; its numbers have exponents of two digits.
static void CheckDisplayed(double dValue, unsigned nMode, unsigned nDigits)
{
    cFuzzCalculator          Calculator;
    static const char *const s_Modes[] = {"FIX", "SCI", "ENG"};
    Calculator.m_Calculator.m_Engine.Perform(s_Modes[nMode], nDigits);
    char szText[kStackText];
    FUZZ_CHECK(FormatNumber(dValue, Calculator.State(), szText) == 0);
    FUZZ_CHECK(memchr(szText, 0, sizeof szText) != nullptr);
    const double dShown = strtod(szText, nullptr);
    const double dError = std::fabs(dShown - dValue);
    FUZZ_CHECK(std::signbit(dShown) == std::signbit(dValue));
    FUZZ_CHECK(dError <= 0.5001 * std::max(1.0, std::fabs(dValue)));
    if (nMode == kModeSci)
        FUZZ_CHECK(dError <=
                   0.5001 * std::pow(10.0, -static_cast<int>(nDigits)) * std::fabs(dValue));
}

static void CheckJson(double dValue)
{
    std::string Wide;
    std::string Narrow;
    AppendJsonNumber(&Wide, dValue);
    FUZZ_CHECK(SameBits(strtod(Wide.c_str(), nullptr), dValue));
    const float fValue = std::fabs(dValue) < FLT_MAX ? static_cast<float>(dValue) : 0.0F;
    AppendJsonNumber(&Narrow, fValue);
    FUZZ_CHECK(strtof(Narrow.c_str(), nullptr) == fValue);
}

// While a number is being keyed, X is what its text says.
static void CheckEntry(std::string_view Keys)
{
    cFuzzCalculator Calculator;
    for (const char cKey : Keys.substr(0, 40))
    {
        if (cKey == '-')
            Calculator.m_Calculator.m_Engine.Perform("CHS", 0);
        else if (strchr("0123456789.e", cKey))
            Calculator.m_Calculator.m_Engine.EnterCharacter(cKey);
        const cVorstekState &State = Calculator.State();
        if (State.m_szEntry[0])
            FUZZ_CHECK(SameBits(State.m_dX, strtod(State.m_szX, nullptr)));
    }
    Calculator.CheckState();
}

void FuzzNumbers(std::string_view Input)
{
    const std::string Text(Input.substr(0, Input.find('\0')));
    CheckParsing(Text);
    CheckScanning(Text);
    CheckEntry(Text);
    double dValue;
    if (Input.size() < sizeof dValue + 1)
        return;
    memcpy(&dValue, Input.data(), sizeof dValue);
    if (!std::isfinite(dValue))
        return;
    CheckPrinting(dValue);
    CheckJson(dValue);
    const double dAbs = std::fabs(dValue);
    if (dAbs == 0.0 || (dAbs >= 1e-99 && dAbs <= 9.999999999e99))
        CheckDisplayed(dValue, ByteAt(Input, sizeof dValue) % 3,
                       ByteAt(Input, sizeof dValue) / 3 % 10);
}
