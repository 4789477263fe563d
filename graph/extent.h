// extent.h - the least and the greatest of some values, found one by one.

#ifndef GRAPH_EXTENT_H
#define GRAPH_EXTENT_H

// Without a value yet: any value widens it.
const float kExtentMinStart = 3.4028235e38F;
const float kExtentMaxStart = -3.4028235e38F;

inline void WidenExtent(float fValue, float *pMin, float *pMax)
{
    if (fValue < *pMin)
        *pMin = fValue;
    if (fValue > *pMax)
        *pMax = fValue;
}

#endif
