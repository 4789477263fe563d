#include "toolkit/win32/win32.h"

#include "graph/win32/gdi_canvas.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "graph/plot_renderer.h"
#include "graph/plot_vertices.h"
#include "tests/unit/recording_boxes.h"
#include "tests/unit/recording_canvas.h"
#include "tests/win32/drawn_sheet.h"
#include "toolkit/win32/gdi.h"

static const COLORREF kRed  = RGB(255, 0, 0);
static const COLORREF kBlue = RGB(0, 0, 255);

namespace
{

// A sheet whose pixels can be compared as text.
struct cPaperRig : cDrawnSheet
{
    using cDrawnSheet::cDrawnSheet;

    // One line per row; '#' is red, '+' blue, '.' white, '?' any other colour.
    std::string Picture() const
    {
        std::string Text;
        for (int nY = 0; nY < Height(); nY++)
        {
            for (int nX = 0; nX < Width(); nX++)
                Text += Sign(Pixel(nX, nY));
            Text += '\n';
        }
        return Text;
    }

    static char Sign(COLORREF crPixel)
    {
        return crPixel == kRed                 ? '#'
               : crPixel == kBlue              ? '+'
               : crPixel == RGB(255, 255, 255) ? '.'
                                               : '?';
    }

    int CountPixels(COLORREF crColour) const
    {
        int nCount = 0;
        for (int nPixel = 0; nPixel < Width() * Height(); nPixel++)
            nCount += Pixel(nPixel % Width(), nPixel / Width()) == crColour;
        return nCount;
    }
};

}  // namespace

// A '*' in Expected is a pixel that the platform may or may not draw.
static int IsLike(const std::string &Picture, const std::string &Expected)
{
    return std::equal(Picture.begin(), Picture.end(), Expected.begin(), Expected.end(),
                      [](char c, char cExpected) { return cExpected == '*' || c == cExpected; });
}

static void CheckPicture(const cPaperRig &Rig, const std::string &Expected)
{
    const std::string Picture = Rig.Picture();
    CAPTURE(Picture);
    CAPTURE(Expected);
    CHECK(IsLike(Picture, Expected));
}

namespace
{

// A plot with all graph types, grid, title, labels and legend.
struct cFullPlot
{
    cFullPlot() : m_Plot(&m_Boxes)
    {
        const float X[] = {0.0F, 1.0F, 2.5F, 3.0F};
        const float Y[] = {1.0F, -2.0F, 4.0F, 0.5F};
        for (uint32_t nType = gtPlot; nType <= gtStoop; nType++)
        {
            cVantorLineFormat Format;
            Format.m_nGraphType = nType;
            Format.m_nStyle     = nType;
            Format.m_nWidth     = nType % 2 + 1;
            REQUIRE(m_Plot.AddDataSet(4, nType % 2 != 0 ? X : nullptr, Y, &Format) == 1);
        }
        m_Plot.SetGrid(1, 0);
    }

    int Draw(cPlotCanvas *pCanvas) const
    {
        const cRect       Picture = {0, 0, 400, 300};
        const cPlotLayout Layout  = LayOutPlot(m_Plot, {ptImage, Picture}, *pCanvas);
        pCanvas->FillBox(Picture, m_Plot.Settings().m_crBackground);
        return DrawPlot(Layout, m_Plot, pCanvas);
    }

    cRecordingBoxes m_Boxes;
    cVantorPlot     m_Plot;
};

}  // namespace

// The pixels of a horizontal or vertical line, in a picture of this width.
static void Cover(cPoint From, cPoint To, int nWidth, std::vector<int> *pCovered)
{
    const cPoint Step = {From.m_nX < To.m_nX ? 1 : 0, From.m_nY < To.m_nY ? 1 : 0};
    for (; !(From == To); From = {From.m_nX + Step.m_nX, From.m_nY + Step.m_nY})
    {
        const int nPixel                         = From.m_nY * nWidth + From.m_nX;
        (*pCovered)[static_cast<size_t>(nPixel)] = 1;
    }
}

