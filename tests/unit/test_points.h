// test_points.h - points for a figure, written down in a test.

#ifndef TESTS_UNIT_TEST_POINTS_H
#define TESTS_UNIT_TEST_POINTS_H

#include <string>
#include <vector>

#include "figure/point_source.h"

struct cListedPoint
{
    size_t m_nLine;
    double m_dX;
    double m_dY;
};

class cTestPoints : public cPointSource
{
public:
    cTestPoints(size_t nLines, std::vector<cListedPoint> Points)
        : m_Points(std::move(Points)), m_nLines(nLines)
    {
    }

    int Read(cPointSink *pSink) override
    {
        m_nReads++;
        for (const cListedPoint &Point : m_Points)
            pSink->Take(Point.m_nLine, Point.m_dX, Point.m_dY);
        return m_nReads <= m_nGoodReads;
    }
    size_t      Lines() const override { return m_nLines; }
    std::string LineLabel(size_t nLine) const override
    {
        return nLine < m_Labels.size() ? m_Labels[nLine] : "";
    }
    std::string Title() const override { return m_Title; }
    std::string XLabel() const override { return m_XLabel; }

    std::vector<cListedPoint> m_Points;
    std::vector<std::string>  m_Labels;
    std::string               m_Title;
    std::string               m_XLabel;
    size_t                    m_nLines;
    int                       m_nReads     = 0;
    int                       m_nGoodReads = 1000;  // later ones fail
};

#endif
