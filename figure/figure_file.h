// figure_file.h - a figure as a file.

#ifndef FIGURE_FIGURE_FILE_H
#define FIGURE_FIGURE_FILE_H

#include <string>

#include "figure/figure.h"
#include "figure/figure_drawing.h"
#include "figure/picture_format.h"
#include "figure/point_source.h"

// In place of a file's name: standard output.
const char *const kPictureToOutput = "-";

struct cPictureFile
{
    std::string    m_Name;
    ePictureFormat m_nFormat;  // one that this build can draw
    double         m_dScale;   // of the figure's pixels
};

enum eSaving
{
    svDone,
    svUnreadable,  // the source could not be read
    svTooLarge,    // there is not enough memory for the picture
    svIncomplete,  // a strict figure would lack points
    svUnwritable   // the file could not be written
};

// Unless svDone is returned, what was there before is unchanged; of a figure that
// goes to standard output a part may have been written.
eSaving SaveFigure(const cFigure &Figure, cPointSource *pSource, const cPictureFile &File,
                   cFigureNotes *pNotes);

// The same of a plot, as a window shows it. SourceName is a figure's m_Name.
eSaving SaveWindowFigure(const cVantorPlot &Plot, int nWidth, int nHeight, const cPictureFile &File,
                         const std::string &SourceName = "");

#endif
