#include "console/window_picture.h"

#include <algorithm>
#include <cmath>

#include "figure/axis_ticks.h"

static int IsLineWidth(const std::optional<double> &dWidth)
{
    return !dWidth || (*dWidth >= 1.0 && *dWidth <= kMostLineWidth && *dWidth == floor(*dWidth));
}

static std::string WhyNoLook(const cChosenLook &Look)
{
    if (Look.m_dMarkerSize)
        return "--window has no --marker-size";
    if (Look.m_nShape == kCircle)
        return "--window has no circles as markers";
    return IsLineWidth(Look.m_dWidth) ? "" : "--window has --width 1, 2, 3 and 4";
}

std::string WhyNoWindow(const cFigureOptions &Options)
{
    const cFigure &Figure = Options.m_Figure;
    if (Figure.m_X.m_Range.m_bLog || Figure.m_Y.m_Range.m_bLog)
        return "--window has no --log";
    if (Figure.m_Y.m_Label)
        return "--window has no --ylabel";
    if (Figure.m_pPalette != &DefaultPalette())
        return "--window has no --palette";
    if (Figure.m_bDark)
        return "--window has no --dark";
    std::string Error = WhyNoLook(Figure.m_Look);
    for (const auto &[nLine, Look] : Figure.m_LineLooks)
        if (Error.empty())
            Error = WhyNoLook(Look);
    return Error;
}

void PrepareWindow(const cFigureOptions &Options, cVantorPlot *pPlot)
{
    const cFigure &Figure = Options.m_Figure;
    pPlot->SetClientSize(Figure.m_nWidth, Figure.m_nHeight);
    pPlot->SetLegend(Figure.m_nLegend != lwHidden);
    pPlot->SetGrid(Figure.m_bGrid, Figure.m_bGrid);
}

// The window's own line styles and markers have the same numbers.
static void FormatLine(const cFigure &Figure, uint32_t nLine, cVantorPlot *pPlot)
{
    static const cChosenLook s_Nothing;
    const auto               Found = Figure.m_LineLooks.find(nLine - 1);
    const cChosenLook       &Own   = Found == Figure.m_LineLooks.end() ? s_Nothing : Found->second;
    const cChosenLook       &All   = Figure.m_Look;
    const cVantorDataSet    &Set   = *pPlot->DataSet(nLine);

    cVantorLineFormat Format;
    Format.m_nGraphType = Own.m_nType.value_or(All.m_nType.value_or(Set.m_nGraphType));
    Format.m_crColor    = Set.m_crColor;
    const double dWidth = Own.m_dWidth.value_or(All.m_dWidth.value_or(Set.m_nWidth));
    Format.m_nWidth     = static_cast<uint32_t>(dWidth);
    Format.m_nStyle     = Format.m_nGraphType == gtScatter
                              ? Own.m_nShape.value_or(All.m_nShape.value_or(Set.m_nStyle))
                              : Own.m_nStyle.value_or(All.m_nStyle.value_or(Set.m_nStyle));
    pPlot->FormatDataSet(nLine, Format, Set.m_fMultiplier, Set.m_fOffset);
}

// An axis from tick to tick at round numbers, around the range that it has.
static void RoundAxis(const cAxisWish &Wish, float *pfMin, float *pfMax, uint32_t *pnTicks)
{
    const double     dMin  = std::min(*pfMin, *pfMax);
    const double     dMax  = std::max(*pfMin, *pfMax);
    const uint32_t   nWant = Wish.m_nTicks > 0 ? Wish.m_nTicks : *pnTicks;
    const cRoundStep Round = ChooseStep(dMax / 2 - dMin / 2, nWant);
    const double     dStep = DecimalValue(Round.m_nDigit, Round.m_nExponent);
    const double     dFrom = std::floor(dMin / dStep + 1e-6);
    const double     dTo   = std::ceil(dMax / dStep - 1e-6);
    if (!(dTo > dFrom) || dTo - dFrom >= kMostTicks)
        return;
    const int bBackwards = *pfMin > *pfMax;
    *pfMin               = NarrowToFloat((bBackwards ? dTo : dFrom) * dStep);
    *pfMax               = NarrowToFloat((bBackwards ? dFrom : dTo) * dStep);
    *pnTicks             = static_cast<uint32_t>(dTo - dFrom) + 1;
}

static void LimitAxis(const cAxisWish &Wish, float *pfMin, float *pfMax, uint32_t *pnTicks)
{
    if (Wish.m_Range.m_dFrom)
        *pfMin = NarrowToFloat(*Wish.m_Range.m_dFrom);
    if (Wish.m_Range.m_dTo)
        *pfMax = NarrowToFloat(*Wish.m_Range.m_dTo);
    if (Wish.m_nTicks > 0)
        *pnTicks = Wish.m_nTicks;
}

static int IsWished(const cAxisWish &Wish)
{
    return Wish.m_Range.m_dFrom || Wish.m_Range.m_dTo || Wish.m_nTicks > 0;
}

void ApplyToWindow(const cFigureOptions &Options, cVantorPlot *pPlot)
{
    const cFigure &Figure = Options.m_Figure;
    PrepareWindow(Options, pPlot);
    if (Figure.m_Title)
        pPlot->SetTitle(Figure.m_Title->c_str());
    if (Figure.m_X.m_Label)
        pPlot->SetHorzLabel(Figure.m_X.m_Label->c_str());
    for (uint32_t nLine = 1; nLine <= pPlot->Count(); nLine++)
        FormatLine(Figure, nLine, pPlot);
    if (!Options.m_bNice && !IsWished(Figure.m_X) && !IsWished(Figure.m_Y))
        return;

    cVantorPlotSettings Axes = pPlot->Settings();
    LimitAxis(Figure.m_X, &Axes.m_fMinHorzTick, &Axes.m_fMaxHorzTick, &Axes.m_nHorzTicks);
    LimitAxis(Figure.m_Y, &Axes.m_fMinVertTick, &Axes.m_fMaxVertTick, &Axes.m_nVertTicks);
    if (Options.m_bNice)
    {
        RoundAxis(Figure.m_X, &Axes.m_fMinHorzTick, &Axes.m_fMaxHorzTick, &Axes.m_nHorzTicks);
        RoundAxis(Figure.m_Y, &Axes.m_fMinVertTick, &Axes.m_fMaxVertTick, &Axes.m_nVertTicks);
    }
    pPlot->ApplySettings(Axes);
}
