// retry_arrays.h - the arrays and texts of the data sets. Each function asks the
// user when memory runs out, and returns null once the user has given up.

#ifndef GRAPH_RETRY_ARRAYS_H
#define GRAPH_RETRY_ARRAYS_H

#include <cstdint>
#include <memory>

#include "toolkit/message_box.h"

// nCount uninitialised floats; nCount may be 0.
std::unique_ptr<float[]> AllocateFloats(cMessageBoxes *pBoxes, uint32_t nCount);

// An array of nCapacity floats, the first nCount of them copied from pValues.
// nCapacity is at least nCount.
std::unique_ptr<float[]> CopyFloats(cMessageBoxes *pBoxes, const float *pValues, uint32_t nCount,
                                    uint32_t nCapacity);

std::unique_ptr<char[]> CopyText(cMessageBoxes *pBoxes, const char *szText);

#endif
