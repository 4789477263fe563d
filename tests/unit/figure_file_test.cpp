#include "figure/figure_file.h"

#include <filesystem>

#include <doctest/doctest.h>

#include "tests/unit/failing_memory.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"
#include "tests/unit/test_points.h"

TEST_CASE("a figure replaces an older file")
{
    const cScratchFolder Folder;
    Folder.Write("fall.svg", "old");
    cTestPoints  Source(1, {{0, 0, 1}, {0, 1, 2}});
    cFigureNotes Notes;

    CHECK(SaveFigure({}, &Source, {Folder.Name("fall.svg"), pfSvg, 1.0}, &Notes) == svDone);

    CHECK(Folder.Read("fall.svg").ends_with("</svg>\n"));
}

TEST_CASE("the older file stays when reading fails, before or while drawing")
{
    const cScratchFolder Folder;
    Folder.Write("fall.svg", "old");
    for (const int nGoodReads : {0, 1})
    {
        cTestPoints Source(1, {{0, 0, 1}, {0, 1, 2}});
        Source.m_nGoodReads = nGoodReads;
        cFigureNotes Notes;
        CHECK(SaveFigure({}, &Source, {Folder.Name("fall.svg"), pfSvg, 1.0}, &Notes) ==
              svUnreadable);
        CHECK(Folder.Read("fall.svg") == "old");
    }
}

TEST_CASE("a file that cannot be written is reported")
{
    const cScratchFolder Folder;
    cTestPoints          Source(1, {{0, 0, 1}});
    cFigureNotes         Notes;
    const cPictureFile   File = {Folder.Name("missing/fall.svg"), pfSvg, 1.0};
    CHECK(SaveFigure({}, &Source, File, &Notes) == svUnwritable);
}

namespace
{

struct cWindowRig
{
    cWindowRig() : m_Plot(&m_Boxes)
    {
        for (const float fX : {0.0F, 1.0F, 2.0F})
            REQUIRE(m_Plot.AddPoint(1, fX, fX * fX) == 1);
    }

    eSaving Save(const std::string &Name, double dScale = 1.0)
    {
        return SaveWindowFigure(m_Plot, 300, 200, {m_Folder.Name(Name), pfSvg, dScale});
    }

    cRecordingBoxes m_Boxes;
    cVantorPlot     m_Plot;
    cScratchFolder  m_Folder;
};

}  // namespace

static int HasPiece(const std::string &Text, const std::string &Piece)
{
    return Text.find(Piece) != std::string::npos;
}

TEST_CASE("a window's picture has the plot on its background, and the legend")
{
    cWindowRig          Rig;
    cVantorPlotSettings Settings = Rig.m_Plot.Settings();
    Settings.m_crBackground      = MakeColour(1, 2, 3);
    Rig.m_Plot.ApplySettings(Settings);

    CHECK(Rig.Save("plot.svg") == svDone);

    const std::string Text = Rig.m_Folder.Read("plot.svg");
    CHECK(HasPiece(Text, "width=\"300\" height=\"200\" viewBox=\"0 0 300 200\""));
    CHECK(HasPiece(Text, "<rect x=\"0\" y=\"0\" width=\"300\" height=\"200\" fill=\"#010203\"/>"));
    CHECK(HasPiece(Text,
                   "<title>My Graph</title>\n<desc>1 data line, 3 points. x axis from 0 to 2, "
                   "y from 0 to 4.</desc>\n"));
    CHECK(HasPiece(Text, ">My Graph</text>"));
    CHECK(HasPiece(Text, ">x axis</text>"));
    CHECK(HasPiece(Text, ">data line # 1</text>"));
    CHECK(Text.ends_with("</g>\n</svg>\n"));
    CHECK(Rig.m_Folder.Count() == 1);
}

TEST_CASE("a scale enlarges a window's picture")
{
    cWindowRig Rig;
    CHECK(Rig.Save("plot.svg", 2.0) == svDone);
    CHECK(HasPiece(Rig.m_Folder.Read("plot.svg"),
                   "width=\"600\" height=\"400\" viewBox=\"0 0 300 200\""));
}

TEST_CASE("a window's picture that cannot be written leaves the old one")
{
    cWindowRig Rig;
    std::filesystem::create_directory(Rig.m_Folder.Name("folder"));

    CHECK(Rig.Save("folder") == svUnwritable);
    CHECK(Rig.Save("missing/plot.svg") == svUnwritable);
    CHECK(Rig.m_Boxes.m_Boxes.empty());
}

TEST_CASE("giving up on memory for a window's picture leaves the old file")
{
    cWindowRig Rig;
    Rig.m_Folder.Write("plot.svg", "old");
    {
        const cFailingMemory Failing(0, 1);
        CHECK(Rig.Save("plot.svg") == svTooLarge);
    }

    CHECK(Rig.m_Folder.Read("plot.svg") == "old");
    CHECK(Rig.m_Folder.Count() == 1);
    CHECK(Rig.m_Boxes.m_QuitCodes.size() == 1);
}
