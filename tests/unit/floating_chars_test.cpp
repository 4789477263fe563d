#include "toolkit/floating_chars.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <doctest/doctest.h>

template <class cFloating> static void CheckAgainstLibrary(const std::string &Text)
{
    const char *const pEnd     = Text.data() + Text.size();
    cFloating         Expected = -7;
    cFloating         Value    = -7;
    const auto        Library  = std::from_chars(Text.data(), pEnd, Expected);
    const auto        Read     = FromCharsInC(Text.data(), pEnd, Value);
    CAPTURE(Text);
    CHECK(Read.ec == Library.ec);
    CHECK(Read.ptr == Library.ptr);
    CHECK(Value == Expected);
}

static void CheckBoth(const std::string &Text)
{
    CheckAgainstLibrary<double>(Text);
    CheckAgainstLibrary<float>(Text);
}

TEST_CASE("the C library reads numbers to the last bit as from_chars does")
{
    for (const char *const szText :
         {"0", "0.000e99", "5", "12.5", ".5", "7.", "1e5", "1e+05", "2.5E-3", "1e22",
          "9007199254740993", "9.999999999e99", "3.4028235e38", "3.4028236e38", "1e400", "1e-400",
          "4.9e-324", "1e-45",
          "1797693134862315708145274237317043567980705675258449965989174768031572607800285387605895"
          "58"
          "6327668781715404589535143824642343213268894641827684675467035375169860499105765512820762"
          "45"
          "490090389328944075868508455133942304583236903222948165808559332123347747"
          "9782620414472316873817718091929988125040402618412485836"})
        CheckBoth(szText);
}

TEST_CASE("the C library reads the number before other characters, and none where there is none")
{
    for (const char *const szText : {"12,5", "3 4", "5x", "1e", "1e+", "x", ""})
        CheckBoth(szText);
}

TEST_CASE("the C library reads random numbers as from_chars does")
{
    std::mt19937_64 Random(17);
    char            szText[40];
    for (int i = 0; i < 3000; i++)
    {
        const double dValue = std::fabs(std::bit_cast<double>(Random()));
        if (!std::isfinite(dValue))
            continue;
        const auto nDigits = static_cast<int>(Random() % 20);
        const auto Written = std::to_chars(szText, szText + sizeof szText, dValue,
                                           std::chars_format::scientific, nDigits);
        CheckBoth(std::string(szText, Written.ptr));
    }
}
