// graph_requests.cpp - what the page asks of the graph. Colours come as 0xRRGGBB.

#include "web/web_calculator.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "console/json.h"
#include "graph/graph_file_commands.h"
#include "graph/nearest_point.h"
#include "graph/plot_renderer.h"
#include "graph/points_text.h"
#include "graph/svg_canvas.h"
#include "web/picture_canvas.h"

static const int kLargestPicture = 16383;  // pixels of a side

// --- pictures

int cWebCalculator::OnView(const cRequest &Request, std::string *)
{
    m_Host.m_Plot.SetView(static_cast<int>(Request.Number(0)), static_cast<int>(Request.Number(1)));
    return 1;
}

int cWebCalculator::OnShowGraph(const cRequest &Request, std::string *)
{
    m_Host.m_bGraphShown = Request.Number(0) != 0;
    return 1;
}

static void PutReadout(const cVantorPlot &Plot, const cNearestPoint &Nearest, std::string *pValue)
{
    const cVantorDataSet &Set = *Plot.DataSet(Nearest.m_nLine);
    cJsonList             Object(pValue, '{', '}');
    Object.Number("line", Nearest.m_nLine);
    Object.Text("label", Set.m_pszLabel.get());
    Object.Number("index", Nearest.m_nIndex);
    AppendJsonNumber(Object.Key("x"), Set.X(Nearest.m_nIndex));
    Object.Number("y", PlottedY(Set, Set.m_pY[Nearest.m_nIndex]));
    Object.Number("left", Nearest.m_Pixel.m_nX);
    Object.Number("top", Nearest.m_Pixel.m_nY);
}

// Outside the plot nothing is read out, as in the window.
int cWebCalculator::OnReadout(const cRequest &Request, std::string *pValue)
{
    const cPoint At = {static_cast<int>(Request.Number(0)), static_cast<int>(Request.Number(1))};
    const cPlotLayout Layout = m_Host.m_Plot.Layout();
    cNearestPoint     Nearest;
    if (!IsInPlot(Layout, At) || !FindNearestPoint(Layout, m_Host.m_Plot, At, &Nearest))
        return 0;
    PutReadout(m_Host.m_Plot, Nearest, pValue);
    return 1;
}

static int DrawSvg(const cVantorPlot &Plot, int nWidth, int nHeight, FILE *pFile)
{
    const cPlotTarget Target = {ptImage, {0, 0, nWidth, nHeight}};
    cSvgCanvas        Canvas(pFile, nWidth, nHeight);
    Canvas.FillBox(Target.m_Rect, Plot.Settings().m_crBackground);
    const int bDrawn = DrawPlot(LayOutPlot(Plot, Target, Canvas), Plot, &Canvas);
    Canvas.End();
    return bDrawn;
}

int cWebCalculator::OnGraphSvg(const cRequest &Request, std::string *pValue)
{
    const auto nWidth  = static_cast<int>(Request.Number(0));
    const auto nHeight = static_cast<int>(Request.Number(1));
    if (nWidth <= 0 || nWidth > kLargestPicture || nHeight <= 0 || nHeight > kLargestPicture)
        return 0;
    char       *pText   = nullptr;
    size_t      nLength = 0;
    FILE *const pFile   = open_memstream(&pText, &nLength);
    const int   bDrawn  = pFile && DrawSvg(m_Host.m_Plot, nWidth, nHeight, pFile);
    const int   bWhole  = pFile && !ferror(pFile);
    if (pFile)
        fclose(pFile);
    const std::unique_ptr<char, void (*)(void *)> Text(pText, free);
    if (!bDrawn || !bWhole)
        return 0;
    AppendJsonText(pValue, {pText, nLength});
    return 1;
}

// --- files: the body is the name, the worker has the bytes

int cWebCalculator::OnOpenGraph(const cRequest &Request, std::string *)
{
    return OpenGraphFile(&m_Host.m_Plot, &m_Host, Request.m_Body.c_str());
}

int cWebCalculator::OnAppendGraph(const cRequest &Request, std::string *)
{
    return AppendGraphFile(&m_Host.m_Plot, &m_Host, Request.m_Body.c_str());
}

int cWebCalculator::OnSaveGraph(const cRequest &Request, std::string *)
{
    return SaveGraphFile(m_Host.m_Plot, &m_Host, Request.m_Body.c_str());
}

// --- settings

