#include "figure/figure_file.h"

#include <doctest/doctest.h>

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

    cRecordingBoxes   Boxes;
    const cVantorPlot Plot(&Boxes);
    CHECK(SaveWindowFigure(Plot, 64, 48, File) == svUnwritable);
}

TEST_CASE("a window's picture has whole pixels, and a scale enlarges them")
{
    const cScratchFolder Folder;
    cRecordingBoxes      Boxes;
    cVantorPlot          Plot(&Boxes);
    REQUIRE(Plot.AddPoint(1, 1.0F, 2.0F) == 1);
    REQUIRE(Plot.AddPoint(1, 2.0F, 3.0F) == 1);

    CHECK(SaveWindowFigure(Plot, 640, 480, {Folder.Name("1.svg"), pfSvg, 1.0}) == svDone);
    CHECK(SaveWindowFigure(Plot, 640, 480, {Folder.Name("2.svg"), pfSvg, 2.0}) == svDone);

    CHECK(Folder.Read("1.svg").find("width=\"640\" height=\"480\" viewBox=\"0 0 640 480\"") !=
          std::string::npos);
    CHECK(Folder.Read("2.svg").find("width=\"1280\" height=\"960\" viewBox=\"0 0 640 480\"") !=
          std::string::npos);
}
