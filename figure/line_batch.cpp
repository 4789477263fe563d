#include "figure/line_batch.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <memory>

#include "figure/line_tracer.h"
#include "figure/marker_cover.h"
#include "figure/marker_grid.h"

// Of all lines of a pass, 8 bytes each.
static const size_t kMostVertices = 1000000;

// Points after which the vertices are counted; of each there are at most three.
static const size_t kPointsBetween = 100000;

// Lines of a pass: each may have a grid of markers.
static const double kMostGridBytes = 12e6;

// Vertices may be so far outside the frame, in pixels: joins and ends of wide lines
// must not be visible.
static const double kOutside = 50.0;

std::string ClassesOfLine(size_t nLine)
{
    return "line line-" + std::to_string(nLine + 1);
}

int HasMarkers(const cLineLook &Look, const cLineExtent &Extent)
{
    return Look.m_nType == gtScatter || (Look.m_nType != gtStoop && Extent.m_nPoints == 1);
}

namespace
{

// Where the axes' values are on paper, and where a bar begins.
struct cPaper
{
    cAxisScale m_X;
    cAxisScale m_Y;
    int        m_bXLog;
    int        m_bYLog;
    double     m_dBase;
    cFigureBox m_Frame;
};

// Keeps vertices, or passes them on once there are too many.
class cVertexStore : public cVertexSink
{
public:
    void Vertex(const cSpot &Spot, int bMove) override
    {
        if (m_pCanvas)
            Draw(Spot, bMove);
        else
            m_Stored.push_back({static_cast<int32_t>(std::lround(Spot.m_dX * 100.0)),
                                static_cast<int32_t>(std::lround(Spot.m_dY * 100.0)) * 2 + bMove});
    }

    // Draws what there is; what follows is drawn at once. The stroke has the
    // width 0 for markers.
    void StartDrawing(const cStroke &Stroke, cFigureCanvas *pCanvas)
    {
        m_Stroke  = Stroke;
        m_pCanvas = pCanvas;
        for (const cStored &Stored : m_Stored)
        {
            const int     bMove = Stored.m_nYAndMove & 1;
            const int32_t nY    = (Stored.m_nYAndMove - bMove) / 2;
            Draw({Stored.m_nX / 100.0, nY / 100.0}, bMove);
        }
        m_Stored.clear();
    }

    void FinishDrawing() { EndPart(); }

    int    IsDrawing() const { return m_pCanvas != nullptr; }
    size_t Count() const { return m_Stored.size(); }

private:
    // In 1/100 pixel.
    struct cStored
    {
        int32_t m_nX;
        int32_t m_nYAndMove;
    };

    void Draw(const cSpot &Spot, int bMove)
    {
        if (m_Stroke.m_dWidth == 0.0)
        {
            m_pCanvas->Marker(Spot);
            return;
        }
        if (bMove)
        {
            EndPart();
            m_pCanvas->MoveTo(Spot);
            m_Start = Spot;
        }
        else
            m_pCanvas->LineTo(Spot);
        m_bDot = bMove || (m_bDot && Spot.m_dX == m_Start.m_dX && Spot.m_dY == m_Start.m_dY);
    }

    // A point between two gaps would only be as long as the line is wide. Strokes side
    // by side make a dot twice as wide; none is longer than the shortest dash.
    void EndPart()
    {
        const double dHalf = m_Stroke.m_dWidth / 2.0;
        for (int nRow = -1; nRow <= 1 && m_bDot; nRow++)
        {
            const double dY = m_Start.m_dY + nRow * dHalf;
            if (m_Stroke.m_Dashes.empty())
                DrawStroke(-dHalf, dHalf, dY);
            else
            {
                DrawStroke(-2.0 * dHalf, 0.0, dY);
                DrawStroke(0.0, 2.0 * dHalf, dY);
            }
        }
        m_bDot = 0;
    }

    // From and to places right of the start.
    void DrawStroke(double dFrom, double dTo, double dY)
    {
        m_pCanvas->MoveTo({m_Start.m_dX + dFrom, dY});
        m_pCanvas->LineTo({m_Start.m_dX + dTo, dY});
    }