// The marker of each style in the middle of a sheet of 9 by 9.
// clang-format off
static const struct { uint32_t m_nStyle; const char *m_szPicture; } kMarkers[] =
{
    { 0, ".........\n"
         ".........\n"
         "....#....\n"
         "...*#*...\n"
         "...###...\n"
         "..*###*..\n"
         "..#####..\n"
         ".........\n"
         ".........\n" },
    { 1, ".........\n"
         ".........\n"
         "..#####..\n"
         "..#####..\n"
         "..#####..\n"
         "..#####..\n"
         "..#####..\n"
         ".........\n"
         ".........\n" },
    { 2, ".........\n"
         ".........\n"
         "....#....\n"
         "...###...\n"
         "..#####..\n"
         "...###...\n"
         "....#....\n"
         ".........\n"
         ".........\n" },
    { 3, ".........\n"
         "...###...\n"
         "...###...\n"
         "...###...\n"
         "...###...\n"
         "...###...\n"
         "...###...\n"
         "...###...\n"
         ".........\n" },
    { 4, ".........\n"
         ".........\n"
         ".........\n"
         ".#######.\n"
         ".#######.\n"
         ".#######.\n"
         ".........\n"
         ".........\n"
         ".........\n" },
};

// clang-format on

TEST_CASE("lines include their first pixel, but not their last one")
{
    cPaperRig      Rig(12, 7);
    const cPoint   Points[]  = {{1, 1}, {5, 1}, {7, 1}, {7, 4}};
    const uint32_t nCounts[] = {2, 2};
    const cPoint   Bent[]    = {{1, 6}, {4, 3}, {10, 3}, {10, 6}};

    cGdiCanvas(Rig.Dc(), nullptr).Polylines(Points, nCounts, 2, {0, 1, kRed});
    cGdiCanvas(Rig.Dc(), nullptr).Polyline(Bent, 4, {0, 1, kBlue});

    CheckPicture(Rig, "............\n"
                      ".####..#....\n"
                      ".......#....\n"
                      "....+++++++.\n"
                      "...+......+.\n"
                      "..+.......+.\n"
                      ".+..........\n");
}

TEST_CASE("the markers are filled and outlined")
{
    for (const auto &Marker : kMarkers)
    {
        CAPTURE(Marker.m_nStyle);
        cPaperRig     Rig(9, 9);
        cPoint        Corners[kMostCorners];
        const int32_t nCorners = MarkerCorners(Marker.m_nStyle);
        StoreMarker(Marker.m_nStyle, {4, 4}, Corners);
        cGdiCanvas(Rig.Dc(), nullptr).Polygons(Corners, &nCorners, 1, kRed);
        CheckPicture(Rig, Marker.m_szPicture);
    }
}

TEST_CASE("many polygons are drawn in one call")
{
    cPaperRig     Rig(11, 5);
    cPoint        Corners[2 * kMostCorners];
    const int32_t nCorners[] = {4, 3};
    StoreMarker(0, {8, 2}, StoreMarker(2, {2, 2}, Corners));

    cGdiCanvas(Rig.Dc(), nullptr).Polygons(Corners, nCorners, 2, kBlue);

    CheckPicture(Rig, "..+.....+..\n"
                      ".+++...*+*.\n"
                      "+++++..+++.\n"
                      ".+++..*+++*\n"
                      "..+...+++++\n");
}

TEST_CASE("overlapping markers are filled like single ones")
{
    cPaperRig     Rig(11, 7);
    cPoint        Corners[3 * kMostCorners];
    const int32_t nCorners[] = {4, 4, 4};
    StoreMarker(1, {6, 3}, StoreMarker(1, {6, 3}, StoreMarker(1, {3, 2}, Corners)));

    cGdiCanvas(Rig.Dc(), nullptr).Polygons(Corners, nCorners, 3, kBlue);

    CheckPicture(Rig, ".+++++.....\n"
                      ".++++++++..\n"
                      ".++++++++..\n"
                      ".++++++++..\n"
                      ".++++++++..\n"
                      "....+++++..\n"
                      "...........\n");
}

