// points_text.h - the points of a data line as a text that is typed in or
// edited: one point a line.
// No locale, no window.

#ifndef GRAPH_POINTS_TEXT_H
#define GRAPH_POINTS_TEXT_H

#include <cstdint>
#include <memory>

#include "graph/vantor_data_set.h"
#include "toolkit/message_box.h"

const uint32_t kMostEditedPoints = 1000;  // of a set that is shown as a text

struct cEnteredPoints
{
    uint32_t                 m_nPoints = 0;
    std::unique_ptr<float[]> m_pX;  // null for y values alone
    std::unique_ptr<float[]> m_pY;
};

// Reads the lines of szText, which end with "\n" or "\r\n". With bWithX a line
// counts when it begins with two numbers and a comma between them, whatever
// follows: "1.5 , 2"; without, when one number is all that it holds: " 2 ". The
// other lines are skipped, so that there may be no points at all. Returns 0 only
// if memory ran out and the user gave up.
int ReadPoints(const char *szText, int bWithX, cMessageBoxes *pBoxes, cEnteredPoints *pPoints);

// The text of a set's points, six digits each: "1.5 , 2\r\n" with x values,
// "2\r\n" without. Null if memory ran out and the user gave up.
std::unique_ptr<char[]> WritePoints(const cVantorDataSet &Set, cMessageBoxes *pBoxes);

#endif
