#include "toolkit/win32/win32.h"

#include "toolkit/win32/page_setup.h"

#include <doctest/doctest.h>

namespace
{

// Changes the user's unit of measurement until the end of the scope.
class cMeasure
{
public:
    explicit cMeasure(const char *szMeasure)
    {
        GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, m_szFormer, sizeof m_szFormer);
        REQUIRE(SetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, szMeasure));
    }
    ~cMeasure() { SetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, m_szFormer); }
    cMeasure(const cMeasure &)            = delete;
    cMeasure &operator=(const cMeasure &) = delete;

private:
    char m_szFormer[4] = "";
};

}  // namespace

TEST_CASE("the user's locale determines the unit of measurement")
{
    {
        const cMeasure Metric("0");
        CHECK(IsMetricLocale() == 1);
    }
    const cMeasure Inches("1");
    CHECK(IsMetricLocale() == 0);
}
