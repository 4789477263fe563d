// The display of the real window, read from the screen.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/keys.h"
#include "tests/window/waiting.h"
#include "tests/window/window_state.h"

namespace
{

// A field of the display: where its text begins and how many characters it has.
struct cField
{
    int m_bSmall;
    int m_nLeft;
    int m_nTop;
    int m_nLength;
};

}  // namespace

static const cField kMain    = {0, 59, 66, 20};
static const cField kProgram = {0, 50, 66, 20};
static const cField kBottom  = {1, 50, 42, 19};
static const cField kAngle   = {1, 234, 40, 3};

// Rows of the stack view, up to the texts that lie over them.
static const cField kStackX    = {1, 50, 78, 20};
static const cField kStackY    = {1, 50, 66, 20};
static const cField kStackZ    = {1, 50, 54, 20};
static const cField kStackT    = {1, 50, 42, 23};
static const cField kLabel     = {1, 194, 53, 9};
static const cField kOperation = {1, 194, 66, 10};

// Waits until the field shows the text, followed by blanks only.
static int Shows(const cCalculator &Calculator, const cField &Field, std::string Text)
{
    Text.resize(static_cast<size_t>(Field.m_nLength), ' ');
    const std::string Seen = Eventually(Text, [&] {
        return Calculator.Read(Field.m_bSmall, Field.m_nLeft, Field.m_nTop, Field.m_nLength);
    });
    if (Seen == Text)
        return 1;
    MESSAGE("the display shows ", Seen, " where ", Text, " is expected");
    PhotographFace(Calculator).Save("failed-field");
    return 0;
}

// Whether a repaint changes nothing: no part of an earlier text is left.
static int IsFresh(const cCalculator &Calculator)
{
    Sleep(200);  // until the key that was typed last is up again
    const cPicture Before = PhotographFace(Calculator);
    Repaint(Calculator);
    return LooksLike(Calculator, Before);
}

namespace
{

// A window of another program on top of all others.
class cCover
{
public:
    explicit cCover(const RECT &Rect)
        : m_hWnd(CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE, "STATIC", "", WS_POPUP,
                                 Rect.left, Rect.top, Rect.right - Rect.left,
                                 Rect.bottom - Rect.top, nullptr, nullptr, nullptr, nullptr))
    {
        ShowWindow(m_hWnd, SW_SHOWNA);
        UpdateWindow(m_hWnd);
    }
    ~cCover() { DestroyWindow(m_hWnd); }
    cCover(const cCover &)            = delete;
    cCover &operator=(const cCover &) = delete;

private:
    HWND m_hWnd;
};

}  // namespace

TEST_CASE("the normal layout shows X with its sign, the angle mode and the last operation")
{
    cCalculator Calculator;
    CHECK(Shows(Calculator, kMain, " 0.00"));
    CHECK(Shows(Calculator, kBottom, "LastOp:"));
    CHECK(Shows(Calculator, kAngle, "deg"));

    // A positive number has a blank where a negative one has its sign.
    Type("5");
    CHECK(Shows(Calculator, kMain, " 5."));
    Calculator.HitKey(kKeyChs);
    CHECK(Shows(Calculator, kMain, "-5."));
    Type("\r");
    CHECK(Shows(Calculator, kMain, "-5.00"));
    CHECK(Shows(Calculator, kBottom, "LastOp:  ENTER"));

    static const struct
    {
        unsigned    m_nKey;
        const char *m_szAngle;
    } s_Angles[] = {{kKeyExponent, "rad"}, {kKeyChs, "grd"}, {kKeyClearX, "deg"}};
    for (const auto &Row : s_Angles)
    {
        Calculator.HitKeys({kKeyG, Row.m_nKey});
        CHECK(Shows(Calculator, kAngle, Row.m_szAngle));
    }
}