// A curve that goes up and down several times in each of a few columns, and leaves
// the picture.
TEST_CASE("a line with many vertices in a column looks as if drawn step by step")
{
    std::mt19937 Random(7);
    for (uint32_t nWidth = 1; nWidth <= kMostLineWidth; nWidth++)
    {
        CAPTURE(nWidth);
        std::vector<cPoint> Points(400);
        int                 nPoint = 0;
        for (cPoint &Point : Points)
            Point = {nPoint++ / 13 + 5, static_cast<int>(Random() % 70) - 10};
        cPaperRig Whole(40, 50);
        cPaperRig InSteps(40, 50);
        cGdiCanvas(Whole.Dc(), nullptr).Polyline(Points.data(), 400, {0, nWidth, kRed});
        cGdiCanvas Steps(InSteps.Dc(), nullptr);
        for (size_t i = 0; i + 1 < Points.size(); i++)
            Steps.Polyline(&Points[i], 2, {0, nWidth, kRed});

        CheckPicture(Whole, InSteps.Picture());
    }
}

// Places in and around a picture of 160 by 120.
static std::vector<cPoint> RandomPlaces(size_t nPlaces, unsigned nSeed)
{
    std::mt19937        Random(nSeed);
    std::vector<cPoint> Places(nPlaces);
    for (cPoint &Place : Places)
        Place = {static_cast<int>(Random() % 180) - 10, static_cast<int>(Random() % 140) - 10};
    return Places;
}

// The same as pieces that are too short to be drawn in another way than by the platform.
static void DrawInSteps(const std::vector<cPoint> &Points, uint32_t nWidth, cPaperRig *pRig)
{
    cGdiCanvas Canvas(pRig->Dc(), nullptr);
    for (size_t i = 0; i + 1 < Points.size(); i++)
        Canvas.Polyline(&Points[i], 2, {0, nWidth, kRed});
}

TEST_CASE("very many markers look as if each was drawn alone")
{
    for (uint32_t nStyle = 0; nStyle < kStyles; nStyle++)
    {
        CAPTURE(nStyle);
        const int            nCorners = MarkerCorners(nStyle);
        std::vector<cPoint>  Corners(700 * kMostCorners);
        std::vector<int32_t> Counts(700, nCorners);
        cPoint              *pEnd = Corners.data();
        cPaperRig            Together(160, 120);
        cPaperRig            Alone(160, 120);
        cGdiCanvas           Canvas(Alone.Dc(), nullptr);
        Canvas.PushClip({20, 10, 150, 110});
        for (const cPoint At : RandomPlaces(700, nStyle))
        {
            cPoint *const pMarker = pEnd;
            pEnd                  = StoreMarker(nStyle, At, pMarker);
            Canvas.Polygons(pMarker, &nCorners, 1, kRed);
        }
        Canvas.PopClip();
        {
            cGdiCanvas       Whole(Together.Dc(), nullptr);
            const cClipGuard Clip(&Whole, {20, 10, 150, 110});
            Whole.Polygons(Corners.data(), Counts.data(), 700, kRed);
        }
        CHECK(Alone.CountPixels(kRed) > 3000);
        CHECK(Together.Picture() == Alone.Picture());
    }
}

TEST_CASE("very many polygons of several shapes are all drawn")
{
    std::vector<cPoint>  Corners(300 * kMostCorners);
    std::vector<int32_t> Counts;
    cPoint              *pEnd = Corners.data();
    cPaperRig            Together(160, 120);
    cPaperRig            Alone(160, 120);
    cGdiCanvas           Canvas(Alone.Dc(), nullptr);
    for (const cPoint At : RandomPlaces(300, 1))
    {
        const auto nStyle = static_cast<uint32_t>(Counts.size() % 3);
        Counts.push_back(MarkerCorners(nStyle));
        cPoint *const pMarker = pEnd;
        pEnd                  = StoreMarker(nStyle, At, pMarker);
        Canvas.Polygons(pMarker, &Counts.back(), 1, kBlue);
    }

    cGdiCanvas(Together.Dc(), nullptr).Polygons(Corners.data(), Counts.data(), 300, kBlue);

    CHECK(Together.Picture() == Alone.Picture());
}

