// graph_export.h - writes the plot with its legend to a picture file, BMP or GIF,
// in a size that the user chooses.

#ifndef GRAPH_WIN32_GRAPH_EXPORT_H
#define GRAPH_WIN32_GRAPH_EXPORT_H

#include "toolkit/win32/win32.h"

#include <cstdint>

class cVantorBox;

enum eImageKind
{
    ikBmp,
    ikGif
};

// The user's last choice, proposed for the next picture.
struct cImageChoice
{
    int      m_nWidth  = 640;  // pixels, at most 1600
    int      m_nHeight = 480;
    uint32_t m_nBits   = 24;  // per pixel of a BMP: 1, 4, 8, 16 or 24
};

// Asks for size and file name and writes the picture. szGraphFile is the name of
// the data file, "" for none; the same name with another extension is proposed.
// Failures are shown in a message box. 1 if the picture was written.
int ExportGraph(cVantorBox *pBox, eImageKind nKind, const char *szGraphFile);

// Bits per pixel from which a GIF is reduced to 256 colours.
const uint32_t kGifBits = 24;

// Asks for the size and, for a BMP, the depth. 0, with *pChoice unchanged, if the
// user cancelled.
int AskImageSize(cVantorBox *pBox, eImageKind nKind, cImageChoice *pChoice);

#endif
