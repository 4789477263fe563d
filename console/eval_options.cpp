#include "console/eval_options.h"

#include "console/input_text.h"

// An instruction of the display's format with its digits.
static int TakeFormat(cEvalOptions *pOptions, const char *szMnemonic, const std::string &Digits)
{
    pOptions->m_Setup.push_back(std::string(szMnemonic) + " " + Digits);
    return Digits.size() == 1 && Digits[0] >= '0' && Digits[0] <= '9';
}

static int TakeFix(cEvalOptions *pOptions, const std::string &Digits)
{
    return TakeFormat(pOptions, "FIX", Digits);
}

static int TakeSci(cEvalOptions *pOptions, const std::string &Digits)
{
    return TakeFormat(pOptions, "SCI", Digits);
}

static int TakeEng(cEvalOptions *pOptions, const std::string &Digits)
{
    return TakeFormat(pOptions, "ENG", Digits);
}

static int TakeDeg(cEvalOptions *pOptions, const std::string &)
{
    pOptions->m_Setup.emplace_back("DEG");
    return 1;
}

static int TakeRad(cEvalOptions *pOptions, const std::string &)
{
    pOptions->m_Setup.emplace_back("RAD");
    return 1;
}

static int TakeGrd(cEvalOptions *pOptions, const std::string &)
{
    pOptions->m_Setup.emplace_back("GRD");
    return 1;
}

// clang-format off
static const cOptionRow s_EvalRows[] =
{
    { "--stack", nullptr, nullptr, SetFlag<cEvalOptions, &cEvalOptions::m_bStack>,
      "print T, Z, Y and X" },
    { "--json", nullptr, nullptr, SetFlag<cEvalOptions, &cEvalOptions::m_bJson>,
      "print stack, LASTx, angle and format as a JSON object" },
    { "--fix", "N", "a number of digits from 0 to 9", Take<cEvalOptions, TakeFix>,
      "N digits after the point; 2 unless a format is given" },
    { "--sci", "N", "a number of digits from 0 to 9", Take<cEvalOptions, TakeSci>,
      "one digit before the point, N after it, and an exponent" },
    { "--eng", "N", "a number of digits from 0 to 9", Take<cEvalOptions, TakeEng>,
      "the same with an exponent that is a multiple of 3" },
    { "--deg", nullptr, nullptr, Take<cEvalOptions, TakeDeg>,
      "angles are in degrees, as they are from the start" },
    { "--rad", nullptr, nullptr, Take<cEvalOptions, TakeRad>,
      "angles are in radians" },
    { "--grd", nullptr, nullptr, Take<cEvalOptions, TakeGrd>,
      "angles are in grads, 400 in a circle" },
};
// clang-format on

std::span<const cOptionRow> EvalOptionRows()
{
    return s_EvalRows;
}

int ParseEvalOptions(const std::vector<std::string> &Arguments, cEvalOptions *pOptions,
                     std::string *pError)
{
    std::vector<std::string> Words;
    if (!ReadOptions(s_EvalRows, Arguments, pOptions, &Words, pError))
        return 0;
    pOptions->m_bInput = Words.empty() || (Words.size() == 1 && Words[0] == kStandardInput);
    for (const std::string &Word : Words)
        (pOptions->m_Line += pOptions->m_Line.empty() ? "" : " ") += Word;
    return 1;
}