// Back and forth in x, with segments of up to ten pixels and now and then a long one.
static std::vector<cPoint> LoopsAndLeaps(size_t nPoints, unsigned nSeed)
{
    std::mt19937        Random(nSeed);
    std::vector<cPoint> Points;
    for (size_t i = 0; i < nPoints; i++)
    {
        const double dTurn = static_cast<double>(i) * 0.11;
        const int    nLeap = Random() % 40 == 0 ? 60 : 0;
        Points.push_back({static_cast<int>(80 + 90 * std::sin(dTurn)) - nLeap,
                          static_cast<int>(60 + 70 * std::cos(dTurn * 0.71)) + nLeap});
    }
    return Points;
}

TEST_CASE("a wide line that goes back and forth looks as if drawn step by step")
{
    for (uint32_t nWidth = 2; nWidth <= kMostLineWidth; nWidth++)
    {
        CAPTURE(nWidth);
        const std::vector<cPoint> Points = LoopsAndLeaps(900, nWidth);
        cPaperRig                 Whole(160, 120);
        cPaperRig                 InSteps(160, 120);
        DrawInSteps(Points, nWidth, &InSteps);

        cGdiCanvas(Whole.Dc(), nullptr).Polyline(Points.data(), Points.size(), {0, nWidth, kRed});

        CHECK(InSteps.CountPixels(RGB(255, 255, 255)) > 500);
        CHECK(Whole.Picture() == InSteps.Picture());
    }
}

// 1 if each pixel that is red in one picture has a red one beside it, or at its
// place, in the other.
static int IsNear(const cPaperRig &Of, const cPaperRig &In)
{
    for (int nY = 1; nY < Of.Height() - 1; nY++)
        for (int nX = 1; nX < Of.Width() - 1; nX++)
        {
            int bNear = Of.Pixel(nX, nY) != kRed;
            for (int i = 0; i < 9 && !bNear; i++)
                bNear = In.Pixel(nX - 1 + i % 3, nY - 1 + i / 3) == kRed;
            if (!bNear)
                return 0;
        }
    return 1;
}

TEST_CASE("a wide line of more than a thousand long segments is off by a pixel at most")
{
    for (uint32_t nWidth = 2; nWidth <= kMostLineWidth; nWidth++)
    {
        CAPTURE(nWidth);
        // From the left half to the right one and back, so that there are gaps.
        std::mt19937        Random(nWidth);
        std::vector<cPoint> Points;
        for (int i = 0; i < 1200; i++)
            Points.push_back({i % 2 == 0 ? 20 : 700 - static_cast<int>(Random() % 30) * 20,
                              i % 2 == 0 ? static_cast<int>(Random() % 6) * 60 + 20
                                         : static_cast<int>(Random() % 3) * 100 + 30});
        cPaperRig Whole(720, 400);
        cPaperRig InSteps(720, 400);
        DrawInSteps(Points, nWidth, &InSteps);

        cGdiCanvas(Whole.Dc(), nullptr).Polyline(Points.data(), Points.size(), {0, nWidth, kRed});

        CHECK(InSteps.CountPixels(RGB(255, 255, 255)) > 20000);
        CHECK(IsNear(Whole, InSteps));
        CHECK(IsNear(InSteps, Whole));
    }
}

TEST_CASE("a wide line whose points are all the same is a dot")
{
    const std::vector<cPoint> Points(200, cPoint{10, 10});
    cPaperRig                 Whole(20, 20);
    cPaperRig                 InSteps(20, 20);
    DrawInSteps(Points, 4, &InSteps);

    cGdiCanvas(Whole.Dc(), nullptr).Polyline(Points.data(), 200, {0, 4, kRed});

    CHECK(Whole.Picture() == InSteps.Picture());
}

