// window_layout.h - the size of the calculator's window and the positions of its
// child windows, in pixels of its screen. Portable.

#ifndef SHELL_WINDOW_LAYOUT_H
#define SHELL_WINDOW_LAYOUT_H

#include "shell/face_geometry.h"

// In pixels of a screen with 96 dots per inch.
const int kListingWidth        = 200;  // initially
const int kLeastListingWidth   = 110;
const int kRegistersWidth      = 210;  // initially; the maximum beside the listing
const int kLeastRegistersWidth = 100;

// What the client area contains besides the keypad. A hidden bar has the height
// 0.
struct cWindowParts
{
    int    m_nEdgeX;  // width of a client edge (SM_CXEDGE), and its height
    int    m_nEdgeY;
    int    m_nToolBarHeight;
    int    m_nStatusBarHeight;
    int    m_bListing;
    int    m_bRegisters;
    int    m_nListingWidth;
    int    m_nRegistersWidth;
    cScale m_Scale = cScale();
};

struct cLayoutSize
{
    int m_nWidth;
    int m_nHeight;
};

// Positions of the child windows. A hidden box has the width 0.
struct cWindowLayout
{
    cFaceRect m_Keypad;
    cFaceRect m_Listing;
    cFaceRect m_Registers;
};

// The client area that shows the complete face and the visible boxes. Raises the
// widths of the boxes to their minimum.
cLayoutSize FindClientSize(cWindowParts *pParts);

// Divides a client area. 0 if nothing is left between the bars.
int FindLayout(const cWindowParts &Parts, const cLayoutSize &Client, cWindowLayout *pLayout);

// Number of rows of the face that are hidden on a screen of this height.
int FaceOffset(int nScreenHeight, const cScale &Scale = cScale());

// The scale at which all keys fit on a screen. nDpi is the screen's; nRoom the height
// that it leaves for the client area; nUsualRoom the height that the client area
// needs at 96 dots per inch. At least 96 dots per inch, at most nDpi or 96.
cScale FittingScale(int nDpi, int nRoom, int nUsualRoom);

#endif
