// recording_canvas.h - a canvas for tests that keeps what is drawn on it. Its
// font is as simple as a font can be: a blank is 4 pixels wide, an "M" 12, all
// other characters 8; a line of text is 14 high.

#ifndef TESTS_UNIT_RECORDING_CANVAS_H
#define TESTS_UNIT_RECORDING_CANVAS_H

#include <string>
#include <vector>

#include "graph/plot_canvas.h"

class cRecordingCanvas : public cPlotCanvas
{
public:
    enum eCall
    {
        caBox,
        caLines,
        caLine,
        caPolygons,
        caLabel,
        caPushClip,
        caPopClip
    };

    struct cCall
    {
        eCall               m_nCall;
        std::vector<cPoint> m_Points;  // of a label its one point
        std::vector<int>    m_Counts;  // of caLines and caPolygons
        cPlotPen            m_Pen;     // of polygons, boxes and labels its colour
        cRect               m_Rect;
        eAlign              m_nAlign;
        std::string         m_Text;
    };

    int PixelsPerInchX() const override { return m_nInchX; }
    int PixelsPerInchY() const override { return m_nInchY; }
    int TextHeight() const override { return 14; }

    int TextWidth(const char *szText) const override
    {
        int nWidth = 0;
        for (; *szText != '\0'; szText++)
            nWidth += *szText == ' ' ? 4 : *szText == 'M' ? 12 : 8;
        return nWidth;
    }

    void FillBox(const cRect &Rect, uint32_t crColour) override
    {
        cCall &Call = Add(caBox, crColour);
        Call.m_Rect = Rect;
    }

    void Polylines(const cPoint *pPoints, const uint32_t *pCounts, size_t nLines,
                   const cPlotPen &Pen) override
    {
        cCall &Call = Add(caLines, 0);
        Call.m_Pen  = Pen;
        StoreAll(pPoints, pCounts, nLines, &Call);
    }

    void Polyline(const cPoint *pPoints, size_t nPoints, const cPlotPen &Pen) override
    {
        cCall &Call = Add(caLine, 0);
        Call.m_Pen  = Pen;
        Call.m_Points.assign(pPoints, pPoints + nPoints);
    }

    void Polygons(const cPoint *pPoints, const int32_t *pCounts, size_t nPolygons,
                  uint32_t crColour) override
    {
        StoreAll(pPoints, pCounts, nPolygons, &Add(caPolygons, crColour));
    }

    void Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour) override
    {
        cCall &Call   = Add(caLabel, crColour);
        Call.m_Points = {At};
        Call.m_nAlign = nAlign;
        Call.m_Text   = szText;
    }

    void PushClip(const cRect &Rect) override
    {
        Add(caPushClip, 0).m_Rect = Rect;
        m_nClips++;
    }

    void PopClip() override
    {
        Add(caPopClip, 0);
        m_nClips--;
    }

    // The calls of one kind, in order.
    std::vector<const cCall *> Calls(eCall nCall) const
    {
        std::vector<const cCall *> Found;
        for (const cCall &Call : m_Calls)
            if (Call.m_nCall == nCall)
                Found.push_back(&Call);
        return Found;
    }

    // The first label of this text, or null.
    const cCall *LabelOf(const std::string &Text) const
    {
        for (const cCall &Call : m_Calls)
            if (Call.m_nCall == caLabel && Call.m_Text == Text)
                return &Call;
        return nullptr;
    }

    size_t CountVertices() const
    {
        size_t nVertices = 0;
        for (const cCall &Call : m_Calls)
            nVertices += Call.m_Points.size();
        return nVertices;
    }

    std::vector<cCall> m_Calls;
    int                m_nClips = 0;  // not popped yet
    int                m_nInchX = 96;
    int                m_nInchY = 120;

private:
    cCall &Add(eCall nCall, uint32_t crColour)
    {
        m_Calls.push_back({nCall, {}, {}, {0, 1, crColour}, {0, 0, 0, 0}, alLeft, ""});
        return m_Calls.back();
    }

    template <class cCount>
    static void StoreAll(const cPoint *pPoints, const cCount *pCounts, size_t nCount, cCall *pCall)
    {
        size_t nPoints = 0;
        for (size_t i = 0; i < nCount; i++)
            nPoints += static_cast<size_t>(pCounts[i]);
        pCall->m_Counts.assign(pCounts, pCounts + nCount);
        pCall->m_Points.assign(pPoints, pPoints + nPoints);
    }
};

#endif
