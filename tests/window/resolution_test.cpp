// The real window on screens of several resolutions. The tests hold at each of them;
// CTest runs them once for each, with pictures of every state.

#include "tests/window/calculator.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <doctest/doctest.h>

#include "shell/window_layout.h"
#include "tests/window/common_steps.h"
#include "tests/window/graph_window.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/plot_reader.h"
#include "tests/window/program_file.h"
#include "tests/window/shared_rig.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"
#include "toolkit/win32/gdi.h"

static const char *const kPeak = "ExplicitX\nTitle \"Bend\"\n0,1\n1,4\n2,2\n";

namespace
{

// A calculator from its welcome box on.
class cFineRig
{
public:
    cFineRig() : m_Calculator(1), m_Welcome(RectOf(m_Calculator.Welcome()))
    {
        const HWND hWelcome = m_Calculator.Welcome();
        m_WelcomeClient     = ClientOf(hWelcome);
        m_WelcomeOk         = RectIn(hWelcome, GetDlgItem(hWelcome, IDOK));
        m_WelcomePicture    = RectIn(hWelcome, FindWindowExA(hWelcome, nullptr, "STATIC", nullptr));
        m_Calculator.Settle();
        Save(cPicture::OfScreen(m_Welcome), "welcome");
        m_Calculator.PassWelcome();
    }

    int IsAsNew() const { return 1; }

    const cScale &Scale() const { return m_Calculator.Scale(); }

    void Save(const cPicture &Picture, const std::string &Name) const
    {
        Picture.Save("dpi-" + std::to_string(Scale().Dpi()) + "-" + Name);
    }

    // The part of the screen that windows of this scale need.
    void SaveScreen(const std::string &Name) const
    {
        m_Calculator.SettlePaint();
        Save(cPicture::OfScreen({0, 0, Scale().Length(980), Scale().Length(720)}), Name);
    }

    cCalculator m_Calculator;
    RECT        m_Welcome;
    RECT        m_WelcomeClient;
    RECT        m_WelcomeOk;
    RECT        m_WelcomePicture;
};

}  // namespace

// The mean colour of the square with this centre, as red, green and blue.
static std::vector<int> MeanAround(const cPicture &Picture, int nX, int nY, int nReach)
{
    std::vector<int> Sum(3);
    int              nPixels = 0;
    for (int y = std::max(nY - nReach, 0); y < std::min(nY + nReach, Picture.Height()); y++)
        for (int x = std::max(nX - nReach, 0); x < std::min(nX + nReach, Picture.Width()); x++)
        {
            const unsigned nColour = Picture.At(x, y);
            Sum[0] += static_cast<int>(nColour >> 16);
            Sum[1] += static_cast<int>(nColour >> 8 & 255);
            Sum[2] += static_cast<int>(nColour & 255);
            nPixels++;
        }
    for (int &nSum : Sum)
        nSum /= std::max(nPixels, 1);
    return Sum;
}

// The points, a fraction of all, at which the keypad's picture differs from the face
// for 96 dots per inch when both are looked at from afar.
static double StrangePart(const cPicture &Keypad, const cPicture &Usual, const cScale &Scale)
{
    const int kStep    = 9;
    const int kReach   = 4;
    const int kMost    = 40;
    int       nStrange = 0;
    int       nPoints  = 0;
    for (int y = kReach; y < kFaceHeight; y += kStep)
        for (int x = kReach; x < kFaceWidth; x += kStep)
        {
            const auto Seen =
                MeanAround(Keypad, Scale.Length(x), Scale.Length(y), Scale.Length(kReach));
            const auto Expected = MeanAround(Usual, x, y, kReach);
            int        nMost    = 0;
            for (size_t i = 0; i < 3; i++)
                nMost = std::max(nMost, std::abs(Seen[i] - Expected[i]));
            nStrange += nMost > kMost;
            nPoints++;
        }
    return static_cast<double>(nStrange) / nPoints;
}

static cPicture InsideOf(HWND hWnd)
{
    RECT Inside = ClientOf(hWnd);
    MapWindowPoints(hWnd, nullptr, reinterpret_cast<POINT *>(&Inside), 2);
    return cPicture::OfScreen(Inside);
}

// Whether the pixels of lit texts all lie in the field that texts have.
static int IsTextInField(const cCalculator &Calculator)
{
    Calculator.SettlePaint();
    const cPicture Keypad = InsideOf(Calculator.Keypad());
    const cScale  &Scale  = Calculator.Scale();
    const RECT Field = {Scale.Length(44), Scale.Length(38), Scale.Length(266), Scale.Length(93)};
    int        nLit  = 0;
    for (int y = 0; y < Scale.Length(100); y++)
        for (int x = 0; x < Keypad.Width(); x++)
            if (Keypad.At(x, y) == 0xFF0000)
            {
                nLit++;
                if (!PtInRect(&Field, {x, y}))
                    return 0;
            }
    return nLit > 50;
}

