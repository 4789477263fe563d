#include "shell/key_focus.h"

#include <set>
#include <vector>

#include <doctest/doctest.h>

#include "shell/face_geometry.h"

static const unsigned kCodes = kFaceKeys + kFaceSwitches;

// The rows of the face, from the switches down.
static const std::vector<std::vector<unsigned>> s_FaceRows = {
    {31, 32},         {1, 2, 3, 4, 5},  {6, 7, 8, 9, 10}, {11, 12, 13, 14},
    {15, 16, 17, 18}, {19, 20, 21, 22}, {23, 24, 25, 26}, {27, 28, 29, 30},
};

TEST_CASE("left and right go along a row and stop at its ends")
{
    for (const auto &Row : s_FaceRows)
        for (size_t i = 0; i < Row.size(); i++)
        {
            CAPTURE(Row[i]);
            CHECK(NeighbourOf(Row[i], drLeft) == Row[i ? i - 1 : 0]);
            CHECK(NeighbourOf(Row[i], drRight) == Row[i + 1 < Row.size() ? i + 1 : i]);
        }
}

TEST_CASE("up and down go to the next row, and stop at the first and the last one")
{
    for (size_t nRow = 0; nRow < s_FaceRows.size(); nRow++)
        for (const unsigned nCode : s_FaceRows[nRow])
        {
            CAPTURE(nCode);
            const unsigned nUp   = NeighbourOf(nCode, drUp);
            const unsigned nDown = NeighbourOf(nCode, drDown);
            const auto     IsIn  = [](const std::vector<unsigned> &Row, unsigned nKey) {
                return std::set<unsigned>(Row.begin(), Row.end()).count(nKey) == 1;
            };
            CHECK((nRow == 0 ? nUp == nCode : IsIn(s_FaceRows[nRow - 1], nUp)));
            CHECK((nRow + 1 == s_FaceRows.size() ? nDown == nCode
                                                 : IsIn(s_FaceRows[nRow + 1], nDown)));
        }
}

TEST_CASE("up and down go to the key that is nearest sideways")
{
    static const struct
    {
        unsigned   m_nFrom;
        eDirection m_nDirection;
        unsigned   m_nTo;
    } s_Rows[] = {
        {2, drUp, 31},    {5, drUp, 32},   {31, drDown, 2},  {32, drDown, 4},  {6, drUp, 1},
        {7, drDown, 11},  {6, drDown, 11}, {11, drUp, 6},    {11, drDown, 15}, {16, drUp, 11},
        {10, drDown, 14}, {14, drUp, 10},  {18, drDown, 22}, {30, drUp, 26},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.m_nFrom);
        CAPTURE(Row.m_nDirection);
        CHECK(NeighbourOf(Row.m_nFrom, Row.m_nDirection) == Row.m_nTo);
    }
}

TEST_CASE("the arrows reach every key and switch from every other one")
{
    for (unsigned nFrom = 1; nFrom <= kCodes; nFrom++)
    {
        std::set<unsigned>    Reached = {nFrom};
        std::vector<unsigned> Open    = {nFrom};
        while (!Open.empty())
        {
            const unsigned nCode = Open.back();
            Open.pop_back();
            for (const eDirection nDirection : {drLeft, drRight, drUp, drDown})
                if (Reached.insert(NeighbourOf(nCode, nDirection)).second)
                    Open.push_back(NeighbourOf(nCode, nDirection));
        }
        CAPTURE(nFrom);
        CHECK(Reached.size() == kCodes);
    }
}
