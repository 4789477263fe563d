// The display of the real window, read from the screen.

#include "tests/window/calculator.h"

#include <doctest/doctest.h>

#include "tests/window/common_steps.h"
#include "tests/window/input.h"
#include "tests/window/waiting.h"

namespace
{

const unsigned kKeySst      = 1;
const unsigned kKeyGoTo     = 3;
const unsigned kKeyF        = 4;
const unsigned kKeyG        = 5;
const unsigned kKeyIndirect = 7;
const unsigned kKeyStore    = 8;
const unsigned kKeyRecall   = 9;
const unsigned kKeySum      = 10;
const unsigned kKeyEnter    = 11;
const unsigned kKeyChs      = 12;
const unsigned kKeyClearX   = 14;
const unsigned kKeySeven    = 16;
const unsigned kKeyEight    = 17;
const unsigned kKeyFive     = 21;
const unsigned kKeyTwo      = 25;
const unsigned kKeyPoint    = 29;
const unsigned kKeyRunStop  = 30;
const unsigned kMenuView    = 2;
const unsigned kMenuHelp    = 3;

// A field of the display: where its text begins and how many characters it has.
struct cField
{
    int m_bSmall;
    int m_nLeft;
    int m_nTop;
    int m_nLength;
};

const cField kMain    = {0, 59, 66, 20};
const cField kProgram = {0, 50, 66, 20};
const cField kBottom  = {1, 50, 42, 19};
const cField kAngle   = {1, 234, 40, 3};

// Rows of the stack view, as far as nothing stands over them.
const cField kStackX    = {1, 50, 78, 20};
const cField kStackY    = {1, 50, 66, 20};
const cField kStackZ    = {1, 50, 54, 20};
const cField kStackT    = {1, 50, 42, 23};
const cField kLabel     = {1, 194, 53, 9};
const cField kOperation = {1, 194, 66, 10};

// Whether the field shows the text and, behind it, nothing but blanks.
int Shows(const cCalculator &Calculator, const cField &Field, std::string Text)
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

// What stands on the face is what a fresh paint shows: nothing of an earlier
// text is left.
int IsFresh(const cCalculator &Calculator)
{
    const cPicture Before = PhotographFace(Calculator);
    Repaint(Calculator);
    return LooksLike(Calculator, Before);
}

// A window of another program that lies over everything.
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

RECT PlaceOf(HWND hWnd)
{
    RECT Rect = {};
    GetWindowRect(hWnd, &Rect);
    return Rect;
}

}  // namespace

TEST_CASE("the normal layout shows X, the angle mode and the last operation or the pending keys")
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
    } s_Angles[] = {{13, "rad"}, {12, "grd"}, {14, "deg"}};
    for (const auto &Row : s_Angles)
    {
        Calculator.HitKeys({kKeyG, Row.m_nKey});
        CHECK(Shows(Calculator, kAngle, Row.m_szAngle));
    }

    Calculator.HitKeys({kKeyStore, 19, kKeyG});
    CHECK(Shows(Calculator, kBottom, "Keystrs: STO + g"));
    Calculator.HitKeys({kKeyF, kKeyG});
    CHECK(Shows(Calculator, kBottom, "Keystrs: g"));
    Calculator.HitKeys({kKeyEnter, kKeyRecall});
    CHECK(Shows(Calculator, kBottom, "Keystrs: RCL"));
    Calculator.HitKeys({kKeyGoTo, kKeyPoint, 20});
    CHECK(Shows(Calculator, kBottom, "Keystrs: GTO . 4"));
    Calculator.HitKey(kKeyTwo);
    CHECK(Shows(Calculator, kBottom, "LastOp:  GTO.42"));

    // Every mode: FIX, SCI and ENG with their digits.
    static const struct
    {
        unsigned    m_nMode;
        unsigned    m_nDigits;
        const char *m_szSmall;  // 0.0123456
        const char *m_szGreat;  // -98765.4321
    } s_Modes[] = {
        {1, 28, " 1e-02", "-98765"},
        {1, 20, " 0.0123", "-98765.4321"},
        {1, 18, " 0.012345600", "-98765.43210"},
        {2, 28, " 1e-02", "-1e+05"},
        {2, 26, " 1.235e-02", "-9.877e+04"},
        {2, 18, " 1.234560000e-02", "-9.876543210e+04"},
        // An engineering mantissa that begins with 10 is shown otherwise.
        {3, 28, " 1.234560000e-02", "-100.e+03"},
        {3, 26, " 12.35e-03", "-98.77e+03"},
        {3, 18, " 12.34560000e-03", "-98.76543210e+03"},
    };
    for (const auto &Row : s_Modes)
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

