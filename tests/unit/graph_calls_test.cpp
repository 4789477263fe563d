#include <cmath>

#include "tests/unit/calculator_rig.h"
#include "tests/unit/special_numbers.h"

static const char *const kMemoryLimit = "The Vorstek's program must now halt\n"
                                        "since the cVantor window has reached its\n"
                                        "memory limit\n";

static void MakeSets(cCalculatorRig *pRig, size_t nSets)
{
    pRig->m_Host.m_Graph.assign(nSets, {{1.0, 1.0}});
}

TEST_CASE("SetG selects a data line that exists or the next new one")
{
    // clang-format off
    static const struct
    {
        size_t   nSets;
        double   dX;
        int      nResult;
        unsigned nLine;   // from 0; 7 is the one before
    } s_Rows[] =
    {
        { 0, 1.0,          1, 0 },
        { 0, 1.999,        1, 0 },
        { 0, 2.0,          0, 7 },
        { 0, 0.0,          0, 7 },
        { 0, 0.9,          0, 7 },
        { 0, -0.9,         0, 7 },
        { 0, -1.0,         0, 7 },
        { 3, 1.0,          1, 0 },
        { 3, 3.0,          1, 2 },
        { 3, 4.0,          1, 3 },
        { 3, 4.999,        1, 3 },
        { 3, 5.0,          0, 7 },
        { 3, -3.0,         0, 7 },
        { 3, 1e50,         0, 7 },
        { 3, -1e50,        0, 7 },
        { 3, 4294967297.0, 0, 7 },
        { 3, 4294967296.0, 0, 7 },
        { 3, kNan,         0, 7 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nSets);
        CAPTURE(Row.dX);
        cCalculatorRig Rig;
        MakeSets(&Rig, Row.nSets);
        Rig.m_Engine.Raw().m_nGraphLine = 7;
        Rig.SetXY(Row.dX, 2.0);

        const int nResult = Rig.Run("SetG");

        CHECK(nResult == Row.nResult);
        CHECK(Rig.State().m_nGraphLine == Row.nLine);
        CHECK((Rig.Display() == "Error: bad graph") == !Row.nResult);
        CHECK_TEXT(Rig.Sounds(), Row.nResult ? "" : "10052");
        CHECK(Rig.m_Host.m_bGraphShown == 0);
        CHECK(Rig.m_Host.m_Graph.size() == Row.nSets);
    }
}

TEST_CASE("a new calculator feeds the first data line")
{
    cCalculatorRig Rig;

    CHECK(Rig.State().m_nGraphLine == 0);
}

TEST_CASE("SumG adds the point (X, Y) and shows the graph")
{
    cCalculatorRig Rig;
    Rig.Set(3.0, 4.0, 5.0, 6.0);

    CHECK(Rig.Run("SumG") == 1);
    Rig.Set(7.0, 8.0);
    CHECK(Rig.Run("SumG") == 1);

    CHECK(Rig.m_Host.m_bGraphShown == 1);
    REQUIRE(Rig.m_Host.m_Graph.size() == 1);
    CHECK(Rig.m_Host.m_Graph[0] == std::vector<std::pair<double, double>>{{3.0, 4.0}, {7.0, 8.0}});
    CHECK(Rig.X() == 7.0);
    CHECK(Rig.Y() == 8.0);
}

TEST_CASE("SetG to the next new line and SumG begin a data line")
{
    cCalculatorRig Rig;
    MakeSets(&Rig, 2);
    Rig.Set(3.0, 4.0);

    CHECK(Rig.Run("SetG") == 1);
    CHECK(Rig.Run("SumG") == 1);

    REQUIRE(Rig.m_Host.m_Graph.size() == 3);
    CHECK(Rig.m_Host.m_Graph[2] == std::vector<std::pair<double, double>>{{3.0, 4.0}});
}

TEST_CASE("SumG never moves to the next data line by itself")
{
    cCalculatorRig Rig;
    MakeSets(&Rig, 2);

    Rig.Run("SumG");
    Rig.Run("SumG");

    CHECK(Rig.m_Host.m_Graph[0].size() == 3);
    CHECK(Rig.m_Host.m_Graph[1].size() == 1);
    CHECK(Rig.State().m_nGraphLine == 0);
}

TEST_CASE("SumG fails only when the current index is above the number of data lines")
{
    // clang-format off
    static const struct { size_t nSets; unsigned nLine; int nResult; } s_Rows[] =
    {
        { 0, 0, 1 },
        { 0, 1, 0 },
        { 2, 0, 1 },
        { 2, 1, 1 },
        { 2, 2, 1 },
        { 2, 3, 0 },
        { 2, 9, 0 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nSets);
        CAPTURE(Row.nLine);
        cCalculatorRig Rig;
        MakeSets(&Rig, Row.nSets);
        Rig.Set(3.0, 4.0);
        Rig.m_Engine.Raw().m_nGraphLine = Row.nLine;

        const int nResult = Rig.Run("SumG");

        CHECK(nResult == Row.nResult);
        CHECK((Rig.Display() == "Error: bad graph") == !Row.nResult);
        CHECK_TEXT(Rig.Sounds(), Row.nResult ? "" : "10052");
        CHECK(Rig.m_Host.m_bGraphShown == 1);
        CHECK(Rig.m_Host.m_Boxes.empty());
        if (Row.nResult)
            CHECK(Rig.m_Host.m_Graph[Row.nLine].back() == std::make_pair(3.0, 4.0));
    }
}

