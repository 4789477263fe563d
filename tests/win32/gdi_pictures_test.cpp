#include "toolkit/win32/win32.h"

#include "graph/win32/gdi_canvas.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include <doctest/doctest.h>

#include "graph/graph_file_commands.h"
#include "graph/plot_layout.h"
#include "graph/plot_renderer.h"
#include "graph/vantor_plot.h"
#include "imaging/win32/bitmap_files.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/scratch_folder.h"
#include "toolkit/win32/gdi.h"

static const int kLetterWidth  = 6;
static const int kLetterHeight = 12;

namespace
{

// Draws a frame in place of each text, because fonts differ from computer to
// computer.
class cFramedTextCanvas : public cGdiCanvas
{
public:
    explicit cFramedTextCanvas(HDC hDc) : cGdiCanvas(hDc, nullptr) {}

    int PixelsPerInchX() const override { return 96; }
    int PixelsPerInchY() const override { return 96; }
    int TextHeight() const override { return kLetterHeight; }
    int TextWidth(const char *szText) const override
    {
        return kLetterWidth * static_cast<int>(strlen(szText));
    }
    void Label(cPoint At, eAlign nAlign, const char *szText, uint32_t crColour) override
    {
        const int    nWidth   = TextWidth(szText);
        const int    nLeft    = At.m_nX - (nAlign == alLeft     ? 0
                                           : nAlign == alCenter ? nWidth / 2
                                                                : nWidth);
        const int    nRight   = nLeft + nWidth - 1;
        const int    nBottom  = At.m_nY + kLetterHeight - 1;
        const cPoint Frame[5] = {{nLeft, At.m_nY},
                                 {nRight, At.m_nY},
                                 {nRight, nBottom},
                                 {nLeft, nBottom},
                                 {nLeft, At.m_nY}};
        Polyline(Frame, 5, {0, 1, crColour});
    }
};

struct cKeptPicture
{
    const char *m_szName;
    const char *m_szData;
    uint32_t    m_nType;
    uint32_t    m_nStyle;
    uint32_t    m_nWidth;  // of the lines
    int         m_bGrid;
    int         m_bLegend;
};

}  // namespace

// clang-format off
static const cKeptPicture kPictures[] =
{
    { "plot.gif",      "eight.txt",  gtPlot,      0, 1, 0, 1 },
    { "dashes.gif",    "eight.txt",  gtPlot,      1, 1, 1, 0 },
    { "wide.gif",      "eight.txt",  gtPlot,      0, 4, 0, 0 },
    { "stairstep.gif", "eight.txt",  gtStairStep, 0, 1, 1, 1 },
    { "scatter.gif",   "eight.txt",  gtScatter,   2, 1, 0, 1 },
    { "stoop.gif",     "eight.txt",  gtStoop,     0, 1, 0, 0 },
    { "huge.gif",      "huge.txt",   gtPlot,      0, 1, 1, 1 },
    { "point.gif",     "point.txt",  gtPlot,      0, 1, 0, 1 },
};
// clang-format on

static void Fill(cVantorPlot *pPlot, cMessageBoxes *pBoxes, const cKeptPicture &Picture)
{
    const std::string Data = std::string(GOLDEN_FOLDER "/") + Picture.m_szData;
    pPlot->SetClientSize(kPlotWidth / 2, kPlotHeight / 2);
    pPlot->SetLegend(Picture.m_bLegend);
    pPlot->SetGrid(Picture.m_bGrid, Picture.m_bGrid);
    REQUIRE(OpenGraphFile(pPlot, pBoxes, Data.c_str()) == 1);
    for (uint32_t nLine = 1; nLine <= pPlot->Count(); nLine++)
    {
        cVantorLineFormat Format;
        Format.m_nGraphType = Picture.m_nType;
        Format.m_nStyle     = Picture.m_nStyle;
        Format.m_nWidth     = Picture.m_nWidth;
        Format.m_crColor    = pPlot->DataSet(nLine)->m_crColor;
        REQUIRE(pPlot->FormatDataSet(nLine, Format, 1.0F, 0.0F) == 1);
    }
}

static void Draw(const cVantorPlot &Plot, HBITMAP hBitmap)
{
    const cMemoryDc    Dc(nullptr);
    const cSelectGuard Selected(Dc.Get(), hBitmap);
    cFramedTextCanvas  Canvas(Dc.Get());
    const cRect        All = {0, 0, kPlotWidth / 2, kPlotHeight / 2};
    Canvas.FillBox(All, Plot.Settings().m_crBackground);
    REQUIRE(DrawPlot(LayOutPlot(Plot, {ptImage, All}, Canvas), Plot, &Canvas) == 1);
}

static std::string Bytes(const std::string &Name)
{
    std::ifstream File(Name, std::ios::binary);
    return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

// If VORSTEK_KEEP_PICTURES is set in the environment, as by scripts/make-pictures,
// the pictures are replaced instead.
TEST_CASE("plots on a device context look like their reference pictures")
{
    const cScratchFolder Folder;
    for (const cKeptPicture &Picture : kPictures)
    {
        CAPTURE(Picture.m_szName);
        cRecordingBoxes Boxes;
        cVantorPlot     Plot(&Boxes);
        Fill(&Plot, &Boxes, Picture);
        const cWindowDc  Screen(nullptr);
        const cGdiBitmap Bitmap(
            CreateCompatibleBitmap(Screen.Get(), kPlotWidth / 2, kPlotHeight / 2));
        const std::string Kept  = std::string(GOLDEN_FOLDER "/device/") + Picture.m_szName;
        const std::string Drawn = getenv("VORSTEK_KEEP_PICTURES") ? Kept : Folder.Name("drawn.gif");
        Draw(Plot, Bitmap.Get());
        REQUIRE(WriteBitmapAsGif(Bitmap.Get(), nullptr, 24, Drawn.c_str(), 1, &Boxes) == 1);

        CHECK(Bytes(Drawn).size() > 100);
        CHECK(Bytes(Drawn) == Bytes(Kept));
    }
}