TEST_CASE("the stack view and the program layout take the place of the normal one")
{
    cCalculator Calculator;
    Type("1\r2");
    Calculator.HitKey(kKeyChs);
    Type("\r3\r4");

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

    Calculator.HitKeys({kKeyStore, 19, kKeyG});
    CHECK(Shows(Calculator, kLabel, "Keystrs:"));
    CHECK(Shows(Calculator, kOperation, "STO + g"));
    Calculator.HitKeys({kKeyIndirect});
    CHECK(Shows(Calculator, kLabel, "LastOp:"));
    CHECK(Shows(Calculator, kOperation, "STO+ i"));
    Calculator.HitKey(kKeyIndirect);
    CHECK(Shows(Calculator, kStackX, "X   3.00"));
    CHECK(Shows(Calculator, kStackT, "T   4.00"));
    CHECK(Shows(Calculator, kOperation, "Rolldown"));

    // An error takes the place of X.
    Calculator.HitKeys({kKeyGoTo, kKeyFive});
    CHECK(Shows(Calculator, kStackX, "X  Error: no such label"));
    CHECK(Shows(Calculator, kStackY, "Y  -2.00"));
    CHECK(Shows(Calculator, kLabel, "LastOp:"));
    CHECK(Shows(Calculator, kOperation, "GTO 5"));
    Calculator.HitKey(kKeyFive);
    CHECK(Shows(Calculator, kStackX, "X   3.00"));

    // The program layout hides the stack, which is there again afterwards.
    Calculator.Slide(swMode, 0);
    CHECK(Shows(Calculator, kProgram, "00"));
    CHECK(Shows(Calculator, kBottom, "Keystrs:"));
    CHECK(IsFresh(Calculator));
    Calculator.HitKeys({kKeyStore, 19, kKeyPoint});
    CHECK(Shows(Calculator, kBottom, "Keystrs: STO + ."));
    Calculator.HitKey(kKeySeven);
    CHECK(Shows(Calculator, kProgram, "01 STO+ .7"));
    Type("1234567890e12");
    Calculator.HitKey(kKeyChs);
    CHECK(Shows(Calculator, kProgram, "02 +1234567890.e-12"));
    CHECK(Shows(Calculator, kBottom, "Keystrs:"));
    CHECK(IsFresh(Calculator));
    Calculator.Photograph().Save("display-program");

    Calculator.Slide(swMode, 1);
    CHECK(Shows(Calculator, kStackX, "X   3.00"));
    CHECK(Shows(Calculator, kOperation, "GTO 5"));
    CHECK(IsFresh(Calculator));
    Calculator.Slide(swStackView, 0);
    CHECK(Shows(Calculator, kMain, " 3.00"));
    CHECK(Shows(Calculator, kBottom, "LastOp:  GTO 5"));
    CHECK(IsFresh(Calculator));
}

