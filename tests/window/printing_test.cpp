// Printing the listing, and the platform's dialogs for it.

#include "tests/window/paper_tray.h"

#include <cstdio>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "tests/window/calculator.h"
#include "tests/window/common_steps.h"
#include "tests/window/graph_window.h"
#include "tests/window/input.h"
#include "tests/window/leaks.h"
#include "tests/window/print_dialogs.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

namespace
{

using cTexts = std::vector<std::vector<std::string>>;

}  // namespace

static const int kTolerance  = 2;   // of the position of a letter
static const int kLineHeight = 15;  // at most, of 9 points

// "; line 001" to "; line 300". The calculator adds the 99 lines of the program.
static std::string LongListing()
{
    std::string Listing;
    for (int i = 1; i <= 300; i++)
    {
        char szLine[32];
        snprintf(szLine, sizeof szLine, "; line %03d\r\n", i);
        Listing += szLine;
    }
    return Listing;
}

// The lines of the listing box without leading blanks.
static std::vector<std::string> ListingOf(const cCalculator &Calculator)
{
    std::vector<std::string> Lines = Calculator.ListingLines();
    for (std::string &Line : Lines)
        Line.erase(0, Line.find_first_not_of(' '));
    return Lines;
}

static std::vector<std::string> AllLines(const cTexts &Pages)
{
    std::vector<std::string> Lines;
    for (const auto &Page : Pages)
        Lines.insert(Lines.end(), Page.begin(), Page.end());
    return Lines;
}

namespace
{

struct cPrintRig
{
    cPrintRig() { OpenListing(&m_Calculator, LongListing()); }

    void Ask()
    {
        m_Calculator.HitShortcut('P', kCtrl);
        REQUIRE(m_Calculator.Dialog());
    }

    void ChoosePages(const char *szFrom, const char *szTo)
    {
        m_Calculator.ClickControl(kPageRange);
        FillField(&m_Calculator, kFromPage, szFrom);
        FillField(&m_Calculator, kToPage, szTo);
    }

    cPrintedDocument Print()
    {
        m_Calculator.Click("OK");
        return m_Tray.Next();
    }

    // Fills in three margins of the page setup.
    void SetMargins()
    {
        FillField(&m_Calculator, kMarginLeft, "2");
        FillField(&m_Calculator, kMarginTop, "3");
        FillField(&m_Calculator, kMarginBottom, "1.5");
    }

    void SetUp() { m_Calculator.Choose(mnFile, IDM_PAGE_SETUP); }

    // Waits until the calculator is enabled again and in front; 0 if it is not.
    int IsFree()
    {
        return WaitFor([this] {
            return IsWindowEnabled(m_Calculator.Window()) &&
                   GetForegroundWindow() == m_Calculator.Window();
        });
    }

    cPaperTray  m_Tray;
    cCalculator m_Calculator;
};

}  // namespace

TEST_CASE("a long listing is printed with every line once, page by page within the margins")
{
    cPrintRig Rig;
    Rig.Ask();
    CHECK(TextOfControl(Rig.m_Calculator, kCopies) == "1");
    CHECK_FALSE(IsWindowEnabled(GetDlgItem(Rig.m_Calculator.Dialog(), kSelection)));
    PhotographDialog(Rig.m_Calculator, "print-dialog");
    const cPrintedDocument All = Rig.Print();
    CHECK(Rig.IsFree());

    const std::string File = Rig.m_Calculator.Path("program.txt");
    CHECK(All.m_Title == File);
    CHECK(AllLines(All.m_Texts) == ListingOf(Rig.m_Calculator));
    REQUIRE(All.m_Pages.size() > 3);
    for (const cPrintedPage &Page : All.m_Pages)
    {
        const cInk Ink  = Page.Ink();
        const int  bEnd = &Page == &All.m_Pages.back();
        CHECK(Ink.m_nLeft >= kInch - kTolerance);
        CHECK(Ink.m_nTop >= kInch - kTolerance);
        CHECK(Ink.m_nTop < kInch + kLineHeight);
        CHECK(Ink.m_nBottom <= Page.m_Picture.Height() - kInch + kTolerance);
        CHECK((bEnd || Ink.m_nBottom > Page.m_Picture.Height() - kInch - kLineHeight));
        CHECK((bEnd || Page.m_Lines.size() == All.m_Pages[0].m_Lines.size()));
    }
    CHECK(All.m_Pages[0].Ink().m_nLeft <= kInch + kTolerance);
    All.Save(1, "print-listing");
}

