#include "figure/figure_layout.h"

#include <algorithm>
#include <cmath>

#include "figure/figure_legend.h"
#include "figure/fitted_text.h"

// Pixels.
static const double kEdge      = 10.0;  // around everything
static const double kThinEdge  = 1.0;   // around a frame without texts
static const double kGap       = 5.0;
static const double kTickSize  = 12.0;
static const double kLabelSize = 13.0;
static const double kTitleSize = 15.0;

// From a tick's label to the edge of the figure.
static const double kLeastEdge = 2.0;

// In parts of a text's size: a line's height, the height of its capitals, and what
// is below its base line.
static const double kLineHeight = 1.3;
static const double kCapitals   = 0.72;
static const double kBelow      = 0.22;

// Between labels of ticks: beside each other in pixels, above each other in parts of
// their size.
static const double kBesideLabel = 10.0;
static const double kAboveLabel  = 1.3;

// Ticks have about this distance.
static const double kXTickDistance  = 90.0;
static const double kYTickDistance  = 56.0;
static const double kLeastTickCount = 4.0;  // unless their labels would overlap
static const double kMostTickCount  = 10.0;

// Parts of an axis's range by which it is longer than its data.
static const double kXMargin = 0.025;
static const double kYMargin = 0.05;

// The frame of a figure that has texts.
static const double kLeastFrameWidth  = 80.0;
static const double kLeastFrameHeight = 50.0;

static const size_t kMostLegendRows = 2;     // above the frame; more are beside it
static const double kLegendPart     = 0.4;   // of the figure's width or height, at most
static const double kLegendMargin   = 20.0;  // between frame and legend, if that is beside it

static const double kFactorGap = 7.0;  // between frame and factor

static cTextStyle StyleOf(double dSize, int bBold = 0)
{
    return {dSize, bBold, kInk.m_crLight};
}

// Bars that all go upwards begin at the frame.
static cAxisRange RangeOfY(const cFigure &Figure, const cFigureExtents &Extents)
{
    cRangeWish Wish  = Figure.m_Y.m_Range;
    int        bBars = 0;
    for (size_t nLine = 0; nLine < Extents.m_Lines.size(); nLine++)
        bBars |= LookOfLine(Figure, nLine).m_nType == gtStoop;
    if (bBars && !Wish.m_bLog && !Wish.m_dFrom && Extents.m_Y.m_dMin == 0.0 &&
        Extents.m_Y.m_dMax > 0.0)
        Wish.m_dFrom = 0.0;
    return ChooseRange(Wish, Extents.m_Y, kYMargin);
}

namespace
{

enum eLegendPlace
{
    lpNone,
    lpSuited,  // above the frame, or beside it if it has many rows
    lpAbove
};

// What the texts may take of the figure.
struct cArrangement
{
    size_t       m_nTitleLines;
    size_t       m_nLabelLines;  // of each axis
    eLegendPlace m_nLegend;
    int          m_bNumbers;  // ticks with their labels
};

// What ticks and their labels take, in pixels.
struct cTickNeeds
{
    int IsWithin(const cTickNeeds &Room) const
    {
        return m_bXFactorLine <= Room.m_bXFactorLine && m_dXFactor <= Room.m_dXFactor &&
               m_dYFactor <= Room.m_dYFactor && m_dYLabels <= Room.m_dYLabels &&
               m_dBefore <= Room.m_dBefore && m_dBehind <= Room.m_dBehind;
    }
    void Widen(const cTickNeeds &Other)
    {
        m_bXFactorLine = std::max(m_bXFactorLine, Other.m_bXFactorLine);
        m_dXFactor     = std::max(m_dXFactor, Other.m_dXFactor);
        m_dYFactor     = std::max(m_dYFactor, Other.m_dYFactor);
        m_dYLabels     = std::max(m_dYLabels, Other.m_dYLabels);
        m_dBefore      = std::max(m_dBefore, Other.m_dBefore);
        m_dBehind      = std::max(m_dBehind, Other.m_dBehind);
    }

    int    m_bXFactorLine = 0;    // the factor is below the ticks' labels
    double m_dXFactor     = 0.0;  // widths; 0: there is none
    double m_dYFactor     = 0.0;
    double m_dYLabels     = 0.0;  // the widest of the vertical axis
    double m_dBefore      = 0.0;  // of the labels below the frame, to its left
    double m_dBehind      = 0.0;  // and to its right
};

class cFigureLayouter
{
public:
    cFigureLayouter(const cFigure &Figure, const cFigureTexts &Texts, const cFigureExtents &Extents,
                    const cFigureCanvas &Canvas, const cArrangement &Arranged);

