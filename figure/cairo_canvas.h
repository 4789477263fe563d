// cairo_canvas.h - a figure as a PNG or PDF file, drawn by cairo. A build without
// cairo has none.

#ifndef FIGURE_CAIRO_CANVAS_H
#define FIGURE_CAIRO_CANVAS_H

#include <cstdio>
#include <memory>

#include "figure/figure_canvas.h"
#include "figure/picture_format.h"

int HasCairo();

// As MakeCanvas, for pfPng and pfPdf. A pixel of a PDF file is 1/96 inch.
std::unique_ptr<cFigureCanvas> MakeCairoCanvas(ePictureFormat nFormat, FILE *pFile, int nWidth,
                                               int nHeight, double dScale);

#endif
