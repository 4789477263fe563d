#include "graph/graph_file_commands.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"

namespace
{

typedef std::vector<float> cFloats;

}  // namespace

namespace
{

struct cGraphRig
{
    explicit cGraphRig(const std::vector<eAnswer> &Answers = {})
        : m_Boxes(Answers), m_Plot(&m_Boxes)
    {
    }

    int Open(const std::string &Content)
    {
        m_Folder.Write("data.txt", Content);
        return OpenGraphFile(&m_Plot, &m_Boxes, m_Folder.Name("data.txt").c_str());
    }

    int Append(const std::string &Content)
    {
        m_Folder.Write("data.txt", Content);
        return AppendGraphFile(&m_Plot, &m_Boxes, m_Folder.Name("data.txt").c_str());
    }

    int Save() { return SaveGraphFile(m_Plot, &m_Boxes, m_Folder.Name("saved.txt").c_str()); }

    void AddXY(const cFloats &X, const cFloats &Y)
    {
        const uint32_t nPoints = static_cast<uint32_t>(Y.size());
        REQUIRE(m_Plot.AddDataSet(nPoints, X.data(), Y.data(), nullptr) == 1);
    }

    void AddY(const cFloats &Y)
    {
        const uint32_t nPoints = static_cast<uint32_t>(Y.size());
        REQUIRE(m_Plot.AddDataSet(nPoints, nullptr, Y.data(), nullptr) == 1);
    }

    const cVantorDataSet &Set(uint32_t nLine)
    {
        REQUIRE(m_Plot.DataSet(nLine));
        return *m_Plot.DataSet(nLine);
    }

    std::string Label(uint32_t nLine) { return Set(nLine).m_pszLabel.get(); }
    std::string Title() { return m_Plot.Settings().m_szTitle; }
    std::string HorzLabel() { return m_Plot.Settings().m_szHorzLabel; }

    // The one box that was shown, an OK box without an icon.
    std::string Box()
    {
        REQUIRE(m_Boxes.m_Boxes.size() == 1);
        CHECK(m_Boxes.m_Boxes[0].m_Caption == "");
        CHECK(m_Boxes.m_Boxes[0].m_nButtons == bnOk);
        CHECK(m_Boxes.m_Boxes[0].m_nIcon == icNone);
        return m_Boxes.m_Boxes[0].m_Text;
    }

    cScratchFolder  m_Folder;
    cRecordingBoxes m_Boxes;
    cVantorPlot     m_Plot;
};

}  // namespace

