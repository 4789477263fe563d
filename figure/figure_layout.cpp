#include "figure/figure_layout.h"

#include <algorithm>
#include <cmath>

#include "figure/fitted_text.h"

// Pixels.
static const double kEdge       = 10.0;  // around everything
static const double kGap        = 5.0;
static const double kTickSize   = 12.0;
static const double kLabelSize  = 13.0;
static const double kTitleSize  = 15.0;
static const double kLegendSize = 12.0;

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

static const size_t kMostTitleLines = 3;
static const size_t kMostLabelLines = 2;

static const size_t kMostLegendRows  = 2;    // above the frame; more are beside it
static const double kLegendPart      = 0.4;  // of the width, if beside the frame
static const double kLegendRowHeight = 18.0;
static const double kBetweenEntries  = 20.0;
static const double kSampleGap       = 6.0;  // from the sample to its text

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

// What is left out where it would leave no room for the curves.
enum eOmission
{
    omNothing,
    omLegend,
    omTitle,
    omLabels,
    omTicks
};

class cFigureLayouter
{
public:
    cFigureLayouter(const cFigure &Figure, const cFigureTexts &Texts, const cFigureExtents &Extents,
                    const cFigureCanvas &Canvas, eOmission nOmitted);

    // 0 if there is too little room.
    int LayOut(cFigureLayout *pLayout);

private:
    int  IsLegendShown() const;
    void FindMargins();
    void FindTicksOf(cFigureLayout *pLayout);
    int  NeedsFactorLine(const cFigureText &Factor) const;
    void Adjust(const cFigureLayout &Layout);
    void PlaceTitle(cFigureLayout *pLayout) const;
    void PlaceLabels(cFigureLayout *pLayout) const;
    void PlaceTickLabels(cFigureLayout *pLayout) const;
    void PlaceFactors(cFigureLayout *pLayout) const;
    void PlaceLegend(cFigureLayout *pLayout) const;
    void PlaceLegendAbove(cFigureLayout *pLayout) const;
    void PlaceLegendBeside(cFigureLayout *pLayout) const;

    cAxisTicks FitTicks(const cAxisRange &Range, uint32_t nWanted, const cAxisScale &Scale,
                        double dPixels, int bVertical) const;
    int        DoLabelsFit(const cAxisTicks &Ticks, const cAxisScale &Scale, int bVertical) const;
    void       ThinOut(const cAxisScale &Scale, int bVertical, cAxisTicks *pTicks) const;

    double WidthOf(const cFigureText &Text, double dSize) const
    {
        return m_Canvas.TextWidth(Text, StyleOf(dSize));
    }
    double WidestLabel(const cAxisTicks &Ticks) const;
    double EntryWidth(size_t nLine) const;
    size_t CountLegendRows() const;
    double LegendTop() const;
    double Centered(double dMiddle, double dWidth) const;

    const cFigure           &m_Figure;
    const cFigureTexts      &m_Texts;
    const cFigureCanvas     &m_Canvas;
    eOmission                m_nOmitted;
    cAxisRange               m_XRange;
    cAxisRange               m_YRange;
    int                      m_bNumbers;  // the axes have any
    int                      m_bLegend;
    int                      m_bBeside;           // the legend is to the right of the frame
    int                      m_bXFactorLine = 0;  // below the ticks' labels
    int                      m_bYFactor     = 0;
    double                   m_dLegendText  = 0.0;   // the width of its longest text
    double                   m_dTickLabels  = 30.0;  // the width of the vertical axis's
    double                   m_dOverhang    = 0.0;   // of the last label beyond the frame
    std::vector<std::string> m_TitleLines;
    std::vector<std::string> m_XLines;
    std::vector<std::string> m_YLines;
    std::vector<std::string> m_Labels;  // of the legend
    cFigureBox               m_Frame = {};
};