TEST_CASE("a range of pages and copies in either order are printed as chosen")
{
    cPrintRig Rig;
    Rig.Ask();
    const cTexts All = Rig.Print().m_Texts;
    REQUIRE(All.size() > 3);

    Rig.Ask();
    Rig.ChoosePages("2", "3");
    CHECK(Rig.Print().m_Texts == cTexts{All[1], All[2]});

    Rig.Ask();
    Rig.ChoosePages("1", "2");
    FillField(&Rig.m_Calculator, kCopies, "2");
    CHECK(Rig.Print().m_Texts == cTexts{All[0], All[0], All[1], All[1]});

    Rig.Ask();
    Rig.ChoosePages("1", "2");
    FillField(&Rig.m_Calculator, kCopies, "2");
    Rig.m_Calculator.ClickControl(kCollate);
    PhotographDialog(Rig.m_Calculator, "print-copies");
    CHECK(Rig.Print().m_Texts == cTexts{All[0], All[1], All[0], All[1]});
}

TEST_CASE("the margins of the page setup apply to what is printed")
{
    cPrintRig Rig;
    Rig.SetUp();
    CHECK(TextOfControl(Rig.m_Calculator, kMarginLeft) == "1");
    Rig.SetMargins();
    PhotographDialog(Rig.m_Calculator, "page-setup");
    Rig.m_Calculator.Click("OK");
    CHECK(Rig.IsFree());
    Rig.Ask();
    Rig.ChoosePages("1", "1");

    const cPrintedDocument Upright = Rig.Print();

    const cInk Ink    = Upright.m_Pages[0].Ink();
    const int  nSheet = Upright.m_Pages[0].m_Picture.Height();
    CHECK(abs(Ink.m_nLeft - 2 * kInch) <= kTolerance);
    CHECK(Ink.m_nTop >= 3 * kInch - kTolerance);
    CHECK(Ink.m_nTop < 3 * kInch + kLineHeight);
    CHECK(Ink.m_nBottom <= nSheet - kInch * 3 / 2 + kTolerance);
    CHECK(Ink.m_nBottom > nSheet - kInch * 3 / 2 - kLineHeight);
    Upright.Save(1, "print-margins");
}

TEST_CASE("OK keeps the page setup, and Cancel restores the one before")
{
    cPrintRig Rig;
    Rig.SetUp();
    Rig.SetMargins();
    Rig.m_Calculator.Click("OK");

    Rig.SetUp();
    CHECK(TextOfControl(Rig.m_Calculator, kMarginTop) == "3");
    FillField(&Rig.m_Calculator, kMarginTop, "5");
    Rig.m_Calculator.ClickControl(kLandscape);
    Rig.m_Calculator.Click("Cancel");

    Rig.SetUp();
    CHECK(TextOfControl(Rig.m_Calculator, kMarginLeft) == "2");
    CHECK(TextOfControl(Rig.m_Calculator, kMarginTop) == "3");
    CHECK(TextOfControl(Rig.m_Calculator, kMarginRight) == "1");
    CHECK(TextOfControl(Rig.m_Calculator, kMarginBottom) == "1.500");
}

TEST_CASE("margins that leave no room for the listing are refused, and nothing is printed")
{
    cPrintRig Rig;
    Rig.SetUp();
    FillField(&Rig.m_Calculator, kMarginTop, "8");
    FillField(&Rig.m_Calculator, kMarginBottom, "8");
    Rig.m_Calculator.Click("OK");
    Rig.Ask();
    Rig.m_Calculator.Click("OK");
    CHECK(Rig.m_Calculator.Box().m_Text == "The page margins leave no room on the sheet");
    Rig.m_Calculator.Click("OK");
    CHECK(Rig.m_Calculator.HasNoDialog());

    // The next document is one of several lines to a page.
    Rig.SetUp();
    Rig.SetMargins();
    Rig.m_Calculator.Click("OK");
    Rig.Ask();
    const cPrintedDocument Document = Rig.Print();
    CHECK(Document.m_Texts[0].size() > 10);
}

