// vantor_plot.h - what the graph shows: the data sets in their order, the
// settings of the plot and the range of its axes. Needs no window; one that
// shows the plot derives from it and overrides its hooks.

#ifndef GRAPH_VANTOR_PLOT_H
#define GRAPH_VANTOR_PLOT_H

#include <cstdint>
#include <memory>

#include "graph/plot_range.h"
#include "graph/vantor_data_set.h"
#include "toolkit/message_box.h"

// Title and axis label hold up to 100 characters. An empty text means that there is none.
const int kPlotText = 101;

// The default values are those of the calculator's graph.
struct cVantorPlotSettings
{
    char     m_szTitle[kPlotText]     = "My Graph";
    char     m_szHorzLabel[kPlotText] = "x axis";
    uint32_t m_nHorzTicks             = 6;
    uint32_t m_nVertTicks             = 6;
    float    m_fMinHorzTick           = 0.0F;
    float    m_fMaxHorzTick           = 10.0F;
    float    m_fMinVertTick           = 0.0F;
    float    m_fMaxVertTick           = 5.0F;
    uint32_t m_bHorzGrid              = 0;
    uint32_t m_bVertGrid              = 0;
    uint32_t m_crAxis                 = kBlack;
    uint32_t m_crText                 = kBlack;
    uint32_t m_crBackground           = kWhite;
    uint32_t m_bLegend                = 1;
};

// A set that grows point by point begins with room for 100 points and doubles
// it whenever it is full, until the room is 12800 or more.
const uint32_t kFirstCapacity = 100;
const uint32_t kMostGrowth    = 12800;

const uint32_t kHintByPoint = 100;  // m_nAllocHint of a set begun by AddPoint
const uint32_t kHintWhole   = 50;   // and of one made by AddDataSet

const uint32_t kLegendRows = 4;  // visible until the user drags the border

// Default size of a plot, in pixels.
const int kPlotWidth  = 640;
const int kPlotHeight = 480;

class cVantorPlot
{
public:
    // An empty plot with the default settings in automatic range. pBoxes asks
    // the user when memory runs out; it outlives the plot.
    explicit cVantorPlot(cMessageBoxes *pBoxes);
    virtual ~cVantorPlot();
    cVantorPlot(const cVantorPlot &)            = delete;
    cVantorPlot &operator=(const cVantorPlot &) = delete;

    // Data lines are numbered from 1 in list order.
    uint32_t Count() const { return m_nCount; }

    // Line nLine, or null when there is none. Going through the lines upwards,
    // or asking for the same one again, does not search the list.
    const cVantorDataSet *DataSet(uint32_t nLine) const;

    // Appends the point to line nLine, 1 to Count() + 1; the last of these
    // begins a new set with x values and the label "data line # N". Infinities
    // become +-3.4028235e38; a set without x values ignores fX. Returns 0 and
    // changes nothing for another line, for a NaN, and when the set is full and
    // may not grow: one begun here holds 12800 points.
    int AddPoint(uint32_t nLine, float fX, float fY);

    // Appends a set with copies of nPoints finite values; pX may be null.
    // Without a format it is a black solid line of width 1. A width of 0 becomes
    // 1, above 4 it becomes 4; a style above 4 becomes 0. Returns 0 for no points.
    int AddDataSet(uint32_t nPoints, const float *pX, const float *pY,
                   const cVantorLineFormat *pFormat);

    // Returns 0 when there is no such line. The lines after it move up by one and
    // keep their labels.
    int DeleteDataSet(uint32_t nLine);

    // Gives line nLine other points; its look stays. Without pX it loses its x
    // values. Returns 0 and changes nothing for no points or no such line.
    int ReplaceDataSetPoints(uint32_t nLine, uint32_t nPoints, const float *pX, const float *pY);

    // Gives line nLine another look. Odd values become what AddDataSet makes of
    // them; without a label it keeps its own. Returns 0 and changes nothing when
    // there is no such line.
    int FormatDataSet(uint32_t nLine, const cVantorLineFormat &Format, float fMultiplier,
                      float fOffset);

    // Leaves no data, no title and no axis label, and 4 legend rows. A range
    // that the user has fixed stays. Returns 1.
    int ClearAll();

    // Tick counts and range are those in use, automatic or not.
    const cVantorPlotSettings &Settings() const { return m_Settings; }
    cPlotRange                 Range() const;

    // Stores the settings and fixes the range to theirs. More than 26 ticks
    // become 26.
    void ApplySettings(const cVantorPlotSettings &Settings);

    // From now on the range follows the data.
    void AutoRange();

    // The size in pixels on which the automatic range bases its tick counts, at
    // the next change of the data.
    void SetClientSize(int nWidth, int nHeight);

    void SetGrid(int bHorz, int bVert);
    void SetLegend(int bLegend);  // as SetClientSize for the tick counts

    // Of a longer text the first 100 characters are kept.
    void SetTitle(const char *szTitle);
    void SetHorzLabel(const char *szLabel);

    // 1 while the range is the user's, 0 while it follows the data.
    int UserRange() const { return m_bUserRange; }

    // How many rows of the legend the window shows at most.
    uint32_t LegendRows() const { return m_nLegendRows; }
    void     SetLegendRows(uint32_t nRows);

    // Asks the user when memory runs out.
    cMessageBoxes *Boxes() const { return m_pBoxes; }

protected:
    // Hooks: a window's reaction to a change that has just been made. These do
    // nothing. None is called from constructor or destructor.

    // Something visible has changed: lay out and repaint everything.
    virtual void OnPlotChanged() {}

    // A picture of the plot lacks only the last point of line nLine, which
    // DrawAddedPoint draws at once: neither extents nor range have changed.
    virtual void OnPointAdded(uint32_t /*nLine*/) {}

    // The labels of the data sets, for the lists of a window. A set is removed
    // right after OnLabelRemoved, and those after it move up.
    virtual void OnLabelAdded(uint32_t /*nLine*/) {}
    virtual void OnLabelChanged(uint32_t /*nLine*/) {}
    virtual void OnLabelRemoved(uint32_t /*nLine*/) {}

    // Check marks: UserRange() gives "Auto Range", Settings() "Grid" and
    // "Legend".
    virtual void OnChecksChanged() {}

private:
    cVantorDataSet *FindDataSet(uint32_t nLine) const;
    int             BeginDataSet(float fX, float fY);
    void            AppendPoint(cVantorDataSet *pSet, uint32_t nLine, float fX, float fY);
    int             MakeRoom(cVantorDataSet *pSet);
    std::unique_ptr<cVantorDataSet> NewDataSet(const char *pszLabel);
    int  StorePoints(cVantorDataSet *pSet, uint32_t nPoints, const float *pX, const float *pY);
    void Link(std::unique_ptr<cVantorDataSet> pSet);
    void DeleteAll();
    void FollowData();

    cMessageBoxes      *m_pBoxes;
    cVantorPlotSettings m_Settings;
    cRangeFinder        m_RangeFinder;
    int                 m_bUserRange;
    int                 m_bRangeStale;  // not for the present size and legend
    int                 m_nClientWidth;
    int                 m_nClientHeight;
    uint32_t            m_nLegendRows;
    uint32_t            m_nCount;
    cVantorDataSet     *m_pHead;  // the list owns its sets
    cVantorDataSet     *m_pTail;

    // The set found last and its number: where the next search may begin.
    mutable cVantorDataSet *m_pFound;
    mutable uint32_t        m_nFound;  // 0: none
};

#endif
