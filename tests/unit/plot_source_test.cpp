#include "figure/plot_source.h"

#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/recording_boxes.h"

namespace
{

struct cTakenPoint
{
    size_t m_nLine;
    double m_dX;
    double m_dY;
};

class cPointList : public cPointSink
{
public:
    void Take(size_t nLine, double dX, double dY) override { m_Points.push_back({nLine, dX, dY}); }

    std::vector<cTakenPoint> m_Points;
};

}  // namespace

TEST_CASE("a plot's points are read twice, as they are plotted")
{
    cRecordingBoxes Boxes;
    cVantorPlot     Plot(&Boxes);
    REQUIRE(Plot.AddPoint(1, 1.5F, 10.0F) == 1);
    REQUIRE(Plot.AddPoint(1, 1.0F, 20.0F) == 1);
    const float Y[] = {7.0F, 8.0F};
    REQUIRE(Plot.AddDataSet(2, nullptr, Y, nullptr) == 1);
    REQUIRE(Plot.FormatDataSet(2, {}, 2.0F, 0.5F) == 1);
    cPlotSource Source(Plot);

    for (int nPass = 0; nPass < 2; nPass++)
    {
        cPointList List;
        CHECK(Source.Read(&List) == 1);

        static const cTakenPoint s_Wanted[] = {
            {0, 1.5, 10.0}, {0, 1.0, 20.0}, {1, 0.0, 14.5}, {1, 1.0, 16.5}};
        REQUIRE(List.m_Points.size() == std::size(s_Wanted));
        for (size_t i = 0; i < std::size(s_Wanted); i++)
        {
            CHECK(List.m_Points[i].m_nLine == s_Wanted[i].m_nLine);
            CHECK(List.m_Points[i].m_dX == s_Wanted[i].m_dX);
            CHECK(List.m_Points[i].m_dY == s_Wanted[i].m_dY);
        }
    }
}

TEST_CASE("a plot's texts are those of a figure")
{
    cRecordingBoxes Boxes;
    cVantorPlot     Plot(&Boxes);
    REQUIRE(Plot.AddPoint(1, 1.0F, 2.0F) == 1);
    REQUIRE(Plot.AddPoint(2, 1.0F, 2.0F) == 1);
    cVantorLineFormat Format;
    Format.m_pszLabel = "speed";
    REQUIRE(Plot.FormatDataSet(2, Format, 1.0F, 0.0F) == 1);
    const cPlotSource Source(Plot);

    CHECK(Source.Lines() == 2);
    CHECK(Source.LineLabel(0).empty());
    CHECK(Source.LineLabel(1) == "speed");
    CHECK(Source.Title() == "My Graph");
    CHECK(Source.XLabel() == "x axis");
}