// The width of a line of text in a font of this size.
static int TextWidth(const std::string &Text, const char *szFace, int nTenths, int nPitch)
{
    const cWindowDc    Screen(nullptr);
    const int          nDpi = GetDeviceCaps(Screen.Get(), LOGPIXELSY);
    const cGdiFont     Font(CreateFontA(-MulDiv(nTenths, nDpi, 720), 0, 0, 0, FW_NORMAL, 0, 0, 0,
                                        ANSI_CHARSET, 0, 0, 0, static_cast<DWORD>(nPitch), szFace));
    const cSelectGuard Selected(Screen.Get(), Font.Get());
    SIZE               Size = {};
    GetTextExtentPoint32A(Screen.Get(), Text.c_str(), static_cast<int>(Text.size()), &Size);
    return Size.cx;
}

// Whether all lines of a box are as wide as its view, or narrower.
static int FitsWidth(HWND hBox, const std::vector<std::string> &Lines)
{
    RECT View = {};
    SendMessageA(hBox, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&View));
    for (const std::string &Line : Lines)
        if (TextWidth(Line, "Courier New", 90, FIXED_PITCH | FF_MODERN) > View.right - View.left)
            return 0;
    return !Lines.empty();
}

static int DialogTextWidth(const std::string &Text)
{
    return TextWidth(Text, "MS Shell Dlg", 80, VARIABLE_PITCH | FF_SWISS);
}

// The controls of a dialog that leave it, or whose text is cut: their texts.
static std::string CutControls(HWND hDialog)
{
    std::string Cut;
    const RECT  Client = ClientOf(hDialog);
    for (HWND hChild = GetWindow(hDialog, GW_CHILD); hChild;
         hChild      = GetWindow(hChild, GW_HWNDNEXT))
    {
        const RECT        Rect  = RectIn(hDialog, hChild);
        const std::string Class = ClassOf(hChild);
        const std::string Text  = Class == "Static" ? TextOf(hChild) : "";
        const size_t      nEnd  = std::min(Text.find('\n'), Text.size());
        const int         nWidth =
            std::max(DialogTextWidth(Text.substr(0, nEnd)), DialogTextWidth(Text.substr(nEnd)));
        if (Rect.left < 0 || Rect.top < 0 || Rect.right > Client.right ||
            Rect.bottom > Client.bottom || nWidth > Rect.right - Rect.left)
            Cut += "[" + Class + " " + TextOf(hChild) + "]";
    }
    return Cut;
}

static int IsOnScreen(HWND hWnd)
{
    const RECT Rect = RectOf(hWnd);
    return Rect.left >= 0 && Rect.top >= 0 && Rect.right <= GetSystemMetrics(SM_CXSCREEN) &&
           Rect.bottom <= GetSystemMetrics(SM_CYSCREEN);
}

TEST_CASE("in any resolution the welcome picture fills its box, with OK below it")
{
    const cFineRig &Rig    = Shared<cFineRig>();
    const cScale   &Scale  = Rig.Scale();
    const RECT     &Shown  = Rig.m_WelcomePicture;
    const RECT     &Client = Rig.m_WelcomeClient;

    CHECK(Shown.left == 0);
    CHECK(Shown.top == 0);
    CHECK(Shown.right == Scale.Length(600));
    CHECK(Shown.bottom == Scale.Length(510));
    CHECK(Client.right >= Shown.right);
    CHECK(Client.right <= Shown.right + Scale.Length(10));
    CHECK(Rig.m_WelcomeOk.top >= Shown.bottom);
    CHECK(Rig.m_WelcomeOk.bottom <= Client.bottom);
    CHECK(Rig.m_WelcomeOk.bottom >= Client.bottom - Scale.Length(20));
}

TEST_CASE("in any resolution the face fills the keypad and looks the same")
{
    cFineRig          &Rig        = Shared<cFineRig>();
    const cCalculator &Calculator = Rig.m_Calculator;
    const cScale      &Scale      = Rig.Scale();
    const cProgramFile Program;

    const RECT Client = ClientOf(Calculator.Keypad());
    CHECK(Client.right == Scale.Length(kFaceWidth));
    CHECK(Client.bottom == Scale.Length(kFaceHeight));
    CHECK(ClientOf(Calculator.Window()).right == SizeOf(Calculator.Keypad()).cx);
    Calculator.SettlePaint();
    CHECK(StrangePart(InsideOf(Calculator.Keypad()), Program.Bitmap(IDB_FACE), Scale) < 0.04);
    CHECK(IsOnScreen(Calculator.Window()));
    Rig.SaveScreen("start");
}

