// face_geometry.h - positions of keys, slide switches, lamps and display on the painted
// face, in pixels from its top left corner, for a screen with 96 dots per inch. The
// irregular positions follow the picture. Portable.

#ifndef SHELL_FACE_GEOMETRY_H
#define SHELL_FACE_GEOMETRY_H

#include "toolkit/scale.h"

struct cFaceRect
{
    int m_nLeft;
    int m_nTop;
    int m_nWidth;
    int m_nHeight;
};

// The rectangle on a screen of that scale. Its edges are scaled, so rectangles that
// touch still do; keys of the same width may differ by a pixel.
cFaceRect ScaledRect(const cFaceRect &Rect, const cScale &Scale);

const int kFaceWidth  = 306;
const int kFaceHeight = 567;

// On a screen lower than kFullFaceScreen the face loses its top kLowFaceOffset
// rows, and everything on it moves up by as many.
const int kLowFaceOffset  = 35;
const int kFullFaceScreen = 768;
const int kLowestScreen   = 600;

const int              kFaceKeys = 30;
extern const cFaceRect kKeyRects[kFaceKeys];  // in the order of their codes, 1 to 30

const int              kFaceSwitches = 2;
extern const cFaceRect kSwitchRects[kFaceSwitches];
extern const int       kSwitchStarts[kFaceSwitches];  // 0 left, 12 right
const int              kThumbWidth   = 24;
const int              kSwitchFrames = 14;

// The lamps, in the order of eLamp, below the display.
const int              kFaceLamps = 4;
extern const cFaceRect kLampRects[kFaceLamps];

// The display, which is repainted when any part of it is uncovered.
extern const cFaceRect kDisplayRect;

// The part of the display that is blanked before its layout changes. It is smaller
// on purpose: the end of a long text outside it stays visible.
extern const cFaceRect kBlankedRect;

// The frame of a slide switch whose thumb is nPosition pixels from the left end, 0
// to nTravel: with 14 frames and a travel of 12 pixels, frame 0 to 12.
int ThumbFrame(int nPosition, int nTravel, int nFrames);

#endif
