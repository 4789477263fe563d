// figure_drawing.h - draws a figure on any canvas.

#ifndef FIGURE_FIGURE_DRAWING_H
#define FIGURE_FIGURE_DRAWING_H

#include <cstdint>

#include "figure/figure.h"
#include "figure/figure_canvas.h"
#include "figure/figure_layout.h"
#include "figure/point_source.h"

// What the user should know about a figure that has been drawn.
struct cFigureNotes
{
    uint64_t m_nWithoutPlace = 0;  // points that are not above 0, on a logarithmic axis
    cLeftOut m_LeftOut;
};

enum eDrawing
{
    drDone,
    drUnreadable,  // the source could not be read
    drTooLarge,    // there is not enough memory for the picture
    drIncomplete   // a strict figure would lack points; nothing has been drawn
};

// Draws all of the figure, from Begin to End of the canvas. A figure without visible
// points says so.
eDrawing DrawFigure(const cFigure &Figure, cPointSource *pSource, cFigureCanvas *pCanvas,
                    cFigureNotes *pNotes);

#endif