TEST_CASE("the keys of an incomplete instruction are shown until it is complete")
{
    cCalculator Calculator;
    Calculator.HitKeys({kKeyStore, kKeyPlus, kKeyG});
    CHECK(Shows(Calculator, kBottom, "Keystrs: STO + g"));
    Calculator.HitKeys({kKeyF, kKeyG});
    CHECK(Shows(Calculator, kBottom, "Keystrs: g"));
    Calculator.HitKeys({kKeyEnter, kKeyRecall});
    CHECK(Shows(Calculator, kBottom, "Keystrs: RCL"));
    Calculator.HitKeys({kKeyGoTo, kKeyPoint, kKey4});
    CHECK(Shows(Calculator, kBottom, "Keystrs: GTO . 4"));
    Calculator.HitKey(kKey2);
    CHECK(Shows(Calculator, kBottom, "LastOp:  GTO.42"));
}

TEST_CASE("X is shown in FIX, SCI and ENG with each number of digits")
{
    const unsigned kFix = kKeySst;  // after f
    const unsigned kSci = kKeyGsb;
    const unsigned kEng = kKeyGoTo;
    const struct
    {
        unsigned    m_nMode;
        unsigned    m_nDigits;
        const char *m_szSmall;  // 0.0123456
        const char *m_szGreat;  // -98765.4321
    } Modes[] = {
        {kFix, kKey0, " 1e-02", "-98765"},
        {kFix, kKey4, " 0.0123", "-98765.4321"},
        {kFix, kKey9, " 0.012345600", "-98765.43210"},
        {kSci, kKey0, " 1e-02", "-1e+05"},
        {kSci, kKey3, " 1.235e-02", "-9.877e+04"},
        {kSci, kKey9, " 1.234560000e-02", "-9.876543210e+04"},
        // An engineering mantissa that begins with 10 is shown differently.
        {kEng, kKey0, " 1.234560000e-02", "-100.e+03"},
        {kEng, kKey3, " 12.35e-03", "-98.77e+03"},
        {kEng, kKey9, " 12.34560000e-03", "-98.76543210e+03"},
    };
    cCalculator Calculator;
    for (const auto &Row : Modes)
    {
        CAPTURE(Row.m_szSmall);
        Calculator.HitKeys({kKeyF, Row.m_nMode, Row.m_nDigits, kKeyClearX});
        Type(".0123456\r");
        CHECK(Shows(Calculator, kMain, Row.m_szSmall));
        Calculator.HitKey(kKeyClearX);
        Type("98765.4321");
        Calculator.HitKey(kKeyChs);
        Type("\r");
        CHECK(Shows(Calculator, kMain, Row.m_szGreat));
    }
    CHECK(Shows(Calculator, kBottom, "LastOp:  ENTER"));
    CHECK(IsFresh(Calculator));
}

// Fills the stack: T 1, Z -2, Y 3, X 4.
static void FillStack(cCalculator *pCalculator)
{
    Type("1\r2");
    pCalculator->HitKey(kKeyChs);
    Type("\r3\r4");
}

TEST_CASE("the stack view shows the four levels, the last operation and the pending keys")
{
    cCalculator Calculator;
    FillStack(&Calculator);
    Calculator.Slide(swStackView, 1);
    CHECK(Shows(Calculator, kStackX, "X   4."));
    CHECK(Shows(Calculator, kStackY, "Y   3.00"));
    CHECK(Shows(Calculator, kStackZ, "Z  -2.00"));
    CHECK(Shows(Calculator, kStackT, "T   1.00"));
    CHECK(Shows(Calculator, kAngle, "deg"));
    CHECK(Shows(Calculator, kLabel, "LastOp:"));
    CHECK(Shows(Calculator, kOperation, "ENTER"));
    CHECK(IsFresh(Calculator));
    Calculator.Photograph().Save("display-stack");

    Calculator.HitKeys({kKeyStore, kKeyPlus, kKeyG});
    CHECK(Shows(Calculator, kLabel, "Keystrs:"));
    CHECK(Shows(Calculator, kOperation, "STO + g"));
    Calculator.HitKey(kKeyRollDown);
    CHECK(Shows(Calculator, kLabel, "LastOp:"));
    CHECK(Shows(Calculator, kOperation, "STO+ i"));
    Calculator.HitKey(kKeyRollDown);
    CHECK(Shows(Calculator, kStackX, "X   3.00"));
    CHECK(Shows(Calculator, kStackT, "T   4.00"));
    CHECK(Shows(Calculator, kOperation, "Rolldown"));
}

