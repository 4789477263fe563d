#include "toolkit/page_margins.h"

// 1000 thousandths of an inch are 2540 hundredths of a millimetre.

static int ToMetric(int nThousandths)
{
    return nThousandths * 254 / 100;
}

static int ToInch(int nHundredths)
{
    return (nHundredths * 100 + 127) / 254;
}

cPageMargins MetricMargins(const cPageMargins &Thousandths)
{
    return {ToMetric(Thousandths.m_nLeft), ToMetric(Thousandths.m_nTop),
            ToMetric(Thousandths.m_nRight), ToMetric(Thousandths.m_nBottom)};
}

cPageMargins InchMargins(const cPageMargins &HundredthsOfMillimetre)
{
    return {ToInch(HundredthsOfMillimetre.m_nLeft), ToInch(HundredthsOfMillimetre.m_nTop),
            ToInch(HundredthsOfMillimetre.m_nRight), ToInch(HundredthsOfMillimetre.m_nBottom)};
}
