#include "graph/svg_file.h"

#include <filesystem>
#include <string>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"

namespace
{

struct cSvgRig
{
    cSvgRig() : m_Plot(&m_Boxes)
    {
        for (const float fX : {0.0F, 1.0F, 2.0F})
            REQUIRE(m_Plot.AddPoint(1, fX, fX * fX) == 1);
    }

    int Save(const std::string &Name)
    {
        return SaveSvgFile(m_Plot, 300, 200, m_Folder.Name(Name).c_str());
    }

    cRecordingBoxes m_Boxes;
    cVantorPlot     m_Plot;
    cScratchFolder  m_Folder;
};

}  // namespace

static int Holds(const std::string &Text, const std::string &Piece)
{
    return Text.find(Piece) != std::string::npos;
}

TEST_CASE("an SVG file has the plot on its background, and the legend")
{
    cSvgRig             Rig;
    cVantorPlotSettings Settings = Rig.m_Plot.Settings();
    Settings.m_crBackground      = MakeColour(1, 2, 3);
    Rig.m_Plot.ApplySettings(Settings);

    CHECK(Rig.Save("plot.svg") == 1);

    const std::string Text = Rig.m_Folder.Read("plot.svg");
    CHECK(Holds(Text, "viewBox=\"0 0 300 200\""));
    CHECK(Holds(Text, "<rect x=\"0\" y=\"0\" width=\"300\" height=\"200\" fill=\"#010203\"/>"));
    CHECK(Holds(Text, ">My Graph</text>"));
    CHECK(Holds(Text, ">x axis</text>"));
    CHECK(Holds(Text, ">data line # 1</text>"));
    CHECK(Text.ends_with("</g>\n</svg>\n"));
    CHECK(Rig.m_Folder.Count() == 1);
}

TEST_CASE("an SVG file that cannot be written leaves the old one")
{
    cSvgRig Rig;
    std::filesystem::create_directory(Rig.m_Folder.Name("folder"));

    CHECK(Rig.Save("folder") == 0);
    CHECK(Rig.Save("missing/plot.svg") == 0);
    CHECK(SaveSvgFile(Rig.m_Plot, 300, 200, "") == 0);
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("giving up on memory for a picture leaves the old file")
{
    cSvgRig Rig;
    Rig.m_Folder.Write("plot.svg", "old");
    {
        const cFailingMemory Failing(0, 1);
        CHECK(Rig.Save("plot.svg") == 0);
    }

    CHECK(Rig.m_Folder.Read("plot.svg") == "old");
    CHECK(Rig.m_Folder.Count() == 1);
    CHECK(Rig.m_Boxes.m_QuitCodes.size() == 1);
}
