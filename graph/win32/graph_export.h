// graph_export.h - the plot as a picture file: its size is asked for, it is
// drawn into a bitmap with its legend, and written as BMP or GIF.

#ifndef GRAPH_GRAPH_EXPORT_H
#define GRAPH_GRAPH_EXPORT_H

#include "toolkit/win32/win32.h"

#include <cstdint>

class cVantorBox;

enum eImageKind
{
    ikBmp,
    ikGif
};

// The last picture's size is proposed for the next one.
struct cImageChoice
{
    int      m_nWidth  = 640;  // pixels, at most 1600
    int      m_nHeight = 480;
    uint32_t m_nBits   = 24;  // per pixel of a BMP: 1, 4, 8, 16 or 24
};

// szGraphFile is the name of the data file, "" for none; the picture is
// proposed under the same name with another extension. What goes wrong is said
// in a box. Returns 1 once the picture is written.
int ExportGraph(cVantorBox *pBox, eImageKind nKind, const char *szGraphFile);

// The depth that a GIF is reduced from.
const uint32_t kGifBits = 24;

// Asks for size and depth. 0, and *pChoice stays, if the user cancelled. For a
// GIF the depth cannot be chosen.
int AskImageSize(cVantorBox *pBox, eImageKind nKind, cImageChoice *pChoice);

#endif
