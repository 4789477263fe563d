#include "graph/read_back.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "graph/ascii_data_file.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"

namespace
{

struct cReadBackRig
{
    void Add(const std::vector<float> &Y, const std::string &Label = "")
    {
        REQUIRE(m_File.AddSet(static_cast<uint32_t>(Y.size()), nullptr, Y.data(), Label.c_str()));
    }

    std::string Problem() const
    {
        const char *const szProblem = ReadBackProblem(m_File);
        return szProblem ? szProblem : "";
    }

    // Whether the written file gives the same texts and as many rows and sets.
    int IsReadTheSame()
    {
        const std::string Name = m_Folder.Name("written.txt");
        cAsciiDataFile    Read(&m_Boxes);
        REQUIRE(m_File.WriteToFile(Name.c_str()));
        if (!Read.ReadFromFile(Name.c_str()) || Read.SetCount() != m_File.SetCount() ||
            Read.RowCount() != m_File.RowCount() || std::string(Read.Title()) != m_File.Title() ||
            std::string(Read.HorzLabel()) != m_File.HorzLabel())
            return 0;
        for (uint32_t nSet = 1; nSet <= Read.SetCount(); nSet++)
            if (LabelOf(Read, nSet) != LabelOf(m_File, nSet))
                return 0;
        return 1;
    }

    static std::string LabelOf(const cAsciiDataFile &File, uint32_t nSet)
    {
        return File.Label(nSet) ? File.Label(nSet) : "";
    }

    cScratchFolder  m_Folder;
    cRecordingBoxes m_Boxes;
    cAsciiDataFile  m_File{&m_Boxes};
};

}  // namespace

TEST_CASE("a data file's texts are read back up to the longest line")
{
    static const char *const kTitle  = "the title is too long";
    static const char *const kAxis   = "the label of the x axis is too long";
    static const char *const kLabels = "the labels of the data lines are too long together";
    static const char *const kQuote  = "the title or the axis label contains a quotation mark";
    static const struct
    {
        std::string m_Title, m_Axis, m_Label1, m_Label2, m_Problem;
    } s_Rows[] = {
        {"", "", "", "", ""},
        {std::string(91, 't'), std::string(83, 'h'), "", "", ""},
        {std::string(92, 't'), "", "", "", kTitle},
        {std::string(100, 't'), "", "", "", kTitle},
        {"", std::string(84, 'h'), "", "", kAxis},
        {"", "", std::string(82, 'a'), "", ""},
        {"", "", std::string(83, 'a'), "", kLabels},
        {"", "", "", std::string(83, 'b'), kLabels},
        {"", "", std::string(41, 'a'), std::string(41, 'b'), ""},
        {"", "", std::string(41, 'a'), std::string(42, 'b'), kLabels},
        {"5\" pipe", "", "", "", kQuote},
        {"", "\"", "", "", kQuote},
        {"", "", "", "5\"", "the label of a data line contains a quotation mark"},
    };
    for (const auto &Row : s_Rows)
    {
        cReadBackRig Rig;
        Rig.m_File.SetTitle(Row.m_Title.c_str());
        Rig.m_File.SetHorzLabel(Row.m_Axis.c_str());
        Rig.Add({1, 2}, Row.m_Label1);
        Rig.Add({3, 4}, Row.m_Label2);

        CHECK(Rig.Problem() == Row.m_Problem);
        CHECK(Rig.IsReadTheSame() == Row.m_Problem.empty());
    }
}

TEST_CASE("six data lines with their default labels are not read back")
{
    cReadBackRig Rig;
    for (int nSet = 1; nSet <= 5; nSet++)
        Rig.Add({1}, "data line # " + std::to_string(nSet));
    CHECK(Rig.Problem().empty());
    CHECK(Rig.IsReadTheSame() == 1);

    Rig.Add({1}, "data line # 6");

    CHECK(Rig.Problem() == "the labels of the data lines are too long together");
    CHECK(Rig.IsReadTheSame() == 0);
}

TEST_CASE("a row of numbers is read back up to the longest line")
{
    // Nine numbers of 8 bytes and their separators are 96; the first grows.
    static const struct
    {
        float m_fFirst;
        int   m_bRead;
    } s_Rows[] = {
        {9.999999F, 1},
        {999.9999F, 1},
        {-99.5F, 1},
        {9999.999F, 1},
        {-999.9F, 1},
        {10000.0F, 0},
        {-9999.5F, 0},
        {99999.99F, 0},
        {1e38F, 0},
        {-1e-30F, 1},
        {-0.0F, 1},
        {std::nextafterf(10000.0F, 0.0F), 1},
        {std::nextafterf(1e4F, 1e5F), 0},
    };
    for (const auto &Row : s_Rows)
    {
        cReadBackRig Rig;
        Rig.Add({1, Row.m_fFirst});
        for (int i = 0; i < 8; i++)
            Rig.Add({1, 2});

        INFO("first number " << Row.m_fFirst);
        CHECK(Rig.Problem() == (Row.m_bRead ? "" : "a row of numbers is too long"));
        CHECK(Rig.IsReadTheSame() == Row.m_bRead);
    }
}

TEST_CASE("values that are no finite numbers are not read back")
{
    for (const float fValue :
         {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()})
    {
        cReadBackRig Rig;
        Rig.Add({1, fValue});

        CHECK(Rig.Problem() == "a value is no finite number");
        CHECK(Rig.IsReadTheSame() == 0);
    }
}

TEST_CASE("the x column counts as part of a row")
{
    cReadBackRig             Rig;
    const std::vector<float> X{1, -99999};
    const std::vector<float> Y{1, 2};
    Rig.m_File.SetExplicitX(1);
    for (int nSet = 0; nSet < 7; nSet++)
        REQUIRE(Rig.m_File.AddSet(2, X.data(), Y.data(), nullptr));
    CHECK(Rig.Problem().empty());
    CHECK(Rig.IsReadTheSame() == 1);

    REQUIRE(Rig.m_File.AddSet(2, X.data(), Y.data(), nullptr));

    CHECK(Rig.Problem() == "a row of numbers is too long");
    CHECK(Rig.IsReadTheSame() == 0);
}