    std::deque<cStored> m_Stored;
    cFigureCanvas      *m_pCanvas = nullptr;
    cStroke             m_Stroke  = {};
    cSpot               m_Start   = {};  // of the part
    int                 m_bDot    = 0;   // the part has not moved from there
};

// A data line on its way from points to vertices.
class cLinePen
{
public:
    cLinePen(const cPaper &Paper, const cLineLook &Look, const cLineExtent &Extent)
        : m_Paper(Paper), m_nType(Look.m_nType), m_bMarkers(HasMarkers(Look, Extent)),
          m_dSpacing(Extent.m_dSpacing), m_Clipper(Around(Paper.m_Frame), &m_Store)
    {
        if (!m_bMarkers)
            return;
        m_Grid  = std::make_unique<cMarkerGrid>(Paper.m_Frame);
        m_Cover = std::make_unique<cMarkerCover>(Paper.m_Frame, Look.m_Marker);
    }

    void Take(double dX, double dY)
    {
        const int bShown = std::isfinite(dX) && std::isfinite(dY) &&
                           !(m_Paper.m_bXLog && dX <= 0.0) && !(m_Paper.m_bYLog && dY <= 0.0);
        if (!bShown)
        {
            EndPart();
            return;
        }
        const cSpot Spot = {m_Paper.m_X.Position(dX), m_Paper.m_Y.Position(dY)};
        if (!m_bMarkers)
            AddSpot(dX, Spot);
        else if (m_Grid->Take(Spot) && m_Cover->Add(Spot))
            m_Store.Vertex(Spot, 1);
    }

    // Also at the end of the line.
    void EndPart()
    {
        if (m_bPart && m_nType == gtStoop)
            EndBars();
        m_Clipper.Gap();
        m_bPart   = 0;
        m_bFormer = 0;
    }

    int           IsMarkers() const { return m_bMarkers; }
    cVertexStore *Store() { return &m_Store; }

private:
    static cFigureBox Around(const cFigureBox &Frame)
    {
        return {Frame.m_dLeft - kOutside, Frame.m_dTop - kOutside, Frame.m_dRight + kOutside,
                Frame.m_dBottom + kOutside};
    }

    void AddSpot(double dX, const cSpot &Spot)
    {
        const int bSteps = m_nType == gtStairStep || m_nType == gtStoop;
        if (!m_bPart && m_nType == gtStoop)
            m_Clipper.LineTo({Spot.m_dX, m_Paper.m_dBase});
        if (m_bPart && bSteps)
            m_Clipper.LineTo({Spot.m_dX, m_Former.m_dY});
        m_Clipper.LineTo(Spot);
        if (m_bPart)
        {
            m_dPartSpacing = dX - m_dFormerX;
            m_bFormer      = 1;
        }
        m_bPart    = 1;
        m_Former   = Spot;
        m_dFormerX = dX;
    }

    // The last bar is as wide as the one before it.
    void EndBars()
    {
        const double dEnd = m_dFormerX + (m_bFormer ? m_dPartSpacing : m_dSpacing);
        const double dX =
            m_Paper.m_bXLog && dEnd <= 0.0 ? m_Former.m_dX : m_Paper.m_X.Position(dEnd);
        m_Clipper.LineTo({dX, m_Former.m_dY});
        m_Clipper.LineTo({dX, m_Paper.m_dBase});
    }

    const cPaper                 &m_Paper;
    uint32_t                      m_nType;
    int                           m_bMarkers;
    double                        m_dSpacing;          // of the line's end
    int                           m_bPart        = 0;  // has begun
    int                           m_bFormer      = 0;  // and has two points
    double                        m_dFormerX     = 0.0;
    double                        m_dPartSpacing = 0.0;
    cSpot                         m_Former       = {};
    cVertexStore                  m_Store;
    cLineClipper                  m_Clipper;
    std::unique_ptr<cMarkerGrid>  m_Grid;  // null for a line without markers, as is m_Cover
    std::unique_ptr<cMarkerCover> m_Cover;
};

class cLineBatch : public cPointSink
{
public:
    cLineBatch(const cFigure &Figure, const cPaper &Paper, const cFigureTexts &Texts,
               const cFigureExtents &Extents, size_t nFirst, cFigureCanvas *pCanvas)
        : m_Figure(Figure), m_Texts(Texts), m_nFirst(nFirst), m_pCanvas(pCanvas)
    {
        // Grid and cover have 16 bits and one for each pixel of the frame.
        const double dGrid = Paper.m_Frame.Width() * Paper.m_Frame.Height() * 17.0 / 8.0 + 1.0;
        const auto   nMost = static_cast<size_t>(std::max(kMostGridBytes / dGrid, 1.0));
        const size_t nEnd  = std::min(Extents.m_Lines.size(), nFirst + nMost);
        for (size_t nLine = nFirst; nLine < nEnd; nLine++)
            m_Pens.emplace_back(Paper, LookOfLine(Figure, nLine), Extents.m_Lines[nLine]);
    }