TEST_CASE("in the stack view an error takes the place of X until the next key")
{
    cCalculator Calculator;
    FillStack(&Calculator);
    Calculator.Slide(swStackView, 1);
    Calculator.HitKeys({kKeyGoTo, kKey5});
    CHECK(Shows(Calculator, kStackX, "X  Error: no such label"));
    CHECK(Shows(Calculator, kStackY, "Y   3.00"));
    CHECK(Shows(Calculator, kLabel, "LastOp:"));
    CHECK(Shows(Calculator, kOperation, "GTO 5"));
    Calculator.HitKey(kKey5);
    CHECK(Shows(Calculator, kStackX, "X   4.00"));
}

TEST_CASE("program mode shows the current line and the pending keys")
{
    cCalculator Calculator;
    Calculator.Slide(swMode, 0);
    CHECK(Shows(Calculator, kProgram, "00"));
    CHECK(Shows(Calculator, kBottom, "Keystrs:"));
    CHECK(IsFresh(Calculator));
    Calculator.HitKeys({kKeyStore, kKeyPlus, kKeyPoint});
    CHECK(Shows(Calculator, kBottom, "Keystrs: STO + ."));
    Calculator.HitKey(kKey7);
    CHECK(Shows(Calculator, kProgram, "01 STO+ .7"));
    Type("1234567890e12");
    Calculator.HitKey(kKeyChs);
    CHECK(Shows(Calculator, kProgram, "02 +1234567890.e-12"));
    CHECK(Shows(Calculator, kBottom, "Keystrs:"));
    CHECK(IsFresh(Calculator));
    Calculator.Photograph().Save("display-program");
}

TEST_CASE("each layout replaces the one before without a trace")
{
    cCalculator Calculator;
    FillStack(&Calculator);
    Calculator.Slide(swStackView, 1);
    Calculator.HitKey(kKeyRollDown);
    Calculator.Slide(swMode, 0);
    CHECK(Shows(Calculator, kProgram, "00"));
    CHECK(IsFresh(Calculator));
    Calculator.Slide(swMode, 1);
    CHECK(Shows(Calculator, kStackX, "X   3.00"));
    CHECK(Shows(Calculator, kOperation, "Rolldown"));
    CHECK(IsFresh(Calculator));
    Calculator.Slide(swStackView, 0);
    CHECK(Shows(Calculator, kMain, " 3.00"));
    CHECK(Shows(Calculator, kBottom, "LastOp:  Rolldown"));
    CHECK(IsFresh(Calculator));
}

TEST_CASE("errors of up to twenty characters are shown complete")
{
    static const struct
    {
        const char           *m_szTyped;
        std::vector<unsigned> m_Keys;
        const char           *m_szError;
        const char           *m_szBottom;
    } s_Rows[] = {
        {"0", {kKeyF, kKey8}, "Error: log of x <= 0", "LastOp:  log"},
        {"1", {kKeyChs, kKeyF, kKey2}, "Error: sqrt of x < 0", "LastOp:  sqrt"},
        {"", {kKeyGoTo, kKey5}, "Error: no such label", "LastOp:  GTO 5"},
        {"100",
         {kKeyChs, kKeyStore, kKey0, kKeyGoTo, kKeyRollDown},
         "Error: neg i too big",
         "LastOp:  GTO i"},
        {"7", {kKeySum, kKeyF, kKeyStore}, "Error: bad summation", "LastOp:  LR"},
        {"", {kKeyGsb, kKey1}, "Error: subr overflow", "LastOp:  GSB 1"},
    };
    cCalculator Calculator;
    OpenListing(&Calculator, "LBL 1\r\nGSB 1\r\n");
    for (const auto &Row : s_Rows)
    {
        Calculator.HitKey(kKeyClearX);
        Type(Row.m_szTyped);
        for (const unsigned nKey : Row.m_Keys)
            Calculator.HitKey(nKey);
        CHECK(Shows(Calculator, kMain, Row.m_szError));
        CHECK(Shows(Calculator, kBottom, Row.m_szBottom));

        // The press clears the error; the display has no marker that the release
        // is still to come.
        MoveMouse(Calculator.OnKey(kKey7));
        PressMouse();
        Calculator.SettlePaint();
        CHECK(Calculator.Read(0, 59, 66, 5) != "Error");
        CHECK(Shows(Calculator, kBottom, Row.m_szBottom));
        ReleaseMouse();
        Calculator.Settle();
        CHECK(Shows(Calculator, kBottom, Row.m_szBottom));
    }
}