    // 0 if there is too little room.
    int LayOut(cFigureLayout *pLayout);

private:
    void       WrapTexts();
    int        IsLegendWanted() const;
    int        FindMargins();
    int        HasRoom() const;
    void       FindTicksOf(cFigureLayout *pLayout);
    int        NeedsFactorLine(const cFigureText &Factor) const;
    cTickNeeds NeedsOf(const cFigureLayout &Layout) const;
    int        Place(cFigureLayout *pLayout) const;
    void       ListLeftOut(cFigureLayout *pLayout) const;
    void       PlaceTitle(cFigureLayout *pLayout) const;
    void       PlaceLabels(cFigureLayout *pLayout) const;
    void       PlaceTickLabels(cFigureLayout *pLayout) const;
    void       PlaceFactors(cFigureLayout *pLayout) const;

    cAxisTicks FitTicks(const cAxisRange &Range, uint32_t nWanted, const cAxisScale &Scale,
                        double dPixels, int bVertical) const;
    int        DoLabelsFit(const cAxisTicks &Ticks, const cAxisScale &Scale, int bVertical) const;
    void       ThinOut(const cAxisScale &Scale, int bVertical, cAxisTicks *pTicks) const;

    double WidthOf(const cFigureText &Text, double dSize) const
    {
        return m_Canvas.TextWidth(Text, StyleOf(dSize));
    }
    double WidestLabel(const cAxisTicks &Ticks) const;
    double LegendTop() const;
    double XLabelTop() const;
    double Centered(double dMiddle, double dWidth) const;