// Drawn by the platform.
static void DrawDashed(const std::vector<cPoint> &Points, uint32_t nStyle, const cPaperRig &Rig)
{
    const cGdiPen      Pen(CreatePen(static_cast<int>(nStyle), 1, kRed));
    const cSelectGuard Selected(Rig.Dc(), Pen.Get());
    SetBkMode(Rig.Dc(), TRANSPARENT);
    IntersectClipRect(Rig.Dc(), 20, 10, 150, 110);
    ::Polyline(Rig.Dc(), reinterpret_cast<const POINT *>(Points.data()),
               static_cast<int>(Points.size()));
}

TEST_CASE("a dashed line of many points is the platform's to the pixel")
{
    for (uint32_t nStyle = 1; nStyle < kStyles; nStyle++)
        for (const auto &Points :
             {RandomPlaces(120, nStyle), LoopsAndLeaps(900, nStyle), {101, cPoint{30, 30}}})
        {
            CAPTURE(nStyle);
            CAPTURE(Points.size());
            cPaperRig ByCanvas(160, 120);
            cPaperRig ByPlatform(160, 120);
            DrawDashed(Points, nStyle, ByPlatform);
            {
                cGdiCanvas       Canvas(ByCanvas.Dc(), nullptr);
                const cClipGuard Clip(&Canvas, {20, 10, 150, 110});
                Canvas.Polyline(Points.data(), Points.size(), {nStyle, 1, kRed});
            }
            CHECK(ByCanvas.Picture() == ByPlatform.Picture());
        }
}

TEST_CASE("dashed lines keep the background in their gaps, and wide lines have no gaps")
{
    for (uint32_t nStyle = 0; nStyle < kStyles; nStyle++)
    {
        CAPTURE(nStyle);
        cPaperRig    Thin(80, 1);
        cPaperRig    Wide(80, 9);
        const cPoint Line[] = {{0, 0}, {80, 0}};
        const cPoint Down[] = {{0, 4}, {80, 4}};
        cGdiCanvas(Thin.Dc(), nullptr).Polyline(Line, 2, {nStyle, 1, kRed});
        cGdiCanvas(Wide.Dc(), nullptr).Polyline(Down, 2, {nStyle, 3, kRed});

        const std::string Row = Thin.Picture();
        CHECK(Row[0] == '#');
        CHECK((Row.find('.') == std::string::npos) == (nStyle == 0));
        CHECK(Wide.Picture().substr(4 * 81, 80) == std::string(80, '#'));
    }
}

TEST_CASE("on a finer screen lines are wider and keep their dashes")
{
    for (uint32_t nStyle = 0; nStyle < kStyles; nStyle++)
    {
        CAPTURE(nStyle);
        cDrawnSheet  Sheet(200, 10);
        const cPoint Line[] = {{0, 5}, {200, 5}};
        cGdiCanvas(Sheet.Dc(), nullptr, cScale(192)).Polyline(Line, 2, {nStyle, 1, kRed});

        int nHigh  = 0;
        int nFirst = 0;
        int nGaps  = 0;
        for (int y = 0; y < 10; y++)
            nHigh += Sheet.Pixel(2, y) == kRed;
        while (nFirst < 200 && Sheet.Pixel(nFirst, 5) == kRed)
            nFirst++;
        for (int x = 0; x < 200; x++)
            nGaps += Sheet.Pixel(x, 5) != kRed;
        static const int s_First[] = {200, 36, 6, 18, 18};
        CHECK(nHigh == 2);
        CHECK(std::abs(nFirst - s_First[nStyle]) <= 1);
        CHECK((nGaps > 30) == (nStyle != 0));
    }
}

TEST_CASE("a clip excludes its right column and bottom row, and nested clips intersect")
{
    cPaperRig  Rig(8, 6);
    cGdiCanvas Canvas(Rig.Dc(), nullptr);
    Canvas.PushClip({1, 1, 6, 5});
    Canvas.PushClip({3, 0, 8, 3});
    Canvas.FillBox({0, 0, 8, 6}, kRed);
    Canvas.PopClip();
    Canvas.FillBox({0, 3, 8, 6}, kBlue);
    Canvas.PopClip();
    Canvas.FillBox({0, 5, 2, 6}, kRed);

    CheckPicture(Rig, "........\n"
                      "...###..\n"
                      "...###..\n"
                      ".+++++..\n"
                      ".+++++..\n"
                      "##......\n");
}