cFigureLayouter::cFigureLayouter(const cFigure &Figure, const cFigureTexts &Texts,
                                 const cFigureExtents &Extents, const cFigureCanvas &Canvas,
                                 eOmission nOmitted)
    : m_Figure(Figure), m_Texts(Texts), m_Canvas(Canvas), m_nOmitted(nOmitted),
      m_XRange(ChooseRange(Figure.m_X.m_Range, Extents.m_X, kXMargin)),
      m_YRange(RangeOfY(Figure, Extents)), m_bNumbers(nOmitted < omTicks), m_bLegend(0),
      m_bBeside(0)
{
    const cRangeWish &X = Figure.m_X.m_Range;
    const cRangeWish &Y = Figure.m_Y.m_Range;
    if (Extents.m_X.IsEmpty() && !(X.m_dFrom && X.m_dTo) && !(Y.m_dFrom && Y.m_dTo))
        m_bNumbers = 0;  // 0 to 1 would be invented
    m_bLegend = IsLegendShown();

    const double dWidth = Figure.m_nWidth - 2 * kEdge;
    if (nOmitted < omTitle)
        m_TitleLines =
            WrapText(Canvas, Texts.m_Title, StyleOf(kTitleSize, 1), dWidth, kMostTitleLines);
    if (nOmitted < omLabels)
    {
        m_XLines = WrapText(Canvas, Texts.m_XLabel, StyleOf(kLabelSize), dWidth, kMostLabelLines);
        m_YLines = WrapText(Canvas, Texts.m_YLabel, StyleOf(kLabelSize),
                            Figure.m_nHeight - 2 * kEdge, kMostLabelLines);
    }
    if (!m_bLegend)
        return;
    m_Labels  = Texts.m_LineLabels;
    m_bBeside = CountLegendRows() > kMostLegendRows;
    for (std::string &Label : m_Labels)
    {
        const double dMost =
            (m_bBeside ? kLegendPart * Figure.m_nWidth : dWidth) - kSampleLength - kSampleGap;
        Label         = FitText(Canvas, Label, StyleOf(kLegendSize), dMost);
        m_dLegendText = std::max(m_dLegendText, WidthOf({{Label}}, kLegendSize));
    }
}

int cFigureLayouter::IsLegendShown() const
{
    if (m_nOmitted >= omLegend || m_Texts.m_LineLabels.empty() || m_Figure.m_nLegend == lwHidden)
        return 0;
    return m_Figure.m_nLegend == lwShown || m_Texts.m_LineLabels.size() > 1;
}

double cFigureLayouter::EntryWidth(size_t nLine) const
{
    return kSampleLength + kSampleGap + WidthOf({{m_Labels[nLine]}}, kLegendSize);
}

// Of a legend above the frame.
size_t cFigureLayouter::CountLegendRows() const
{
    const double dMost = m_Figure.m_nWidth - kEdge - std::max(m_Frame.m_dLeft, 5 * kEdge);
    size_t       nRows = 1;
    double       dUsed = 0.0;
    for (size_t nLine = 0; nLine < m_Labels.size(); nLine++)
    {
        const double dEntry = EntryWidth(nLine);
        if (dUsed > 0.0 && dUsed + dEntry > dMost)
        {
            nRows++;
            dUsed = 0.0;
        }
        dUsed += dEntry + kBetweenEntries;
    }
    return nRows;
}

double cFigureLayouter::LegendTop() const
{
    const double dTitle = static_cast<double>(m_TitleLines.size()) * kTitleSize * kLineHeight;
    return kEdge + dTitle + (m_TitleLines.empty() ? 0.0 : kGap);
}

