#include "toolkit/win32.h"

#include "graph/turned_canvas.h"

#include <cstdio>
#include <functional>

#include <doctest/doctest.h>

#include "tests/win32/drawn_sheet.h"
#include "toolkit/gdi.h"
#include "toolkit/print_plan.h"

namespace
{

const COLORREF kRed  = RGB(255, 0, 0);
const COLORREF kBlue = RGB(0, 0, 255);

// As the reader holds the sheet.
const int kWidth  = 60;
const int kHeight = 40;

// Draws on an upright sheet and on one that is turned, and compares them.
void CheckSame(const std::function<void(cPlotCanvas *)> &Draw)
{
    const cDrawnSheet Upright(kWidth, kHeight);
    const cDrawnSheet Turned(kHeight, kWidth);
    {
        cGdiCanvas Canvas(Upright.Dc(), nullptr);
        Draw(&Canvas);
    }
    {
        cTurnedCanvas Canvas(Turned.Dc(), nullptr, kHeight);
        Draw(&Canvas);
    }
    REQUIRE(Upright.DrawnBox().Width() > 0);
    for (int nY = 0; nY < kHeight; nY++)
        for (int nX = 0; nX < kWidth; nX++)
        {
            CAPTURE(nX);
            CAPTURE(nY);
            REQUIRE(Upright.Pixel(nX, nY) == Turned.Pixel(kHeight - 1 - nY, nX));
        }
}

HFONT MakeFont(int nTurn)
{
    LOGFONTA LogFont         = {};
    LogFont.lfHeight         = -12;
    LogFont.lfEscapement     = nTurn;
    LogFont.lfOrientation    = nTurn;
    LogFont.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    snprintf(LogFont.lfFaceName, sizeof LogFont.lfFaceName, "Courier New");
    return CreateFontIndirectA(&LogFont);
}

}  // namespace

TEST_CASE("lines and filled shapes are turned pixel by pixel")
{
    CheckSame([](cPlotCanvas *pCanvas) {
        const cPoint   Axes[]    = {{5, 3}, {5, 35}, {5, 35}, {50, 35}};
        const uint32_t nCounts[] = {2, 2};
        const cPoint   Steps[]   = {{5, 30}, {20, 30}, {20, 10}, {45, 10}};
        const cPoint   Square[]  = {{30, 20}, {36, 20}, {36, 26}, {30, 26}};
        const int32_t  nCorners  = 4;
        pCanvas->FillBox({1, 2, 55, 38}, RGB(255, 255, 200));
        pCanvas->Polylines(Axes, nCounts, 2, {0, 1, RGB(0, 0, 0)});
        pCanvas->Polyline(Steps, 4, {0, 1, kRed});
        pCanvas->Polygons(Square, &nCorners, 1, kBlue);
    });
}

TEST_CASE("a clip is exact on a turned sheet, and what follows it is turned too")
{
    CheckSame([](cPlotCanvas *pCanvas) {
        const cPoint Wide[] = {{0, 10}, {60, 10}};
        const cPoint High[] = {{20, 0}, {20, 40}};
        const cPoint Last[] = {{3, 4}, {30, 4}};
        {
            const cClipGuard Outer(pCanvas, {10, 10, 30, 20});
            {
                const cClipGuard Inner(pCanvas, {15, 5, 25, 35});
                pCanvas->FillBox({0, 0, 60, 40}, RGB(200, 200, 255));
                pCanvas->Polyline(Wide, 2, {0, 1, kRed});
            }
            pCanvas->Polyline(High, 2, {0, 1, kBlue});
        }
        pCanvas->Polyline(Last, 2, {0, 1, kRed});
    });
}

TEST_CASE("a turned text has the size of an upright one")
{
    const cDrawnSheet   Sheet(kHeight, kWidth);
    const cGdiFont      Level(MakeFont(0));
    const cGdiFont      Down(MakeFont(kTurnedText));
    const cDrawnSheet   Upright(kWidth, kHeight);
    const cGdiCanvas    UprightCanvas(Upright.Dc(), Level.Get());
    const cTurnedCanvas Canvas(Sheet.Dc(), Down.Get(), kHeight);

    CHECK(Canvas.TextHeight() == UprightCanvas.TextHeight());
    CHECK(Canvas.TextWidth("0.25") == UprightCanvas.TextWidth("0.25"));
    CHECK(Canvas.TextWidth("0.25") > 20);
}

TEST_CASE("a turned text runs down the sheet from, around or to its place")
{
    const cGdiFont Down(MakeFont(kTurnedText));
    for (const eAlign nAlign : {alLeft, alCenter, alRight})
    {
        CAPTURE(nAlign);
        const cDrawnSheet Sheet(kHeight, kWidth);
        int               nLength = 0;
        int               nHeight = 0;
        {
            cTurnedCanvas Canvas(Sheet.Dc(), Down.Get(), kHeight);
            nLength = Canvas.TextWidth("HHH");
            nHeight = Canvas.TextHeight();
            Canvas.Label({30, 5}, nAlign, "HHH", kRed);
        }
        const int nAbove = nAlign == alLeft ? 0 : nAlign == alCenter ? nLength / 2 : nLength;

        const cRect Ink = Sheet.DrawnBox();
        CHECK(Ink.m_nTop >= 30 - nAbove - 1);
        CHECK(Ink.m_nBottom <= 30 - nAbove + nLength + 1);
        CHECK(Ink.Height() > nLength - 5);
        CHECK(Ink.m_nRight <= kHeight - 5);
        CHECK(Ink.m_nRight > kHeight - 5 - nHeight / 2);
        CHECK(Ink.m_nLeft >= kHeight - 5 - nHeight);
    }
}

TEST_CASE("a device context is upright again when its turned canvas goes")
{
    const cDrawnSheet Sheet(kHeight, kWidth);
    {
        cTurnedCanvas Canvas(Sheet.Dc(), nullptr, kHeight);
        Canvas.Label({3, 3}, alLeft, "H", kRed);
    }
    POINT Point = {7, 11};

    LPtoDP(Sheet.Dc(), &Point, 1);

    CHECK(Point.x == 7);
    CHECK(Point.y == 11);
}
