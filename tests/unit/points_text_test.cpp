#include "graph/points_text.h"

#include <cfloat>
#include <chrono>
#include <string>

#include <doctest/doctest.h>

#include "graph/vantor_plot.h"
#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"
#include "toolkit/retry_alloc.h"

// The points as "x:y" or "y", a blank after each.
static std::string Read(const char *szText, int bWithX)
{
    cRecordingBoxes Boxes;
    cEnteredPoints  Points;
    CHECK(ReadPoints(szText, bWithX, &Boxes, &Points) == 1);
    CHECK(Boxes.m_Boxes.empty());
    CHECK(!Points.m_pX == !bWithX);
    std::string All;
    for (uint32_t i = 0; i < Points.m_nPoints; i++)
    {
        char szPoint[64];
        if (bWithX)
            snprintf(szPoint, sizeof szPoint, "%g:%g ", static_cast<double>(Points.m_pX[i]),
                     static_cast<double>(Points.m_pY[i]));
        else
            snprintf(szPoint, sizeof szPoint, "%g ", static_cast<double>(Points.m_pY[i]));
        All += szPoint;
    }
    return All;
}

namespace
{

struct cTextRow
{
    const char *szText;
    const char *szPoints;
};

}  // namespace

static std::string Written(const cVantorPlot &Plot, uint32_t nLine)
{
    cRecordingBoxes Boxes;
    const auto      pszText = WritePoints(*Plot.DataSet(nLine), &Boxes);
    REQUIRE(pszText);
    return pszText.get();
}

TEST_CASE("a line of y data counts when it holds exactly one number")
{
    static const cTextRow s_Rows[] = {
        {"", ""},
        {"5", "5 "},
        {"1\r\n2\r\nabc\r\n3", "1 2 3 "},
        {"1\r\n2\r\nabc\r\n3\r\n", "1 2 3 "},
        {"1\n2\n3\n", "1 2 3 "},
        {" \t1.5 \t\r\n", "1.5 "},
        {"1 2\r\n3", "3 "},
        {"1,2\r\n3", "3 "},
        {"1,\r\n3", "3 "},
        {"1x\r\n3", "3 "},
        {"\r\n\r\n7\r\n\r\n", "7 "},  // an empty line does not take the next one's number
        {"  \r\n7", "7 "},
        {"\v\r\n7", "7 "},
        {"-1e3\r\n+.5\r\n5.\r\n", "-1000 0.5 5 "},
        {"1e\r\n0x1\r\ninf\r\nnan\r\n2", "2 "},
        {"1\r2\r\n3", "3 "},  // a lone carriage return ends no line
        {"4\r", "4 "},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        CHECK(Read(Row.szText, 0) == Row.szPoints);
    }
}

TEST_CASE("a line of x,y data counts when a comma stands between two numbers")
{
    static const cTextRow s_Rows[] = {
        {"", ""},
        {"1,2", "1:2 "},
        {"1 , 2\r\n3\t,\t4\r\n", "1:2 3:4 "},
        {" 1,2", "1:2 "},
        {"1 2\r\n3,4", "3:4 "},
        {"1\r\n,2\r\n3,4", "3:4 "},  // both numbers are on one line
        {"1,\r\n2\r\n3,4", "3:4 "},
        {"1,,2\r\n3,4", "3:4 "},
        {"1,2,9\r\n3,4 and more\r\n5,6e", "1:2 3:4 5:6 "},
        {",2\r\nabc\r\n1,b\r\na,1\r\n3,4", "3:4 "},
        {"-1.5e1,+.5", "-15:0.5 "},
    };
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        CHECK(Read(Row.szText, 1) == Row.szPoints);
    }
}

// With the sanitizer's strict checks each function of the C library that gets a part of
// the text reads all that follows, which would take minutes here.
#ifdef VORSTEK_STRICT_STRINGS
static const int kManyLines = 2000;
#else
static const int kManyLines = 500000;
#endif