// The frame, as far as the texts around it are known.
void cFigureLayouter::FindMargins()
{
    const double dLabelLine = kLabelSize * kLineHeight;
    const double dTickLine  = m_bNumbers ? kTickLength + kGap + kTickSize * kCapitals + kGap : 0.0;
    const double dXLabel    = static_cast<double>(m_XLines.size()) * dLabelLine;
    const double dXFactor   = m_bXFactorLine ? dLabelLine : 0.0;
    const double dYLabel    = static_cast<double>(m_YLines.size()) * dLabelLine;
    const double dEdge      = m_nOmitted < omTicks ? kEdge : 1.0;

    double dTop = m_TitleLines.empty() ? dEdge : LegendTop() + kGap / 2;
    if (m_bLegend && !m_bBeside)
        dTop = LegendTop() + static_cast<double>(CountLegendRows()) * kLegendRowHeight + kGap;
    if (m_bYFactor)
        dTop += kTickSize * kLineHeight;
    double dRight = m_Figure.m_nWidth - std::max(dEdge, m_dOverhang + 2.0);
    if (m_bBeside)
        dRight = std::min(dRight, m_Figure.m_nWidth - kEdge - m_dLegendText - kSampleGap -
                                      kSampleLength - 2 * kEdge);
    const double dTicks = m_bNumbers ? kTickLength + kGap + m_dTickLabels : 0.0;
    // In the middle of pixels, so that the frame's lines are sharp.
    m_Frame = {std::round(dEdge + dYLabel + (dYLabel > 0.0 ? kGap : 0.0) + dTicks) + 0.5,
               std::round(dTop) + 0.5, std::round(dRight) - 0.5,
               std::round(m_Figure.m_nHeight - dEdge - dXLabel - dXFactor - dTickLine) - 0.5};
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

// What the ticks need, for the next try.
void cFigureLayouter::Adjust(const cFigureLayout &Layout)
{
    m_bXFactorLine = NeedsFactorLine(Layout.m_XTicks.m_Factor);
    m_bYFactor     = !Layout.m_YTicks.m_Factor.empty();
    m_dTickLabels  = WidestLabel(Layout.m_YTicks);
    m_dOverhang    = 0.0;
    for (const cAxisTick &Tick : Layout.m_XTicks.m_Ticks)
        m_dOverhang =
            std::max(m_dOverhang, Layout.m_XScale.Position(Tick.m_dValue) +
                                      WidthOf(Tick.m_Label, kTickSize) / 2 - m_Frame.m_dRight);
}

int cFigureLayouter::LayOut(cFigureLayout *pLayout)
{
    static const int s_nTries = 4;  // each knows the labels of the one before

    for (int nTry = 0; nTry < s_nTries; nTry++)
    {
        *pLayout = {};
        FindMargins();
        const int bRoom =
            m_Frame.Width() >= kLeastFrameWidth && m_Frame.Height() >= kLeastFrameHeight;
        if (!bRoom && m_nOmitted < omTicks)
            return 0;
        m_Frame.m_dRight  = std::max(m_Frame.m_dRight, m_Frame.m_dLeft + 1.0);
        m_Frame.m_dBottom = std::max(m_Frame.m_dBottom, m_Frame.m_dTop + 1.0);
        FindTicksOf(pLayout);
        if (nTry + 1 < s_nTries)
            Adjust(*pLayout);
    }
    PlaceTitle(pLayout);
    PlaceLabels(pLayout);
    PlaceTickLabels(pLayout);
    PlaceFactors(pLayout);
    if (m_bLegend)
        PlaceLegend(pLayout);
    return 1;
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
        const double dHalf   = kEdge / 2 + WidthOf({{Line}}, kLabelSize) / 2;
        const double dMiddle = (m_Frame.m_dTop + m_Frame.m_dBottom) / 2;
        const double dAt     = std::max(std::min(dMiddle, m_Figure.m_nHeight - dHalf), dHalf);
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
    if (m_bYFactor && !pLayout->m_YTicks.m_Factor.empty())
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

void cFigureLayouter::PlaceLegend(cFigureLayout *pLayout) const
{
    if (m_bBeside)
        PlaceLegendBeside(pLayout);
    else
        PlaceLegendAbove(pLayout);
}

void cFigureLayouter::PlaceLegendAbove(cFigureLayout *pLayout) const
{
    const cTextStyle Style   = StyleOf(kLegendSize);
    double           dX      = m_Frame.m_dLeft;
    double           dMiddle = LegendTop() + kLegendRowHeight / 2;
    for (size_t nLine = 0; nLine < m_Labels.size(); nLine++)
    {
        const double dEntry = EntryWidth(nLine);
        if (dX > m_Frame.m_dLeft && dX + dEntry > m_Figure.m_nWidth - kEdge)
        {
            dX = m_Frame.m_dLeft;
            dMiddle += kLegendRowHeight;
        }
        const cSpot At = {dX + kSampleLength + kSampleGap, dMiddle + kLegendSize * kCapitals / 2};
        pLayout->m_Legend.push_back(
            {nLine, {dX, dMiddle}, {At, taStart, 0, {{m_Labels[nLine]}}, Style}});
        dX += dEntry + kBetweenEntries;
    }
}

// What does not fit is counted.
void cFigureLayouter::PlaceLegendBeside(cFigureLayout *pLayout) const
{
    const cTextStyle Style = StyleOf(kLegendSize);
    const auto       nRoom = static_cast<size_t>(m_Frame.Height() / kLegendRowHeight);
    const size_t     nAll  = m_Labels.size();
    const size_t     nRows = nAll <= nRoom ? nAll : nRoom - 1;
    const double     dX    = m_Frame.m_dRight + 2 * kEdge;
    for (size_t nLine = 0; nLine < nRows; nLine++)
    {
        const double dMiddle =
            m_Frame.m_dTop + (static_cast<double>(nLine) + 0.5) * kLegendRowHeight;
        const cSpot At = {dX + kSampleLength + kSampleGap, dMiddle + kLegendSize * kCapitals / 2};
        pLayout->m_Legend.push_back(
            {nLine, {dX, dMiddle}, {At, taStart, 0, {{m_Labels[nLine]}}, Style}});
    }
    if (nRows == nAll)
        return;
    const double dBase = m_Frame.m_dTop + (static_cast<double>(nRows) + 0.5) * kLegendRowHeight +
                         kLegendSize * kCapitals / 2;
    pLayout->m_AxisTexts.push_back({{dX + kSampleLength + kSampleGap, dBase},
                                    taStart,
                                    0,
                                    {{"and " + std::to_string(nAll - nRows) + " more"}},
                                    Style});
}

}  // namespace

cFigureLayout LayOutFigure(const cFigure &Figure, const cFigureTexts &Texts,
                           const cFigureExtents &Extents, const cFigureCanvas &Canvas)
{
    static const eOmission s_Tried[] = {omNothing, omLegend, omTitle, omLabels, omTicks};

    cFigureLayout Layout;
    for (const eOmission nOmitted : s_Tried)
        if (cFigureLayouter(Figure, Texts, Extents, Canvas, nOmitted).LayOut(&Layout))
            break;
    return Layout;
}