TEST_CASE("in landscape the listing is printed down the sheet, on more pages")
{
    cPrintRig Rig;
    Rig.Ask();
    const size_t nUpright = Rig.Print().m_Texts.size();
    Rig.SetUp();
    // Before the margins, which the platform turns with the sheet.
    Rig.m_Calculator.ClickControl(kLandscape);
    Rig.SetMargins();
    FillField(&Rig.m_Calculator, kMarginRight, "1");
    Rig.m_Calculator.Click("OK");
    Rig.Ask();

    const cPrintedDocument Turned = Rig.Print();

    CHECK(AllLines(Turned.m_Texts) == ListingOf(Rig.m_Calculator));
    CHECK(Turned.m_Texts.size() > nUpright);
    // The top of the text is the right edge of the sheet, its left the upper edge.
    const cInk Down   = Turned.m_Pages[0].Ink();
    const int  nWidth = Turned.m_Pages[0].m_Picture.Width();
    CHECK(abs(Down.m_nTop - 2 * kInch) <= kTolerance);
    CHECK(Down.m_nRight <= nWidth - 3 * kInch + kTolerance);
    CHECK(Down.m_nRight > nWidth - 3 * kInch - kLineHeight);
    CHECK(Down.m_nLeft >= kInch * 3 / 2 - kTolerance);
    CHECK(Down.m_nLeft < kInch * 3 / 2 + kLineHeight);
    Turned.Save(1, "print-landscape");
    Rig.SetUp();
    PhotographDialog(Rig.m_Calculator, "page-setup-landscape");
    CHECK(IsDlgButtonChecked(Rig.m_Calculator.Dialog(), kLandscape));
    CHECK(TextOfControl(Rig.m_Calculator, kMarginTop) == "3");
}

TEST_CASE("where the locale is metric the margins are in millimetres")
{
    char szFormer[4] = "";
    GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, szFormer, sizeof szFormer);
    REQUIRE(SetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, "0"));
    {
        cPrintRig Rig;
        Rig.SetUp();
        CHECK(TextOfControl(Rig.m_Calculator, kMarginLeft) == "25.40");
        CHECK(TextOfControl(Rig.m_Calculator, kMarginGroup).find("[mm]") != std::string::npos);
        FillField(&Rig.m_Calculator, kMarginLeft, "50.8");
        PhotographDialog(Rig.m_Calculator, "page-setup-metric");
        Rig.m_Calculator.Click("OK");
        Rig.Ask();
        Rig.ChoosePages("1", "1");
        CHECK(abs(Rig.Print().m_Pages[0].Ink().m_nLeft - 2 * kInch) <= kTolerance);
    }
    SetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_IMEASURE, szFormer);
}

TEST_CASE("the Print dialog disables all windows, which Cancel enables again")
{
    cPrintRig          Rig;
    const cGraphWindow Graph(&Rig.m_Calculator);
    SetForegroundWindow(Rig.m_Calculator.Window());
    Rig.Ask();
    CHECK_FALSE(IsWindowEnabled(Graph.Window()));
    Rig.m_Calculator.Click("Cancel");
    CHECK(Rig.IsFree());
    CHECK(WaitFor([&] { return IsWindowEnabled(Graph.Window()); }));
}

TEST_CASE("a cancelled dialog prints nothing, and a cancelled document is cut short")
{
    cPrintRig Rig;
    Rig.Ask();
    Rig.m_Calculator.Click("Cancel");
    CHECK(Rig.IsFree());

    Rig.Ask();
    FillField(&Rig.m_Calculator, kCopies, "999");
    const HWND hPrint = Rig.m_Calculator.Dialog();
    Rig.m_Calculator.Click("OK");
    REQUIRE(WaitFor([&] { return !IsWindow(hPrint) && Rig.m_Calculator.HasDialog(); }));
    CHECK(Rig.m_Calculator.Box().m_Caption == "Vorstek");
    CHECK(TextOfControl(Rig.m_Calculator, IDC_SENDING_DOCUMENT) ==
          Rig.m_Calculator.Path("program.txt"));
    CHECK_FALSE(IsWindowEnabled(Rig.m_Calculator.Window()));
    PhotographDialog(Rig.m_Calculator, "sending");
    Rig.m_Calculator.Click("Cancel");
    CHECK(Rig.IsFree());
    CHECK_FALSE(Rig.m_Calculator.HasDialog());

    // The first document in the tray is the one that was cut short.
    const size_t nShort = Rig.m_Tray.Next().m_Texts.size();
    Rig.Ask();
    const size_t nAll = Rig.Print().m_Texts.size();
    CHECK(nShort < 999 * nAll);
    CHECK(nAll > 1);
}

TEST_CASE("many openings of the printer dialog leave nothing behind")
{
    const cPrintRig Rig;
    CHECK(LeavesNothing(Rig.m_Calculator, [&] {
        OpenAndClose(Rig.m_Calculator, Rig.m_Calculator.Window(), IDM_PRINT);
    }));
}