// The words are those of GraphSettings after the texts, in their order; the body has the
// title and the label, a line each.
int cWebCalculator::OnSetGraph(const cRequest &Request, std::string *)
{
    cVantorPlotSettings Settings = m_Host.m_Plot.Settings();
    Settings.m_nHorzTicks        = Request.Number(0);
    Settings.m_nVertTicks        = Request.Number(1);
    Settings.m_fMinHorzTick      = Request.Float(2);
    Settings.m_fMaxHorzTick      = Request.Float(3);
    Settings.m_fMinVertTick      = Request.Float(4);
    Settings.m_fMaxVertTick      = Request.Float(5);
    Settings.m_bHorzGrid         = Request.Number(6);
    Settings.m_bVertGrid         = Request.Number(7);
    Settings.m_bLegend           = Request.Number(8);
    Settings.m_crAxis            = TurnedColour(Request.Number(9));
    Settings.m_crText            = TurnedColour(Request.Number(10));
    Settings.m_crBackground      = TurnedColour(Request.Number(11));
    OnGraphTitle(Request, nullptr);
    snprintf(Settings.m_szTitle, sizeof Settings.m_szTitle, "%s",
             m_Host.m_Plot.Settings().m_szTitle);
    snprintf(Settings.m_szHorzLabel, sizeof Settings.m_szHorzLabel, "%s",
             m_Host.m_Plot.Settings().m_szHorzLabel);
    m_Host.m_Plot.ApplySettings(Settings);
    return 1;
}

int cWebCalculator::OnGraphTitle(const cRequest &Request, std::string *)
{
    const size_t nEnd = Request.m_Body.find('\n');
    m_Host.m_Plot.SetTitle(Request.m_Body.substr(0, nEnd).c_str());
    m_Host.m_Plot.SetHorzLabel(nEnd == std::string::npos ? ""
                                                         : Request.m_Body.substr(nEnd + 1).c_str());
    return 1;
}

int cWebCalculator::OnGraphGrid(const cRequest &Request, std::string *)
{
    m_Host.m_Plot.SetGrid(Request.Number(0) != 0, Request.Number(1) != 0);
    return 1;
}

int cWebCalculator::OnGraphLegend(const cRequest &Request, std::string *)
{
    m_Host.m_Plot.SetLegend(Request.Number(0) != 0);
    return 1;
}

int cWebCalculator::OnAutoRange(const cRequest &, std::string *)
{
    m_Host.m_Plot.AutoRange();
    return 1;
}

int cWebCalculator::OnClearGraph(const cRequest &, std::string *)
{
    return m_Host.m_Plot.ClearAll();
}

// --- data lines

// From word nFirst on: type, colour, width, style.
static cVantorLineFormat FormatOf(const cRequest &Request, size_t nFirst, const std::string &Label)
{
    cVantorLineFormat Format;
    Format.m_nGraphType = Request.Number(nFirst);
    Format.m_crColor    = TurnedColour(Request.Number(nFirst + 1));
    Format.m_nWidth     = Request.Number(nFirst + 2);
    Format.m_nStyle     = Request.Number(nFirst + 3);
    Format.m_pszLabel   = Label.empty() ? nullptr : Label.c_str();
    return Format;
}

// The line, its format, multiplier and offset; the body is the label.
int cWebCalculator::OnFormatLine(const cRequest &Request, std::string *)
{
    return m_Host.m_Plot.FormatDataSet(Request.Number(0), FormatOf(Request, 1, Request.m_Body),
                                       Request.Float(5), Request.Float(6));
}

int cWebCalculator::OnDeleteLine(const cRequest &Request, std::string *)
{
    return m_Host.m_Plot.DeleteDataSet(Request.Number(0));
}

int cWebCalculator::OnLinePoints(const cRequest &Request, std::string *pValue)
{
    const cVantorDataSet *const pSet = m_Host.m_Plot.DataSet(Request.Number(0));
    if (!pSet)
        return 0;
    const auto Text = WritePoints(*pSet, &m_Host);
    if (!Text)
        return 0;
    cJsonList Object(pValue, '{', '}');
    Object.Text("text", Text.get());
    Object.Key("withX")->append(pSet->m_pX ? "true" : "false");
    return 1;
}

// With x or not, then the format; the body is the label in a line, then the points.
int cWebCalculator::OnAddLine(const cRequest &Request, std::string *)
{
    const size_t      nEnd  = std::min(Request.m_Body.find('\n'), Request.m_Body.size());
    const std::string Label = Request.m_Body.substr(0, nEnd);
    cEnteredPoints    Points;
    if (!ReadPoints(Request.m_Body.c_str() + nEnd, Request.Number(0) != 0, &m_Host, &Points))
        return 0;
    const cVantorLineFormat Format = FormatOf(Request, 1, Label);
    return m_Host.m_Plot.AddDataSet(Points.m_nPoints, Points.m_pX.get(), Points.m_pY.get(),
                                    &Format);
}

// The line, with x or not; the body is the points.
int cWebCalculator::OnReplacePoints(const cRequest &Request, std::string *)
{
    cEnteredPoints Points;
    return ReadPoints(Request.m_Body.c_str(), Request.Number(1) != 0, &m_Host, &Points) &&
           m_Host.m_Plot.ReplaceDataSetPoints(Request.Number(0), Points.m_nPoints,
                                              Points.m_pX.get(), Points.m_pY.get());
}
