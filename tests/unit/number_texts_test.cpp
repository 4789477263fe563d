#include "engine/number_texts.h"

#include <cmath>
#include <limits>
#include <random>

#include "tests/unit/calculator_rig.h"

// Returns the code that was reported.
static unsigned CheckSame(cNumberTexts *pTexts, double dValue, const cNumberFormat &Format)
{
    char           szText[kStackText];
    char           szFormatted[kStackText];
    const unsigned nCode = pTexts->Format(dValue, Format, szText);
    REQUIRE(nCode == FormatNumber(dValue, Format, szFormatted));
    REQUIRE(std::string(szText) == szFormatted);
    return nCode;
}

TEST_CASE("remembered texts are those of the number and the format asked for")
{
    const double        dNan    = std::numeric_limits<double>::quiet_NaN();
    const double        dMost   = 9.9999999999e99;  // reports a code in SCI
    std::vector<double> Numbers = {0.0,   -0.0,  1.0,   -1.0,  dNan,
                                   -dNan, dMost, 1e-99, 0.125, 12345.678};
    for (int i = 0; i < 40; i++)
        Numbers.push_back(i * 1.25);
    std::vector<cNumberFormat> Formats;
    for (const char *const szMode : {"FIX", "SCI", "ENG"})
        for (const unsigned nDigits : {0U, 2U, 9U})
            Formats.push_back(FormatOf(szMode, nDigits));

    int          nReported = 0;
    std::mt19937 Random(3);
    cNumberTexts Texts;
    for (int i = 0; i < 20000; i++)
    {
        const double         dValue = Numbers[Random() % (i % 2 ? 4 : Numbers.size())];
        const cNumberFormat &Format = Formats[Random() % (i % 3 ? 2 : Formats.size())];
        nReported += CheckSame(&Texts, dValue, Format) != 0;
    }
    CHECK(nReported > 100);
}