    void Take(size_t nLine, double dX, double dY) override
    {
        const size_t nPen = nLine - m_nFirst;
        if (nLine < m_nFirst || nPen >= m_Pens.size())
            return;
        m_Pens[nPen].Take(dX, dY);
        if (++m_nTaken % kPointsBetween == 0)
            LimitVertices();
    }

    // The number of the first line that has not been drawn.
    size_t Finish()
    {
        for (size_t nPen = 0; nPen < m_Pens.size(); nPen++)
        {
            m_Pens[nPen].EndPart();
            if (!m_Pens[nPen].Store()->IsDrawing())
                BeginLine(nPen);
            EndLine(nPen);
        }
        return m_nFirst + m_Pens.size();
    }

private:
    void LimitVertices()
    {
        size_t nVertices = 0;
        for (cLinePen &Pen : m_Pens)
            nVertices += Pen.Store()->Count();
        while (nVertices > kMostVertices && m_Pens.size() > 1)
        {
            nVertices -= m_Pens.back().Store()->Count();
            m_Pens.pop_back();
        }
        if (nVertices > kMostVertices)
            BeginLine(0);
    }

    void BeginLine(size_t nPen)
    {
        const size_t    nLine = m_nFirst + nPen;
        const cLineLook Look  = LookOfLine(m_Figure, nLine);
        cLinePen       &Pen   = m_Pens[nPen];
        m_pCanvas->BeginGroup(ClassesOfLine(nLine).c_str(), m_Texts.m_LineLabels[nLine]);
        if (Pen.IsMarkers())
            m_pCanvas->BeginMarkers(Look.m_Marker);
        else
            m_pCanvas->BeginLine(Look.m_Stroke);
        Pen.Store()->StartDrawing(Pen.IsMarkers() ? cStroke() : Look.m_Stroke, m_pCanvas);
    }

    void EndLine(size_t nPen)
    {
        m_Pens[nPen].Store()->FinishDrawing();
        if (m_Pens[nPen].IsMarkers())
            m_pCanvas->EndMarkers();
        else
            m_pCanvas->EndLine();
        m_pCanvas->EndGroup();
    }

    const cFigure       &m_Figure;
    const cFigureTexts  &m_Texts;
    size_t               m_nFirst;
    cFigureCanvas       *m_pCanvas;
    size_t               m_nTaken = 0;
    std::deque<cLinePen> m_Pens;  // these stay where they are
};

}  // namespace

int DrawDataLines(const cFigure &Figure, const cFigureLayout &Layout, const cFigureTexts &Texts,
                  const cFigureExtents &Extents, cPointSource *pSource, cFigureCanvas *pCanvas)
{
    const int    bYLog = Figure.m_Y.m_Range.m_bLog;
    const cPaper Paper = {Layout.m_XScale,
                          Layout.m_YScale,
                          Figure.m_X.m_Range.m_bLog,
                          bYLog,
                          bYLog ? Layout.m_Frame.m_dBottom : Layout.m_YScale.Position(0.0),
                          Layout.m_Frame};
    for (size_t nFirst = 0; nFirst < Extents.m_Lines.size();)
    {
        cLineBatch Batch(Figure, Paper, Texts, Extents, nFirst, pCanvas);
        if (!pSource->Read(&Batch))
            return 0;
        nFirst = Batch.Finish();
    }
    return 1;
}
