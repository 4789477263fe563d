// page_margins.h - the margins of a printed page and their two units: they are
// stored in thousandths of an inch, and displayed in hundredths of a millimetre
// where measures are metric.

#ifndef TOOLKIT_PAGE_MARGINS_H
#define TOOLKIT_PAGE_MARGINS_H

struct cPageMargins
{
    int m_nLeft;
    int m_nTop;
    int m_nRight;
    int m_nBottom;
};

const int kDefaultMargin = 1000;  // thousandths of an inch

// Hundredths of a millimetre, truncated: 1000 becomes 2540, 333 becomes 845.
cPageMargins MetricMargins(const cPageMargins &Thousandths);

// Back to thousandths of an inch, rounded, so that margins that were displayed
// but not edited keep their value: 845 becomes 333.
cPageMargins InchMargins(const cPageMargins &HundredthsOfMillimetre);

#endif