TEST_CASE("SumG stores no NaN")
{
    const std::pair<double, double> Points[] = {{kNan, 1.0}, {1.0, kNan}, {kNan, kNan}};
    for (const auto &[dX, dY] : Points)
    {
        cCalculatorRig Rig;
        Rig.SetXY(dX, dY);

        CHECK(Rig.Run("SumG") == 0);

        CHECK_TEXT(Rig.Display(), "Error: bad graph");
        CHECK(Rig.LastSound() == 10052);
        CHECK(Rig.m_Host.m_Graph.empty());
        CHECK(Rig.m_Host.m_bGraphShown == 1);
    }
}

TEST_CASE("a point goes to the graph at full range")
{
    cCalculatorRig Rig;
    Rig.Set(9.999999999e99, -9.999999999e99);

    CHECK(Rig.Run("SumG") == 1);

    CHECK(Rig.m_Host.m_Graph[0][0] == std::make_pair(9.999999999e99, -9.999999999e99));
}

TEST_CASE("ClearG empties the graph and goes back to the first data line")
{
    cCalculatorRig Rig;
    MakeSets(&Rig, 3);
    Rig.m_Engine.Raw().m_nGraphLine = 3;

    CHECK(Rig.Run("ClearG") == 1);

    CHECK(Rig.m_Host.m_Graph.empty());
    CHECK(Rig.State().m_nGraphLine == 0);
    CHECK(Rig.m_Host.m_bGraphShown == 0);
}

TEST_CASE("the graph instructions end as every operation does")
{
    for (const char *const szMnemonic : {"ClearG", "SetG", "SumG"})
    {
        CAPTURE_TEXT(szMnemonic);
        cCalculatorRig Rig;
        Rig.Type("1");
        Rig.m_Engine.Raw().m_bStackLift = 0;

        CHECK(Rig.Run(szMnemonic) == 1);

        CHECK_TEXT(Rig.State().m_szEntry, "");
        CHECK_TEXT(Rig.Display(), "+1.00");
        CHECK(Rig.State().m_bStackLift == 1);
        CHECK(Rig.State().m_dLastX == 0.0);
    }
}

TEST_CASE("a full data line halts the running program with a box")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\n1\nSumG\nGTO 1\n");
    Rig.m_Host.m_nPointLimit = 5;
    Rig.m_Host.m_OnDrain     = [&Rig] { return Rig.m_Host.m_nDrains < 100; };
    std::string ShownInBox;
    int         bRunning = 0;
    Rig.m_Host.m_OnAsk   = [&] {
        bRunning   = Rig.State().m_bProgramRunning;
        ShownInBox = Rig.Display();
    };

    Rig.Type("R/S");

    REQUIRE(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), kMemoryLimit);
    CHECK_TEXT(Rig.m_Host.m_Boxes[0].m_Caption, "");
    CHECK(Rig.m_Host.m_Boxes[0].m_nButtons == bnOk);
    CHECK(Rig.m_Host.m_Boxes[0].m_nIcon == icNone);
    CHECK(bRunning == 1);
    CHECK_TEXT(ShownInBox, "+1.00");
    CHECK(Rig.State().m_bProgramRunning == 0);
    CHECK(Rig.State().m_nCurLine == 4);
    CHECK_TEXT(Rig.Display(), "+1.00");
    CHECK_TEXT(Rig.State().m_szKeystrokes, "");
    CHECK_TEXT(Rig.Sounds(), "10050");
    CHECK(Rig.m_Host.m_Graph[0].size() == 5);
}

TEST_CASE("from the keyboard a full data line only shows the box")
{
    cCalculatorRig Rig;
    Rig.m_Host.m_nPointLimit = 0;
    Rig.m_Engine.GoToLine(7);

    const int nResult = Rig.Run("SumG");

    CHECK(nResult == 1);
    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), kMemoryLimit);
    CHECK(Rig.State().m_nCurLine == 7);
    CHECK(Rig.m_Host.m_nDrains == 0);
    CHECK_TEXT(Rig.Sounds(), "");
}

TEST_CASE("the 12801st SumG into one data line is refused and halts")
{
    cCalculatorRig Rig;
    Rig.Load("LBL 1\nSumG\nGTO 1\n");
    Rig.m_Host.m_OnDrain = [&Rig] { return Rig.m_Host.m_nDrains < 50000; };

    Rig.Type("R/S");

    CHECK(Rig.m_Host.m_Boxes.size() == 1);
    CHECK_TEXT(Rig.LastBox(), kMemoryLimit);
    CHECK(Rig.m_Host.m_Graph[0].size() == 12800);
    CHECK(Rig.State().m_nCurLine == 3);
}

TEST_CASE("a bad graph halts the running program")
{
    cCalculatorRig Rig;
    Rig.Load("7\nSetG\nCLX\n");

    Rig.Type("R/S");

    CHECK_TEXT(Rig.Display(), "Error: bad graph");
    CHECK(Rig.State().m_nCurLine == 2);
    CHECK_TEXT(Rig.State().m_szKeystrokes, "EWFDK");
}

TEST_CASE("in program mode the graph instructions are recorded and draw nothing")
{
    for (const char *const szMnemonic : {"ClearG", "SetG", "SumG"})
    {
        cCalculatorRig Rig;
        MakeSets(&Rig, 1);
        Rig.Set(1.0);
        Rig.Type("PRGM");

        CHECK(Rig.Run(szMnemonic) == 1);

        CHECK_TEXT(Rig.Step(1), szMnemonic);
        CHECK(Rig.m_Host.m_Graph.size() == 1);
        CHECK(Rig.m_Host.m_Graph[0].size() == 1);
        CHECK(Rig.m_Host.m_bGraphShown == 0);
    }
}

TEST_CASE("with sounds off a bad graph is silent")
{
    cCalculatorRig Rig;
    Rig.m_Engine.ApplyOptions({0, 0, 0, 1});

    CHECK(Rig.Run("SetG") == 0);

    CHECK_TEXT(Rig.Sounds(), "");
}
