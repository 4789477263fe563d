#include "shell/face_geometry.h"

static const int kKeyHeight = 31;

// clang-format off
const cFaceRect kKeyRects[kFaceKeys] =
{
    {  39, 152, 35, kKeyHeight }, {  87, 152, 35, kKeyHeight }, { 135, 152, 35, kKeyHeight },
    { 182, 152, 35, kKeyHeight }, { 231, 152, 35, kKeyHeight },

    {  39, 206, 35, kKeyHeight }, {  87, 206, 35, kKeyHeight }, { 135, 205, 35, kKeyHeight },
    { 183, 205, 35, kKeyHeight }, { 231, 205, 35, kKeyHeight },

    {  39, 259, 83, kKeyHeight }, { 135, 259, 35, kKeyHeight }, { 183, 259, 35, kKeyHeight },
    { 231, 259, 35, kKeyHeight },

    {  39, 313, 35, kKeyHeight }, {  98, 313, 40, kKeyHeight }, { 162, 313, 40, kKeyHeight },
    { 225, 313, 40, kKeyHeight },

    {  39, 367, 35, kKeyHeight }, {  98, 367, 40, kKeyHeight }, { 162, 366, 40, kKeyHeight },
    { 225, 366, 40, kKeyHeight },

    {  40, 420, 35, kKeyHeight }, {  98, 420, 40, kKeyHeight }, { 162, 420, 40, kKeyHeight },
    { 225, 420, 40, kKeyHeight },

    {  41, 474, 35, kKeyHeight }, {  99, 473, 40, kKeyHeight }, { 162, 473, 40, kKeyHeight },
    { 225, 473, 40, kKeyHeight },
};

const cFaceRect kSwitchRects[kFaceSwitches] = { { 78, 106, 36, 14 }, { 190, 106, 36, 14 } };
const int       kSwitchStarts[kFaceSwitches] = { 0, 12 };

const cFaceRect kLampRects[kFaceLamps] =
{
    { 44, 95, 15, 9 }, { 70, 95, 15, 9 }, { 164, 95, 15, 9 }, { 234, 95, 15, 9 },
};

constexpr cFaceRect kDisplayRect = { 44, 40, 260, 92 };
// clang-format on

// Its right and bottom edges are at the display's width and height.
constexpr cFaceRect kBlankedRect = {kDisplayRect.m_nLeft, kDisplayRect.m_nTop,
                                    kDisplayRect.m_nWidth - kDisplayRect.m_nLeft,
                                    kDisplayRect.m_nHeight - kDisplayRect.m_nTop};

cFaceRect ScaledRect(const cFaceRect &Rect, const cScale &Scale)
{
    const int nLeft = Scale.Length(Rect.m_nLeft);
    const int nTop  = Scale.Length(Rect.m_nTop);
    return {nLeft, nTop, Scale.Length(Rect.m_nLeft + Rect.m_nWidth) - nLeft,
            Scale.Length(Rect.m_nTop + Rect.m_nHeight) - nTop};
}

int ThumbFrame(int nPosition, int nTravel, int nFrames)
{
    return static_cast<int>(nPosition / ((nTravel + 1.0) / nFrames));
}
