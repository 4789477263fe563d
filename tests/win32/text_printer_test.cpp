#include "toolkit/win32/win32.h"

#include "toolkit/win32/text_printer.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/unit/recording_boxes.h"
#include "tests/win32/drawn_sheet.h"

namespace
{

class cLines : public cTextSource
{
public:
    explicit cLines(const std::vector<std::string> &Lines) : m_Lines(Lines) {}

    int CountLines() const override { return static_cast<int>(m_Lines.size()); }

    int GetLineLength(int nLine) const override
    {
        return static_cast<int>(m_Lines[static_cast<size_t>(nLine)].size());
    }

    int GetLine(int nLine, char *szText, size_t nSize) const override
    {
        const std::string Line = m_Lines[static_cast<size_t>(nLine)].substr(0, nSize - 3);
        snprintf(szText, nSize, "%s\r\n", Line.c_str());
        return 1;
    }

private:
    std::vector<std::string> m_Lines;
};

// A white sheet of 400 by 300 pixels in memory, at 100 pixels per inch.
class cSheet : public cDrawnSheet
{
public:
    cSheet() : cDrawnSheet(kWidth, kHeight) {}

    // The smallest rectangle around all pixels of a colour; empty if there are
    // none.
    RECT Ink(COLORREF crText) const
    {
        RECT Found = {kWidth, kHeight, 0, 0};
        for (int nY = 0; nY < kHeight; nY++)
            for (int nX = 0; nX < kWidth; nX++)
                if (Pixel(nX, nY) == crText)
                {
                    const RECT Pixel = {nX, nY, nX + 1, nY + 1};
                    if (Found.right <= Found.left)
                        Found = Pixel;
                    UnionRect(&Found, &Found, &Pixel);
                }
        return Found;
    }

    static const int kWidth  = 400;
    static const int kHeight = 300;
};

}  // namespace

static const cPaper       kSmallPaper = {0, 100, 100, cSheet::kWidth, cSheet::kHeight, 0, 0, 0, 0};
static const cPrintChoice kAllOnce    = {1, 0, 0, 0, 0};
static const COLORREF     kBlueText   = RGB(0, 0, 255);

// 14.4 points, which are 20 pixels on the sheet, without smoothed edges, so that
// all ink has the colour of the text.
static cTextLook Look(int bLandscape)
{
    cTextLook Look                  = {};
    Look.m_LogFont.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    Look.m_LogFont.lfQuality        = NONANTIALIASED_QUALITY;
    snprintf(Look.m_LogFont.lfFaceName, sizeof Look.m_LogFont.lfFaceName, "Courier New");
    Look.m_nPointSize = 144;
    Look.m_crText     = kBlueText;
    Look.m_Margins    = {500, 400, 500, 300};
    Look.m_bLandscape = bLandscape;
    return Look;
}

// Draws the first sheet of a text. Returns the rectangle around its ink.
static RECT InkOfFirstSheet(const std::vector<std::string> &Text, int bLandscape)
{
    const cSheet    Sheet;
    const cLines    Lines(Text);
    const cTextLook Chosen = Look(bLandscape);
    cRecordingBoxes Boxes;
    cTextPages      Pages(Sheet.Dc(), Lines, Chosen, kSmallPaper, kAllOnce);
    REQUIRE(Pages.Prepare(&Boxes) == 1);
    Pages.DrawSheet(0);
    return Sheet.Ink(kBlueText);
}

TEST_CASE("the first line of a page starts at the left and top margins")
{
    const RECT Ink = InkOfFirstSheet({"HHHH"}, 0);

    CHECK(Ink.left >= 50);
    CHECK(Ink.left < 55);
    CHECK(Ink.top >= 40);
    CHECK(Ink.bottom < 65);
    CHECK(Ink.right - Ink.left > 2 * (Ink.bottom - Ink.top));  // horizontal
}

TEST_CASE("landscape text runs down the sheet from its top right")
{
    const RECT Ink = InkOfFirstSheet({"HHHH"}, 1);

    CHECK(Ink.right <= 400 - 40);
    CHECK(Ink.left > 400 - 65);
    CHECK(Ink.top >= 50);
    CHECK(Ink.top < 55);
    CHECK(Ink.bottom - Ink.top > 2 * (Ink.right - Ink.left));
}

TEST_CASE("the second line of landscape text is left of the first")
{
    const RECT Ink = InkOfFirstSheet({"", "HHHH"}, 1);

    CHECK(Ink.right <= 400 - 40 - 20);
    CHECK(Ink.right > 0);
}

TEST_CASE("a line is drawn without its line end")
{
    const cSheet    Plain;
    const cSheet    WithEnd;
    const cLines    Lines({"abc"});
    const cTextLook Upright = Look(0);
    cRecordingBoxes Boxes;
    cTextPages      Pages(Plain.Dc(), Lines, Upright, kSmallPaper, kAllOnce);
    REQUIRE(Pages.Prepare(&Boxes) == 1);
    Pages.DrawSheet(0);

    LOGFONTA LogFont = Upright.m_LogFont;
    LogFont.lfHeight = -20;
    const cGdiFont     Font(CreateFontIndirectA(&LogFont));
    const cSelectGuard Selected(WithEnd.Dc(), Font.Get());
    SetTextColor(WithEnd.Dc(), kBlueText);
    TextOutA(WithEnd.Dc(), 50, 40, "abc", 3);

    for (int nY = 0; nY < cSheet::kHeight; nY++)
        for (int nX = 0; nX < cSheet::kWidth; nX++)
            REQUIRE(GetPixel(Plain.Dc(), nX, nY) == GetPixel(WithEnd.Dc(), nX, nY));
}

TEST_CASE("each page shows its own lines")
{
    const cTextLook          Upright = Look(0);
    std::vector<std::string> Text(40);
    Text[39] = "HHHH";  // all other lines are empty
    const cLines    Lines(Text);
    cRecordingBoxes Boxes;

    const cSheet First;
    cTextPages   Pages(First.Dc(), Lines, Upright, kSmallPaper, kAllOnce);
    REQUIRE(Pages.Prepare(&Boxes) == 1);
    const int nSheets = Pages.CountSheets();
    CHECK(nSheets > 2);

    Pages.DrawSheet(0);
    CHECK(First.Ink(kBlueText).right == 0);
    Pages.DrawSheet(nSheets - 1);
    CHECK(First.Ink(kBlueText).right > 0);
}

TEST_CASE("the text of a page ends above the bottom margin")
{
    const RECT Ink = InkOfFirstSheet(std::vector<std::string>(40, "H"), 0);

    CHECK(Ink.bottom <= 300 - 30);
    CHECK(Ink.bottom > 300 - 30 - 40);
}

TEST_CASE("copies and the chosen range decide how many sheets there are")
{
    const cSheet             Sheet;
    const cTextLook          Upright = Look(0);
    std::vector<std::string> Text(100, "H");
    const cLines             Lines(Text);

    const cTextPages All(Sheet.Dc(), Lines, Upright, kSmallPaper, kAllOnce);
    const cTextPages Two(Sheet.Dc(), Lines, Upright, kSmallPaper, {3, 1, 1, 2, 3});

    CHECK(All.CountSheets() > 5);
    CHECK(Two.CountSheets() == 6);
}
