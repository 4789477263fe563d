#include "figure/marker_shape.h"

// Of about the same area, so that no data line weighs more than another. The
// triangle's centre of gravity is the point.
// clang-format off
static const cSpot kTriangle[] = { { -0.54, 0.31 }, { 0.0, -0.62 }, { 0.54, 0.31 } };
static const cSpot kSquare[]   = { { -0.44, -0.44 }, { 0.44, -0.44 }, { 0.44, 0.44 }, { -0.44, 0.44 } };
static const cSpot kDiamond[]  = { { -0.6, 0.0 }, { 0.0, -0.6 }, { 0.6, 0.0 }, { 0.0, 0.6 } };
static const cSpot kUpright[]  = { { -0.2, -0.7 }, { 0.2, -0.7 }, { 0.2, 0.7 }, { -0.2, 0.7 } };
static const cSpot kLevel[]    = { { -0.7, -0.2 }, { 0.7, -0.2 }, { 0.7, 0.2 }, { -0.7, 0.2 } };
// clang-format on

std::span<const cSpot> CornersOfMarker(uint32_t nShape)
{
    static const std::span<const cSpot> s_Shapes[kFigureMarkers] = {kTriangle, kSquare, kDiamond,
                                                                    kUpright,  kLevel,  {}};
    return nShape < kFigureMarkers ? s_Shapes[nShape] : std::span<const cSpot>();
}
