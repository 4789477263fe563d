#include "listing/number_warnings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "engine/decimal.h"
#include "engine/range.h"
#include "listing/findings.h"
#include "listing/source_lines.h"

// Any decimal number with so many digits survives as a double.
static const size_t kExactDigits = 15;

// The digits of the mantissa without zeros at its start: "1230" for "-0.1230e5".
static std::string SignificantDigits(std::string_view Number)
{
    std::string Digits;
    for (const char c : Number.substr(0, Number.find_first_of("eE")))
        if (c >= '0' && c <= '9' && (c != '0' || !Digits.empty()))
            Digits.push_back(c);
    return Digits;
}

// The value with nDigits digits: "1.5e+00" for 2.
static std::string Scientific(double dValue, size_t nDigits)
{
    char szText[40];
    return {szText, std::to_chars(szText, szText + sizeof szText, dValue,
                                  std::chars_format::scientific, static_cast<int>(nDigits) - 1)
                        .ptr};
}

static std::string Shortest(double dValue)
{
    char szText[40];
    return {szText, std::to_chars(szText, szText + sizeof szText, dValue).ptr};
}

static void FindValue(const cSourceLine &Line, std::string_view Word, cFindings *pFindings)
{
    double dValue;
    ParseDecimal(Line.m_Parsed.m_szText, &dValue);
    const std::string Digits = SignificantDigits(Word);
    if (Digits.empty())
        return;
    const double dHeld = Clamp(dValue);
    if (dHeld != dValue || dValue == 0.0)
        pFindings->Warn(wnNumberRange, Line, Word, {std::string(Word), Shortest(dHeld)});
    else if (Digits.size() > kExactDigits &&
             SignificantDigits(Scientific(dValue, Digits.size())) != Digits)
        pFindings->Warn(wnNumberDigits, Line, Word,
                        {std::string(Word) + " has more digits than are kept; its value is " +
                         Scientific(dValue, Digits.size())});
}

// A word made of the characters of numbers: "1e", "." and "12345678901234567890".
static int LooksLikeNumber(std::string_view Word)
{
    return Word.find_first_not_of("0123456789.+-eE") == std::string_view::npos &&
           Word.find_first_of("0123456789.") < 2;
}

static void FindRejected(const cSourceLine &Line, std::string_view Word, cFindings *pFindings)
{
    const size_t nLength = DecimalLength(std::string(Word).c_str());
    if (Word.size() > kLongestWord && nLength == Word.size())
        pFindings->Warn(wnNumberDigits, Line, Word,
                        {"a number has at most " + std::to_string(kLongestWord) +
                         " characters; this one has " + std::to_string(Word.size())});
    else if (nLength > 0 && nLength < Word.size() && (Word[nLength] == 'e' || Word[nLength] == 'E'))
        pFindings->Warn(wnNumberDigits, Line, Word, {"the exponent has no digits"});
    else if (Word.find_first_of("0123456789") == std::string_view::npos)
        pFindings->Warn(wnNumberDigits, Line, Word, {"a number has at least one digit"});
}

void FindNumberWarnings(const cSourceLine &Line, cFindings *pFindings)
{
    const std::string_view Word = WordsOf(Line.m_Text).m_Words[0];
    if (Line.m_Parsed.m_nKind == llNumber)
        FindValue(Line, Word, pFindings);
    else if (Line.m_Parsed.m_nKind == llBadMnemonic && LooksLikeNumber(Word))
        FindRejected(Line, Word, pFindings);
}
