// vantor_data_set.h - a data set of the plot ("data line") and its look.
// A record without a window: the plot keeps it in its list, the renderer and
// the dialogs read it.

#ifndef GRAPH_VANTOR_DATA_SET_H
#define GRAPH_VANTOR_DATA_SET_H

#include <cstdint>
#include <memory>

#include "graph/extent.h"

// Any other value is drawn as gtPlot.
enum eGraphType
{
    gtPlot,
    gtStairStep,
    gtScatter,
    gtStoop
};

const uint32_t kMostLineWidth = 4;  // pixels; the least is 1

const int kDefaultLabel = 24;  // "data line # 4294967295"

// Colours are 0x00BBGGRR, as on the platform: MakeColour(255, 0, 0) is
// 0x0000FF. Each part is 0 to 255.
constexpr uint32_t MakeColour(uint32_t nRed, uint32_t nGreen, uint32_t nBlue)
{
    return nRed | nGreen << 8 | nBlue << 16;
}

const uint32_t kBlack = MakeColour(0, 0, 0);
const uint32_t kWhite = MakeColour(255, 255, 255);

// A line style or a marker shape with its name in the dialogs.
struct cVantorStyle
{
    uint32_t m_nValue;
    char     m_szName[16];
};

const int                 kStyles = 5;
extern const cVantorStyle kLineStyles[kStyles];    // Plot, StairStep, Stoop
extern const cVantorStyle kMarkerStyles[kStyles];  // Scatter

// The look of a data set that is created with all its points.
struct cVantorLineFormat
{
    uint32_t    m_nGraphType = gtPlot;
    uint32_t    m_crColor    = kBlack;
    uint32_t    m_nWidth     = 1;  // see AddDataSet for odd values
    uint32_t    m_nStyle     = 0;
    const char *m_pszLabel   = nullptr;  // null: the default label
};

class cVantorDataSet
{
public:
    // The x of the point with this index (from 0): its index without x values.
    float X(uint32_t nIndex) const;

    // Appends a point and widens the extents to it. The arrays must have room
    // for it. Without x values fX is ignored.
    void Append(float fX, float fY);

    // 1 if the point, once appended, would be outside the present extents.
    int Widens(float fX, float fY) const;

    // Recalculates the extents from all points.
    void FindExtents();

    cVantorDataSet          *m_pNext      = nullptr;  // null at the tail
    uint32_t                 m_nPoints    = 0;
    uint32_t                 m_nCapacity  = 0;  // points that the arrays can hold
    uint32_t                 m_nAllocHint = 0;  // 100 created by a point, 50 by a set
    std::unique_ptr<float[]> m_pX;              // null: x is the index, from 0
    std::unique_ptr<float[]> m_pY;              // as entered
    float                    m_fXMin       = kExtentMinStart;
    float                    m_fXMax       = kExtentMaxStart;
    float                    m_fYMin       = kExtentMinStart;  // of the raw y
    float                    m_fYMax       = kExtentMaxStart;
    float                    m_fMultiplier = 1.0F;  // plotted is
    float                    m_fOffset     = 0.0F;  //   multiplier * y + offset
    uint32_t                 m_nGraphType  = gtPlot;
    uint32_t                 m_crColor     = kBlack;
    uint32_t                 m_nWidth      = 1;  // pixels, 1 to 4
    uint32_t                 m_nStyle      = 0;  // 0 to 4, line style or marker
    std::unique_ptr<char[]>  m_pszLabel;         // never null in a plot
};

// The y at which a stored y is plotted.
inline double PlottedY(const cVantorDataSet &Set, float fY)
{
    return static_cast<double>(Set.m_fMultiplier) * static_cast<double>(fY) +
           static_cast<double>(Set.m_fOffset);
}

// From the second-last x to the last, below 0 where x goes backwards. 1 without
// x values; with them there are at least 2 points.
double LastSpacing(const cVantorDataSet &Set);

// The calculator's doubles as the graph stores them. Halves the memory of large
// sets. Beyond the range of a float: +-3.4028235e38, so 9.999999999e99 becomes
// 3.4028235e38. A NaN stays one.
float NarrowToFloat(double dValue);

// "data line # 3" for line 3. Always returns 1.
int FormatDefaultLabel(uint32_t nLine, char (&szLabel)[kDefaultLabel]);

#endif
