#include "tables/table_points.h"

#include <cstdint>
#include <string>

#include "tests/unit/table_rig.h"

TEST_CASE("several tables are read one after another")
{
    cTableRig Rig({"Title \"one\"\nSetLabels \"a\"\n1\n2\n", "Title \"two\"\nExplicitX\n",
                   "ExplicitX\n5 6 7\n"});
    CHECK(Rig.m_bScanned == 0);

    cTableRig Good({"SetLabels \"a\"\n1\n2\n", "Title \"two\"\n3\n", "ExplicitX\n5 6 7\n"});
    CHECK(Good.Points() == "0:0,1 0:1,2 1:0,3 2:5,6 3:5,7");
    CHECK(Good.m_Points.Lines() == 4);
    CHECK(Good.m_Points.Title() == "two");
    CHECK(Good.m_Points.LineLabel(0) == "a");
    CHECK(Good.m_Points.LineLabel(1) == "e.txt");
    CHECK(Good.m_Points.LineLabel(2) == "f.txt: 1");
    CHECK(Good.m_Points.LineLabel(3) == "f.txt: 2");
}

namespace
{

class cSumSink : public cPointSink
{
public:
    void Take(size_t nLine, double dX, double dY) override
    {
        m_nPoints++;
        m_dSum += dX + dY * static_cast<double>(nLine + 1);
    }

    size_t m_nPoints = 0;
    double m_dSum    = 0.0;
};

class cByteCount : public cTableWatch
{
public:
    void Begin() override { m_nBegun++; }
    void Advance(uint64_t nBytes) override { m_nBytes += nBytes; }
    void End() override { m_nEnded++; }

    int      m_nBegun = 0;
    int      m_nEnded = 0;
    uint64_t m_nBytes = 0;
};

}  // namespace

TEST_CASE("a table that is too large to be kept is read again from its file")
{
    // A header that must not be taken for rows the second time, and comments between.
    std::string Content = "# rows\nExplicitX\nx y z\n";
    const int   kRows   = static_cast<int>(kMostKeptValues / 3) + 1000;
    double      dSum    = 0.0;
    for (int i = 0; i < kRows; i++)
    {
        Content += std::to_string(i) + " 1 2\n";
        dSum += 2.0 * i + 1.0 + 4.0;
        if (i % 100000 == 0)
            Content += "\n; comment\n";
    }
    cScratchFolder Folder;
    Folder.Write("large.txt", Content);
    Folder.Write("small.txt", "7\n");
    cByteCount   Bytes;
    cTablePoints Points({}, &Bytes);
    for (const char *const szName : {"large.txt", "small.txt"})
        Points.Add(szName, {OpenDiskFile(Folder.Name(szName).c_str(), "rb"), fclose});

    REQUIRE(Points.Scan() == 1);
    CHECK(Bytes.m_nBytes == Content.size() + 2);
    for (int nRead = 0; nRead < 2; nRead++)
    {
        cSumSink Sum;
        CHECK(Points.Read(&Sum) == 1);
        CHECK(Sum.m_nPoints == 2 * static_cast<size_t>(kRows) + 1);
        CHECK(Sum.m_dSum == dSum + 7.0 * 3.0);
    }
    CHECK(Bytes.m_nBytes == 3 * Content.size() + 2);
    CHECK(Bytes.m_nBegun == 3);
    CHECK(Bytes.m_nEnded == 3);
}

TEST_CASE("values beyond the limit are not kept")
{
    cKeptValues Kept(6);
    CHECK(Kept.Extend(3) != nullptr);
    CHECK(Kept.Extend(4) == nullptr);
    CHECK(Kept.Extend(3) != nullptr);
    Kept.GoBack(3);
    CHECK(Kept.Extend(3) != nullptr);
    Kept.GoBack(0);
    CHECK(Kept.Extend(7) == nullptr);
    CHECK(Kept.Extend(6) != nullptr);
    CHECK(Kept.Used() == 6);
}

TEST_CASE("a file that has become shorter fails")
{
    std::string Content;
    for (size_t i = 0; i <= kMostKeptValues; i++)
        Content += "1\n";
    cTableRig Rig({Content});
    REQUIRE(Rig.m_bScanned == 1);
    CHECK(CutFile(Rig.m_Folder.Name("d.txt").c_str(), 100) == 1);

    cSumSink Sum;
    CHECK(Rig.m_Points.Read(&Sum) == 0);
    CHECK(Rig.m_Points.Tables()[0]->Failed() == 1);
}
