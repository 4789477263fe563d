// face_geometry.h - where keys, slide switches and display are on the painted
// face, in pixels from its upper left corner. The odd pixels follow the
// painting. Portable.

#ifndef SHELL_FACE_GEOMETRY_H
#define SHELL_FACE_GEOMETRY_H

struct cFaceRect
{
    int m_nLeft;
    int m_nTop;
    int m_nWidth;
    int m_nHeight;
};

const int kFaceWidth  = 306;
const int kFaceHeight = 567;

// On screens lower than kFullFaceScreen the upper rows of the face are not
// shown, and everything on it stands higher by as much.
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

extern const cFaceRect kDisplayRect;

// Image of a slide switch for a thumb nPosition pixels from the left end, 0 to
// nTravel: with 14 frames and a travel of 12 pixels, frame 0 to 12.
int ThumbFrame(int nPosition, int nTravel, int nFrames);

#endif