TEST_CASE("a label is drawn at its position, in its measured size and colour")
{
    cPaperRig      Rig(200, 60);
    const cGdiFont Font(CreateFontA(-14, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0,
                                    DEFAULT_QUALITY, FF_SWISS, "Arial"));
    cGdiCanvas     Canvas(Rig.Dc(), Font.Get());
    const int      nWidth  = Canvas.TextWidth("HHHH");
    const int      nHeight = Canvas.TextHeight();

    REQUIRE(nWidth > 20);
    REQUIRE(nHeight > 10);
    CHECK(Canvas.TextWidth("") == 0);
    CHECK(Canvas.TextWidth("HHHH ") > nWidth);
    // There is some space beside a letter, and a character may be drawn one pixel
    // narrower than measured.
    const int nAir = 3 + 4;
    static const struct
    {
        eAlign nAlign;
        int    nLeft;
    } s_Rows[] = {{alLeft, 100}, {alCenter, 100 - nWidth / 2}, {alRight, 100 - nWidth}};
    for (const auto &Row : s_Rows)
    {
        CAPTURE(Row.nAlign);
        Canvas.FillBox({0, 0, 200, 60}, RGB(255, 255, 255));
        Canvas.Label({100, 20}, Row.nAlign, "HHHH", kBlue);
        const cRect Box = Rig.DrawnBox();
        CHECK(Box.m_nLeft >= Row.nLeft);
        CHECK(Box.m_nLeft <= Row.nLeft + nAir);
        CHECK(Box.m_nRight <= Row.nLeft + nWidth + 1);
        CHECK(Box.m_nRight >= Row.nLeft + nWidth - nAir);
        CHECK(Box.m_nTop >= 20);
        CHECK(Box.m_nBottom <= 20 + nHeight);
    }
}

TEST_CASE("a label has a transparent background")
{
    cPaperRig  Rig(100, 40);
    cGdiCanvas Canvas(Rig.Dc(), nullptr);
    Canvas.FillBox({0, 0, 100, 40}, kRed);
    SetBkColor(Rig.Dc(), RGB(0, 255, 0));

    Canvas.Label({10, 10}, alLeft, "text", kBlue);

    CHECK(Rig.Picture().find('+') != std::string::npos);
    CHECK(Rig.Picture().find('.') == std::string::npos);
    CHECK(Rig.CountPixels(RGB(0, 255, 0)) == 0);
}

TEST_CASE("the resolution is that of the device")
{
    cPaperRig        Rig(10, 10);
    const cGdiCanvas Canvas(Rig.Dc(), nullptr);

    CHECK(Canvas.PixelsPerInchX() == GetDeviceCaps(Rig.Dc(), LOGPIXELSX));
    CHECK(Canvas.PixelsPerInchY() == GetDeviceCaps(Rig.Dc(), LOGPIXELSY));
    CHECK(Canvas.PixelsPerInchX() > 0);
}

TEST_CASE("the state of the context is restored")
{
    cPaperRig       Rig(400, 300);
    const HDC       hDc = Rig.Dc();
    const cFullPlot Full;
    const cGdiFont  Font(
         CreateFontA(-20, 0, 0, 0, FW_NORMAL, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, FF_SWISS, "Arial"));
    SetTextColor(hDc, kRed);
    SetTextAlign(hDc, TA_RIGHT | TA_BOTTOM);
    SetBkMode(hDc, OPAQUE);
    IntersectClipRect(hDc, 5, 6, 300, 200);
    const HGDIOBJ hPen   = GetCurrentObject(hDc, OBJ_PEN);
    const HGDIOBJ hBrush = GetCurrentObject(hDc, OBJ_BRUSH);
    const HGDIOBJ hFont  = GetCurrentObject(hDc, OBJ_FONT);
    {
        cGdiCanvas Canvas(hDc, Font.Get());
        CHECK(GetCurrentObject(hDc, OBJ_FONT) == Font.Get());
        CHECK(Full.Draw(&Canvas) == 1);
    }

    CHECK(GetCurrentObject(hDc, OBJ_PEN) == hPen);
    CHECK(GetCurrentObject(hDc, OBJ_BRUSH) == hBrush);
    CHECK(GetCurrentObject(hDc, OBJ_FONT) == hFont);
    CHECK(GetTextColor(hDc) == kRed);
    CHECK(GetTextAlign(hDc) == (TA_RIGHT | TA_BOTTOM));
    CHECK(GetBkMode(hDc) == OPAQUE);
    RECT Clip = {};
    GetClipBox(hDc, &Clip);
    CHECK(Clip.left == 5);
    CHECK(Clip.top == 6);
    CHECK(Clip.right == 300);
    CHECK(Clip.bottom == 200);
}

