#include "toolkit/highlight_scroll.h"

int HighlightScroll(int nLine, int nFirst, int nLast, int nMargin)
{
    if (nLine > nFirst && nLine < nLast - nMargin)
        return 0;
    return nLine - (nFirst + nLast) / 2;
}
