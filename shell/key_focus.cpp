#include "shell/key_focus.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "shell/face_geometry.h"

// The keys of a row differ by a pixel in height.
static const int kRowTolerance = 8;

namespace
{

// A distance to a neighbour, the most important part first.
struct cKeyDistance
{
    int m_nRows;     // to its row, in kRowTolerance; 0 in the same row
    int m_nGap;      // pixels between the two, sideways; negative as far as they overlap
    int m_nCentres;  // between their middles, sideways, in half pixels

    // clang-tidy sees a 0 in what the compiler makes of this.
    auto operator<=>(const cKeyDistance &) const = default;  // NOLINT(modernize-use-nullptr)
};

}  // namespace

static const cFaceRect &RectOfCode(unsigned nCode)
{
    const int nIndex = static_cast<int>(nCode) - 1;
    return nIndex < kFaceKeys ? kKeyRects[nIndex] : kSwitchRects[nIndex - kFaceKeys];
}

static int Right(const cFaceRect &Rect)
{
    return Rect.m_nLeft + Rect.m_nWidth;
}

static int Bottom(const cFaceRect &Rect)
{
    return Rect.m_nTop + Rect.m_nHeight;
}

static int TwiceCentre(const cFaceRect &Rect)
{
    return Rect.m_nLeft + Right(Rect);
}

// Free pixels between two keys, one above the other; negative if they overlap.
static int Above(const cFaceRect &Upper, const cFaceRect &Lower)
{
    return Lower.m_nTop - Bottom(Upper);
}

// 0 if To is not in that direction of From.
static int MeasureRow(const cFaceRect &From, const cFaceRect &To, eDirection nDirection,
                      int *pDistance)
{
    const int bSideways = nDirection == drLeft || nDirection == drRight;
    const int nAway     = std::max(Above(From, To), Above(To, From));
    if (bSideways)
    {
        *pDistance = 0;
        return nAway < 0 && (nDirection == drLeft) == (TwiceCentre(To) < TwiceCentre(From));
    }
    *pDistance = nAway / kRowTolerance;
    return nAway >= 0 && (nDirection == drUp) == (To.m_nTop < From.m_nTop);
}

unsigned NeighbourOf(unsigned nCode, eDirection nDirection)
{
    const cFaceRect &From    = RectOfCode(nCode);
    unsigned         nBest   = nCode;
    cKeyDistance     Nearest = {INT_MAX, INT_MAX, INT_MAX};
    for (unsigned nOther = 1; nOther <= kFaceKeys + kFaceSwitches; nOther++)
    {
        const cFaceRect &To       = RectOfCode(nOther);
        cKeyDistance     Distance = {0, 0, 0};
        if (nOther == nCode || !MeasureRow(From, To, nDirection, &Distance.m_nRows))
            continue;
        Distance.m_nGap     = std::max(To.m_nLeft - Right(From), From.m_nLeft - Right(To));
        Distance.m_nCentres = abs(TwiceCentre(To) - TwiceCentre(From));
        if (Distance < Nearest)
        {
            Nearest = Distance;
            nBest   = nOther;
        }
    }
    return nBest;
}
