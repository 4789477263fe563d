#include "figure/svg_figure_canvas.h"

#include <memory>
#include <string>

#include <doctest/doctest.h>

#include "figure/dashes.h"
#include "tests/unit/scratch_folder.h"

static const uint32_t kTeal = 0x807000;  // red 0, green 0x70, blue 0x80

// All that a drawing writes.
template <class cDrawing> static std::string FileOf(double dScale, cDrawing Draw)
{
    const cScratchFolder Folder;
    {
        const std::unique_ptr<FILE, int (*)(FILE *)> pFile(
            fopen(Folder.Name("figure.svg").c_str(), "wb"), fclose);
        REQUIRE(pFile);
        cSvgFigureCanvas Canvas(pFile.get(), 64, 48, dScale);
        Draw(&Canvas);
    }
    return Folder.Read("figure.svg");
}

template <class cDrawing> static std::string Drawn(cDrawing Draw)
{
    return FileOf(1.0, Draw);
}

static std::string PathOf(const std::string &File)
{
    const size_t nStart = File.find(" d=\"") + 4;
    return File.substr(nStart, File.find('"', nStart) - nStart);
}

TEST_CASE("a figure has a size, a role, a title and a description")
{
    const std::string File = FileOf(2.5, [](cSvgFigureCanvas *pCanvas) {
        pCanvas->Begin({"Rise & \"fall\" <1>", "2 data lines", ""});
        CHECK(pCanvas->End() == 1);
    });

    CHECK(File ==
          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
          "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"160\" height=\"120\" "
          "viewBox=\"0 0 64 48\" role=\"img\" font-family=\"Liberation Sans, Arial, Helvetica, "
          "sans-serif\">\n"
          "<title>Rise &amp; \"fall\" &lt;1&gt;</title>\n<desc>2 data lines</desc>\n</svg>\n");
}

TEST_CASE("rules for dark pages are there on request")
{
    const std::string File = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->Begin({"", "", "text {fill: #dddddd}\n"});
    });
    CHECK(File.find("<style>@media (prefers-color-scheme: dark) {\ntext {fill: #dddddd}\n}"
                    "</style>") != std::string::npos);
    CHECK(File.find("<title>") == std::string::npos);
}

TEST_CASE("coordinates have hundredths of a pixel, as short as possible")
{
    const std::string File = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->BeginLine({kTeal, 1.5, {}, 1});
        pCanvas->MoveTo({10.004, 20.125});
        pCanvas->LineTo({10.5, 20.0});
        pCanvas->LineTo({11.5, 20.004});
        pCanvas->LineTo({11.5, 30.0});
        pCanvas->LineTo({12.25, 28.05});
        pCanvas->LineTo({12.255, 28.1});
        pCanvas->MoveTo({-3.5, -0.25});
        pCanvas->LineTo({-3.5, -0.25});
        pCanvas->EndLine();
    });
    CHECK(PathOf(File) == "M10 20.13l.5-.13h1v10l.75-1.95 .01 .05M-3.5-.25h0");
    CHECK(File.starts_with("<path class=\"drawn\" fill=\"none\" stroke=\"#007080\" "
                           "stroke-width=\"1.5\" stroke-linejoin=\"round\" "
                           "stroke-linecap=\"round\" d=\""));
}

TEST_CASE("rounding errors of steps do not add up")
{
    const std::string File = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->BeginLine({kTeal, 1.0, {}, 0});
        pCanvas->MoveTo({0.0, 0.0});
        for (int n = 1; n <= 6; n++)
            pCanvas->LineTo({n / 3.0, 0.0});
        pCanvas->EndLine();
    });
    CHECK(PathOf(File) == "M0 0h.33 .34 .33 .33 .34 .33");
}

TEST_CASE("dashes are as long as the line is wide")
{
    const std::string File = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->BeginLine({kTeal, 2.0, DashesOfStyle(2), 1});
        pCanvas->EndLine();
    });
    CHECK(File.find("stroke-dasharray=\"2.4 3.6\"") != std::string::npos);
    CHECK(File.find("linecap") == std::string::npos);
}

TEST_CASE("markers are polygons, and circles dots of a thick line")
{
    const std::string Squares = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->BeginMarkers({kTeal, 10.0, 1});
        pCanvas->Marker({20.0, 20.0});
        pCanvas->Marker({30.0, 20.0});
        pCanvas->EndMarkers();
    });
    CHECK(PathOf(Squares) == "M15.6 15.6h8.8v8.8h-8.8zM25.6 15.6h8.8v8.8h-8.8z");

    const std::string Circles = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->BeginMarkers({kTeal, 6.0, kCircle});
        pCanvas->Marker({20.0, 20.0});
        pCanvas->EndMarkers();
    });
    CHECK(PathOf(Circles) == "M20 20h0");
    CHECK(Circles.find("stroke-width=\"6\" stroke-linecap=\"round\"") != std::string::npos);
}

TEST_CASE("texts are placed, turned and raised")
{
    const std::string File = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->Text({5.5, 10.0}, taEnd, 0, {{"10"}, {"6", 1}, {" m<"}}, {10.0, 0, kTeal});
        pCanvas->Text({7.0, 30.0}, taMiddle, 1, {{"y\xFF"}}, {12.0, 1, 0});
    });
    CHECK(File == "<text x=\"5.5\" y=\"10\" text-anchor=\"end\" font-size=\"10\" "
                  "fill=\"#007080\">10<tspan dy=\"-4.2\" font-size=\"7\">6</tspan>"
                  "<tspan dy=\"4.2\"> m&lt;</tspan></text>\n"
                  "<text transform=\"translate(7 30)rotate(-90)\" text-anchor=\"middle\" "
                  "font-size=\"12\" font-weight=\"bold\" fill=\"#000000\">y\xEF\xBF\xBD</text>\n");
}

TEST_CASE("groups and clips nest, and clips have names of their own")
{
    const std::string File = Drawn([](cSvgFigureCanvas *pCanvas) {
        pCanvas->PushClip({1.0, 2.0, 3.0, 4.0});
        pCanvas->BeginGroup("line line-1", "speed");
        pCanvas->EndGroup();
        pCanvas->PopClip();
        pCanvas->PushClip({1.0, 2.0, 3.0, 4.5});
        pCanvas->PopClip();
    });
    CHECK(File == "<clipPath id=\"clip1\"><path d=\"M1 2h2v2h-2z\"/></clipPath>\n"
                  "<g clip-path=\"url(#clip1)\">\n"
                  "<g class=\"line line-1\">\n<title>speed</title>\n</g>\n</g>\n"
                  "<clipPath id=\"clip2\"><path d=\"M1 2h2v2.5h-2z\"/></clipPath>\n"
                  "<g clip-path=\"url(#clip2)\">\n</g>\n");
}

TEST_CASE("a text's width is that of its font, bold letters and exponents counted")
{
    const cSvgFigureCanvas Canvas(nullptr, 10, 10, 1.0);
    CHECK(Canvas.TextWidth({{"M"}}, {12.0, 0, 0}) == doctest::Approx(10.0).epsilon(1e-3));
    CHECK(Canvas.TextWidth({{"M"}}, {12.0, 1, 0}) == doctest::Approx(11.0).epsilon(1e-3));
    CHECK(Canvas.TextWidth({{"M"}, {"M", 1}}, {12.0, 0, 0}) == doctest::Approx(17.0).epsilon(1e-3));
}
