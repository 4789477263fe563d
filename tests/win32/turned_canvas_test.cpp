#include "toolkit/win32/win32.h"

#include "graph/turned_canvas.h"

#include <cstdio>
#include <functional>

#include <doctest/doctest.h>

#include "graph/win32/gdi_canvas.h"
#include "tests/win32/drawn_sheet.h"
#include "toolkit/print_plan.h"
#include "toolkit/win32/gdi.h"

static const COLORREF kRedInk  = RGB(255, 0, 0);
static const COLORREF kBlueInk = RGB(0, 0, 255);

// The sheet as the reader holds it.
static const int kCanvasWidth  = 60;
static const int kCanvasHeight = 40;

// Draws on an upright sheet and on a turned one, and compares them.
static void CheckSame(const std::function<void(cPlotCanvas *)> &Draw)
{
    const cDrawnSheet Upright(kCanvasWidth, kCanvasHeight);
    const cDrawnSheet Turned(kCanvasHeight, kCanvasWidth);
    {
        cGdiCanvas Canvas(Upright.Dc(), nullptr);
        Draw(&Canvas);
    }
    {
        cGdiCanvas    Sheet(Turned.Dc(), nullptr);
        cTurnedCanvas Canvas(&Sheet, kCanvasHeight);
        Draw(&Canvas);
    }
    REQUIRE(Upright.DrawnBox().Width() > 0);
    for (int nY = 0; nY < kCanvasHeight; nY++)
        for (int nX = 0; nX < kCanvasWidth; nX++)
        {
            CAPTURE(nX);
            CAPTURE(nY);
            REQUIRE(Upright.Pixel(nX, nY) == Turned.Pixel(kCanvasHeight - 1 - nY, nX));
        }
}

static HFONT MakeFont(int nTurn)
{
    LOGFONTA LogFont         = {};
    LogFont.lfHeight         = -12;
    LogFont.lfEscapement     = nTurn;
    LogFont.lfOrientation    = nTurn;
    LogFont.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    snprintf(LogFont.lfFaceName, sizeof LogFont.lfFaceName, "Courier New");
    return CreateFontIndirectA(&LogFont);
}

TEST_CASE("lines and filled shapes are turned pixel by pixel")
{
    CheckSame([](cPlotCanvas *pCanvas) {
        const cPoint   Axes[]    = {{5, 3}, {5, 35}, {5, 35}, {50, 35}};
        const uint32_t nCounts[] = {2, 2};
        const cPoint   Steps[]   = {{5, 30}, {20, 30}, {20, 10}, {45, 10}};
        const cPoint   Wide[]    = {{15, 15}, {15, 30}};
        const cPoint   Square[]  = {{30, 20}, {36, 20}, {36, 26}, {30, 26}};
        const int32_t  nCorners  = 4;
        pCanvas->FillBox({1, 2, 55, 38}, RGB(255, 255, 200));
        pCanvas->Polylines(Axes, nCounts, 2, {0, 1, RGB(0, 0, 0)});
        pCanvas->Polyline(Steps, 4, {0, 1, kRedInk});
        pCanvas->Polyline(Wide, 2, {0, 3, kRedInk});
        pCanvas->Polygons(Square, &nCorners, 1, kBlueInk);
    });
}

TEST_CASE("a clip is exact on a turned sheet, and later drawing is turned too")
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
                pCanvas->Polyline(Wide, 2, {0, 1, kRedInk});
            }
            pCanvas->Polyline(High, 2, {0, 1, kBlueInk});
        }
        pCanvas->Polyline(Last, 2, {0, 1, kRedInk});
    });
}

TEST_CASE("a turned text has the size of an upright one")
{
    const cGdiFont      Level(MakeFont(0));
    const cGdiFont      Down(MakeFont(kTurnedText));
    const cDrawnSheet   Sheet(kCanvasHeight, kCanvasWidth);
    const cDrawnSheet   Other(kCanvasHeight, kCanvasWidth);
    const cGdiCanvas    Upright(Sheet.Dc(), Level.Get());
    cGdiCanvas          Turned(Other.Dc(), Down.Get());
    const cTurnedCanvas Canvas(&Turned, kCanvasHeight);

    CHECK(Canvas.TextHeight() == Upright.TextHeight());
    CHECK(Canvas.TextWidth("0.25") == Upright.TextWidth("0.25"));
    CHECK(Canvas.TextWidth("0.25") > 20);
}

TEST_CASE("a turned text runs down the sheet from, around or to its position")
{
    const cGdiFont Down(MakeFont(kTurnedText));
    for (const eAlign nAlign : {alLeft, alCenter, alRight})
    {
        CAPTURE(nAlign);
        const cDrawnSheet Sheet(kCanvasHeight, kCanvasWidth);
        cGdiCanvas        Turned(Sheet.Dc(), Down.Get());
        cTurnedCanvas     Canvas(&Turned, kCanvasHeight);
        const int         nLength = Canvas.TextWidth("HHH");
        const int         nHeight = Canvas.TextHeight();
        const int nAbove = nAlign == alLeft ? 0 : nAlign == alCenter ? nLength / 2 : nLength;

        Canvas.Label({30, 5}, nAlign, "HHH", kRedInk);

        const cRect Ink = Sheet.DrawnBox();
        CHECK(Ink.m_nTop >= 30 - nAbove - 1);
        CHECK(Ink.m_nBottom <= 30 - nAbove + nLength + 1);
        CHECK(Ink.Height() > nLength - 5);
        CHECK(Ink.m_nRight <= kCanvasHeight - 5);
        CHECK(Ink.m_nRight > kCanvasHeight - 5 - nHeight / 2);
        CHECK(Ink.m_nLeft >= kCanvasHeight - 5 - nHeight);
    }
}
