#include "graph/column_runs.h"

#include <algorithm>
#include <random>
#include <set>
#include <utility>
#include <vector>

#include <doctest/doctest.h>

namespace
{

typedef std::vector<cPoint>           cPoints;
typedef std::set<std::pair<int, int>> cPixels;

}  // namespace

static cPoints Merged(const cPoints &Vertices)
{
    cPoints Stored(Vertices.size());
    Stored.resize(MergeColumns(Vertices.data(), Vertices.size(), Stored.data()));
    return Stored;
}

namespace
{

// The pixels in columns, and the steps from one column to another, which a
// platform draws in its own way. A line lacks its last pixel.
struct cCovered
{
    explicit cCovered(const cPoints &Line)
    {
        for (size_t i = 0; i + 1 < Line.size(); i++)
        {
            const cPoint From = Line[i];
            const cPoint To   = Line[i + 1];
            m_Pixels.insert({From.m_nX, From.m_nY});
            if (From.m_nX != To.m_nX)
                m_Steps.push_back({From, To});
            else
                for (int y = std::min(From.m_nY, To.m_nY) + 1; y < std::max(From.m_nY, To.m_nY);
                     y++)
                    m_Pixels.insert({From.m_nX, y});
        }
    }

    bool operator==(const cCovered &) const = default;

    cPixels                                m_Pixels;
    std::vector<std::pair<cPoint, cPoint>> m_Steps;
};

}  // namespace

TEST_CASE("of a run in one column the first, highest, lowest and last vertex stay")
{
    static const struct
    {
        cPoints m_Vertices;
        cPoints m_Merged;
    } s_Rows[] = {
        {{}, {}},
        {{{3, 4}}, {{3, 4}}},
        {{{3, 4}, {3, 4}}, {{3, 4}, {3, 4}}},
        {{{1, 5}, {1, 9}, {1, 2}, {1, 8}, {1, 3}, {1, 6}, {2, 7}},
         {{1, 5}, {1, 2}, {1, 9}, {1, 6}, {2, 7}}},
        // The line's last vertex is not part of a run.
        {{{1, 5}, {1, 9}, {1, 2}, {1, 8}, {1, 3}, {1, 6}},
         {{1, 5}, {1, 2}, {1, 9}, {1, 3}, {1, 6}}},
        // Four vertices are enough.
        {{{1, 5}, {1, 9}, {1, 2}, {1, 8}, {2, 7}}, {{1, 5}, {1, 9}, {1, 2}, {1, 8}, {2, 7}}},
    };
    for (const auto &Row : s_Rows)
        CHECK((Merged(Row.m_Vertices) == Row.m_Merged));
}

TEST_CASE("a merged line covers the pixels of the original and has no more vertices")
{
    std::mt19937 Random(1);
    for (int nLine = 0; nLine < 500; nLine++)
    {
        CAPTURE(nLine);
        cPoints Line;
        int     x = 0;
        for (auto i = Random() % 60; i > 0; i--)
        {
            x += Random() % 8 == 0 ? static_cast<int>(Random() % 3) - 1 : 0;
            Line.push_back({x, static_cast<int>(Random() % 20)});
        }
        const cPoints Short = Merged(Line);
        CHECK(Short.size() <= Line.size());
        CHECK((cCovered(Short) == cCovered(Line)));
    }
}
