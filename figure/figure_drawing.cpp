#include "figure/figure_drawing.h"

#include <cmath>
#include <cstdio>

#include "figure/figure_about.h"
#include "figure/figure_extents.h"
#include "figure/line_batch.h"

static const double kFrameWidth = 1.0;
static const double kGridWidth  = 1.0;
static const double kNoDataSize = 15.0;
static const int    kColourText = 32;

// The part of a line's width that a curve along the frame needs outside of it.
static const double kBeyondFrame = 0.5;

static cFigureBox PaperOf(const cFigure &Figure)
{
    return {0.0, 0.0, static_cast<double>(Figure.m_nWidth), static_cast<double>(Figure.m_nHeight)};
}

static void DrawSegment(const cSpot &From, const cSpot &To, cFigureCanvas *pCanvas)
{
    pCanvas->MoveTo(From);
    pCanvas->LineTo(To);
}

static void DrawText(const cPlacedText &Text, cFigureCanvas *pCanvas)
{
    pCanvas->Text(Text.m_At, Text.m_nAnchor, Text.m_bTurned, Text.m_Text, Text.m_Style);
}

static void DrawGround(const cFigure &Figure, cFigureCanvas *pCanvas)
{
    pCanvas->BeginGroup("ground", "");
    pCanvas->FillBox(PaperOf(Figure), kGround.m_crLight);
    pCanvas->EndGroup();
}

static void DrawGrid(const cFigureLayout &Layout, cFigureCanvas *pCanvas)
{
    const cFigureBox &Frame = Layout.m_Frame;
    pCanvas->BeginGroup("grid", "");
    pCanvas->BeginLine({kGrid.m_crLight, kGridWidth, {}, 0});
    for (const cAxisTick &Tick : Layout.m_XTicks.m_Ticks)
    {
        const double dX = Layout.m_XScale.Position(Tick.m_dValue);
        if (!Tick.m_Label.empty())
            DrawSegment({dX, Frame.m_dTop}, {dX, Frame.m_dBottom}, pCanvas);
    }
    for (const cAxisTick &Tick : Layout.m_YTicks.m_Ticks)
    {
        const double dY = Layout.m_YScale.Position(Tick.m_dValue);
        if (!Tick.m_Label.empty())
            DrawSegment({Frame.m_dLeft, dY}, {Frame.m_dRight, dY}, pCanvas);
    }
    pCanvas->EndLine();
    pCanvas->EndGroup();
}

static void DrawFrame(const cFigureLayout &Layout, cFigureCanvas *pCanvas)
{
    const cFigureBox &Frame = Layout.m_Frame;
    pCanvas->BeginLine({kInk.m_crLight, kFrameWidth, {}, 0});
    pCanvas->MoveTo({Frame.m_dLeft, Frame.m_dTop});
    pCanvas->LineTo({Frame.m_dRight, Frame.m_dTop});
    pCanvas->LineTo({Frame.m_dRight, Frame.m_dBottom});
    pCanvas->LineTo({Frame.m_dLeft, Frame.m_dBottom});
    pCanvas->LineTo({Frame.m_dLeft, Frame.m_dTop - kFrameWidth / 2});  // closes the corner
    for (const cAxisTick &Tick : Layout.m_XTicks.m_Ticks)
    {
        const double dX    = Layout.m_XScale.Position(Tick.m_dValue);
        const double dTick = Tick.m_Label.empty() ? kShortTickLength : kTickLength;
        DrawSegment({dX, Frame.m_dBottom}, {dX, Frame.m_dBottom + dTick}, pCanvas);
    }
    for (const cAxisTick &Tick : Layout.m_YTicks.m_Ticks)
    {
        const double dY    = Layout.m_YScale.Position(Tick.m_dValue);
        const double dTick = Tick.m_Label.empty() ? kShortTickLength : kTickLength;
        DrawSegment({Frame.m_dLeft, dY}, {Frame.m_dLeft - dTick, dY}, pCanvas);
    }
    pCanvas->EndLine();
}

static void DrawAxes(const cFigureLayout &Layout, cFigureCanvas *pCanvas)
{
    pCanvas->BeginGroup("axes", "");
    DrawFrame(Layout, pCanvas);
    for (const cPlacedText &Text : Layout.m_AxisTexts)
        DrawText(Text, pCanvas);
    pCanvas->EndGroup();
}

static void DrawLegend(const cFigure &Figure, const cFigureLayout &Layout,
                       const cFigureExtents &Extents, cFigureCanvas *pCanvas)
{
    if (Layout.m_Legend.empty())
        return;
    pCanvas->BeginGroup("legend", "");
    for (const cLegendEntry &Entry : Layout.m_Legend)
    {
        const cLineLook Look = LookOfLine(Figure, Entry.m_nLine);
        const cSpot     End  = {Entry.m_Sample.m_dX + kSampleLength, Entry.m_Sample.m_dY};
        pCanvas->BeginGroup(ClassesOfLine(Entry.m_nLine).c_str(), "");
        if (HasMarkers(Look, Extents.m_Lines[Entry.m_nLine]))
        {
            pCanvas->BeginMarkers(Look.m_Marker);
            pCanvas->Marker({(Entry.m_Sample.m_dX + End.m_dX) / 2, End.m_dY});
            pCanvas->EndMarkers();
        }
        else
        {
            pCanvas->BeginLine(Look.m_Stroke);
            DrawSegment(Entry.m_Sample, End, pCanvas);
            pCanvas->EndLine();
        }
        DrawText(Entry.m_Text, pCanvas);
        pCanvas->EndGroup();
    }
    pCanvas->EndGroup();
}