TEST_CASE("errors of twenty characters are shown whole, and no wait marker is")
{
    static const struct
    {
        const char           *m_szTyped;
        std::vector<unsigned> m_Keys;
        const char           *m_szError;
        const char           *m_szBottom;
    } s_Rows[] = {
        {"0", {kKeyF, kKeyEight}, "Error: log of x <= 0", "LastOp:  log"},
        {"1", {kKeyChs, kKeyF, kKeyTwo}, "Error: sqrt of x < 0", "LastOp:  sqrt"},
        {"", {kKeyGoTo, kKeyFive}, "Error: no such label", "LastOp:  GTO 5"},
        {"100",
         {kKeyChs, kKeyStore, 28, kKeyGoTo, kKeyIndirect},
         "Error: neg i too big",
         "LastOp:  GTO i"},
        {"7", {kKeySum, kKeyF, kKeyStore}, "Error: bad summation", "LastOp:  LR"},
        {"", {2, 24}, "Error: subr overflow", "LastOp:  GSB 1"},
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

        // A press brings X back; until the release nothing is waited for that
        // the display would tell.
        MoveMouse(Calculator.OnKey(kKeySeven));
        PressMouse();
        Calculator.SettlePaint();
        CHECK(Calculator.Read(0, 59, 66, 5) != "Error");
        CHECK(Shows(Calculator, kBottom, Row.m_szBottom));
        ReleaseMouse();
        Calculator.Settle();
        CHECK(Shows(Calculator, kBottom, Row.m_szBottom));
    }

    Calculator.HitKeys({kKeyClearX});
    RunListing(&Calculator, "LBL 1\r\nGTO 1\r\n");
    MoveMouse(Calculator.OnKey(kKeySeven));
    PressMouse();
    CHECK(Eventually(0U, [&] { return Calculator.MenuState(IDM_NEW); }) == 0);
    CHECK(Shows(Calculator, kBottom, "LastOp:  R/S"));
    ReleaseMouse();
    Calculator.Settle();
    CHECK(Shows(Calculator, kBottom, "LastOp:  R/S"));
    CHECK(Shows(Calculator, kMain, " 0.00"));

    // A step of twenty characters, the longest that a listing can have.
    OpenListing(&Calculator, "-1.2345678901e-99\r\n");
    Calculator.Slide(swMode, 0);
    Calculator.HitKey(kKeySst);
    CHECK(Shows(Calculator, kProgram, "01 -1.2345678901e-99"));
}

TEST_CASE("the face and its texts come back from under other windows")
{
    cCalculator Calculator;
    Type("1\r2\r3\r4\r");
    const RECT Window = PlaceOf(Calculator.Window());
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

        Calculator.Choose(kMenuHelp, IDM_ABOUT);

        REQUIRE(Calculator.Dialog());
        CHECK(WaitFor([&] { return !(Face() == Before); }));
        Calculator.Click("OK");
        CHECK(WaitFor([&] { return Face() == Before; }));

        PostSystemCommand(Calculator, SC_MINIMIZE);
        CHECK(WaitFor([&] { return IsIconic(Calculator.Window()); }));
        PostSystemCommand(Calculator, SC_RESTORE);
        CHECK(WaitFor([&] { return !IsIconic(Calculator.Window()); }));
        CHECK(WaitFor([&] { return Face() == Before; }));
    }

    // Without the toolbar everything is higher up.
    const cPicture Before  = PhotographFace(Calculator);
    const RECT     WithBar = PlaceOf(Calculator.Keypad());
    const RECT     Bar     = PlaceOf(Calculator.ToolBar());
    Calculator.Choose(kMenuView, IDM_TOOLBAR);
    const RECT WithoutBar = PlaceOf(Calculator.Keypad());
    CHECK(WithBar.top - WithoutBar.top == Bar.bottom - Bar.top);
    CHECK(LooksLike(Calculator, Before));
    CHECK(Shows(Calculator, kStackY, "Y   4.00"));
    Calculator.HitKey(kKeyIndirect);
    CHECK(Shows(Calculator, kOperation, "Rolldown"));
    CHECK(Shows(Calculator, kStackT, "T   4.00"));
    CHECK(IsFresh(Calculator));
    Calculator.Photograph().Save("display-without-toolbar");
    Calculator.Choose(kMenuView, IDM_TOOLBAR);
    Calculator.Settle();
    CHECK(PlaceOf(Calculator.Keypad()).top == WithBar.top);
    CHECK(IsFresh(Calculator));
    Calculator.Choose(kMenuView, IDM_STATUS_BAR);
    CHECK(IsFresh(Calculator));
    CHECK(Shows(Calculator, kOperation, "Rolldown"));
}