TEST_CASE("in any resolution keys act where they are seen, and their texts are readable")
{
    cFineRig    &Rig        = Shared<cFineRig>();
    cCalculator &Calculator = Rig.m_Calculator;

    Calculator.HitKeys({kKey7, kKeyEnter, kKey8, kKeyPlus, kKey9, kKeyMinus, kKey4, kKeyTimes});
    CHECK(Calculator.ReadsX("24.00"));
    Calculator.HitKeys(
        {kKey5, kKeyDivide, kKeyChs, kKeyStore, kKey1, kKeyClearX, kKeyRecall, kKey1});
    CHECK(Calculator.ReadsX("-4.80"));
    CHECK(Calculator.ReadsBottom("LastOp:  RCL 1"));
    CHECK(Calculator.ReadsAngle("deg"));
    CHECK(IsTextInField(Calculator));
    Calculator.HitKeys({kKeyF, kKey2});
    CHECK(Calculator.ReadsX("Error: sqrt of x < 0"));
    CHECK(IsTextInField(Calculator));
    Rig.SaveScreen("error");
    Calculator.HitKeys({kKeyClearX, kKey3, kKey6, kKeyPoint, kKey0});
    CHECK(Calculator.ReadsX("36.0"));

    Calculator.Slide(swStackView, 1);
    CHECK(Eventually(std::string("X  "), [&] { return Calculator.Read(1, 50, 78, 3); }) == "X  ");
    CHECK(Calculator.Read(1, 50, 42, 3) == "T  ");
    CHECK(Calculator.ReadsAngle("deg"));
    CHECK(IsTextInField(Calculator));
    Rig.SaveScreen("stack");
    Calculator.Slide(swStackView, 0);
    CHECK(Calculator.ReadsX("36.0"));
}

TEST_CASE("in any resolution a pressed key is drawn in its place and disappears from it")
{
    cFineRig       &Rig        = Shared<cFineRig>();
    cCalculator    &Calculator = Rig.m_Calculator;
    const cFaceRect Key        = ScaledRect(kKeyRects[kKey5 - 1], Rig.Scale());
    Calculator.SettlePaint();
    const cPicture Before = InsideOf(Calculator.Keypad());

    MoveMouse(Calculator.OnKey(kKey5));
    PressMouse();
    Calculator.SettlePaint();
    const cPicture Pressed = InsideOf(Calculator.Keypad());
    ReleaseMouse();
    Calculator.HitKey(kKeyClearX);
    Calculator.SettlePaint();

    int nInside  = 0;
    int nOutside = 0;
    for (int y = Rig.Scale().Length(150); y < Before.Height(); y++)
        for (int x = 0; x < Before.Width(); x++)
        {
            const int bInside = x >= Key.m_nLeft && x < Key.m_nLeft + Key.m_nWidth &&
                                y >= Key.m_nTop && y < Key.m_nTop + Key.m_nHeight;
            if (Before.At(x, y) != Pressed.At(x, y))
                (bInside ? nInside : nOutside)++;
        }
    CHECK(nOutside == 0);
    CHECK(nInside > Key.m_nWidth * Key.m_nHeight / 4);
    const cPicture After = InsideOf(Calculator.Keypad());
    for (int y = Key.m_nTop; y < Key.m_nTop + Key.m_nHeight; y++)
        for (int x = Key.m_nLeft; x < Key.m_nLeft + Key.m_nWidth; x++)
            REQUIRE(After.At(x, y) == Before.At(x, y));
}

TEST_CASE("in any resolution listing and registers are beside the face and not cut")
{
    cFineRig     &Rig        = Shared<cFineRig>();
    cCalculator  &Calculator = Rig.m_Calculator;
    const cScale &Scale      = Rig.Scale();
    Calculator.KeepOpen(1, 1);
    Calculator.Slide(swMode, 0);
    Calculator.HitKeys({kKeyStore, kKeyPlus, kKey1});

    CHECK(Calculator.ReadsProgramLine("01 STO+ 1"));
    CHECK(IsTextInField(Calculator));
    const RECT Keypad    = RectIn(Calculator.Window(), Calculator.Keypad());
    const RECT Listing   = RectIn(Calculator.Window(), Calculator.Listing());
    const RECT Registers = RectIn(Calculator.Window(), Calculator.Registers());
    CHECK(Listing.left == Keypad.right);
    CHECK(Registers.left == Listing.right);
    CHECK(Registers.right == ClientOf(Calculator.Window()).right);
    CHECK(Listing.right - Listing.left >= Scale.Length(200));
    CHECK(FitsWidth(Calculator.Listing(), Calculator.ListingLines()));
    CHECK(FitsWidth(Calculator.Registers(), Calculator.RegistersLines()));
    Rig.SaveScreen("boxes");

    Calculator.Slide(swMode, 1);
    Calculator.KeepOpen(0, 0);
    CHECK(Calculator.ReadsX("0.00"));
}

