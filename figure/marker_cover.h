// marker_cover.h - which pixels the markers of a data line cover together, so that
// one that would only be drawn over others is left out.

#ifndef FIGURE_MARKER_COVER_H
#define FIGURE_MARKER_COVER_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "figure/figure_canvas.h"

class cMarkerCover
{
public:
    // Of markers of this look whose points are in the frame.
    cMarkerCover(const cFigureBox &Frame, const cMarkerLook &Look);

    // 0 if each pixel that the marker at Spot touches is covered completely by a single
    // marker that was added: then it would change nothing, not even at the soft edges
    // of others. Else it is added. Spot is in the frame. The memory is limited to 8 MB:
    // on very large paper, squares of several pixels take their place.
    int Add(const cSpot &Spot);

private:
    // Pixels of a row, relative to that of the point; m_nAfter is not included.
    struct cSpan
    {
        int m_nFirst;
        int m_nAfter;
    };

    // The row m_nTop and those below it, also relative.
    struct cStamp
    {
        int                m_nTop = 0;
        std::vector<cSpan> m_Touched;
        std::vector<cSpan> m_Covered;
    };

    // Parts of a pixel within which markers share a stamp.
    static const int kParts = 4;

    cStamp MakeStamp(const cMarkerLook &Look, double dX, double dY) const;
    int    Has(size_t nRow, size_t nFirst, size_t nAfter) const;
    void   Cover(size_t nRow, size_t nFirst, size_t nAfter);

    double                m_dSide;  // of a square, in pixels: 1, 2, ...
    double                m_dLeft;  // of the first square
    double                m_dTop;
    size_t                m_nRowWords;
    std::vector<cStamp>   m_Stamps;
    std::vector<uint64_t> m_Words;  // row by row, a bit for each square
};

#endif
