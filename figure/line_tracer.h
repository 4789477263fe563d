// line_tracer.h - the vertices that are worth drawing of a line through any number
// of points: what is far outside the frame is cut off, and points in the same
// quarter of a pixel's column become at most four vertices.

#ifndef FIGURE_LINE_TRACER_H
#define FIGURE_LINE_TRACER_H

#include "figure/figure_canvas.h"

// Parts of a pixel within which points are not told apart.
const double kColumnsPerPixel = 4.0;

class cVertexSink
{
public:
    virtual ~cVertexSink() {}

    // bMove: the vertex begins a part of the line, else it is joined to the last one.
    virtual void Vertex(const cSpot &Spot, int bMove) = 0;
};

// Of consecutive points in the same column the first, the last and those at the
// top and the bottom stay, in their order. A part of one point becomes two equal
// vertices, a dot.
class cColumnMerger
{
public:
    explicit cColumnMerger(cVertexSink *pSink) : m_pSink(pSink) {}

    void Take(const cSpot &Spot);
    void EndPart();

private:
    struct cPlace
    {
        cSpot    m_Spot;
        unsigned m_nTime;  // the how manieth of the column, from 0
    };

    void Emit(const cSpot &Spot);
    void EndColumn();

    cVertexSink *m_pSink;
    int          m_bPart    = 0;  // a part has begun
    unsigned     m_nEmitted = 0;  // of the part; 2 also stands for more
    double       m_dColumn  = 0.0;
    unsigned     m_nTaken   = 0;  // in the column
    cPlace       m_First    = {};
    cPlace       m_Last     = {};
    cPlace       m_Top      = {};
    cPlace       m_Bottom   = {};
    cSpot        m_Emitted  = {};
};

// Cuts a line at a box. Its parts within it go to the merger.
class cLineClipper
{
public:
    // Coordinates that are NaN are gaps.
    cLineClipper(const cFigureBox &Box, cVertexSink *pSink) : m_Box(Box), m_Merger(pSink) {}

    void LineTo(const cSpot &Spot);
    void Gap();  // also at the line's end

private:
    int IsInside(const cSpot &Spot) const;

    cFigureBox    m_Box;
    cColumnMerger m_Merger;
    int           m_bPart   = 0;  // there is a former point
    int           m_bInside = 0;  // and it has gone to the merger
    cSpot         m_Former  = {};
};

#endif