TEST_CASE("in any resolution dialogs show all their controls")
{
    cFineRig    &Rig        = Shared<cFineRig>();
    cCalculator &Calculator = Rig.m_Calculator;
    for (const auto &[nId, szName] : {std::pair{IDM_OPTIONS, "options"}, {IDM_ABOUT, "about"}})
    {
        CAPTURE(szName);
        PostCommand(Calculator, static_cast<unsigned>(nId));
        const HWND hDialog = Calculator.Dialog();
        REQUIRE(hDialog);
        CHECK(CutControls(hDialog) == "");
        CHECK(IsOnScreen(hDialog));
        Rig.SaveScreen(szName);
        PostMessageA(hDialog, WM_COMMAND, IDCANCEL, 0);
        REQUIRE(Calculator.HasNoDialog());
    }
}

TEST_CASE("in any resolution the graph has lines and texts in proportion")
{
    cFineRig     &Rig        = Shared<cFineRig>();
    cCalculator  &Calculator = Rig.m_Calculator;
    const cScale &Scale      = Rig.Scale();
    cGraphWindow  Graph(&Calculator);
    Graph.Open("bend.txt", kPeak);

    CHECK(SizeOf(Graph.Window()).cx == Scale.Length(640));
    CHECK(SizeOf(Graph.Window()).cy == Scale.Length(480));
    CHECK(IsOnScreen(Graph.Window()));
    const cPicture Plot = Graph.PhotographPlot();
    int            nInk = 0;
    int            nRow = 0;
    for (int y = 0; y < Plot.Height(); y++)  // the row of the horizontal axis
    {
        int nBlack = 0;
        for (int x = 0; x < Plot.Width(); x++)
            nBlack += Plot.At(x, y) == 0;
        if (nBlack > nInk)
        {
            nInk = nBlack;
            nRow = y;
        }
    }
    CHECK(nInk > Plot.Width() * 3 / 4);
    CHECK(nInk < Plot.Width() - Scale.Length(20));
    int nThick = 0;
    for (int y = nRow - Scale.Length(4); y < nRow + Scale.Length(4); y++)
        nThick += Plot.At(Plot.Width() / 2 + Scale.Length(9), y) == 0;
    CHECK(nThick == Scale.Length(1));
    Rig.SaveScreen("graph");

    for (const auto &[nId, szName] : {std::pair{IDM_REFORMAT_PLOT, "reformat-plot"},
                                      {IDM_REFORMAT_LINE, "reformat-line"},
                                      {IDM_EDIT_DATA_SET, "edit-data"},
                                      {IDM_ENTER_XY, "enter-data"},
                                      {IDM_CREATE_GIF, "create-gif"},
                                      {IDM_GRAPH_ABOUT, "graph-about"}})
    {
        CAPTURE(szName);
        PostMessageA(Graph.Window(), WM_COMMAND, static_cast<WPARAM>(nId), 0);
        REQUIRE(Calculator.Dialog());
        CHECK(CutControls(Calculator.Dialog()) == "");
        CHECK(IsOnScreen(Calculator.Dialog()));
        Rig.SaveScreen(szName);
        Graph.Escape();
    }
    Graph.Choose(gmFile, IDM_GRAPH_EXIT);
}

TEST_CASE("a calculator that comes to another screen has that screen's scale")
{
    cFineRig    &Rig        = Shared<cFineRig>();
    cCalculator &Calculator = Rig.m_Calculator;
    const cScale First      = Rig.Scale();
    Calculator.Slide(swStackView, 1);
    Calculator.HitKeys({kKeyClearX, kKey8});
    const struct
    {
        int         nDpi;
        const char *szShown;
    } Steps[] = {{120, "16.00"}, {96, "32.00"}, {First.Dpi(), "64.00"}};
    for (const auto &[nDpi, szShown] : Steps)
    {
        CAPTURE(nDpi);
        Calculator.ChangeResolution(nDpi);

        const cScale Scale(nDpi);
        CHECK(ClientOf(Calculator.Keypad()).right == Scale.Length(kFaceWidth));
        CHECK(ClientOf(Calculator.Keypad()).bottom == Scale.Length(kFaceHeight));
        CHECK(ClientOf(Calculator.Window()).right == SizeOf(Calculator.Keypad()).cx);
        CHECK(Eventually(std::string("X  "), [&] { return Calculator.Read(1, 50, 78, 3); }) ==
              "X  ");
        Calculator.HitKeys({kKeyEnter, kKey2, kKeyTimes});
        Calculator.Slide(swStackView, 0);
        CHECK(Calculator.ReadsX(szShown));
        Calculator.Slide(swStackView, 1);
        Rig.SaveScreen("changed-to-" + std::to_string(nDpi));
    }
    Calculator.Slide(swStackView, 0);
}
