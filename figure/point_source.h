// point_source.h - where the points of a figure come from: a plot in memory, or a
// text file that is never in memory as a whole. A figure reads them twice, first
// for the range of its axes and then to draw them.

#ifndef FIGURE_POINT_SOURCE_H
#define FIGURE_POINT_SOURCE_H

#include <cstddef>
#include <string>

class cPointSink
{
public:
    virtual ~cPointSink() {}

    // A point of data line nLine, from 0. The points of a line come in the order in
    // which they are joined; those of several lines may alternate. A NaN or an
    // infinity, in dX or dY, is a gap: the points on both sides are not joined.
    virtual void Take(size_t nLine, double dX, double dY) = 0;
};

class cPointSource
{
public:
    virtual ~cPointSource() {}

    // Hands out all points, from the first one at each call, and the same ones at
    // each call. Returns 0 when reading failed; the source knows why.
    virtual int Read(cPointSink *pSink) = 0;

    // All below are known after the first Read. Texts are of any bytes; an empty
    // one means that there is none.
    virtual size_t      Lines() const                 = 0;  // also those without points
    virtual std::string LineLabel(size_t nLine) const = 0;
    virtual std::string Title() const                 = 0;
    virtual std::string XLabel() const                = 0;
};

#endif
