// window_layout.h - how large the calculator's window is and where its child
// windows go. Pixels; portable.

#ifndef SHELL_WINDOW_LAYOUT_H
#define SHELL_WINDOW_LAYOUT_H

#include "shell/face_geometry.h"

const int kListingWidth        = 200;  // at the start
const int kLeastListingWidth   = 110;
const int kRegistersWidth      = 210;  // at the start; the most beside the listing
const int kLeastRegistersWidth = 100;

// What stands in the client area beside the keypad. A bar that is hidden has
// the height 0.
struct cWindowParts
{
    int m_nEdgeX;  // width of a client edge (SM_CXEDGE), and its height
    int m_nEdgeY;
    int m_nToolBarHeight;
    int m_nStatusBarHeight;
    int m_bListing;
    int m_bRegisters;
    int m_nListingWidth;
    int m_nRegistersWidth;
};

struct cLayoutSize
{
    int m_nWidth;
    int m_nHeight;
};

// Where the children go. Boxes that are hidden have the width 0.
struct cWindowLayout
{
    cFaceRect m_Keypad;
    cFaceRect m_Listing;
    cFaceRect m_Registers;
};

// The client area that shows the whole face and the visible boxes. Raises the
// widths of the boxes to their least ones.
cLayoutSize FindClientSize(cWindowParts *pParts);

// Divides a client area. Returns 0 if nothing is left between the bars.
int FindLayout(const cWindowParts &Parts, const cLayoutSize &Client, cWindowLayout *pLayout);

// Rows of the face that a screen of this height hides.
int FaceOffset(int nScreenHeight);

#endif