TEST_CASE("each line of a text is looked at once, blank or not")
{
    std::string Text = "7 , 8\n";
    for (int i = 0; i < kManyLines; i++)
        Text += i % 2 ? "\r\n" : "5 , \r\n";
    Text += "9 , 1\n";
    const auto Begin = std::chrono::steady_clock::now();

    CHECK(Read(Text.c_str(), 1) == "7:8 9:1 ");
    CHECK(Read((std::string(kManyLines, '\n') + "3").c_str(), 0) == "3 ");
    CHECK(Read((std::string(kManyLines, '\n') + "3,4").c_str(), 1) == "3:4 ");

    // A hundredth of a second; minutes if each line looked through those below it.
    CHECK(std::chrono::steady_clock::now() - Begin < std::chrono::seconds(10));
}

TEST_CASE("numbers beyond a float are entered as the largest one")
{
    cRecordingBoxes Boxes;
    cEnteredPoints  Points;
    REQUIRE(ReadPoints("1e99,-1e99", 1, &Boxes, &Points) == 1);

    CHECK(Points.m_pX[0] == FLT_MAX);
    CHECK(Points.m_pY[0] == -FLT_MAX);
}

TEST_CASE("the points of a set are written one a line with six digits")
{
    cRecordingBoxes Boxes;
    cVantorPlot     Plot(&Boxes);
    const float     X[] = {0.1F, 1234567.0F, -1e-7F};
    const float     Y[] = {-1.23456789F, FLT_MAX, 0.0F};
    REQUIRE(Plot.AddDataSet(3, X, Y, nullptr) == 1);
    REQUIRE(Plot.AddDataSet(3, nullptr, Y, nullptr) == 1);

    CHECK(Written(Plot, 1) == "0.1 , -1.23457\r\n1.23457e+06 , 3.40282e+38\r\n-1e-07 , 0\r\n");
    CHECK(Written(Plot, 2) == "-1.23457\r\n3.40282e+38\r\n0\r\n");
}

TEST_CASE("the longest texts of a thousand points are written and read back whole")
{
    cRecordingBoxes Boxes;
    cVantorPlot     Plot(&Boxes);
    for (uint32_t i = 0; i < kMostEditedPoints; i++)
        REQUIRE(Plot.AddPoint(1, -1.23456e-30F, -1.23456e-30F) == 1);

    const std::string Text = Written(Plot, 1);
    cEnteredPoints    Points;
    REQUIRE(ReadPoints(Text.c_str(), 1, &Boxes, &Points) == 1);

    CHECK(Text.size() == 1000 * sizeof "-1.23456e-30 , -1.23456e-30\r");
    CHECK(Points.m_nPoints == kMostEditedPoints);
    CHECK(Points.m_pX[999] == -1.23456e-30F);
    CHECK(Points.m_pY[999] == -1.23456e-30F);
}

TEST_CASE("points are read and written once there is memory again")
{
    for (int nSucceed = 0; nSucceed < 2; nSucceed++)
    {
        cRecordingBoxes Boxes({anRetry});
        cEnteredPoints  Points;
        cFailingMemory  Memory(nSucceed, 1);
        CHECK(ReadPoints("1,2\n3,4\n", 1, &Boxes, &Points) == 1);
        CHECK(Memory.FailuresLeft() == 0);
        CHECK(Points.m_nPoints == 2);
        REQUIRE(Boxes.m_Boxes.size() == 1);
        CHECK(Boxes.m_Boxes[0].m_Text == kMemoryFailureText);
    }
}

TEST_CASE("a user who gives up when memory runs out gets no points and no text")
{
    cRecordingBoxes Quiet;
    cVantorPlot     Plot(&Quiet);
    REQUIRE(Plot.AddPoint(1, 1.0F, 2.0F) == 1);
    for (int nSucceed = 0; nSucceed < 2; nSucceed++)
    {
        cRecordingBoxes Boxes({anCancel});
        cEnteredPoints  Points;
        cFailingMemory  Memory(nSucceed, 1);
        CHECK(ReadPoints("1,2\n3,4\n", 1, &Boxes, &Points) == 0);
        CHECK(Points.m_nPoints == 0);
        CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
    }
    cRecordingBoxes Boxes({anCancel});
    cFailingMemory  Memory(0, 1);
    CHECK(!WritePoints(*Plot.DataSet(1), &Boxes));
    CHECK(Boxes.m_QuitCodes == std::vector<int>{0});
}