// A process is limited to ten to sixty-five thousand objects. If each call leaked
// one, creating a hundred more would fail.
TEST_CASE("seventy thousand calls leak no objects")
{
    cPaperRig      Rig(9, 9);
    const cPoint   Points[]  = {{1, 1}, {8, 1}, {4, 8}};
    const uint32_t nCounts[] = {3};
    const int32_t  nCorners  = 3;
    for (int i = 0; i < 70000; i++)
    {
        cGdiCanvas Canvas(Rig.Dc(), nullptr);
        Canvas.PushClip({0, 0, 9, 9});
        Canvas.FillBox({0, 0, 9, 9}, kRed);
        Canvas.Polylines(Points, nCounts, 1, {1, 1, kBlue});
        Canvas.Polyline(Points, 3, {0, 2, kBlue});
        Canvas.Polygons(Points, &nCorners, 1, kBlue);
        Canvas.Label({0, 0}, alCenter, "t", kBlue);
        Canvas.PopClip();
    }

    std::vector<HPEN> Pens(100);
    for (HPEN &hPen : Pens)
        hPen = CreatePen(PS_SOLID, 1, kRed);
    CHECK(std::count(Pens.begin(), Pens.end(), nullptr) == 0);
    for (const HPEN hPen : Pens)
        DeleteObject(hPen);
}

// Draws the same layout on a recording canvas and on a bitmap, and compares them.
TEST_CASE("the axes on a bitmap match the recorded ones")
{
    cPaperRig           Rig(400, 300);
    cRecordingBoxes     Boxes;
    cVantorPlot         Plot(&Boxes);
    cVantorPlotSettings Settings = Plot.Settings();
    Settings.m_crAxis            = kBlue;
    Settings.m_crText            = RGB(0, 200, 0);
    Settings.m_bHorzGrid         = 1;
    Settings.m_bLegend           = 0;
    Plot.ApplySettings(Settings);
    cGdiCanvas        Canvas(Rig.Dc(), nullptr);
    const cPlotLayout Layout = LayOutPlot(Plot, {ptImage, {0, 0, 400, 300}}, Canvas);
    cRecordingCanvas  Recorded;

    REQUIRE(DrawPlot(Layout, Plot, &Recorded) == 1);
    REQUIRE(DrawPlot(Layout, Plot, &Canvas) == 1);

    std::vector<int> Covered(400 * 300);
    for (const auto *pLines : Recorded.Calls(cRecordingCanvas::caLines))
        for (size_t i = 0; i < pLines->m_Points.size(); i += 2)
            Cover(pLines->m_Points[i], pLines->m_Points[i + 1], 400, &Covered);
    int nWrong = 0;
    for (int nPixel = 0; nPixel < 400 * 300; nPixel++)
    {
        const int bCovered = Covered[static_cast<size_t>(nPixel)];
        nWrong += (Rig.Pixel(nPixel % 400, nPixel / 400) == kBlue) != (bCovered != 0);
    }
    CHECK(std::count(Covered.begin(), Covered.end(), 1) > 2000);
    CHECK(nWrong == 0);
    CHECK(Rig.CountPixels(RGB(0, 200, 0)) > 100);
}