TEST_CASE("Open replaces data, title and axis label with those of the file")
{
    cGraphRig Rig;
    Rig.AddY({1, 2, 3});
    Rig.m_Plot.SetLegendRows(9);

    CHECK(Rig.Open("ExplicitX\nTitle \"Free fall\"\nHorzAxisLabel \"seconds\"\n"
                   "SetLabels \"height\" , \"\"\n0 , 100 , 0\n0.5 , 98 , -4\n") == 1);

    CHECK(Rig.Title() == "Free fall");
    CHECK(Rig.HorzLabel() == "seconds");
    CHECK(Rig.m_Plot.LegendRows() == 4);
    REQUIRE(Rig.m_Plot.Count() == 2);
    const cVantorDataSet &Set = Rig.Set(1);
    CHECK(Set.m_nPoints == 2);
    CHECK(Set.m_nCapacity == 2);
    REQUIRE(Set.m_pX);
    CHECK(Set.m_pX[1] == 0.5F);
    CHECK(Set.m_pY[1] == 98.0F);
    CHECK(Set.m_fXMax == 0.5F);
    CHECK(Set.m_fYMin == 98.0F);
    CHECK(Set.m_nGraphType == gtPlot);
    CHECK(Set.m_nWidth == 1);
    CHECK(Set.m_nStyle == 0);
    CHECK(Rig.Set(2).m_pX[1] == 0.5F);
    CHECK(Rig.Set(2).m_pY[1] == -4.0F);
    CHECK(Rig.Label(1) == "height");
    CHECK(Rig.Label(2) == "data line # 2");
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("Open of a file without title and axis label leaves the plot without them")
{
    cGraphRig Rig;

    CHECK(Rig.Open("Title My plot\n1\n2\n") == 1);

    CHECK(Rig.Title() == "");
    CHECK(Rig.HorzLabel() == "");
    CHECK(!Rig.Set(1).m_pX);
    CHECK(Rig.Label(1) == "data line # 1");
}

TEST_CASE("Open keeps a range that the user has fixed")
{
    cGraphRig Rig;
    CHECK(Rig.Open("1\n") == 1);
    CHECK(Rig.m_Plot.UserRange() == 0);
    Rig.m_Plot.ApplySettings(cVantorPlotSettings());

    CHECK(Rig.Open("1\n") == 1);

    CHECK(Rig.m_Plot.UserRange() == 1);
}

TEST_CASE("the sets of a file are coloured by their place, in turns of eight")
{
    // clang-format off
    static const uint32_t s_Colours[] =
    {
        0x0000FF, 0x00FF00, 0xFF0000, 0x00FFFF, 0xFF00FF, 0xFFFF00, 0xC0C0C0, 0x000000,
        0x0000FF, 0x00FF00,
    };
    // clang-format on
    cGraphRig Rig;

    CHECK(Rig.Open("1 2 3 4 5 6 7 8 9 10\n") == 1);

    REQUIRE(Rig.m_Plot.Count() == 10);
    for (uint32_t nLine = 1; nLine <= 10; nLine++)
    {
        CAPTURE(nLine);
        CHECK(Rig.Set(nLine).m_crColor == s_Colours[nLine - 1]);
    }
}

TEST_CASE("Append adds the sets after the others and keeps title and axis label")
{
    cGraphRig Rig;
    Rig.AddY({1, 2, 3});
    Rig.m_Plot.SetLegendRows(9);

    CHECK(Rig.Append("ExplicitX\nTitle \"t\"\nHorzAxisLabel \"h\"\nSetLabels \"a\"\n"
                     "7 8 9\n10 11 12\n") == 1);

    CHECK(Rig.Title() == "My Graph");
    CHECK(Rig.HorzLabel() == "x axis");
    CHECK(Rig.m_Plot.LegendRows() == 9);
    REQUIRE(Rig.m_Plot.Count() == 3);
    CHECK(Rig.Set(1).m_nPoints == 3);
    CHECK(Rig.Set(2).m_pX[1] == 10.0F);
    CHECK(Rig.Set(3).m_pY[1] == 12.0F);
    CHECK(Rig.Label(2) == "a");
    CHECK(Rig.Label(3) == "data line # 3");
    CHECK(Rig.Set(2).m_crColor == 0x0000FF);
    CHECK(Rig.Set(3).m_crColor == 0x00FF00);
}

TEST_CASE("Save says that a file will not be read as it was written")
{
    cGraphRig Rig;
    for (int nSet = 0; nSet < 6; nSet++)
        Rig.AddY({1, 2});

    CHECK(Rig.Save() == 1);

    CHECK(Rig.Box() == "The file was written:\n  " + Rig.m_Folder.Name("saved.txt") +
                           "\n\n"
                           "When it is opened, it will differ from the\n"
                           "graph: the labels of the data lines are too long together.");
}

TEST_CASE("a file that cannot be read leaves the graph as it was")
{
    for (const int bOpen : {true, false})
        for (const char *szContent : {"", "x\n", "ExplicitX\n1\n2\n"})
        {
            CAPTURE(szContent);
            cGraphRig Rig;
            Rig.AddY({1, 2, 3});

            CHECK((bOpen ? Rig.Open(szContent) : Rig.Append(szContent)) == 0);

            CHECK(Rig.Box() == "Could not read the file:\n " + Rig.m_Folder.Name("data.txt"));
            CHECK(Rig.m_Plot.Count() == 1);
            CHECK(Rig.Set(1).m_nPoints == 3);
            CHECK(Rig.Title() == "My Graph");
            CHECK(Rig.HorzLabel() == "x axis");
        }
}

TEST_CASE("a file that does not exist and a folder cannot be read")
{
    for (const char *szName : {"missing.txt", "folder"})
    {
        cGraphRig Rig;
        std::filesystem::create_directory(Rig.m_Folder.Name("folder"));
        const std::string Name = Rig.m_Folder.Name(szName);

        CHECK(OpenGraphFile(&Rig.m_Plot, &Rig.m_Boxes, Name.c_str()) == 0);

        CHECK(Rig.Box() == "Could not read the file:\n " + Name);
        CHECK(Rig.Title() == "My Graph");
    }
}

TEST_CASE("Save writes title, axis label, labels and points")
{
    cGraphRig Rig;
    for (const float fX : {1.0F, 2.0F})
        for (const uint32_t nLine : {1U, 2U})
            REQUIRE(Rig.m_Plot.AddPoint(nLine, fX, fX * static_cast<float>(nLine) / 4.0F) == 1);

    CHECK(Rig.Save() == 1);

    CHECK(Rig.m_Folder.Read("saved.txt") ==
          "ExplicitX" + kLineEnd + "Title \"My Graph\"" + kLineEnd + "HorzAxisLabel \"x axis\"" +
              kLineEnd + "SetLabels \"data line # 1\" , \"data line # 2\"" + kLineEnd +
              "1.000000 , 0.250000 , 0.500000" + kLineEnd + "2.000000 , 0.500000 , 1.000000" +
              kLineEnd);
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("a title and an axis label of 100 characters are saved completely")
{
    cGraphRig         Rig;
    const std::string Title(100, 't');
    const std::string Label(100, 'h');
    Rig.AddY({1});
    Rig.m_Plot.SetTitle(Title.c_str());
    Rig.m_Plot.SetHorzLabel(Label.c_str());

    CHECK(Rig.Save() == 1);

    CHECK(Rig.m_Folder.Read("saved.txt") == "ImplicitX" + kLineEnd + "Title \"" + Title + "\"" +
                                                kLineEnd + "HorzAxisLabel \"" + Label + "\"" +
                                                kLineEnd + "SetLabels \"data line # 1\"" +
                                                kLineEnd + "1.000000" + kLineEnd);
}

TEST_CASE("a graph without title, saved and opened, is the same graph")
{
    cGraphRig Rig;
    REQUIRE(Rig.Open("SetLabels \"a\" , \"b\"\n1 2\n3 4\n") == 1);
    REQUIRE(Rig.Save() == 1);

    CHECK(OpenGraphFile(&Rig.m_Plot, &Rig.m_Boxes, Rig.m_Folder.Name("saved.txt").c_str()) == 1);

    CHECK(Rig.Title() == "");
    CHECK(!Rig.Set(1).m_pX);
    CHECK(Rig.Set(2).m_pY[1] == 4.0F);
    CHECK(Rig.Label(2) == "b");
}

TEST_CASE("an empty graph has no data to save")
{
    cGraphRig Rig;
    Rig.m_Folder.Write("saved.txt", "old");

    CHECK(Rig.Save() == 0);

    CHECK(Rig.Box() == "There is no data to save");
    CHECK(Rig.m_Folder.Read("saved.txt") == "old");
}

TEST_CASE("sets of the other kind than data line 1 are not written, and a box says so")
{
    for (const int bExplicitFirst : {true, false})
    {
        CAPTURE(bExplicitFirst);
        cGraphRig Rig;
        Rig.m_Plot.ClearAll();
        if (bExplicitFirst)
            Rig.AddXY({5, 6}, {1, 2});
        Rig.AddY({3, 4});
        if (!bExplicitFirst)
            Rig.AddXY({5, 6}, {1, 2});

        CHECK(Rig.Save() == 1);

        CHECK(Rig.Box() == "1 of the 2 data sets were written to the file:\n  " +
                               Rig.m_Folder.Name("saved.txt") +
                               "\n\n"
                               "Data sets must have compatible x axis\n"
                               "values to share an ASCII data file.");
        CHECK(Rig.m_Folder.Read("saved.txt") ==
              (bExplicitFirst
                   ? "ExplicitX" + kLineEnd + "SetLabels \"data line # 1\"" + kLineEnd +
                         "5.000000 , 1.000000" + kLineEnd + "6.000000 , 2.000000" + kLineEnd
                   : "ImplicitX" + kLineEnd + "SetLabels \"data line # 1\"" + kLineEnd +
                         "3.000000" + kLineEnd + "4.000000" + kLineEnd));
    }
}

TEST_CASE("sets with other x values or another length are left out, those after them not")
{
    cGraphRig Rig;
    Rig.m_Plot.ClearAll();
    Rig.AddXY({5, 6}, {1, 2});
    Rig.AddXY({5, 6.0000005F}, {3, 4});
    Rig.AddXY({5, 6, 7}, {3, 4, 5});
    Rig.AddXY({5, 6}, {8, 9});

    CHECK(Rig.Save() == 1);

    CHECK(Rig.Box().substr(0, 46) == "2 of the 4 data sets were written to the file:");
    CHECK(Rig.m_Folder.Read("saved.txt") ==
          "ExplicitX" + kLineEnd + "SetLabels \"data line # 1\" , \"data line # 4\"" + kLineEnd +
              "5.000000 , 1.000000 , 8.000000" + kLineEnd + "6.000000 , 2.000000 , 9.000000" +
              kLineEnd);
}

TEST_CASE("a file that cannot be written is named and stays as it was")
{
    cGraphRig Rig;
    Rig.AddY({1});
    Rig.AddY({1, 2});
    std::filesystem::create_directory(Rig.m_Folder.Name("saved.txt"));

    CHECK(Rig.Save() == 0);

    CHECK(Rig.Box() == "Could not write the file:\n " + Rig.m_Folder.Name("saved.txt"));
    CHECK(std::filesystem::is_directory(Rig.m_Folder.Name("saved.txt")));
}

TEST_CASE("giving up on memory during a save leaves the old file and shows no other box")
{
    // Room for the sets, y and label of the first set, and those of the second.
    for (int nSucceed = 0; nSucceed < 5; nSucceed++)
    {
        CAPTURE(nSucceed);
        cGraphRig Rig({anCancel});
        Rig.AddY({1});
        Rig.AddY({2});
        Rig.m_Folder.Write("saved.txt", "old");
        {
            cFailingMemory Memory(nSucceed, 1);
            CHECK(Rig.Save() == 0);
            CHECK(Memory.FailuresLeft() == 0);
        }
        CHECK(Rig.m_Boxes.m_Boxes.size() == 1);
        CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
        CHECK(Rig.m_Folder.Read("saved.txt") == "old");
    }
}

TEST_CASE("giving up on memory while a file is read leaves the graph as it was")
{
    cGraphRig Rig({anCancel});
    Rig.AddY({1});
    {
        cFailingMemory Memory(0, 1);
        CHECK(Rig.Open("7\n") == 0);
    }
    CHECK(Rig.m_Boxes.m_QuitCodes == std::vector<int>{0});
    CHECK(Rig.Set(1).m_pY[0] == 1.0F);
    CHECK(Rig.Title() == "My Graph");
}

// --- a reading that is ended

namespace
{

// Lets so many blocks be read.
class cBlocksWatch : public cReadingWatch
{
public:
    explicit cBlocksWatch(int nBlocks) : m_nLeft(nBlocks) {}

    int GoesOn() override { return m_nLeft-- > 0; }

    int m_nLeft;
};

}  // namespace

TEST_CASE("a reading that is ended changes nothing and shows no box")
{
    cGraphRig Rig;
    REQUIRE(Rig.Open("Title \"before\"\n7\n8\n9\n") == 1);
    std::string Text;
    for (int i = 0; i < 50000; i++)
        Text += "1 2\n";
    Rig.m_Folder.Write("long.txt", Text);
    const std::string Name = Rig.m_Folder.Name("long.txt");

    // Two passes of four blocks each, the last of which may be empty.
    int nEnded = 0;
    for (int nBlocks = 0;; nBlocks++)
    {
        CAPTURE(nBlocks);
        cBlocksWatch Watch(nBlocks);
        if (OpenGraphFile(&Rig.m_Plot, &Rig.m_Boxes, Name.c_str(), &Watch))
            break;
        cBlocksWatch Again(nBlocks);
        CHECK(AppendGraphFile(&Rig.m_Plot, &Rig.m_Boxes, Name.c_str(), &Again) == 0);
        CHECK(Rig.m_Plot.Count() == 1);
        CHECK(Rig.Set(1).m_nPoints == 3);
        CHECK(std::string(Rig.m_Plot.Settings().m_szTitle) == "before");
        nEnded++;
    }
    CHECK(nEnded >= 8);
    CHECK(Rig.m_Plot.Count() == 2);
    CHECK(Rig.Set(1).m_nPoints == 50000);
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}