TEST_CASE("the key that halts a run does not show as a pending key")
{
    cCalculator Calculator;
    RunListing(&Calculator, kEndless);
    MoveMouse(Calculator.OnKey(kKey7));
    PressMouse();
    CHECK(HasHalted(Calculator));
    CHECK(Shows(Calculator, kBottom, "LastOp:  R/S"));
    ReleaseMouse();
    Calculator.Settle();
    CHECK(Shows(Calculator, kBottom, "LastOp:  R/S"));
    CHECK(Shows(Calculator, kMain, " 0.00"));
}

TEST_CASE("the longest step of a listing, twenty characters, is shown complete")
{
    cCalculator Calculator;
    OpenListing(&Calculator, "-1.2345678901e-99\r\n");
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(kKeySst);
    CHECK(Shows(Calculator, kProgram, "01 -1.2345678901e-99"));
}

TEST_CASE("the face and its texts are repainted after other windows have covered them")
{
    cCalculator Calculator;
    Type("1\r2\r3\r4\r");
    const RECT Window = RectOf(Calculator.Window());
    const RECT Corner = {Window.left + 100, Window.top + 120, Window.left + 200, Window.top + 130};

    for (const int bStack : {0, 1})
    {
        Calculator.Slide(swStackView, bStack);
        const cPicture Before = PhotographFace(Calculator);
        const auto     Face   = [&] { return PhotographFace(Calculator); };
        for (const RECT &Part : {Window, Corner})
        {
            {
                const cCover Cover(Part);
                CHECK(WaitFor([&] { return !(Face() == Before); }));
            }
            CHECK(WaitFor([&] { return Face() == Before; }));
        }

        Calculator.Choose(mnHelp, IDM_ABOUT);
        REQUIRE(Calculator.Dialog());
        CHECK(WaitFor([&] { return !(Face() == Before); }));
        Calculator.Click("OK");
        CHECK(WaitFor([&] { return Face() == Before; }));

        Minimise(Calculator);
        Restore(Calculator);
        CHECK(WaitFor([&] { return Face() == Before; }));
    }
}

TEST_CASE("without the toolbar or the status bar the face and its texts look the same")
{
    cCalculator Calculator;
    Type("1\r2\r3\r4\r");
    Calculator.Slide(swStackView, 1);
    const cPicture Before = PhotographFace(Calculator);
    const LONG     nTop   = RectOf(Calculator.Keypad()).top;
    const LONG     nBar   = SizeOf(Calculator.ToolBar()).cy;

    Calculator.Choose(mnView, IDM_TOOLBAR);

    CHECK(nTop - RectOf(Calculator.Keypad()).top == nBar);
    CHECK(LooksLike(Calculator, Before));
    CHECK(Shows(Calculator, kStackY, "Y   4.00"));
    Calculator.HitKey(kKeyRollDown);
    CHECK(Shows(Calculator, kOperation, "Rolldown"));
    CHECK(Shows(Calculator, kStackT, "T   4.00"));
    CHECK(IsFresh(Calculator));
    Calculator.Photograph().Save("display-without-toolbar");

    Calculator.Choose(mnView, IDM_TOOLBAR);
    Calculator.Settle();
    CHECK(RectOf(Calculator.Keypad()).top == nTop);
    CHECK(IsFresh(Calculator));
    Calculator.Choose(mnView, IDM_STATUS_BAR);
    CHECK(IsFresh(Calculator));
    CHECK(Shows(Calculator, kOperation, "Rolldown"));
}
