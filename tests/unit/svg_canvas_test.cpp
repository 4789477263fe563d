#include "graph/svg_canvas.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "graph/vantor_data_set.h"
#include "tests/unit/scratch_folder.h"

static const std::string kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"64\" height=\"48\" viewBox=\"0 0 64 48\" "
    "font-family=\"Liberation Sans, Arial, Helvetica, sans-serif\" font-size=\"14\" "
    "xml:space=\"preserve\">\n";

static const uint32_t kOrange = MakeColour(255, 128, 0);

// What a drawing writes between head and end of the file.
template <class cDraw> static std::string Written(cDraw Draw)
{
    const cScratchFolder Folder;
    {
        const std::unique_ptr<FILE, int (*)(FILE *)> pFile(
            fopen(Folder.Name("canvas.svg").c_str(), "wb"), fclose);
        REQUIRE(pFile);
        cSvgCanvas Canvas(pFile.get(), 64, 48);
        Draw(&Canvas);
        Canvas.End();
    }
    const std::string Text = Folder.Read("canvas.svg");
    REQUIRE(Text.starts_with(kHead));
    REQUIRE(Text.ends_with("</svg>\n"));
    return Text.substr(kHead.size(), Text.size() - kHead.size() - 7);
}

static std::string WrittenLabel(const char *szText, eAlign nAlign = alLeft)
{
    return Written([=](cSvgCanvas *pCanvas) { pCanvas->Label({20, 10}, nAlign, szText, kBlack); });
}

static std::string WrittenLine(const std::vector<cPoint> &Points,
                               const cPlotPen            &Pen = {0, 1, kBlack})
{
    return Written(
        [&](cSvgCanvas *pCanvas) { pCanvas->Polyline(Points.data(), Points.size(), Pen); });
}

static const std::string kSolid =
    "\" fill=\"none\" stroke=\"#000000\" stroke-linejoin=\"round\"/>\n";

TEST_CASE("a picture without anything in it is head and end")
{
    CHECK(Written([](cSvgCanvas *) {}).empty());
}

TEST_CASE("a picture with a title is one for those who cannot see it")
{
    const cScratchFolder Folder;
    {
        const std::unique_ptr<FILE, int (*)(FILE *)> pFile(
            fopen(Folder.Name("canvas.svg").c_str(), "wb"), fclose);
        REQUIRE(pFile);
        cSvgCanvas(pFile.get(), 64, 48, "a<b\xFF", "2 points & more").End();
    }
    const std::string Text = Folder.Read("canvas.svg");
    CHECK(Text.find(" viewBox=\"0 0 64 48\" role=\"img\" font-family") != std::string::npos);
    CHECK(Text.ends_with(">\n<title>a&lt;b\xEF\xBF\xBD</title>\n"
                         "<desc>2 points &amp; more</desc>\n</svg>\n"));
}

TEST_CASE("a line along an axis covers its pixels and ends before its last one")
{
    CHECK(WrittenLine({{2, 7}, {12, 7}}) == "<path d=\"M2 7.5H12" + kSolid);
    CHECK(WrittenLine({{3, 4}, {3, 9}}) == "<path d=\"M3.5 4V9" + kSolid);
}

TEST_CASE("other lines go from the middle of a pixel to the middle of the next")
{
    CHECK(WrittenLine({{1, 2}, {3, 4}}) == "<path d=\"M1.5 2.5L3.5 4.5" + kSolid);
    CHECK(WrittenLine({{1, 2}, {3, 2}, {3, 0}}) == "<path d=\"M1.5 2.5L3.5 2.5L3.5 0.5" + kSolid);
    CHECK(WrittenLine({{3, 2}, {1, 2}}) == "<path d=\"M3.5 2.5L1.5 2.5" + kSolid);
    CHECK(WrittenLine({{1, 2}, {1, 2}}) == "<path d=\"M1.5 2.5L1.5 2.5" + kSolid);
    CHECK(WrittenLine({{0, -1}, {-3, -16383}}) == "<path d=\"M0.5 -0.5L-2.5 -16382.5" + kSolid);
}

TEST_CASE("dashes are those of the platform's pens, for lines of width 1 only")
{
    // clang-format off
    static const struct { uint32_t nStyle; uint32_t nWidth; const char *szLook; } s_Rows[] =
    {
        { 0, 1, ""                                    },
        { 1, 1, " stroke-dasharray=\"18 6\""          },
        { 2, 1, " stroke-dasharray=\"3 3\""           },
        { 3, 1, " stroke-dasharray=\"9 6 3 6\""       },
        { 4, 1, " stroke-dasharray=\"9 3 3 3 3 3\""   },
        { 5, 1, ""                                    },
        { 0, 3, " stroke-width=\"3\""                 },
        { 1, 2, " stroke-width=\"2\""                 },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nStyle);
        CHECK(WrittenLine({{1, 2}, {3, 4}}, {Row.nStyle, Row.nWidth, kOrange}) ==
              std::string("<path d=\"M1.5 2.5L3.5 4.5\" fill=\"none\" stroke=\"#ff8000\"") +
                  Row.szLook + " stroke-linejoin=\"round\"/>\n");
    }
}