static void DrawTitles(const cFigureLayout &Layout, cFigureCanvas *pCanvas)
{
    if (Layout.m_Titles.empty())
        return;
    pCanvas->BeginGroup("title", "");
    for (const cPlacedText &Text : Layout.m_Titles)
        DrawText(Text, pCanvas);
    pCanvas->EndGroup();
}

static void DrawNoData(const cFigureExtents &Extents, const cFigureLayout &Layout,
                       cFigureCanvas *pCanvas)
{
    const cFigureBox &Frame  = Layout.m_Frame;
    const cSpot       Middle = {(Frame.m_dLeft + Frame.m_dRight) / 2,
                                (Frame.m_dTop + Frame.m_dBottom + kNoDataSize * 0.7) / 2};
    const cFigureText Text   = {{Extents.m_nPoints > 0         ? "no data in this range"
                                 : Extents.m_nWithoutPlace > 0 ? "no data above 0"
                                                               : "no data"}};
    const cTextStyle  Style  = {kNoDataSize, 0, kInk.m_crLight};
    if (pCanvas->TextWidth(Text, Style) > Frame.Width() || kNoDataSize > Frame.Height())
        return;
    pCanvas->BeginGroup("no-data", "");
    pCanvas->Text(Middle, taMiddle, 0, Text, Style);
    pCanvas->EndGroup();
}

// Wide lines along the frame are not cut.
static int DrawLines(const cFigure &Figure, const cFigureLayout &Layout, const cFigureTexts &Texts,
                     const cFigureExtents &Extents, cPointSource *pSource, cFigureCanvas *pCanvas)
{
    double dBeyond = 0.0;
    for (size_t nLine = 0; nLine < Extents.m_Lines.size(); nLine++)
    {
        const cLineLook Look = LookOfLine(Figure, nLine);
        const double dSize = HasMarkers(Look, Extents.m_Lines[nLine]) ? Look.m_Marker.m_dSize * 1.5
                                                                      : Look.m_Stroke.m_dWidth;
        dBeyond            = std::fmax(dBeyond, dSize * kBeyondFrame);
    }
    const cFigureBox &Frame = Layout.m_Frame;
    pCanvas->PushClip({Frame.m_dLeft - dBeyond, Frame.m_dTop - dBeyond, Frame.m_dRight + dBeyond,
                       Frame.m_dBottom + dBeyond});
    const int bRead = DrawDataLines(Figure, Layout, Texts, Extents, pSource, pCanvas);
    pCanvas->PopClip();
    return bRead;
}

static std::string Rule(const std::string &Selector, const char *szProperty, uint32_t crColour)
{
    char szColour[kColourText];
    snprintf(szColour, sizeof szColour, "#%02x%02x%02x", crColour & 0xFF, crColour >> 8 & 0xFF,
             crColour >> 16 & 0xFF);
    return Selector + " {" + szProperty + ": " + szColour + "}\n";
}

static std::string DarkStyle(const cFigure &Figure, size_t nLines)
{
    std::string Style = Rule(".ground .filled", "fill", kGround.m_crDark) +
                        Rule("text", "fill", kInk.m_crDark) +
                        Rule(".axes .drawn", "stroke", kInk.m_crDark) +
                        Rule(".grid .drawn", "stroke", kGrid.m_crDark);
    for (size_t nLine = 0; nLine < nLines; nLine++)
    {
        const std::span<const cInk> Inks = Figure.m_pPalette->m_Inks;
        const cInk                 &Ink  = Inks[nLine % Inks.size()];
        const std::string           Name = ".line-" + std::to_string(nLine + 1);
        Style += Rule(Name + " .drawn", "stroke", Ink.m_crDark);
        Style += Rule(Name + " .filled", "fill", Ink.m_crDark);
    }
    return Style;
}

eDrawing DrawFigure(const cFigure &Figure, cPointSource *pSource, cFigureCanvas *pCanvas,
                    cFigureNotes *pNotes)
{
    cFigureExtents Extents;
    if (!FindExtents(Figure, pSource, &Extents))
        return drUnreadable;
    pNotes->m_nWithoutPlace = Extents.m_nWithoutPlace;
    if (Figure.m_bStrict && Extents.m_nWithoutPlace > 0)
        return drIncomplete;
    const cFigureTexts  Texts  = TextsOfFigure(Figure, *pSource);
    const cFigureLayout Layout = LayOutFigure(Figure, Texts, Extents, *pCanvas);
    pNotes->m_LeftOut          = Layout.m_LeftOut;

    cFigureAbout About = AboutFigure(Figure, *pSource, Texts, Extents);
    if (Figure.m_bDark)
        About.m_DarkStyle = DarkStyle(Figure, Extents.m_Lines.size());
    pCanvas->Begin(About);
    DrawGround(Figure, pCanvas);
    DrawTitles(Layout, pCanvas);
    DrawLegend(Figure, Layout, Extents, pCanvas);
    if (Figure.m_bGrid)
        DrawGrid(Layout, pCanvas);
    const int bRead = DrawLines(Figure, Layout, Texts, Extents, pSource, pCanvas);
    DrawAxes(Layout, pCanvas);
    if (Extents.m_X.IsEmpty())
        DrawNoData(Extents, Layout, pCanvas);
    if (!bRead)
        return drUnreadable;
    return pCanvas->End() ? drDone : drTooLarge;
}
