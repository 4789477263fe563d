// no_cairo_canvas.cpp - for a build without cairo.

#include "figure/cairo_canvas.h"

int HasCairo()
{
    return 0;
}

std::unique_ptr<cFigureCanvas> MakeCairoCanvas(ePictureFormat, FILE *, int, int, double)
{
    return nullptr;
}