    const cFigure           &m_Figure;
    const cFigureTexts      &m_Texts;
    const cFigureCanvas     &m_Canvas;
    const cArrangement      &m_Arranged;
    cAxisRange               m_XRange;
    cAxisRange               m_YRange;
    int                      m_bNumbers;  // the axes have any
    cFigureLegend            m_Legend;
    int                      m_bLegend;
    int                      m_bBeside;  // the legend is to the right of the frame
    cTickNeeds               m_Needs;
    std::vector<std::string> m_TitleLines;
    std::vector<std::string> m_XLines;
    std::vector<std::string> m_YLines;
    cFigureBox               m_Frame = {};
};

cFigureLayouter::cFigureLayouter(const cFigure &Figure, const cFigureTexts &Texts,
                                 const cFigureExtents &Extents, const cFigureCanvas &Canvas,
                                 const cArrangement &Arranged)
    : m_Figure(Figure), m_Texts(Texts), m_Canvas(Canvas), m_Arranged(Arranged),
      m_XRange(ChooseRange(Figure.m_X.m_Range, Extents.m_X, kXMargin)),
      m_YRange(RangeOfY(Figure, Extents)), m_bNumbers(Arranged.m_bNumbers),
      m_Legend(Canvas, Texts.m_LineLabels),
      m_bLegend(Arranged.m_nLegend != lpNone && IsLegendWanted()), m_bBeside(0)
{
    const cRangeWish &X = Figure.m_X.m_Range;
    const cRangeWish &Y = Figure.m_Y.m_Range;
    if (Extents.m_X.IsEmpty() && !(X.m_dFrom && X.m_dTo) && !(Y.m_dFrom && Y.m_dTo))
        m_bNumbers = 0;  // 0 to 1 would be invented
    WrapTexts();
    const double dLeast = m_Figure.m_nWidth - 6 * kEdge;  // of a frame with short numbers
    if (m_bLegend && m_Arranged.m_nLegend == lpSuited)
        m_bBeside = !m_Legend.ArrangeRows(dLeast, kMostLegendRows) || m_Legend.IsCut();
}

// A label of the vertical axis is between the title and the other axis's label, which
// may begin to the left of the frame.
void cFigureLayouter::WrapTexts()
{
    const double dWidth = m_Figure.m_nWidth - 2 * kEdge;
    if (m_Arranged.m_nTitleLines > 0)
        m_TitleLines = WrapText(m_Canvas, m_Texts.m_Title, StyleOf(kTitleSize, 1), dWidth,
                                m_Arranged.m_nTitleLines);
    if (m_Arranged.m_nLabelLines == 0)
        return;
    m_XLines =
        WrapText(m_Canvas, m_Texts.m_XLabel, StyleOf(kLabelSize), dWidth, m_Arranged.m_nLabelLines);
    m_YLines = WrapText(m_Canvas, m_Texts.m_YLabel, StyleOf(kLabelSize), XLabelTop() - LegendTop(),
                        m_Arranged.m_nLabelLines);
}

int cFigureLayouter::IsLegendWanted() const
{
    if (m_Texts.m_LineLabels.empty() || m_Figure.m_nLegend == lwHidden)
        return 0;
    return m_Figure.m_nLegend == lwShown || m_Texts.m_LineLabels.size() > 1;
}

// Below the title.
double cFigureLayouter::LegendTop() const
{
    const double dTitle = static_cast<double>(m_TitleLines.size()) * kTitleSize * kLineHeight;
    return kEdge + dTitle + (m_TitleLines.empty() ? 0.0 : kGap);
}

double cFigureLayouter::XLabelTop() const
{
    return m_Figure.m_nHeight - kEdge -
           static_cast<double>(m_XLines.size()) * kLabelSize * kLineHeight;
}

// The frame, as far as the texts around it are known. Returns 0 if there is no room
// for the legend.
int cFigureLayouter::FindMargins()
{
    const double dEdge   = m_Arranged.m_bNumbers ? kEdge : kThinEdge;
    const double dYLabel = static_cast<double>(m_YLines.size()) * kLabelSize * kLineHeight;
    const double dTexts  = dYLabel > 0.0 ? dEdge + dYLabel + kGap : dEdge;
    const double dTicks  = m_bNumbers ? kTickLength + kGap + m_Needs.m_dYLabels : 0.0;
    const double dBefore =
        m_bNumbers ? (dYLabel > 0.0 ? dTexts : kLeastEdge) + m_Needs.m_dBefore : 0.0;
    // In the middle of pixels, so that the frame's lines are sharp.
    m_Frame.m_dLeft = std::round(std::max(dTexts + dTicks, dBefore)) + 0.5;

    const double dTickLine = m_bNumbers ? kTickLength + kGap + kTickSize * kCapitals + kGap : 0.0;
    const double dXFactor  = m_Needs.m_bXFactorLine ? kLabelSize * kLineHeight : 0.0;
    m_Frame.m_dBottom      = std::round(XLabelTop() + kEdge - dEdge - dXFactor - dTickLine) - 0.5;

    const auto nMostRows = static_cast<size_t>(kLegendPart * m_Figure.m_nHeight / kLegendRowHeight);
    double     dTop      = m_TitleLines.empty() ? dEdge : LegendTop() + kGap / 2;
    if (m_bLegend && !m_bBeside)
    {
        if (!m_Legend.ArrangeRows(m_Figure.m_nWidth - kEdge - m_Frame.m_dLeft, nMostRows))
            return 0;
        dTop = LegendTop() + static_cast<double>(m_Legend.Rows()) * kLegendRowHeight + kGap;
    }
    if (m_Needs.m_dYFactor > 0.0)
        dTop += kTickSize * kLineHeight;
    m_Frame.m_dTop = std::round(dTop) + 0.5;

    double dRight = m_Figure.m_nWidth - std::max(dEdge, m_Needs.m_dBehind + kLeastEdge);
    if (m_bLegend && m_bBeside)
    {
        const double dRows = std::max(m_Frame.Height(), 0.0) / kLegendRowHeight;
        if (!m_Legend.ArrangeColumn(kLegendPart * m_Figure.m_nWidth, static_cast<size_t>(dRows)))
            return 0;
        dRight = std::min(dRight, m_Figure.m_nWidth - kEdge - m_Legend.Width() - kLegendMargin);
    }
    m_Frame.m_dRight = std::round(dRight) - 0.5;
    return 1;
}

// A figure without texts always has; its frame may be as small as a pixel.
int cFigureLayouter::HasRoom() const
{
    return !m_Arranged.m_bNumbers ||
           (m_Frame.Width() >=
                std::max({kLeastFrameWidth, m_Needs.m_dXFactor, m_Needs.m_dYFactor}) &&
            m_Frame.Height() >= kLeastFrameHeight);
}

double cFigureLayouter::WidestLabel(const cAxisTicks &Ticks) const
{
    double dWidest = 0.0;
    for (const cAxisTick &Tick : Ticks.m_Ticks)
        dWidest = std::max(dWidest, WidthOf(Tick.m_Label, kTickSize));
    return dWidest;
}

// Compares each label with the last one that there is.
int cFigureLayouter::DoLabelsFit(const cAxisTicks &Ticks, const cAxisScale &Scale,
                                 int bVertical) const
{
    int    bFormer = 0;
    double dFormer = 0.0;
    double dHalf   = 0.0;
    for (const cAxisTick &Tick : Ticks.m_Ticks)
    {
        if (Tick.m_Label.empty())
            continue;
        const double dAt   = Scale.Position(Tick.m_dValue);
        const double dSize = bVertical ? 0.0 : WidthOf(Tick.m_Label, kTickSize) / 2;
        const double dFree = bVertical ? kAboveLabel * kTickSize : dHalf + dSize + kBesideLabel;
        if (bFormer && std::fabs(dAt - dFormer) < dFree)
            return 0;
        bFormer = 1;
        dFormer = dAt;
        dHalf   = dSize;
    }
    return 1;
}

// Takes away every second label, then of each three two, and so on.
void cFigureLayouter::ThinOut(const cAxisScale &Scale, int bVertical, cAxisTicks *pTicks) const
{
    const cAxisTicks All = *pTicks;
    for (size_t nEvery = 2; !DoLabelsFit(*pTicks, Scale, bVertical) && nEvery <= All.m_Ticks.size();
         nEvery++)
    {
        *pTicks       = All;
        size_t nLabel = 0;
        for (cAxisTick &Tick : pTicks->m_Ticks)
            if (!Tick.m_Label.empty() && nLabel++ % nEvery != 0)
                Tick.m_Label.clear();
    }
}

cAxisTicks cFigureLayouter::FitTicks(const cAxisRange &Range, uint32_t nWanted,
                                     const cAxisScale &Scale, double dPixels, int bVertical) const
{
    const double dDistance = bVertical ? kYTickDistance : kXTickDistance;
    const auto   nSuited   = static_cast<uint32_t>(
        std::clamp(dPixels / dDistance + 1.0, kLeastTickCount, kMostTickCount));
    cAxisTicks Ticks = FindTicks(Range, nWanted > 0 ? nWanted : nSuited);
    for (uint32_t nTicks = nSuited; nWanted == 0 && nTicks > 2; nTicks--)
    {
        if (DoLabelsFit(Ticks, Scale, bVertical))
            break;
        Ticks = FindTicks(Range, nTicks - 1);
    }
    ThinOut(Scale, bVertical, &Ticks);
    return Ticks;
}

void cFigureLayouter::FindTicksOf(cFigureLayout *pLayout)
{
    pLayout->m_Frame  = m_Frame;
    pLayout->m_XScale = cAxisScale(m_XRange, m_Frame.m_dLeft, m_Frame.m_dRight);
    pLayout->m_YScale = cAxisScale(m_YRange, m_Frame.m_dBottom, m_Frame.m_dTop);
    if (!m_bNumbers)
        return;
    pLayout->m_XTicks =
        FitTicks(m_XRange, m_Figure.m_X.m_nTicks, pLayout->m_XScale, m_Frame.Width(), 0);
    pLayout->m_YTicks =
        FitTicks(m_YRange, m_Figure.m_Y.m_nTicks, pLayout->m_YScale, m_Frame.Height(), 1);
}

// A factor of the horizontal axis is beside its label, unless that is too long.
int cFigureLayouter::NeedsFactorLine(const cFigureText &Factor) const
{
    if (Factor.empty() || m_XLines.empty())
        return !Factor.empty();
    const double dLabel = WidthOf({{m_XLines[0]}}, kLabelSize);
    const double dEnd   = Centered((m_Frame.m_dLeft + m_Frame.m_dRight) / 2, dLabel) + dLabel / 2;
    return dEnd + kBesideLabel > m_Frame.m_dRight - WidthOf(Factor, kTickSize);
}

cTickNeeds cFigureLayouter::NeedsOf(const cFigureLayout &Layout) const
{
    cTickNeeds Needs;
    Needs.m_bXFactorLine = NeedsFactorLine(Layout.m_XTicks.m_Factor);
    Needs.m_dXFactor     = WidthOf(Layout.m_XTicks.m_Factor, kTickSize);
    Needs.m_dYFactor     = WidthOf(Layout.m_YTicks.m_Factor, kTickSize);
    Needs.m_dYLabels     = WidestLabel(Layout.m_YTicks);
    for (const cAxisTick &Tick : Layout.m_XTicks.m_Ticks)
    {
        const double dAt   = Layout.m_XScale.Position(Tick.m_dValue);
        const double dHalf = WidthOf(Tick.m_Label, kTickSize) / 2;
        Needs.m_dBefore    = std::max(Needs.m_dBefore, m_Frame.m_dLeft - (dAt - dHalf));
        Needs.m_dBehind    = std::max(Needs.m_dBehind, dAt + dHalf - m_Frame.m_dRight);
    }
    return Needs;
}

// Each try knows the labels of the one before. Room for some ticks may be room for
// others, and so on; from some try on it only grows.
int cFigureLayouter::LayOut(cFigureLayout *pLayout)
{
    static const int s_nTries     = 4;
    static const int s_nMostTries = 8;

    m_Needs.m_dYLabels = 30.0;
    for (int nTry = 1; nTry <= s_nMostTries; nTry++)
    {
        *pLayout = {};
        if (!FindMargins() || !HasRoom())
            return 0;
        m_Frame.m_dRight  = std::max(m_Frame.m_dRight, m_Frame.m_dLeft + 1.0);
        m_Frame.m_dBottom = std::max(m_Frame.m_dBottom, m_Frame.m_dTop + 1.0);
        FindTicksOf(pLayout);
        const cTickNeeds Needs = NeedsOf(*pLayout);
        if (nTry >= s_nTries && Needs.IsWithin(m_Needs))
            return Place(pLayout);
        if (nTry >= s_nTries)
            m_Needs.Widen(Needs);
        else
            m_Needs = Needs;
    }
    return 0;
}

int cFigureLayouter::Place(cFigureLayout *pLayout) const
{
    PlaceTitle(pLayout);
    PlaceLabels(pLayout);
    PlaceTickLabels(pLayout);
    PlaceFactors(pLayout);
    if (m_bLegend && m_bBeside)
        m_Legend.Place({m_Frame.m_dRight + kLegendMargin, m_Frame.m_dTop}, pLayout);
    else if (m_bLegend)
        m_Legend.Place({m_Frame.m_dLeft, LegendTop()}, pLayout);
    ListLeftOut(pLayout);
    return 1;
}

void cFigureLayouter::ListLeftOut(cFigureLayout *pLayout) const
{
    const int bLabels = !m_Texts.m_XLabel.empty() || !m_Texts.m_YLabel.empty();

    pLayout->m_LeftOut.m_bLegend  = IsLegendWanted() && !m_bLegend;
    pLayout->m_LeftOut.m_bTitle   = !m_Texts.m_Title.empty() && m_TitleLines.empty();
    pLayout->m_LeftOut.m_bLabels  = bLabels && m_XLines.empty() && m_YLines.empty();
    pLayout->m_LeftOut.m_bNumbers = !m_Arranged.m_bNumbers;
}

// The middle of a text that is centred at dMiddle, if it fits there, and is within
// the figure.
double cFigureLayouter::Centered(double dMiddle, double dWidth) const
{
    const double dLeast = kEdge / 2 + dWidth / 2;
    return std::max(std::min(dMiddle, m_Figure.m_nWidth - dLeast), dLeast);
}

void cFigureLayouter::PlaceTitle(cFigureLayout *pLayout) const
{
    const cTextStyle Style   = StyleOf(kTitleSize, 1);
    const double     dMiddle = (m_Frame.m_dLeft + m_Frame.m_dRight) / 2;
    double           dBase   = kEdge + kTitleSize * kCapitals + 2.0;
    for (const std::string &Line : m_TitleLines)
    {
        const double dWidth = m_Canvas.TextWidth({{Line}}, Style);
        pLayout->m_Titles.push_back(
            {{Centered(dMiddle, dWidth), dBase}, taMiddle, 0, {{Line}}, Style});
        dBase += kTitleSize * kLineHeight;
    }
}

void cFigureLayouter::PlaceLabels(cFigureLayout *pLayout) const
{
    const cTextStyle Style  = StyleOf(kLabelSize);
    const double     dLine  = kLabelSize * kLineHeight;
    const auto       nLines = static_cast<double>(m_XLines.size());
    const double     dLast  = m_Figure.m_nHeight - kEdge - kLabelSize * kBelow;
    double           dBase  = dLast - (nLines - 1) * dLine + 2.0;
    for (const std::string &Line : m_XLines)
    {
        const double dMiddle =
            Centered((m_Frame.m_dLeft + m_Frame.m_dRight) / 2, WidthOf({{Line}}, kLabelSize));
        pLayout->m_AxisTexts.push_back({{dMiddle, dBase}, taMiddle, 0, {{Line}}, Style});
        dBase += dLine;
    }
    double dBaseX = kEdge + kLabelSize * kCapitals + 1.0;
    for (const std::string &Line : m_YLines)
    {
        const double dHalf   = WidthOf({{Line}}, kLabelSize) / 2;
        const double dMiddle = (m_Frame.m_dTop + m_Frame.m_dBottom) / 2;
        const double dAt = std::max(std::min(dMiddle, XLabelTop() - dHalf), LegendTop() + dHalf);
        pLayout->m_AxisTexts.push_back({{dBaseX, dAt}, taMiddle, 1, {{Line}}, Style});
        dBaseX += dLine;
    }
}

void cFigureLayouter::PlaceTickLabels(cFigureLayout *pLayout) const
{
    const cTextStyle Style = StyleOf(kTickSize);
    const double     dBase = m_Frame.m_dBottom + kTickLength + kGap + kTickSize * kCapitals;
    for (const cAxisTick &Tick : pLayout->m_XTicks.m_Ticks)
        if (!Tick.m_Label.empty())
            pLayout->m_AxisTexts.push_back({{pLayout->m_XScale.Position(Tick.m_dValue), dBase},
                                            taMiddle,
                                            0,
                                            Tick.m_Label,
                                            Style});
    const double dRight = m_Frame.m_dLeft - kTickLength - kGap;
    for (const cAxisTick &Tick : pLayout->m_YTicks.m_Ticks)
        if (!Tick.m_Label.empty())
            pLayout->m_AxisTexts.push_back(
                {{dRight, pLayout->m_YScale.Position(Tick.m_dValue) + kTickSize * kCapitals / 2},
                 taEnd,
                 0,
                 Tick.m_Label,
                 Style});
}

// Above the vertical axis, and below the end of the horizontal one.
void cFigureLayouter::PlaceFactors(cFigureLayout *pLayout) const
{
    const cTextStyle Style = StyleOf(kTickSize);
    if (!pLayout->m_YTicks.m_Factor.empty())
        pLayout->m_AxisTexts.push_back({{m_Frame.m_dLeft, m_Frame.m_dTop - kFactorGap},
                                        taStart,
                                        0,
                                        pLayout->m_YTicks.m_Factor,
                                        Style});
    const double dBase = m_Frame.m_dBottom + kTickLength + kGap + kTickSize * kCapitals + kGap +
                         kLabelSize * kCapitals + kGap;
    if (!pLayout->m_XTicks.m_Factor.empty())
        pLayout->m_AxisTexts.push_back(
            {{m_Frame.m_dRight, dBase}, taEnd, 0, pLayout->m_XTicks.m_Factor, Style});
}

}  // namespace

cFigureLayout LayOutFigure(const cFigure &Figure, const cFigureTexts &Texts,
                           const cFigureExtents &Extents, const cFigureCanvas &Canvas)
{
    // The last one always fits.
    static const cArrangement s_Tried[] = {
        {3, 2, lpSuited, 1}, {3, 2, lpAbove, 1}, {1, 1, lpSuited, 1}, {1, 1, lpAbove, 1},
        {3, 2, lpNone, 1},   {1, 1, lpNone, 1},  {0, 2, lpNone, 1},   {0, 1, lpNone, 1},
        {0, 0, lpNone, 1},   {0, 0, lpNone, 0},
    };

    cFigureLayout Layout;
    for (const cArrangement &Arranged : s_Tried)
        if (cFigureLayouter(Figure, Texts, Extents, Canvas, Arranged).LayOut(&Layout))
            break;
    return Layout;
}