TEST_CASE("many lines are one path, and so are many polygons")
{
    const cPoint   Points[]   = {{0, 0}, {4, 0}, {1, 1}, {2, 2}, {3, 1}};
    const uint32_t nLines[]   = {2, 3};
    const int32_t  nCorners[] = {3, 2};

    CHECK(Written([&](cSvgCanvas *pCanvas) {
              pCanvas->Polylines(Points, nLines, 2, {0, 1, kBlack});
          }) == "<path d=\"M0 0.5H4M1.5 1.5L2.5 2.5L3.5 1.5" + kSolid);
    CHECK(Written([&](cSvgCanvas *pCanvas) { pCanvas->Polygons(Points, nCorners, 2, kOrange); }) ==
          "<path d=\"M0.5 0.5L4.5 0.5L1.5 1.5ZM2.5 2.5L3.5 1.5Z\" fill=\"#ff8000\" "
          "stroke=\"#ff8000\" stroke-linejoin=\"round\"/>\n");
}

TEST_CASE("a box is filled, one without area is not written")
{
    CHECK(Written([](cSvgCanvas *pCanvas) {
              pCanvas->FillBox({1, 2, 11, 22}, kWhite);
          }) == "<rect x=\"1\" y=\"2\" width=\"10\" height=\"20\" fill=\"#ffffff\"/>\n");
    CHECK(Written([](cSvgCanvas *pCanvas) { pCanvas->FillBox({5, 2, 5, 22}, kWhite); }).empty());
}

TEST_CASE("a text is text on its base line, at its left end, its middle or its right end")
{
    CHECK(WrittenLabel("Ab", alLeft) == "<text x=\"20\" y=\"23\" fill=\"#000000\">Ab</text>\n");
    CHECK(WrittenLabel("Ab", alCenter) ==
          "<text x=\"20\" y=\"23\" text-anchor=\"middle\" fill=\"#000000\">Ab</text>\n");
    CHECK(WrittenLabel("Ab", alRight) ==
          "<text x=\"20\" y=\"23\" text-anchor=\"end\" fill=\"#000000\">Ab</text>\n");
}

TEST_CASE("blanks at the ends of a text move it and are not written")
{
    // A blank is 4 pixels wide.
    CHECK(WrittenLabel(" a b  ", alLeft).starts_with("<text x=\"24\""));
    CHECK(WrittenLabel(" a b  ", alCenter).starts_with("<text x=\"18\""));
    CHECK(WrittenLabel(" a b  ", alRight).starts_with("<text x=\"12\""));
    CHECK(WrittenLabel(" a b  ").ends_with(">a b</text>\n"));
    CHECK(WrittenLabel("").empty());
    CHECK(WrittenLabel("   ", alRight).empty());
}

TEST_CASE("any bytes of a text give a valid file")
{
    // clang-format off
    static const struct { const char *szText; const char *szWritten; } s_Rows[] =
    {
        { "a<b>&\"'",        "a&lt;b&gt;&amp;\"'"          },
        { "]]>",             "]]&gt;"                      },
        { "a\tb",            "a b"                         },
        { "a\x01\x1F",       "a\xEF\xBF\xBD\xEF\xBF\xBD"   },
        { "\xC3\xA4",        "\xC3\xA4"                    },
        { "\xE4x",           "\xEF\xBF\xBDx"               },
        { "\xED\xA0\x80",    "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD" },
        { "\xEF\xBF\xBF",    "\xEF\xBF\xBD"                },
        { "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"           },
    };
    // clang-format on
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.szText);
        CHECK(WrittenLabel(Row.szText).ends_with(">" + std::string(Row.szWritten) + "</text>\n"));
    }
}

TEST_CASE("clips nest, and each has a name of its own")
{
    const std::string Text = Written([](cSvgCanvas *pCanvas) {
        pCanvas->PushClip({1, 2, 11, 22});
        pCanvas->PushClip({3, 4, 5, 6});
        pCanvas->PopClip();
        pCanvas->PopClip();
    });

    CHECK(Text ==
          "<clipPath id=\"clip1\"><rect x=\"1\" y=\"2\" width=\"10\" height=\"20\"/></clipPath>\n"
          "<g clip-path=\"url(#clip1)\">\n"
          "<clipPath id=\"clip2\"><rect x=\"3\" y=\"4\" width=\"2\" height=\"2\"/></clipPath>\n"
          "<g clip-path=\"url(#clip2)\">\n"
          "</g>\n</g>\n");
}
